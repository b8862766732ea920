#pragma once

#include "ModuleChecker/CheckReport.h"
#include "Platform/Library.h"

#include <Vantrel/ModuleInterface.h>

#include <span>

namespace ModuleChecker
{

/// The exports of a rule module; null for those that it lacks.
struct RuleModuleExports
{
    explicit RuleModuleExports(Platform::LibraryHandle library);

    GetAllRulesFunction getAllRules;
    GetRuleFunction getRule;
    ModuleSetXMLDocFunction setXMLDoc;
    SetDBModuleListFunction setDBModuleList;
    GetModuleNameFunction getModuleName;
    GetModuleSummaryFunction getModuleSummary;
    DeleteRuleFunction deleteRule;
};

/// The export of a library, or null.
template <typename Function>
Function FindExport(Platform::LibraryHandle library, const char* name)
{
    return reinterpret_cast<Function>(Platform::FindLibrarySymbol(library, name));
}

/// Tells each required export that is missing.
void CheckRequiredExports(Platform::LibraryHandle library, std::span<const char* const> names, const std::wstring& kind,
                          CheckReport& report);

/// Asks the module for its name, which a rule module and a database module may both have, and
/// tells what is wrong with it. What it gives; empty if it gives none.
std::wstring CheckModuleName(Platform::LibraryHandle library, CheckReport& report);

} // namespace ModuleChecker
