#include "ModuleChecker/CheckRun.h"

#include "ModuleChecker/CheckReport.h"
#include "ModuleChecker/ModuleCheck.h"
#include "Platform/ChildProcess.h"
#include "Platform/Files.h"
#include "Platform/LibraryTrial.h"
#include "Platform/Text.h"

#include <algorithm>
#include <random>
#include <set>

namespace ModuleChecker
{
namespace
{

/// Beside the checker, where a module may be looked for that rule modules take their data from.
constexpr const wchar_t* OwnDatabaseModule = L"QoxSqliteDatabaseu.dll";

/// A file for rules that are written and read again; gone afterwards, even if the worker is.
class RuleFile
{
public:
    RuleFile() : m_path(Platform::TemporaryFolder() + L"vantrel-check-module-" + Random() + L".vrf") {}
    ~RuleFile() { Platform::DeleteFileAt(m_path); }
    RuleFile(const RuleFile&) = delete;
    RuleFile& operator=(const RuleFile&) = delete;

    const std::wstring& Path() const { return m_path; }

private:
    static std::wstring Random()
    {
        std::random_device device;
        return std::to_wstring(device()) + std::to_wstring(device());
    }

    std::wstring m_path;
};

/// One module, seen from the process that is safe.
class ModuleRun
{
public:
    ModuleRun(std::wstring module, const Request& request, const std::wstring& worker, const PrintLine& print)
        : m_name(std::move(module)), m_path(Platform::AbsolutePath(m_name)), m_request(request), m_worker(worker),
          m_print(print)
    {
    }

    ExitStatus Run()
    {
        if (Platform::FolderExists(m_path))
        {
            return TellNothingToCheck(L"it is a folder");
        }
        if (!Platform::FileExists(m_path))
        {
            return TellNothingToCheck(L"there is no such file");
        }
        const RuleFile ruleFile;
        const Platform::ChildResult result =
            Platform::RunChild(WorkerCommand(ruleFile.Path()), m_request.timeLimit,
                               [this](const std::string& line) { Take(Platform::Utf8ToWide(line)); });
        if (m_isNoModule)
        {
            return NothingToCheck;
        }
        if (result.end == Platform::ChildEnd::NotStarted)
        {
            return TellNothingToCheck(L"the process in which it is to be checked can't be started");
        }
        if (!m_done)
        {
            Error(HowItEnded(result));
        }
        else if (result.end != Platform::ChildEnd::Ended || result.status != 0)
        {
            Error(L"the process crashes at its end, after the module was released");
        }
        else if (m_errors == 0 && !Platform::LoadsWithoutHarm(m_path))
        {
            Error(L"the dialogs in which modules are added would refuse it: loading it doesn't end well");
        }
        TellSum();
        return m_errors > 0 || (m_request.strict && m_warnings > 0) ? Errors : NoErrors;
    }

private:
    std::vector<std::wstring> WorkerCommand(const std::wstring& ruleFile) const
    {
        std::vector<std::wstring> command = { m_worker, WorkerOption, ruleFile };
        std::list<std::wstring> databases = m_request.databaseModules;
        const std::wstring own = Platform::FolderPart(m_worker) + Platform::PathSeparator + OwnDatabaseModule;
        if (databases.empty() && m_request.useOwnDatabase && Platform::LibraryFileExists(own))
        {
            databases.push_back(own);
        }
        for (const std::wstring& database : databases)
        {
            command.insert(command.end(), { L"--database", Platform::AbsolutePath(database) });
        }
        command.insert(command.end(), { L"--", m_path });
        return command;
    }

    void Take(const std::wstring& line)
    {
        const std::wstring text = line.substr(std::min<std::size_t>(1, line.size()));
        switch (line.empty() ? CheckNote::Kind::Step : static_cast<CheckNote::Kind>(line.front()))
        {
        case CheckNote::Kind::Step:
            m_step = text;
            break;
        case CheckNote::Kind::Error:
            Error(text);
            break;
        case CheckNote::Kind::Warning:
            m_warnings += Print(L": warning: " + text) ? 1U : 0U;
            break;
        case CheckNote::Kind::NoModule:
            m_isNoModule = true;
            TellNothingToCheck(text);
            break;
        case CheckNote::Kind::Counts:
            m_counts += (m_counts.empty() ? L"" : L", ") + text;
            break;
        case CheckNote::Kind::Done:
            m_done = true;
            break;
        }
    }

    /// False for a finding that has been told: what is wrong may come up in more than one place.
    bool Print(const std::wstring& finding)
    {
        const bool isNew = m_told.insert(finding).second;
        if (isNew)
        {
            m_print(m_name + finding);
        }
        return isNew;
    }

    void Error(const std::wstring& text) { m_errors += Print(L": error: " + text) ? 1U : 0U; }

    ExitStatus TellNothingToCheck(const std::wstring& text)
    {
        m_print(m_name + L": error: " + text);
        return NothingToCheck;
    }

    std::wstring HowItEnded(const Platform::ChildResult& result) const
    {
        switch (result.end)
        {
        case Platform::ChildEnd::TimedOut:
            return m_step + L" didn't come back within " + std::to_wstring(m_request.timeLimit.count()) + L" s";
        case Platform::ChildEnd::Crashed:
            return m_step + L" crashed the process: " + result.crash;
        default:
            return m_step + L" ended the process with status " + std::to_wstring(result.status);
        }
    }

    void TellSum()
    {
        m_print(m_name + L": " + (m_counts.empty() ? L"" : m_counts + L": ") + Counted(m_errors, L"error") + L", " +
                Counted(m_warnings, L"warning"));
    }

    std::wstring m_name; // as the user gave it
    std::wstring m_path;
    const Request& m_request;
    const std::wstring& m_worker;
    const PrintLine& m_print;

    std::set<std::wstring> m_told;
    std::wstring m_step = L"starting the check";
    std::wstring m_counts;
    std::size_t m_errors = 0;
    std::size_t m_warnings = 0;
    bool m_isNoModule = false;
    bool m_done = false;
};

} // namespace

ExitStatus CheckModules(const Request& request, const std::wstring& worker, const PrintLine& print)
{
    ExitStatus status = NoErrors;
    for (const std::wstring& module : request.modules)
    {
        status = std::max(status, ModuleRun(module, request, worker, print).Run());
    }
    return status;
}

bool RunWorker(const Request& request)
{
    if (!Platform::BeginAsChild())
    {
        return false;
    }
    CheckReport report([](const CheckNote& note)
                       { Platform::TellParent(static_cast<char>(note.kind) + Platform::WideToUtf8(note.text)); });
    CheckModule(request.modules.front(), { request.databaseModules, request.ruleFile }, report);
    report.Add(CheckNote::Kind::Done, {}, {});
    return true;
}

} // namespace ModuleChecker
