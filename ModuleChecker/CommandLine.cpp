#include "ModuleChecker/CommandLine.h"

#include <cstddef>

namespace ModuleChecker
{

const wchar_t* const WorkerOption = L"--worker";

const wchar_t* const HelpText =
    L"usage: vantrel-check-module [options] <module> ...\n"
    L"\n"
    L"Loads rule modules and database modules as the rule manager does, calls what they export,\n"
    L"and prints a line for each thing that is wrong. A module that crashes or never comes back\n"
    L"does no harm: each is checked in a process of its own.\n"
    L"\n"
    L"  --database <module>   a database module that rule modules are told of; may be given more\n"
    L"                        than once (else the one beside this program, if it is there)\n"
    L"  --no-database         rule modules are told of none\n"
    L"  --time-limit <s>      how long a call may take, in seconds (10)\n"
    L"  --strict              warnings count as errors\n"
    L"  --help, --version\n"
    L"\n"
    L"Status: 0 without errors, 1 with errors, 2 if there is nothing to check.\n";

namespace
{

constexpr long LongestTimeLimit = 3600;

/// The words of a command line, one after the other.
class Words
{
public:
    explicit Words(const std::vector<std::wstring>& words) : m_words(words) {}

    bool AtEnd() const { return m_next == m_words.size(); }
    const std::wstring& Next() { return m_words[m_next++]; }

private:
    const std::vector<std::wstring>& m_words;
    std::size_t m_next = 0;
};

bool ReadTimeLimit(const std::wstring& text, std::chrono::seconds& limit)
{
    long seconds = 0;
    for (const wchar_t c : text)
    {
        if (c < L'0' || c > L'9' || seconds > LongestTimeLimit)
        {
            return false;
        }
        seconds = seconds * 10 + (c - L'0');
    }
    limit = std::chrono::seconds(seconds);
    return seconds >= 1 && seconds <= LongestTimeLimit;
}

/// Reads one option that something follows. False if it makes no sense.
bool ReadOption(const std::wstring& option, Words& words, Request& request, std::wstring& problem)
{
    const bool isDatabase = option == L"--database";
    const bool isTimeLimit = option == L"--time-limit";
    if (!isDatabase && !isTimeLimit && option != WorkerOption)
    {
        problem = L"there is no option " + option;
        return false;
    }
    if (words.AtEnd())
    {
        problem = option + L" needs something behind it";
        return false;
    }
    const std::wstring& value = words.Next();
    if (isDatabase)
    {
        request.databaseModules.push_back(value);
    }
    else if (!isTimeLimit)
    {
        request.kind = Request::Kind::Worker;
        request.ruleFile = value;
    }
    else if (!ReadTimeLimit(value, request.timeLimit))
    {
        problem = L"the time limit is a number of seconds from 1 to 3600, not " + value;
        return false;
    }
    return true;
}

} // namespace

std::optional<Request> ReadCommandLine(const std::vector<std::wstring>& words, std::wstring& problem)
{
    Request request;
    bool onlyModules = false;
    for (Words rest(words); !rest.AtEnd();)
    {
        const std::wstring& word = rest.Next();
        if (onlyModules || !word.starts_with(L"-"))
        {
            request.modules.push_back(word);
        }
        else if (word == L"--")
        {
            onlyModules = true;
        }
        else if (word == L"--help" || word == L"-h")
        {
            request.kind = Request::Kind::Help;
            return request;
        }
        else if (word == L"--version")
        {
            request.kind = Request::Kind::Version;
            return request;
        }
        else if (word == L"--strict")
        {
            request.strict = true;
        }
        else if (word == L"--no-database")
        {
            request.useOwnDatabase = false;
        }
        else if (!ReadOption(word, rest, request, problem))
        {
            return std::nullopt;
        }
    }
    if (request.modules.empty())
    {
        problem = L"name a module to check; --help tells more";
        return std::nullopt;
    }
    return request;
}

} // namespace ModuleChecker
