#include "RuleModules/SqliteDatabase/MaterialDatabase.h"

#include <Vantrel/RuleDatabase.h>

#include <exception>
#include <filesystem>
#include <type_traits>

namespace
{

constexpr const wchar_t* FolderVariable = L"VANTREL_DATABASE_DIR";
constexpr const wchar_t* FileName = L"VantrelRules.sqlite";

void FunctionOfThisLibrary() {}

std::wstring DatabaseFile()
{
    std::wstring folder;
    if (!EnvironmentValue(FolderVariable, folder) || folder.empty())
    {
        folder = ModuleFolder(&FunctionOfThisLibrary);
    }
    return (std::filesystem::path(folder) / FileName).wstring();
}

} // namespace

extern "C"
{
    QOX_MODULE_EXPORT IRuleDatabase* GetDbInterface()
    {
        try
        {
            return MaterialDatabase::Open(DatabaseFile()).release(); // given back through DeleteDbInterface
        }
        catch (const std::exception&)
        {
            return nullptr; // no exception crosses the library's boundary
        }
    }

    QOX_MODULE_EXPORT void DeleteDbInterface(IRuleDatabase* database)
    {
        delete static_cast<MaterialDatabase*>(database);
    }
}

static_assert(std::is_same_v<decltype(&GetDbInterface), GetDbInterfaceFunction>);
static_assert(std::is_same_v<decltype(&DeleteDbInterface), DeleteDbInterfaceFunction>);
