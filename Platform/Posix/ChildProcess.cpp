#include "Platform/ChildProcess.h"

#include "Platform/Posix/ChildSignalGuard.h"
#include "Platform/Posix/CrashEnd.h"
#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/PathBytes.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string_view>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Platform
{
namespace
{

using Clock = std::chrono::steady_clock;

/// The file by which a child tells its parent, and the variable that says that it is there.
constexpr int ChannelFile = 3;
constexpr const char* ChannelVariable = "VANTREL_PARENT_LISTENS";

int channel = -1; // of this process to its parent

/// What the child tells, as it comes, in lines.
class Lines
{
public:
    Lines(int file, const std::function<void(const std::string& line)>& onLine) : m_file(file), m_onLine(onLine) {}

    /// Takes what is there. False at the end.
    bool Take()
    {
        std::array<char, 4096> buffer = {};
        for (;;)
        {
            const ssize_t size = ::read(m_file, buffer.data(), buffer.size());
            if (size > 0)
            {
                m_text.append(buffer.data(), static_cast<std::size_t>(size));
                HandOn();
            }
            else if (size == 0 || errno != EINTR)
            {
                return size < 0 && errno == EAGAIN;
            }
        }
    }

private:
    void HandOn()
    {
        std::size_t start = 0;
        for (std::size_t end = m_text.find('\n'); end != std::string::npos; end = m_text.find('\n', start))
        {
            m_onLine(m_text.substr(start, end - start));
            start = end + 1;
        }
        m_text.erase(0, start);
    }

    int m_file;
    const std::function<void(const std::string& line)>& m_onLine;
    std::string m_text;
};

/// The environment of this process with the channel's variable.
std::vector<char*> ChildEnvironment(std::string& variable)
{
    variable = std::string(ChannelVariable) + "=1";
    std::vector<char*> environment;
    for (char** entry = environ; *entry != nullptr; ++entry)
    {
        environment.push_back(*entry);
    }
    environment.push_back(variable.data());
    environment.push_back(nullptr);
    return environment;
}

std::optional<pid_t> Start(const std::vector<std::wstring>& command, int writeEnd)
{
    std::vector<std::string> words;
    std::vector<char*> arguments;
    words.reserve(command.size());
    arguments.reserve(command.size() + 1);
    for (const std::wstring& word : command)
    {
        words.push_back(Posix::PathBytes(word));
        arguments.push_back(words.back().data()); // stays where it is: there is room for all
    }
    arguments.push_back(nullptr);
    std::string variable;
    const std::vector<char*> environment = ChildEnvironment(variable);

    posix_spawn_file_actions_t files;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawn_file_actions_adddup2(&files, STDERR_FILENO, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&files, writeEnd, ChannelFile);
    pid_t child = 0;
    const int error =
        ::posix_spawn(&child, words.front().c_str(), &files, nullptr, arguments.data(), environment.data());
    ::posix_spawn_file_actions_destroy(&files);
    return error == 0 ? std::optional(child) : std::nullopt;
}

/// Waits until the child has ended. False if it told nothing for too long.
bool Follow(int process, int readEnd, std::chrono::milliseconds limit, Lines& lines)
{
    std::array<pollfd, 2> events = { pollfd{ process, POLLIN, 0 }, pollfd{ readEnd, POLLIN, 0 } };
    Clock::time_point end = Clock::now() + limit;
    for (;;)
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (left.count() <= 0)
        {
            return false;
        }
        if (::poll(events.data(), events.size(), static_cast<int>(left.count())) < 0)
        {
            continue; // a signal
        }
        if (events[1].revents != 0)
        {
            if (!lines.Take())
            {
                events[1].fd = -1; // it has closed its end, but lives on
            }
            end = Clock::now() + limit;
        }
        if (events[0].revents != 0)
        {
            lines.Take(); // what it told last
            return true;
        }
    }
}

ChildResult ResultOf(pid_t child, bool timedOut)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
    {
        if (errno != EINTR)
        {
            return {};
        }
    }
    if (timedOut)
    {
        return { ChildEnd::TimedOut, 0, {} };
    }
    if (WIFSIGNALED(status))
    {
        return { ChildEnd::Crashed, 0, Posix::PathText(::strsignal(WTERMSIG(status))) };
    }
    return { ChildEnd::Ended, WEXITSTATUS(status), {} };
}

} // namespace

ChildResult RunChild(const std::vector<std::wstring>& command, std::chrono::milliseconds limit,
                     const std::function<void(const std::string& line)>& onLine)
{
    std::array<int, 2> ends = { -1, -1 };
    if (command.empty() || ::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    {
        return {};
    }
    const Posix::Descriptor readEnd(ends[0]);
    const Posix::ChildSignalGuard guard;
    std::optional<pid_t> child;
    {
        const Posix::Descriptor writeEnd(ends[1]);
        // The child waits where its parent doesn't read as fast as it tells.
        ::fcntl(writeEnd.Get(), F_SETFL, 0);
        child = Start(command, writeEnd.Get());
    }
    if (!child)
    {
        return {};
    }
    const Posix::Descriptor process(static_cast<int>(::syscall(SYS_pidfd_open, *child, 0)));
    Lines lines(readEnd.Get(), onLine);
    const bool ended = process && Follow(process.Get(), readEnd.Get(), limit, lines);
    if (!ended)
    {
        ::kill(*child, SIGKILL);
    }
    return ResultOf(*child, !ended);
}

bool BeginAsChild()
{
    if (std::getenv(ChannelVariable) == nullptr)
    {
        return false;
    }
    ::unsetenv(ChannelVariable);
    channel = ChannelFile;
    ::fcntl(channel, F_SETFD, FD_CLOEXEC);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    Posix::EndAtOnceAtCrash();
    return true;
}

void TellParent(const std::string& line)
{
    if (channel < 0)
    {
        return;
    }
    const std::string text = line + '\n';
    std::string_view rest = text;
    while (!rest.empty())
    {
        const ssize_t written = ::write(channel, rest.data(), rest.size());
        if (written > 0)
        {
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
        else if (errno != EINTR)
        {
            return; // nobody listens any more
        }
    }
}

} // namespace Platform
