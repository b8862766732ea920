// A rule module with the one fault that the build chooses.

#include "tests/ModuleChecker/Broken/Fault.h"

#include <Vantrel/ModuleInterface.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <cmath>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace
{

constexpr Fault ItsFault = Fault::VANTREL_FAULT;

constexpr const wchar_t* ModuleName = ItsFault == Fault::NameMarksUserDefinedRules ? L"vsta rule" : L"Broken Rules";
constexpr std::int32_t RuleCount = 2;

bool Is(Fault fault)
{
    return fault == ItsFault;
}

struct Life
{
    Life()
    {
        if (Is(Fault::CrashesAsItIsLoaded))
        {
            std::abort();
        }
    }
    ~Life()
    {
        if (Is(Fault::CrashesAtTheEnd))
        {
            std::abort();
        }
    }
};

const Life life;

class BrokenRule : public CQoxRule
{
public:
    explicit BrokenRule(std::int32_t number)
    {
        const bool isSecond = number == RuleCount && !Is(Fault::TwoRulesOfOneName);
        m_strRuleName = isSecond ? L"SecondRule" : L"FirstRule";
        if (number == RuleCount && Is(Fault::TwoRulesOfOneName))
        {
            m_strRuleName = L"FIRSTRULE";
        }
        if (number == RuleCount && Is(Fault::NoRuleName))
        {
            m_strRuleName.clear();
        }
        m_strDisplayName = L"A rule";
        m_strCategory = L"Category";
        m_strSummary = L"Finds something.";
        m_strSummary2 = Is(Fault::NoSecondSummary) ? L"" : L"Finds something that matters.";
        m_strRuleModule = Is(Fault::RulesNameAnotherModule) ? L"Other Rules" : ModuleName;
        m_nCriticality = Is(Fault::CriticalityOutOfRange) ? 6 : 3;
        BrokenRule::InitializeParamStorage();
    }

    void InitializeParamStorage() override
    {
        AddLength();
        AddCount();
        AddChoice();
    }

    void UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits) override
    {
        if (Is(Fault::StaysInItsUnits))
        {
            return;
        }
        CQoxRule::UpdateRule(oldUnits, newUnits);
        if (Is(Fault::DriftsInUnits))
        {
            constexpr double Precision = 1e9;
            double& value = m_parameters.front().dValue;
            value = std::round(value * Precision) / Precision; // nothing of a nanometer in meters
        }
    }

    bool UpdateRule(CQoxRule* rule) override { return !Is(Fault::TakesNoValuesOver) && CQoxRule::UpdateRule(rule); }

    QoxXMLNode* GetXML() override
    {
        if (Is(Fault::GetXMLCrashes))
        {
            std::raise(SIGSEGV);
        }
        return Is(Fault::GetXMLGivesNothing) ? nullptr : CQoxRule::GetXML();
    }

    CQoxRule& operator=(CQoxRule* rule) override { return Is(Fault::CopiesBadly) ? *this : CQoxRule::operator=(rule); }

private:
    CQoxParamStorage& Add(ParamKind kind, const wchar_t* name)
    {
        CQoxParamStorage& parameter = m_parameters.emplace_back();
        parameter.nNumber = static_cast<std::int32_t>(m_parameters.size());
        parameter.eKind = kind;
        parameter.strName = name;
        parameter.strLabel = name;
        parameter.strHelp = L"Help.";
        return parameter;
    }

    void AddLength()
    {
        CQoxParamStorage& length = Add(ParamKind::Length, L"Length");
        length.dValue = length.dDefault = Is(Fault::DefaultOutsideItsRange) ? 11 : 1.23456789;
        length.dMinimum = Is(Fault::RangeWithoutRoom) ? 10 : 0.5;
        length.dMaximum = 10;
    }

    void AddCount()
    {
        CQoxParamStorage& count = Add(ParamKind::Integer, L"Count");
        count.nNumber = Is(Fault::NumberTwice) ? 1 : count.nNumber;
        count.dValue = count.dDefault = Is(Fault::HalfAWholeNumber) ? 2.5 : 2;
        count.dMinimum = 0;
        count.dMaximum = 5;
    }

    void AddChoice()
    {
        CQoxParamStorage& choice = Add(ParamKind::Choice, L"Choice");
        choice.choices = { L"A", L"B" };
        choice.strDefault = Is(Fault::DefaultIsNoChoice) ? L"C" : L"A";
        choice.strValue = choice.strDefault;
    }
};

CQoxRule* RuleFor(const std::wstring& name)
{
    for (std::int32_t number = 1; number <= RuleCount; ++number)
    {
        auto rule = std::make_unique<BrokenRule>(number);
        if (rule->m_strRuleName == name)
        {
            return rule.release(); // handed out raw, by contract
        }
    }
    return nullptr;
}

void AddTheSameAsBefore(PointerArray& rules)
{
    static BrokenRule first(1);
    static BrokenRule second(2);
    rules.Add(&first);
    rules.Add(&second);
}

} // namespace

extern "C"
{
    QOX_MODULE_EXPORT void GetAllRules(PointerArray& rules)
    {
        if (Is(Fault::GetAllRulesThrows))
        {
            throw std::runtime_error("no rules today");
        }
        for (volatile bool forever = Is(Fault::GetAllRulesNeverReturns); forever;)
        {
        }
        if (Is(Fault::GivesItsObjectsTwice))
        {
            return AddTheSameAsBefore(rules);
        }
        for (std::int32_t number = 1; number <= RuleCount; ++number)
        {
            rules.Add(new BrokenRule(number)); // the program's until it comes back through DeleteRule
        }
        if (Is(Fault::GivesANullRule))
        {
            rules.Add(nullptr);
        }
    }

    QOX_MODULE_EXPORT void GetRule(QoxXMLNode* node, CQoxRule*& rule)
    {
        if (Is(Fault::ExitsInGetRule))
        {
            std::exit(0);
        }
        std::wstring moduleName;
        std::wstring name;
        node->GetAttributeValue(L"RuleModule", moduleName);
        node->GetAttributeValue(L"RuleName", name);
        if (Is(Fault::DoesNotKnowItsOwnRule) || (moduleName != ModuleName && !Is(Fault::TakesForeignElements)))
        {
            return;
        }
        rule = RuleFor(name);
        if (rule != nullptr)
        {
            rule->PopulateParametersFromXML(node);
            if (Is(Fault::ComesBackChanged))
            {
                rule->Parameters().front().dValue = 1;
            }
        }
    }

    QOX_MODULE_EXPORT void SetXMLDoc(QoxXMLDocument* /*document*/) {}

    QOX_MODULE_EXPORT void SetDBModuleList(const std::list<std::wstring>* /*databaseModules*/) {}

    QOX_MODULE_EXPORT void GetModuleName(std::wstring& name)
    {
        name = Is(Fault::ModuleNameIsEmpty) ? L"" : ModuleName;
    }

    QOX_MODULE_EXPORT void GetModuleSummary(std::wstring& summary)
    {
        summary = L"Rules that are broken in one way.";
    }

    QOX_MODULE_EXPORT void DeleteRule(CQoxRule** rule)
    {
        if (Is(Fault::DeleteRuleThrows))
        {
            throw 7;
        }
        if (!Is(Fault::GivesItsObjectsTwice))
        {
            delete *rule;
        }
        *rule = nullptr;
    }
}
