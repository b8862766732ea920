#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Process.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Platform
{
namespace
{

bool IsUrl(const std::wstring& text)
{
    const std::size_t colon = text.find(L':');
    return !IsAbsolutePath(text) && colon != std::wstring::npos && colon > 1 &&
           text.find_first_not_of(L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789+-.") == colon;
}

/// What the process between the program and the started one does. It ends at once, so
/// that the started one belongs to the system and needs no one to wait for it.
[[noreturn]] void StartAndLeave(const char* const* arguments, int report)
{
    const pid_t started = ::fork();
    if (started == 0)
    {
        ::setsid();
        ::execvp(arguments[0], const_cast<char* const*>(arguments));
    }
    if (started <= 0)
    {
        // On success the other end is closed without a byte.
        const char failed = 1;
        while (::write(report, &failed, 1) < 0 && errno == EINTR)
        {
        }
    }
    ::_exit(0);
}

bool StartDetached(const char* const* arguments)
{
    int report[2] = {};
    if (::pipe2(report, O_CLOEXEC) != 0)
    {
        return false;
    }
    const pid_t between = ::fork();
    if (between == 0)
    {
        StartAndLeave(arguments, report[1]);
    }
    ::close(report[1]);
    bool started = false;
    if (between > 0)
    {
        while (::waitpid(between, nullptr, 0) < 0 && errno == EINTR)
        {
        }
        char failed = 0;
        ssize_t count = 0;
        while ((count = ::read(report[0], &failed, 1)) < 0 && errno == EINTR)
        {
        }
        started = count == 0;
    }
    ::close(report[0]);
    return started;
}

} // namespace

bool OpenWithDesktop(const std::wstring& fileOrUrl)
{
    // An absolute path can't be taken for an option.
    const std::string target = Posix::PathBytes(IsUrl(fileOrUrl) ? fileOrUrl : AbsolutePath(fileOrUrl));
    if (target.empty())
    {
        return false;
    }
    const char* const arguments[] = { "xdg-open", target.c_str(), nullptr };
    return StartDetached(arguments);
}

} // namespace Platform
