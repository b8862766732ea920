#pragma once

#include <csignal>

namespace Platform::Posix
{

/// While it lives, children that have ended wait to be asked how. A program may be started with
/// the signal of their ends ignored, and then the system forgets them at once.
class ChildSignalGuard
{
public:
    ChildSignalGuard()
    {
        ::sigaction(SIGCHLD, nullptr, &m_before);
        if (IsForgetting())
        {
            struct sigaction usual = {};
            usual.sa_handler = SIG_DFL;
            ::sigaction(SIGCHLD, &usual, nullptr);
        }
    }
    ~ChildSignalGuard()
    {
        if (IsForgetting())
        {
            ::sigaction(SIGCHLD, &m_before, nullptr);
        }
    }
    ChildSignalGuard(const ChildSignalGuard&) = delete;
    ChildSignalGuard& operator=(const ChildSignalGuard&) = delete;

private:
    bool IsForgetting() const { return m_before.sa_handler == SIG_IGN || (m_before.sa_flags & SA_NOCLDWAIT) != 0; }

    struct sigaction m_before = {};
};

} // namespace Platform::Posix
