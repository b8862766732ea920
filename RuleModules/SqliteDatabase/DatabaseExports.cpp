#include "RuleModules/SqliteDatabase/RuleTableDatabase.h"

#include <Vantrel/RuleDatabase.h>
#include <Vantrel/VantrelLog.h>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <type_traits>
#include <utility>

namespace
{

constexpr const wchar_t* FolderVariable = L"VANTREL_DATABASE_DIR";
constexpr const wchar_t* FileName = L"VantrelRules.sqlite";

void FunctionOfThisLibrary() {}

std::filesystem::path DatabaseFile()
{
    std::wstring folder;
    if (!EnvironmentValue(FolderVariable, folder) || folder.empty())
    {
        folder = ModuleFolder(&FunctionOfThisLibrary);
    }
    return std::filesystem::path(folder) / FileName;
}

/// What tells one state of the file from another.
struct FileState
{
    std::filesystem::path path;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type time;

    friend bool operator==(const FileState&, const FileState&) = default;
};

FileState StateOf(const std::filesystem::path& path)
{
    // A file that isn't there has a state too: the one without a size and a time.
    std::error_code ignored;
    return { path, std::filesystem::file_size(path, ignored), std::filesystem::last_write_time(path, ignored) };
}

/// The tables of the file as it is now, or null. All rule modules ask, one after the other:
/// the file is read once until it changes. One that can't be read is tried again, since it
/// may be locked for a moment, but goes into the log once.
std::shared_ptr<const RuleTables> CurrentTables()
{
    static FileState state;
    static std::shared_ptr<const RuleTables> tables;
    static RuleTableProblem loggedProblem = RuleTableProblem::None;

    FileState now = StateOf(DatabaseFile());
    const bool isAnotherFile = now != state;
    if (tables != nullptr && !isAnotherFile)
    {
        return tables;
    }
    RuleTableProblem problem = RuleTableProblem::None;
    tables = ReadRuleTables(now.path.wstring(), problem);
    if (problem != RuleTableProblem::None && (isAnotherFile || problem != loggedProblem))
    {
        CVantrelLog::PrintMessage(L"The rule database \"" + now.path.wstring() + L"\" " +
                                      std::wstring(ProblemText(problem)) +
                                      L". Rules offer the choices that are built in.",
                                  __FILE__, __LINE__);
    }
    loggedProblem = problem;
    state = std::move(now);
    return tables;
}

} // namespace

extern "C"
{
    QOX_MODULE_EXPORT IRuleDatabase* GetDbInterface()
    {
        try
        {
            std::shared_ptr<const RuleTables> tables = CurrentTables();
            if (tables == nullptr)
            {
                return nullptr;
            }
            // Given back through DeleteDbInterface.
            return std::make_unique<RuleTableDatabase>(std::move(tables)).release();
        }
        catch (const std::exception&)
        {
            return nullptr; // no exception crosses the library's boundary
        }
    }

    QOX_MODULE_EXPORT void DeleteDbInterface(IRuleDatabase* database)
    {
        delete static_cast<RuleTableDatabase*>(database);
    }
}

static_assert(std::is_same_v<decltype(&GetDbInterface), GetDbInterfaceFunction>);
static_assert(std::is_same_v<decltype(&DeleteDbInterface), DeleteDbInterfaceFunction>);
