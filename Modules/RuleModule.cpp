#include "Modules/RuleModule.h"

#include "Platform/Files.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <array>
#include <span>

namespace
{

constexpr std::array RequiredOfRuleModules = { "GetAllRules", "GetRule", "SetXMLDoc", "SetDBModuleList" };
constexpr std::array RequiredOfDatabaseModules = { "GetDbInterface", "DeleteDbInterface" };

bool HasExports(Platform::LibraryHandle library, std::span<const char* const> names)
{
    return std::all_of(names.begin(), names.end(),
                       [library](const char* name) { return Platform::FindLibrarySymbol(library, name) != nullptr; });
}

/// Runs a call into a module. A module is someone else's code: what it throws ends the
/// call and goes into the log, not through the program.
template <typename Call>
void Guard(const RuleModule& module, Call&& call)
{
    try
    {
        call();
    }
    catch (...)
    {
        LogMessage(L"Rule module %s failed", module.Path());
    }
}

} // namespace

std::wstring RuleModule::DisplayName() const
{
    std::wstring name = Platform::FileNamePart(Path());
    if (const auto getName = Find<GetModuleNameFunction>("GetModuleName"))
    {
        Guard(*this, [&] { getName(name); });
    }
    return name;
}

std::wstring RuleModule::Summary() const
{
    std::wstring summary;
    if (const auto getSummary = Find<GetModuleSummaryFunction>("GetModuleSummary"))
    {
        Guard(*this, [&] { getSummary(summary); });
    }
    return summary;
}

bool RuleModule::GetAllRules(PointerArray& rules) const
{
    const auto getAllRules = Find<GetAllRulesFunction>("GetAllRules");
    if (getAllRules == nullptr)
    {
        return false;
    }
    Guard(*this, [&] { getAllRules(rules); });
    return true;
}

CQoxRule* RuleModule::GetRule(QoxXMLNode* node) const
{
    return GetRule(FindGetRule(), node);
}

CQoxRule* RuleModule::GetRule(GetRuleFunction getRule, QoxXMLNode* node) const
{
    CQoxRule* rule = nullptr;
    if (getRule != nullptr)
    {
        Guard(*this, [&] { getRule(node, rule); });
    }
    return rule;
}

void RuleModule::SetXMLDoc(QoxXMLDocument* document) const
{
    if (const auto setDocument = Find<ModuleSetXMLDocFunction>("SetXMLDoc"))
    {
        Guard(*this, [&] { setDocument(document); });
    }
}

void RuleModule::SetDBModuleList(const std::list<std::wstring>& databaseModules) const
{
    if (const auto setList = Find<SetDBModuleListFunction>("SetDBModuleList"))
    {
        Guard(*this, [&] { setList(&databaseModules); });
    }
}

bool RuleModule::DeleteRule(CQoxRule*& rule) const
{
    const auto deleteRule = Find<DeleteRuleFunction>("DeleteRule");
    if (deleteRule == nullptr)
    {
        return false;
    }
    Guard(*this, [&] { deleteRule(&rule); });
    rule = nullptr;
    return true;
}

bool IsValidRuleModule(Platform::LibraryHandle library)
{
    return HasExports(library, RequiredOfRuleModules);
}

bool IsValidDatabaseModule(Platform::LibraryHandle library)
{
    return HasExports(library, RequiredOfDatabaseModules);
}
