#include "Platform/RunningProcesses.h"

#include "Platform/Files.h"
#include "Platform/Process.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "Utilities/ProcessFunctions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace
{

/// A process that waits, with a program file of a name that no other has, those of tests that
/// run at the same time included. Ended at the end in any case.
class Sleeper
{
public:
    Sleeper()
    {
        const std::string program = Platform::NativePath(m_folder.Path()) / Name();
        std::filesystem::copy_file("/bin/sleep", program);
        std::array<int, 2> started = {};
        if (::pipe2(started.data(), O_CLOEXEC) != 0)
        {
            throw std::runtime_error("no pipe");
        }
        m_process = ::fork();
        if (m_process == 0)
        {
            ::execl(program.c_str(), program.c_str(), "600", nullptr);
            ::_exit(127);
        }
        ::close(started[1]);
        char byte = 0;
        const ssize_t end = ::read(started[0], &byte, 1); // until the program has taken over
        ::close(started[0]);
        if (end != 0)
        {
            throw std::runtime_error("not started");
        }
    }
    ~Sleeper()
    {
        if (m_process > 0)
        {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
    }
    Sleeper(const Sleeper&) = delete;
    Sleeper& operator=(const Sleeper&) = delete;

    pid_t Id() const { return m_process; }
    const std::string& Name() const { return m_name; }

    bool Runs() const
    {
        siginfo_t end = {};
        return ::waitid(P_PID, static_cast<id_t>(m_process), &end, WEXITED | WNOHANG | WNOWAIT) == 0 && end.si_pid == 0;
    }

    /// Waits until it has ended. The signal that ended it, or 0.
    int EndSignal()
    {
        int status = 0;
        ::waitpid(std::exchange(m_process, -1), &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    TemporaryFolder m_folder;
    std::string m_name = "VantrelSleeper" + std::to_string(::getpid());
    pid_t m_process = -1;
};

/// From now on the system refuses this process to send that signal. False if it can't.
bool RefuseSignal(int signal)
{
    std::array<sock_filter, 6> filter = { {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_kill, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[1])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(signal), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    } };
    const sock_fprog program = { filter.size(), filter.data() };
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

bool SignalsCanBeRefused()
{
    return WaitForChild(StartChild([] { return RefuseSignal(SIGKILL) ? 0 : 1; })) == 0;
}

/// True if that is what it comes to in a process that may not send the signal.
bool EndingWithoutSignalGives(std::uint32_t result, int signal, const std::string& name)
{
    return WaitForChild(
               StartChild([&] { return RefuseSignal(signal) && KillProcessByName(name) == result ? 0 : 1; })) == 0;
}

} // namespace

TEST(RunningProcessesTest, TheListHasTheRunningProgramWithItsFileName)
{
    const auto processes = Platform::RunningProcesses();
    ASSERT_TRUE(processes);
    const auto found = std::find_if(processes->begin(), processes->end(),
                                    [](const auto& process) { return static_cast<pid_t>(process.id) == ::getpid(); });
    ASSERT_NE(found, processes->end());
    EXPECT_EQ(found->fileName, Platform::FileNamePart(Platform::ProgramPath()));
}

TEST(RunningProcessesTest, AProcessIsEndedByItsNameInAnyCase)
{
    Sleeper sleeper;
    std::string name = sleeper.Name();
    name.replace(0, 7, "vANTREL");
    EXPECT_EQ(KillProcessByName(name), 0u);
    EXPECT_EQ(sleeper.EndSignal(), SIGKILL);
    EXPECT_EQ(KillProcessByName(name), 603u);
}

TEST(RunningProcessesTest, AnothersProcessCanNotBeOpenedForEnding)
{
    Sleeper sleeper;
    if (::geteuid() != 0)
    {
        EXPECT_EQ(Platform::EndProcess(1), Platform::ProcessEnd::NotOpened);
        return;
    }
    EXPECT_TRUE(RunWithoutPrivileges(
        [&sleeper]
        { return Platform::EndProcess(static_cast<std::uint32_t>(sleeper.Id())) == Platform::ProcessEnd::NotOpened; }));
    EXPECT_TRUE(sleeper.Runs());
}

TEST(RunningProcessesTest, AProcessThatDoesNotLetItselfBeLookedAtIsCalledUnknownAndCanNotBeOpened)
{
    const Sleeper sleeper; // is one for a user without privileges; who has none anyway has process 1
    for (const char* const name : { "Unknown", "uNKNOWN" })
    {
        EXPECT_TRUE(RunWithoutPrivileges([name] { return KillProcessByName(name) == 604; })) << name;
    }
    if (::geteuid() == 0)
    {
        EXPECT_TRUE(RunWithoutPrivileges([&sleeper] { return KillProcessByName(sleeper.Name()) == 603; }));
    }
    EXPECT_TRUE(sleeper.Runs());
}

TEST(RunningProcessesTest, AProcessThatMayNotBeEndedCanNotBeOpened)
{
    if (!SignalsCanBeRefused())
    {
        GTEST_SKIP() << "this system doesn't let a process give up a signal";
    }
    const Sleeper sleeper;
    EXPECT_TRUE(EndingWithoutSignalGives(604, 0, sleeper.Name())) << "by the signal that only asks";
    EXPECT_TRUE(sleeper.Runs());
}

TEST(RunningProcessesTest, AProcessThatCanBeOpenedButNotEndedIsToldApart)
{
    if (!SignalsCanBeRefused())
    {
        GTEST_SKIP() << "this system doesn't let a process give up a signal";
    }
    const Sleeper sleeper;
    EXPECT_TRUE(EndingWithoutSignalGives(602, SIGKILL, sleeper.Name()));
    EXPECT_TRUE(sleeper.Runs());
}

TEST(RunningProcessesTest, WhereTheProcessesCanNotBeListedNoneIsEnded)
{
    const Sleeper sleeper;
    const auto killsWithoutList = [&sleeper]
    {
        const rlimit noFiles = {};
        const bool hasNoList = ::setrlimit(RLIMIT_NOFILE, &noFiles) == 0 && !Platform::RunningProcesses();
        return hasNoList && KillProcessByName(sleeper.Name()) == 701 ? 0 : 1;
    };
    EXPECT_EQ(WaitForChild(StartChild(killsWithoutList)), 0);
    EXPECT_TRUE(sleeper.Runs());
}

TEST(RunningProcessesTest, NumbersThatMeanGroupsOfProcessesAreRefused)
{
    EXPECT_EQ(Platform::EndProcess(0), Platform::ProcessEnd::NotOpened);
    EXPECT_EQ(Platform::EndProcess(0xFFFFFFFF), Platform::ProcessEnd::NotOpened);
}
