#include "ModuleChecker/ModuleExports.h"

#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>

namespace ModuleChecker
{

RuleModuleExports::RuleModuleExports(Platform::LibraryHandle library)
    : getAllRules(FindExport<GetAllRulesFunction>(library, "GetAllRules")),
      getRule(FindExport<GetRuleFunction>(library, "GetRule")),
      setXMLDoc(FindExport<ModuleSetXMLDocFunction>(library, "SetXMLDoc")),
      setDBModuleList(FindExport<SetDBModuleListFunction>(library, "SetDBModuleList")),
      getModuleName(FindExport<GetModuleNameFunction>(library, "GetModuleName")),
      getModuleSummary(FindExport<GetModuleSummaryFunction>(library, "GetModuleSummary")),
      deleteRule(FindExport<DeleteRuleFunction>(library, "DeleteRule"))
{
}

void CheckRequiredExports(Platform::LibraryHandle library, std::span<const char* const> names, const std::wstring& kind,
                          CheckReport& report)
{
    for (const char* const name : names)
    {
        if (Platform::FindLibrarySymbol(library, name) == nullptr)
        {
            report.Error({}, Platform::Utf8ToWide(name) + L" isn't exported, which a " + kind + L" must have");
        }
    }
}

std::wstring CheckModuleName(Platform::LibraryHandle library, CheckReport& report)
{
    const auto getName = FindExport<GetModuleNameFunction>(library, "GetModuleName");
    if (getName == nullptr)
    {
        report.Warning({}, L"GetModuleName isn't exported: the dialogs in which modules are added don't list it");
        return {};
    }
    std::wstring name;
    std::wstring again;
    if (!Try(report, {}, L"GetModuleName", [&] { getName(name); }) ||
        !Try(report, {}, L"GetModuleName, called again,", [&] { getName(again); }))
    {
        return {};
    }
    if (name.empty())
    {
        report.Error({}, L"GetModuleName gives no name");
    }
    else if (name != again)
    {
        report.Error({}, L"GetModuleName gives " + Quoted(name) + L" and then " + Quoted(again));
    }
    else if (Platform::EqualsNoCase(name, InteractiveRuleMark) || Platform::EqualsNoCase(name, VSTARuleMark))
    {
        report.Error({}, L"GetModuleName gives " + Quoted(name) + L", which marks rules that users define");
    }
    return name;
}

} // namespace ModuleChecker
