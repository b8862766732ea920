#include <Vantrel/RuleDatabase.h>

#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Library.h"

#include <map>

namespace
{

/// The modules behind the databases that are open, so that each is closed by its own.
std::map<IRuleDatabase*, Platform::LibraryHandle>& OpenDatabases()
{
    static std::map<IRuleDatabase*, Platform::LibraryHandle> databases;
    return databases;
}

} // namespace

IRuleDatabase* OpenRuleDatabase(const std::list<std::wstring>& databaseModules)
{
    for (const std::wstring& path : databaseModules)
    {
        const Platform::LibraryHandle library = Platform::OpenLibraryFile(path);
        if (library == nullptr)
        {
            continue;
        }
        const auto open =
            reinterpret_cast<GetDbInterfaceFunction>(Platform::FindLibrarySymbol(library, "GetDbInterface"));
        if (open != nullptr && Platform::FindLibrarySymbol(library, "DeleteDbInterface") != nullptr)
        {
            if (IRuleDatabase* const database = open())
            {
                OpenDatabases()[database] = library;
                return database;
            }
        }
        Platform::ReleaseLibrary(library);
    }
    return nullptr;
}

void CloseRuleDatabase(IRuleDatabase* database)
{
    const auto found = OpenDatabases().find(database);
    if (found == OpenDatabases().end())
    {
        return;
    }
    const Platform::LibraryHandle library = found->second;
    OpenDatabases().erase(found);
    const auto close =
        reinterpret_cast<DeleteDbInterfaceFunction>(Platform::FindLibrarySymbol(library, "DeleteDbInterface"));
    if (close != nullptr)
    {
        close(database);
    }
    Platform::ReleaseLibrary(library);
}

std::wstring ModuleFolder(void (*functionOfTheModule)())
{
    return Platform::FolderPart(Platform::LibraryPath(Platform::LibraryOfFunction(functionOfTheModule)));
}

bool EnvironmentValue(const std::wstring& name, std::wstring& value)
{
    std::optional<std::wstring> found = Platform::EnvironmentVariable(name);
    if (!found)
    {
        return false;
    }
    value = std::move(*found);
    return true;
}
