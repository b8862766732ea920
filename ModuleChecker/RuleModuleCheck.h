#pragma once

#include "ModuleChecker/ModuleCheck.h"
#include "ModuleChecker/ModuleExports.h"
#include "ModuleChecker/OfferedRule.h"

#include <list>
#include <string>

namespace ModuleChecker
{

/// Checks a rule module that is loaded.
class RuleModuleCheck
{
public:
    RuleModuleCheck(Platform::LibraryHandle library, const CheckTools& tools, CheckReport& report);

    void Run();

private:
    void CheckTexts();
    void TellDatabaseModules(const std::list<std::wstring>& modules);
    OfferedRules GetAllRules(const std::wstring& what);
    void CheckFirst(const OfferedRules& rules);
    void CheckNames(const OfferedRules& rules);
    void CheckSecond(const OfferedRules& first, OfferedRules& second);
    /// Gives rules the module's name and path, as the program does with what it was offered.
    void TakeOver(const OfferedRules& rules);
    void CheckWithoutDatabase(const OfferedRules& first);
    void GiveBack(const OfferedRules& rules);

    Platform::LibraryHandle m_library;
    RuleModuleExports m_exports;
    const CheckTools& m_tools;
    CheckReport& m_report;
    std::wstring m_path;
    std::wstring m_moduleName; // that GetModuleName gives
};

} // namespace ModuleChecker
