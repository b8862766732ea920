// The least that a rule module needs, with one rule. Copy it and give everything names of your own.
#include <Vantrel/ModuleInterface.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

constexpr const wchar_t* ModuleName = L"Engraving Rules"; // stands in rule files: never change or translate it
constexpr const wchar_t* RuleName = L"EngravedLines";     // stands in them too

struct EngravedLines : CQoxRule
{
    using CQoxRule::operator=;
    EngravedLines()
    {
        m_strRuleModule = ModuleName;
        m_strRuleName = RuleName;
        m_strDisplayName = L"Engraved lines";
        m_strCategory = L"Engraving";
        m_strSummary = L"Finds engraved lines that the cutter can't make.";
        m_strSummary2 = L"A line narrower than the tip of the cutter closes up, and a deep one breaks it.";
        Add(1, ParamKind::Length, L"MinimumWidth", L"Smallest width", L"Width of the tip.", 0.4, 0.05, 10);
        Add(2, ParamKind::Angle, L"MinimumAngle", L"Smallest angle", L"Between the walls.", 30, 10, 120);
        Add(3, ParamKind::YesNo, L"CheckText", L"Check text", L"Whether text is looked at too.", 1, 0, 1);
    }

    /// Lengths are in millimeters, angles in degrees. A number never gets a second meaning.
    void Add(int number, ParamKind kind, const wchar_t* name, const wchar_t* label, const wchar_t* help, double value,
             double minimum, double maximum)
    {
        CQoxParamStorage& parameter = m_parameters.emplace_back();
        parameter.nNumber = number;
        parameter.eKind = kind;
        parameter.strName = name;
        parameter.strLabel = label;
        parameter.strHelp = help;
        parameter.dValue = parameter.dDefault = value;
        parameter.dMinimum = minimum;
        parameter.dMaximum = maximum;
    }
};

extern "C"
{
    QOX_MODULE_EXPORT void GetAllRules(PointerArray& rules) { rules.Add(new EngravedLines); }
    QOX_MODULE_EXPORT void GetRule(QoxXMLNode* node, CQoxRule*& rule)
    {
        std::wstring module, name; // of every element of a file, other modules' too
        node->GetAttributeValue(L"RuleModule", module);
        node->GetAttributeValue(L"RuleName", name);
        if (module == ModuleName && name == RuleName)
        {
            (rule = new EngravedLines)->PopulateParametersFromXML(node);
        }
    }
    QOX_MODULE_EXPORT void SetXMLDoc(QoxXMLDocument*) {}
    QOX_MODULE_EXPORT void SetDBModuleList(const std::list<std::wstring>*) {}
    QOX_MODULE_EXPORT void GetModuleName(std::wstring& name) { name = ModuleName; }
    QOX_MODULE_EXPORT void GetModuleSummary(std::wstring& summary) { summary = L"Rules for engraved text and lines."; }
    QOX_MODULE_EXPORT void DeleteRule(CQoxRule** rule) { delete std::exchange(*rule, nullptr); }
}
