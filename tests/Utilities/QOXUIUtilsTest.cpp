#include "Utilities/QOXUIUtils.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

TEST(QOXUIUtilsTest, AMessageCarriesItsArgumentAndTheOneTagOfAllLines)
{
    const TemporaryFolder folder;
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    LogMessage(L"%s rule has been added", L"100%s");
    LogMessage(L"no argument", L"unused");
    CVantrelLog::CloseLogFile();
    const std::string text = ReadBytes(log);
    EXPECT_NE(text.find("\tUtilities\\QOXUIUtils(290)\t100%s rule has been added\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\tno argument\n"), std::string::npos);
}

TEST(QOXUIUtilsTest, NarrowTextIsThatOfTheCodePage)
{
    EXPECT_EQ(ToNarrow(L"abc"), "abc");
    EXPECT_EQ(ToNarrow(L""), "");
}

TEST(QOXUIUtilsTest, EveryPlaceholderOfATemplateIsReplacedAndTheTextNotReadForMore)
{
    const TemporaryFolder folder;
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    LogWithText(L"%s and %s", L"a%s");
    LogWithText(L"nothing, not even %d", L"unused");
    LogWithNumber(L"%d of %d, %s", -7);
    CVantrelLog::CloseLogFile();
    const std::string text = ReadBytes(log);
    EXPECT_NE(text.find("\tUtilities\\QOXUIUtils(290)\ta%s and a%s\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\tnothing, not even %d\n"), std::string::npos);
    EXPECT_NE(text.find("\t-7 of -7, %s\n"), std::string::npos);
}

TEST(QOXUIUtilsTest, TheBytesOfATextEndInAZeroAndAnEmptyTextHasNone)
{
    EXPECT_STREQ(ToMultiByte(L"abc").get(), "abc");
    EXPECT_EQ(ToMultiByte(L""), nullptr);
}
