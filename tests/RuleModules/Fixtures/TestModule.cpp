// A rule module for tests of the loader. Which exports it has, and whether it offers
// rules, is chosen by definitions: EXPORT_<name>, RULE_COUNT, MODULE_NAME, DISPLAY_NAME.

#include "tests/RuleModules/Fixtures/TestModule.h"
#include "tests/RuleModules/Fixtures/CallRecord.h"

#include <Vantrel/ModuleInterface.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <memory>
#include <type_traits>

namespace
{

struct ModuleState
{
    int liveRules = 0;
    QoxXMLDocument* document = nullptr; // not owned
    std::list<std::wstring> databaseModules;
};

ModuleState& State()
{
    static ModuleState state;
    return state;
}

std::wstring Widen(const char* ascii)
{
    return { ascii, ascii + std::char_traits<char>::length(ascii) };
}

class CountedRule : public CQoxRule
{
public:
    explicit CountedRule(int number)
    {
        ++State().liveRules;
        m_strRuleName = Widen(MODULE_NAME) + L" Rule " + std::to_wstring(number);
        m_strDisplayName = m_strRuleName;
        m_strSummary = L"Summary of " + m_strRuleName;
        m_strSummary2 = m_strSummary;
        m_strCategory = number == 1 ? L"Holes" : L"Walls";
        m_categoryList = { L"Holes", L"Walls" };
        m_strRuleModule = Widen(DISPLAY_NAME);
        m_strHelpFile = L"test_module.htm";
    }

    CountedRule(const CountedRule&) = delete;
    CountedRule& operator=(const CountedRule&) = delete;
    using CQoxRule::operator=;

    ~CountedRule() override { --State().liveRules; }

    void InitializeParamStorage() override
    {
        CQoxParamStorage depth;
        depth.nNumber = 1;
        depth.eKind = ParamKind::Length;
        depth.strName = L"Depth";
        depth.strLabel = L"Depth";
        depth.strHelp = L"A depth.";
        depth.dValue = 10;
        depth.dDefault = 10;
        depth.dMinimum = 0;
        depth.dMaximum = 100;
        CQoxParamStorage check = depth;
        check.nNumber = 2;
        check.eKind = ParamKind::YesNo;
        check.strName = L"Check";
        check.strLabel = L"Check";
        check.strHelp = L"A switch.";
        check.dValue = 1;
        check.dDefault = 1;
        check.dMaximum = 1;
        m_parameters = { depth, check };
    }
};

std::unique_ptr<CountedRule> MakeRule(int number)
{
    auto rule = std::make_unique<CountedRule>(number);
    rule->InitializeParamStorage();
    return rule;
}

} // namespace

extern "C"
{
#ifdef EXPORT_GetAllRules
    QOX_MODULE_EXPORT void GetAllRules(PointerArray& rules)
    {
        RecordCall("GetAllRules");
        for (int number = 1; number <= RULE_COUNT; ++number)
        {
            rules.Add(MakeRule(number).release());
        }
    }
    static_assert(std::is_same_v<decltype(&GetAllRules), GetAllRulesFunction>);
#endif

#ifdef EXPORT_GetRule
    QOX_MODULE_EXPORT void GetRule(QoxXMLNode* node, CQoxRule*& rule)
    {
        RecordCall("GetRule");
        std::wstring module;
        std::wstring name;
        if (node == nullptr || !node->GetAttributeValue(L"RuleModule", module) || module != Widen(DISPLAY_NAME) ||
            !node->GetAttributeValue(L"RuleName", name))
        {
            return;
        }
        for (int number = 1; number <= RULE_COUNT; ++number)
        {
            std::unique_ptr<CountedRule> made = MakeRule(number);
            if (made->m_strRuleName == name)
            {
                made->PopulateParametersFromXML(node);
                rule = made.release();
                return;
            }
        }
    }
    static_assert(std::is_same_v<decltype(&GetRule), GetRuleFunction>);
#endif

#ifdef EXPORT_SetXMLDoc
    QOX_MODULE_EXPORT void SetXMLDoc(QoxXMLDocument* document)
    {
        RecordCall("SetXMLDoc");
        State().document = document;
    }
    static_assert(std::is_same_v<decltype(&SetXMLDoc), ModuleSetXMLDocFunction>);
#endif

#ifdef EXPORT_SetDBModuleList
    QOX_MODULE_EXPORT void SetDBModuleList(const std::list<std::wstring>* databaseModules)
    {
        RecordCall("SetDBModuleList");
        State().databaseModules = databaseModules != nullptr ? *databaseModules : std::list<std::wstring>();
    }
    static_assert(std::is_same_v<decltype(&SetDBModuleList), SetDBModuleListFunction>);
#endif

#ifdef EXPORT_GetModuleName
    QOX_MODULE_EXPORT void GetModuleName(std::wstring& name)
    {
        RecordCall("GetModuleName");
        name = Widen(DISPLAY_NAME);
    }
    static_assert(std::is_same_v<decltype(&GetModuleName), GetModuleNameFunction>);
#endif

#ifdef EXPORT_GetModuleSummary
    QOX_MODULE_EXPORT void GetModuleSummary(std::wstring& summary)
    {
        RecordCall("GetModuleSummary");
        summary = L"Summary of " + Widen(MODULE_NAME);
    }
    static_assert(std::is_same_v<decltype(&GetModuleSummary), GetModuleSummaryFunction>);
#endif

#ifdef EXPORT_DeleteRule
    QOX_MODULE_EXPORT void DeleteRule(CQoxRule** rule)
    {
        RecordCall("DeleteRule");
        if (rule != nullptr)
        {
            delete *rule;
            *rule = nullptr;
        }
    }
    static_assert(std::is_same_v<decltype(&DeleteRule), DeleteRuleFunction>);
#endif

    QOX_MODULE_EXPORT int TestModuleLiveRules()
    {
        return State().liveRules;
    }

    QOX_MODULE_EXPORT QoxXMLDocument* TestModuleDocument()
    {
        return State().document;
    }

    QOX_MODULE_EXPORT void TestModuleDatabaseModules(std::list<std::wstring>& modules)
    {
        modules = State().databaseModules;
    }
}

static_assert(std::is_same_v<decltype(&TestModuleLiveRules), TestModuleLiveRulesFunction>);
static_assert(std::is_same_v<decltype(&TestModuleDocument), TestModuleDocumentFunction>);
static_assert(std::is_same_v<decltype(&TestModuleDatabaseModules), TestModuleDatabaseModulesFunction>);
