#pragma once

#include <csignal>
#include <sys/resource.h>

namespace Platform::Posix
{

/// In a process that may crash: makes a crash end it at once, without a dump and without what the
/// program that started it does then.
inline void EndAtOnceAtCrash()
{
    const rlimit none = {};
    ::setrlimit(RLIMIT_CORE, &none);
    for (const int number : { SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL })
    {
        std::signal(number, SIG_DFL);
    }
}

} // namespace Platform::Posix
