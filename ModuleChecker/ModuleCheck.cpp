#include "ModuleChecker/ModuleCheck.h"

#include "ModuleChecker/DatabaseModuleCheck.h"
#include "ModuleChecker/RuleModuleCheck.h"
#include "Modules/RuleModule.h"
#include "Platform/LibraryTrial.h"

#include <algorithm>
#include <span>

namespace ModuleChecker
{
namespace
{

bool HasOneOf(Platform::LibraryHandle library, std::span<const char* const> names)
{
    return std::any_of(names.begin(), names.end(),
                       [library](const char* name) { return Platform::FindLibrarySymbol(library, name) != nullptr; });
}

void TellThatItIsNoModule(CheckReport& report)
{
    report.Error({}, L"it has none of the exports of a rule module (GetAllRules, ...) or of a database module "
                     L"(GetDbInterface, ...); are they declared as extern \"C\" QOX_MODULE_EXPORT?");
}

} // namespace

void CheckModule(const std::wstring& path, const CheckTools& tools, CheckReport& report)
{
    report.Step({}, L"loading it");
    std::wstring problem;
    const Platform::LibraryHandle library = Platform::OpenLibraryFile(path, problem);
    if (library == nullptr)
    {
        if (problem.empty())
        {
            report.Add(CheckNote::Kind::NoModule, {}, L"it isn't a library of this system, or not whole");
        }
        else
        {
            report.Error({}, L"it can't be loaded: " + problem);
        }
        return;
    }
    const bool isDatabase = HasOneOf(library, RequiredOfDatabaseModules);
    const bool isRuleModule = HasOneOf(library, RequiredOfRuleModules);
    if (isRuleModule)
    {
        RuleModuleCheck(library, tools, report).Run();
    }
    if (isDatabase)
    {
        CheckDatabaseModule(library, report);
    }
    if (!isRuleModule && !isDatabase)
    {
        TellThatItIsNoModule(report);
    }
    report.Step({}, L"releasing it");
    Platform::ReleaseLibrary(library);
}

} // namespace ModuleChecker
