#include "Platform/RunningProcesses.h"

#include "Platform/Files.h"
#include "Platform/Process.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "Utilities/ProcessFunctions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
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
    std::string Name() const { return "VantrelSleeper" + std::to_string(::getpid()); }

    /// Waits until it has ended. The signal that ended it, or 0.
    int EndSignal()
    {
        int status = 0;
        ::waitpid(std::exchange(m_process, -1), &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    TemporaryFolder m_folder;
    pid_t m_process = -1;
};

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
    EXPECT_EQ(::kill(sleeper.Id(), 0), 0);
}

TEST(RunningProcessesTest, NumbersThatMeanGroupsOfProcessesAreRefused)
{
    EXPECT_EQ(Platform::EndProcess(0), Platform::ProcessEnd::NotOpened);
    EXPECT_EQ(Platform::EndProcess(0xFFFFFFFF), Platform::ProcessEnd::NotOpened);
}
