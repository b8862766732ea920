#pragma once

#include "ModuleChecker/CheckReport.h"

#include <list>
#include <string>

namespace ModuleChecker
{

/// What a module is checked with.
struct CheckTools
{
    std::list<std::wstring> databaseModules; ///< That rule modules are told of.
    std::wstring ruleFile;                   ///< Written and read on the way; whoever names it deletes it afterwards.
};

/// Loads a rule module or a database module into this process and calls each of its exports as
/// the program would. A module may end the process or never come back, so this is for a
/// process of its own.
void CheckModule(const std::wstring& path, const CheckTools& tools, CheckReport& report);

} // namespace ModuleChecker
