#include "Platform/ChildProcess.h"

#include <gtest/gtest.h>

namespace
{

using namespace std::chrono_literals;
using Platform::ChildEnd;
using Platform::ChildResult;

struct Told
{
    ChildResult result;
    std::vector<std::string> lines;
};

Told RunProgram(const std::vector<std::wstring>& words, std::chrono::milliseconds limit = 60s)
{
    std::vector<std::wstring> command = { TEST_CHILD_PROGRAM };
    command.insert(command.end(), words.begin(), words.end());
    Told told;
    told.result = Platform::RunChild(command, limit, [&told](const std::string& line) { told.lines.push_back(line); });
    return told;
}

TEST(ChildProcess, TellsItsParentLineByLineAndEndsWithItsStatus)
{
    const Told told = RunProgram({ L"7", L"one", L"", L"zw\u00f6lf" });
    EXPECT_EQ(told.result.end, ChildEnd::Ended);
    EXPECT_EQ(told.result.status, 7);
    EXPECT_EQ(told.lines, (std::vector<std::string>{ "one", "", "zw\u00f6lf" }));
}

TEST(ChildProcess, VeryLongLinesArriveWhole)
{
    const Told told = RunProgram({ L"0", std::wstring(100'000, L'x'), L"end" });
    ASSERT_EQ(told.lines.size(), 2U);
    EXPECT_EQ(told.lines[0], std::string(100'000, 'x'));
    EXPECT_EQ(told.lines[1], "end");
}

TEST(ChildProcess, CrashIsToldWithItsReasonAndWhatWasToldBefore)
{
    const Told aborted = RunProgram({ L"abort", L"before" });
    EXPECT_EQ(aborted.result.end, ChildEnd::Crashed);
    EXPECT_EQ(aborted.result.crash, L"Aborted");
    EXPECT_EQ(aborted.lines, std::vector<std::string>{ "before" });
    EXPECT_EQ(RunProgram({ L"segv" }).result.crash, L"Segmentation fault");
}

TEST(ChildProcess, OneThatTellsNothingMoreIsEnded)
{
    const Told told = RunProgram({ L"hang", L"before" }, 3s);
    EXPECT_EQ(told.result.end, ChildEnd::TimedOut);
    EXPECT_EQ(told.lines, std::vector<std::string>{ "before" });
}

TEST(ChildProcess, ProgramThatIsNotThereIsNotStarted)
{
    const auto noLine = [](const std::string&) { FAIL(); };
    EXPECT_EQ(Platform::RunChild({ L"/no/such/program" }, 1s, noLine).end, ChildEnd::NotStarted);
    EXPECT_EQ(Platform::RunChild({}, 1s, noLine).end, ChildEnd::NotStarted);
}

TEST(ChildProcess, ProcessThatNobodyStartedSoIsNoChild)
{
    EXPECT_FALSE(Platform::BeginAsChild());
    Platform::TellParent("nobody listens");
}

} // namespace
