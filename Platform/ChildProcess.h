#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// Processes that this program starts for work that may end them.
namespace Platform
{

enum class ChildEnd
{
    NotStarted,
    Ended,    ///< By itself.
    Crashed,  ///< By the system, for what it did.
    TimedOut, ///< By its parent, because nothing more came from it.
};

/// How a child process ended.
struct ChildResult
{
    ChildEnd end = ChildEnd::NotStarted;
    int status = 0;     ///< Of one that ended by itself.
    std::wstring crash; ///< What one crashed of, in the system's words.
};

/// Starts a program, whose full path comes first in the command, and waits for its end. Each
/// line that it tells goes to `onLine`, in UTF-8 and without its end. It is ended when it has
/// told nothing for the time of `limit`. What it writes to its standard output goes to the
/// standard error of this process.
ChildResult RunChild(const std::vector<std::wstring>& command, std::chrono::milliseconds limit,
                     const std::function<void(const std::string& line)>& onLine);

/// First thing in a process that `RunChild` started: makes a crash end it at once and without
/// a dump, and the end of its parent too. False if it wasn't started so.
bool BeginAsChild();

/// Tells the parent a line, which has no line ends in it. It has arrived even if the process
/// ends right behind the call. Does nothing in a process that didn't call `BeginAsChild`.
void TellParent(const std::string& line);

} // namespace Platform
