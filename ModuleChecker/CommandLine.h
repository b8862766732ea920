#pragma once

#include <chrono>
#include <list>
#include <optional>
#include <string>
#include <vector>

namespace ModuleChecker
{

/// What the checker is asked for.
struct Request
{
    enum class Kind
    {
        Check,
        Help,
        Version,
        Worker, ///< The process in which one module is loaded.
    };

    Kind kind = Kind::Check;
    std::vector<std::wstring> modules;
    std::list<std::wstring> databaseModules;
    std::chrono::seconds timeLimit{ 10 }; ///< For each call into a module.
    bool strict = false;                  ///< Warnings count as errors.
    bool useOwnDatabase = true;           ///< That beside the checker, if none is named.
    std::wstring ruleFile;                ///< Of a worker.
};

/// The word by which the checker starts itself as a worker, before the rule file and the module.
extern const wchar_t* const WorkerOption;

/// Reads the words of a command line, without the program. Nothing, and what is wrong, for one
/// that makes no sense.
std::optional<Request> ReadCommandLine(const std::vector<std::wstring>& words, std::wstring& problem);

/// What `--help` prints.
extern const wchar_t* const HelpText;

} // namespace ModuleChecker
