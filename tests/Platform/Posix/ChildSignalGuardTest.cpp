#include "Platform/Posix/ChildSignalGuard.h"

#include "Platform/ChildProcess.h"
#include "Platform/LibraryTrial.h"

#include <chrono>
#include <gtest/gtest.h>

namespace
{

/// A program that was started with the ends of its children ignored.
class ChildSignalGuardTest : public testing::Test
{
protected:
    ChildSignalGuardTest() { std::signal(SIGCHLD, SIG_IGN); }
    ~ChildSignalGuardTest() override { std::signal(SIGCHLD, SIG_DFL); }

    static bool IsIgnored()
    {
        struct sigaction now = {};
        ::sigaction(SIGCHLD, nullptr, &now);
        return now.sa_handler == SIG_IGN;
    }
};

} // namespace

TEST_F(ChildSignalGuardTest, TheSignalIsAsBeforeAtTheEnd)
{
    {
        const Platform::Posix::ChildSignalGuard guard;
        EXPECT_FALSE(IsIgnored());
    }
    EXPECT_TRUE(IsIgnored());
    std::signal(SIGCHLD, SIG_DFL);
    {
        const Platform::Posix::ChildSignalGuard guard;
        EXPECT_FALSE(IsIgnored());
    }
    EXPECT_FALSE(IsIgnored());
}

TEST_F(ChildSignalGuardTest, WhatALibraryDidInItsTrialIsKnown)
{
    EXPECT_FALSE(Platform::LoadsWithoutHarm(L"/no/such/library.dll"));
}

TEST_F(ChildSignalGuardTest, HowAChildEndedIsKnown)
{
    const Platform::ChildResult result =
        Platform::RunChild({ TEST_CHILD_PROGRAM, L"7" }, std::chrono::seconds(60), [](const std::string&) {});
    EXPECT_EQ(result.end, Platform::ChildEnd::Ended);
    EXPECT_EQ(result.status, 7);
}
