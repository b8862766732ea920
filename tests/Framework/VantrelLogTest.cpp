#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

TEST(VantrelLogTest, WritesOneLineAnEntryWithTimeTagAndLine)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"run.vantrellog");
    CVantrelLog::OpenLogFile(path);
    CVantrelLog::PrintMessage(L"Rule \u00e9\nhas been added", "Tag\\File", 290);
    // Flushed: a crash must not lose what was logged before it.
    const std::string text = ReadBytes(path);
    CVantrelLog::CloseLogFile();
    const std::regex line(
        "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}\tTag\\\\File\\(290\\)\tRule \xc3\xa9 has been added\n");
    EXPECT_TRUE(std::regex_match(text, line)) << text;
}

TEST(VantrelLogTest, IsHarmlessWithoutALog)
{
    CVantrelLog::CloseLogFile();
    CVantrelLog::PrintMessage(L"nowhere", "tag", 1);
    CVantrelLog::PrintMessage(L"nowhere", nullptr, 1);
    const TemporaryFolder folder;
    CVantrelLog::OpenLogFile(folder.Path()); // a folder can't be a log
    CVantrelLog::PrintMessage(L"nowhere", "tag", 1);
    CVantrelLog::CloseLogFile();
    EXPECT_TRUE(std::filesystem::is_empty(Platform::NativePath(folder.Path())));
}

TEST(VantrelLogTest, GoesOnAtTheEndOfAnEarlierLog)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"run.vantrellog");
    WriteBytes(path, "earlier\n");
    CVantrelLog::OpenLogFile(path);
    CVantrelLog::PrintMessage(L"later", "t", 1);
    CVantrelLog::CloseLogFile();
    const std::string text = ReadBytes(path);
    EXPECT_EQ(text.substr(0, 8), "earlier\n");
    EXPECT_NE(text.find("later\n"), std::string::npos);
}
