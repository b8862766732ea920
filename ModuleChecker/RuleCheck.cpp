#include "ModuleChecker/RuleCheck.h"

#include "ModuleChecker/OfferedRule.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace ModuleChecker
{
namespace
{

struct TextMember
{
    std::wstring CQoxRule::*text;
    const wchar_t* missing;
};

constexpr std::array RequiredTexts = {
    TextMember{ &CQoxRule::m_strRuleName, L"the rule has no name (m_strRuleName)" },
    TextMember{ &CQoxRule::m_strDisplayName, L"the rule has no name for people (m_strDisplayName)" },
    TextMember{ &CQoxRule::m_strSummary, L"the rule has no summary (m_strSummary)" },
    TextMember{ &CQoxRule::m_strSummary2,
                L"the rule has no second summary (m_strSummary2), by which it is found again" },
    TextMember{ &CQoxRule::m_strCategory, L"the rule has no category (m_strCategory)" },
};

std::wstring Limit(double number)
{
    return std::isinf(number) ? std::wstring(L"any") : FormatShownNumber(number);
}

std::wstring RangeText(const CQoxParamStorage& parameter)
{
    return Limit(parameter.dMinimum) + L" to " + Limit(parameter.dMaximum);
}

/// One parameter of a new rule.
class ParameterCheck
{
public:
    ParameterCheck(const CQoxParamStorage& parameter, std::wstring place, CheckReport& report)
        : m_parameter(parameter), m_place(std::move(place)), m_report(report)
    {
    }

    void Run()
    {
        if (m_parameter.eKind > ParamKind::Text)
        {
            Error(L"its kind is none of those that there are");
            return;
        }
        CheckTexts();
        if (m_parameter.eKind == ParamKind::Choice)
        {
            CheckChoices();
        }
        else if (m_parameter.IsNumeric())
        {
            CheckNumbers();
        }
        if (!m_parameter.IsDefault())
        {
            m_report.Warning(m_place, L"a new rule has another value than the default");
        }
    }

private:
    void Error(const std::wstring& text) { m_report.Error(m_place, text); }

    void CheckTexts()
    {
        if (m_parameter.nNumber < 1)
        {
            Error(L"its number isn't 1 or higher");
        }
        if (m_parameter.strName.empty())
        {
            Error(L"it has no name (strName)");
        }
        if (m_parameter.strLabel.empty())
        {
            Error(L"it has no name for people (strLabel)");
        }
        if (m_parameter.strHelp.empty())
        {
            m_report.Warning(m_place, L"it has no help (strHelp), so the editor says nothing about it");
        }
    }

    void CheckChoices()
    {
        const std::set<std::wstring> distinct(m_parameter.choices.begin(), m_parameter.choices.end());
        if (m_parameter.choices.empty())
        {
            Error(L"it offers no choices");
            return;
        }
        if (distinct.size() < m_parameter.choices.size() || distinct.contains(L""))
        {
            Error(L"a choice is empty or offered twice");
        }
        CheckOffered(m_parameter.strDefault, distinct, L"the default ");
        CheckOffered(m_parameter.strValue, distinct, L"the value ");
    }

    void CheckOffered(const std::wstring& choice, const std::set<std::wstring>& choices, const std::wstring& what)
    {
        if (!choices.contains(choice))
        {
            Error(what + Quoted(choice) + L" is none of the choices");
        }
    }

    void CheckNumbers()
    {
        const bool isYesNo = m_parameter.eKind == ParamKind::YesNo;
        if (!isYesNo && !(m_parameter.dMinimum < m_parameter.dMaximum))
        {
            Error(L"its range from " + RangeText(m_parameter) + L" has no room");
            return;
        }
        CheckNumber(m_parameter.dDefault, L"the default ");
        CheckNumber(m_parameter.dValue, L"the value ");
    }

    void CheckNumber(double number, const std::wstring& what)
    {
        CQoxParamStorage asValue = m_parameter;
        asValue.dValue = number;
        if (asValue.IsValid())
        {
            return;
        }
        const std::wstring text = what + FormatShownNumber(number);
        if (m_parameter.eKind == ParamKind::YesNo)
        {
            Error(text + L" is neither 0 nor 1");
        }
        else if (std::isfinite(number) && number >= m_parameter.dMinimum && number <= m_parameter.dMaximum)
        {
            Error(text + L" is no whole number");
        }
        else
        {
            Error(text + L" lies outside its range from " + RangeText(m_parameter));
        }
    }

    const CQoxParamStorage& m_parameter;
    std::wstring m_place;
    CheckReport& m_report;
};

void CheckMembers(const CQoxRule& rule, const std::wstring& place, CheckReport& report)
{
    for (const TextMember& member : RequiredTexts)
    {
        if ((rule.*member.text).empty())
        {
            report.Error(place, member.missing);
        }
    }
    if (rule.m_nCriticality < LowestCriticality || rule.m_nCriticality > HighestCriticality)
    {
        report.Error(place, L"its criticality " + std::to_wstring(rule.m_nCriticality) + L" isn't 1 to 5");
    }
    if (!rule.m_categoryList.empty() && std::find(rule.m_categoryList.begin(), rule.m_categoryList.end(),
                                                  rule.m_strCategory) == rule.m_categoryList.end())
    {
        report.Error(place, L"its category " + Quoted(rule.m_strCategory) + L" isn't in its list of categories");
    }
    if (rule.m_nRuleState != 0 || rule.m_bIsRoot || !rule.m_children.IsEmpty())
    {
        report.Error(place, L"m_nRuleState, m_bIsRoot and m_children are the program's, and not as they were made");
    }
}

void CheckParameters(CQoxRule& rule, const std::wstring& place, CheckReport& report)
{
    std::set<std::int32_t> numbers;
    std::set<std::wstring> names;
    for (const CQoxParamStorage& parameter : rule.Parameters())
    {
        const std::wstring where = PlaceOf(place, parameter);
        if (!numbers.insert(parameter.nNumber).second)
        {
            report.Error(where, L"another parameter of the rule has the same number");
        }
        else if (rule.FindParameterInArray(parameter.nNumber) != &parameter)
        {
            report.Error(where, L"FindParameterInArray doesn't find it by its number");
        }
        if (!parameter.strName.empty() && !names.insert(parameter.strName).second)
        {
            report.Error(where, L"another parameter of the rule has the same name");
        }
        ParameterCheck(parameter, where, report).Run();
    }
}

} // namespace

void CheckRule(CQoxRule& rule, const std::wstring& place, CheckReport& report)
{
    CheckMembers(rule, place, report);
    Try(report, place, L"FindParameterInArray", [&] { CheckParameters(rule, place, report); });
    bool isValid = true;
    Try(report, place, L"ValidateInputData", [&] { isValid = rule.ValidateInputData(); });
    const bool parametersAreValid = std::all_of(rule.Parameters().begin(), rule.Parameters().end(),
                                                [](const CQoxParamStorage& parameter) { return parameter.IsValid(); });
    if (!isValid && parametersAreValid)
    {
        report.Error(place, L"ValidateInputData refuses the values that a new rule has");
    }
}

} // namespace ModuleChecker
