#include "Modules/RuleModule.h"

#include "Modules/ModuleGuard.h"
#include "Platform/Files.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <span>

namespace
{

bool HasExports(Platform::LibraryHandle library, std::span<const char* const> names)
{
    return std::all_of(names.begin(), names.end(),
                       [library](const char* name) { return Platform::FindLibrarySymbol(library, name) != nullptr; });
}

} // namespace

bool RuleModule::GetModuleName(std::wstring& name) const
{
    const auto getName = Find<GetModuleNameFunction>("GetModuleName");
    if (getName == nullptr)
    {
        return false;
    }
    GuardModuleCall(Path(), [&] { getName(name); });
    return true;
}

bool RuleModule::GetModuleSummary(std::wstring& summary) const
{
    const auto getSummary = Find<GetModuleSummaryFunction>("GetModuleSummary");
    if (getSummary == nullptr)
    {
        return false;
    }
    GuardModuleCall(Path(), [&] { getSummary(summary); });
    return true;
}

std::wstring RuleModule::DisplayName() const
{
    std::wstring name = Platform::FileNamePart(Path());
    GetModuleName(name);
    return name;
}

std::wstring RuleModule::Summary() const
{
    std::wstring summary;
    GetModuleSummary(summary);
    return summary;
}

bool RuleModule::GetAllRules(PointerArray& rules) const
{
    const auto getAllRules = Find<GetAllRulesFunction>("GetAllRules");
    if (getAllRules == nullptr)
    {
        return false;
    }
    GuardModuleCall(Path(), [&] { getAllRules(rules); });
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
        GuardModuleCall(Path(), [&] { getRule(node, rule); });
    }
    return rule;
}

void RuleModule::SetXMLDoc(QoxXMLDocument* document) const
{
    if (const auto setDocument = Find<ModuleSetXMLDocFunction>("SetXMLDoc"))
    {
        GuardModuleCall(Path(), [&] { setDocument(document); });
    }
}

void RuleModule::SetDBModuleList(const std::list<std::wstring>& databaseModules) const
{
    if (const auto setList = Find<SetDBModuleListFunction>("SetDBModuleList"))
    {
        GuardModuleCall(Path(), [&] { setList(&databaseModules); });
    }
}

bool RuleModule::DeleteRule(CQoxRule*& rule) const
{
    const auto deleteRule = Find<DeleteRuleFunction>("DeleteRule");
    if (deleteRule == nullptr)
    {
        return false;
    }
    GuardModuleCall(Path(), [&] { deleteRule(&rule); });
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
