#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

class CQoxRule;
class CQoxParamStorage;

namespace ModuleChecker
{

/// What is told of a check, in the order in which it comes up.
struct CheckNote
{
    enum class Kind : char
    {
        Step = 's',     ///< What is done next; if nothing follows, it didn't come back.
        Error = 'e',    ///< The program would do harm or not work with the module.
        Warning = 'w',  ///< The program works, but people miss something.
        NoModule = 'n', ///< There is nothing to check.
        Counts = 'c',   ///< What was found in the module, for people.
        Done = 'd',     ///< The check came to its end.
    };

    Kind kind = Kind::Step;
    std::wstring text; ///< One line.
};

/// Takes the notes of a check. A text tells where: the rule and the parameter first.
class CheckReport
{
public:
    explicit CheckReport(std::function<void(const CheckNote& note)> sink) : m_sink(std::move(sink)) {}

    void Step(const std::wstring& place, const std::wstring& what) { Add(CheckNote::Kind::Step, place, what); }
    void Error(const std::wstring& place, const std::wstring& text) { Add(CheckNote::Kind::Error, place, text); }
    void Warning(const std::wstring& place, const std::wstring& text) { Add(CheckNote::Kind::Warning, place, text); }

    /// One line: what comes from a module may hold anything.
    void Add(CheckNote::Kind kind, const std::wstring& place, const std::wstring& text);

private:
    std::function<void(const CheckNote& note)> m_sink;
};

/// A text between quotes.
std::wstring Quoted(std::wstring_view text);

/// A number of things: `1 rule`, `2 rules`.
std::wstring Counted(std::size_t count, const std::wstring& what);

/// Where a finding is: `rule "Name"`, or the rule's number from 1 on if it has no name.
std::wstring PlaceOf(const CQoxRule& rule, std::int32_t number);

/// Same with the parameter behind it.
std::wstring PlaceOf(const std::wstring& rule, const CQoxParamStorage& parameter);

/// Makes a call into the module. What it throws is an error, since the program has no way to
/// tell it to anybody. False if it threw.
template <typename Call>
bool Try(CheckReport& report, const std::wstring& place, const std::wstring& what, Call&& call)
{
    report.Step(place, what);
    try
    {
        std::forward<Call>(call)();
        return true;
    }
    catch (const std::exception& exception)
    {
        const std::string_view words = exception.what();
        report.Error(place, what + L" throws an exception: " + std::wstring(words.begin(), words.end()));
    }
    catch (...)
    {
        report.Error(place, what + L" throws an exception that is no std::exception");
    }
    return false;
}

} // namespace ModuleChecker
