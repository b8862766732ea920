#include "ModuleChecker/RuleModuleCheck.h"

#include "ModuleChecker/RuleCheck.h"
#include "ModuleChecker/RuleFileCheck.h"
#include "ModuleChecker/RuleValueCheck.h"
#include "Modules/RuleModule.h"
#include "Platform/Files.h"
#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <set>

namespace ModuleChecker
{

RuleModuleCheck::RuleModuleCheck(Platform::LibraryHandle library, const CheckTools& tools, CheckReport& report)
    : m_library(library), m_exports(library), m_tools(tools), m_report(report), m_path(Platform::LibraryPath(library))
{
}

void RuleModuleCheck::Run()
{
    CheckRequiredExports(m_library, RequiredOfRuleModules, L"rule module", m_report);
    m_moduleName = CheckModuleName(m_library, m_report);
    CheckTexts();
    TellDatabaseModules(m_tools.databaseModules);
    if (m_exports.getAllRules == nullptr)
    {
        return;
    }
    const OfferedRules rules = GetAllRules(L"GetAllRules");
    CheckFirst(rules);
    OfferedRules others = GetAllRules(L"GetAllRules, called again,");
    CheckSecond(rules, others);
    TakeOver(rules);
    TakeOver(others);

    RuleFileCheck(m_exports, m_tools.ruleFile, m_report).Run(rules);
    RuleValueCheck(m_exports, m_report).Run(rules, others);
    GiveBack(others);
    CheckWithoutDatabase(rules);
    GiveBack(rules);
}

void RuleModuleCheck::CheckTexts()
{
    if (m_exports.getModuleSummary == nullptr)
    {
        m_report.Warning({}, L"GetModuleSummary isn't exported: the dialogs don't say what the module is for");
    }
    else
    {
        std::wstring summary;
        const bool told =
            Try(m_report, {}, L"GetModuleSummary", [this, &summary] { m_exports.getModuleSummary(summary); });
        if (told && summary.empty())
        {
            m_report.Warning({}, L"GetModuleSummary gives no summary");
        }
    }
    if (m_exports.deleteRule == nullptr)
    {
        m_report.Warning({}, L"DeleteRule isn't exported: rules that are no longer needed stay in memory");
    }
}

void RuleModuleCheck::TellDatabaseModules(const std::list<std::wstring>& modules)
{
    if (m_exports.setDBModuleList != nullptr)
    {
        Try(m_report, {}, L"SetDBModuleList", [&] { m_exports.setDBModuleList(&modules); });
    }
}

OfferedRules RuleModuleCheck::GetAllRules(const std::wstring& what)
{
    PointerArray array;
    Try(m_report, {}, what, [&] { m_exports.getAllRules(array); });
    OfferedRules rules;
    std::set<const CQoxRule*> seen;
    std::set<std::wstring> places;
    std::int32_t number = 0;
    for (CQoxRule* const rule : array)
    {
        ++number;
        const std::wstring place = L"rule " + std::to_wstring(number);
        if (rule == nullptr)
        {
            m_report.Error(place, L"GetAllRules gives a null pointer for it");
        }
        else if (!seen.insert(rule).second)
        {
            m_report.Error(place, L"GetAllRules gives the same object as for a rule before");
        }
        else
        {
            std::wstring where = PlaceOf(*rule, number);
            if (!places.insert(where).second)
            {
                where += L" (" + std::to_wstring(number) + L")";
            }
            rules.push_back({ rule, std::move(where) });
        }
    }
    return rules;
}

void RuleModuleCheck::CheckFirst(const OfferedRules& rules)
{
    if (rules.empty())
    {
        m_report.Warning({}, L"it offers no rules");
    }
    CheckNames(rules);
    std::size_t parameters = 0;
    for (const OfferedRule& offered : rules)
    {
        parameters += offered.rule->Parameters().size();
        CheckRule(*offered.rule, offered.place, m_report);
        if (!m_moduleName.empty() && offered.rule->m_strRuleModule != m_moduleName)
        {
            m_report.Error(offered.place, L"its module (m_strRuleModule) is " + Quoted(offered.rule->m_strRuleModule) +
                                              L", but GetModuleName gives " + Quoted(m_moduleName));
        }
    }
    m_report.Add(CheckNote::Kind::Counts, {},
                 Counted(rules.size(), L"rule") + L" with " + Counted(parameters, L"parameter"));
}

void RuleModuleCheck::CheckNames(const OfferedRules& rules)
{
    std::set<std::wstring> seen;
    for (const OfferedRule& offered : rules)
    {
        const std::wstring& name = offered.rule->m_strRuleName;
        if (!name.empty() && !seen.insert(Platform::ToLower(name)).second)
        {
            m_report.Error(offered.place, L"another rule has the same name; case makes no difference");
        }
    }
}

void RuleModuleCheck::CheckSecond(const OfferedRules& first, OfferedRules& second)
{
    const bool isSame = std::equal(first.begin(), first.end(), second.begin(), second.end(),
                                   [](const OfferedRule& one, const OfferedRule& other)
                                   { return one.rule->m_strRuleName == other.rule->m_strRuleName; });
    if (!isSame)
    {
        m_report.Error({}, L"GetAllRules gives other rules when it is called again");
    }
    // One object may only be given back once.
    std::erase_if(second,
                  [&](const OfferedRule& offered)
                  {
                      const bool isOld =
                          std::any_of(first.begin(), first.end(),
                                      [&offered](const OfferedRule& before) { return before.rule == offered.rule; });
                      if (isOld)
                      {
                          m_report.Error(offered.place,
                                         L"GetAllRules gives the same object again; each call makes new ones");
                      }
                      return isOld;
                  });
}

void RuleModuleCheck::TakeOver(const OfferedRules& rules)
{
    for (const OfferedRule& offered : rules)
    {
        offered.rule->m_strRuleModule = m_moduleName.empty() ? Platform::FileNamePart(m_path) : m_moduleName;
        offered.rule->m_strModulePath = m_path;
    }
}

void RuleModuleCheck::CheckWithoutDatabase(const OfferedRules& first)
{
    TellDatabaseModules({});
    const OfferedRules rules = GetAllRules(L"GetAllRules, without a database,");
    if (rules.size() != first.size())
    {
        m_report.Error({}, L"GetAllRules gives other rules without a database module");
    }
    for (std::size_t index = 0; index < std::min(rules.size(), first.size()); ++index)
    {
        const std::wstring& place = rules[index].place;
        bool isWorse = false;
        Try(m_report, place, L"ValidateInputData",
            [&] { isWorse = first[index].rule->ValidateInputData() && !rules[index].rule->ValidateInputData(); });
        if (isWorse)
        {
            m_report.Error(place, L"a new rule has invalid values without a database module");
        }
    }
    GiveBack(rules);
}

void RuleModuleCheck::GiveBack(const OfferedRules& rules)
{
    if (m_exports.deleteRule == nullptr)
    {
        return;
    }
    for (const OfferedRule& offered : rules)
    {
        CQoxRule* rule = offered.rule;
        if (Try(m_report, offered.place, L"DeleteRule", [&] { m_exports.deleteRule(&rule); }) && rule != nullptr)
        {
            m_report.Warning(offered.place, L"DeleteRule doesn't set the pointer to null");
        }
    }
}

} // namespace ModuleChecker
