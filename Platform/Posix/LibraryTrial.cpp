#include "Platform/LibraryTrial.h"

#include "Platform/Posix/ChildSignalGuard.h"
#include "Platform/Posix/CrashEnd.h"
#include "Platform/Posix/PathBytes.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Platform
{
namespace
{

constexpr unsigned int LimitSeconds = 10;
constexpr unsigned int FirstFileOfOurs = 3;

enum Outcome : int
{
    NotLoaded = 1,
    LibraryEndedTheProcess = 2,
    Loaded = 93, // a library that ends its process at once may do so with success
};

/// Cuts the new process off from all that it shares with the program: files and sockets that
/// are open, what runs at the program's end, output.
void CutOff()
{
    Posix::EndAtOnceAtCrash();
    std::signal(SIGALRM, SIG_DFL);
    sigset_t alarmOnly;
    ::sigemptyset(&alarmOnly);
    ::sigaddset(&alarmOnly, SIGALRM);
    ::sigprocmask(SIG_UNBLOCK, &alarmOnly, nullptr);
    ::alarm(LimitSeconds);

    const int nowhere = ::open("/dev/null", O_RDWR);
    for (int file = 0; file < static_cast<int>(FirstFileOfOurs); ++file)
    {
        ::dup2(nowhere, file);
    }
    ::close_range(FirstFileOfOurs, ~0U, 0);
    // What is registered last runs first: a library that calls `exit` ends here.
    std::atexit([] { ::_exit(LibraryEndedTheProcess); });
}

} // namespace

bool LoadsWithoutHarm(const std::wstring& path)
{
    const Posix::ChildSignalGuard guard;
    const pid_t child = ::fork();
    if (child == 0)
    {
        CutOff();
        ::_exit(OpenLibraryFile(path) != nullptr ? Loaded : NotLoaded);
    }
    if (child < 0)
    {
        return true;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
    {
        if (errno != EINTR)
        {
            return false;
        }
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == Loaded;
}

LibraryHandle OpenLibraryFile(const std::wstring& path, std::wstring& problem)
{
    problem.clear();
    ::dlerror(); // forgets what was asked for before
    const LibraryHandle library = OpenLibraryFile(path);
    if (library == nullptr)
    {
        const char* const reason = ::dlerror();
        problem = reason != nullptr ? Posix::PathText(reason) : std::wstring();
    }
    return library;
}

} // namespace Platform
