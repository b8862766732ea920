#include "Document/Lumeq.h"
#include "Platform/Process.h"
#include "Platform/Text.h"
#include "tests/Support/OwnSettings.h"
#include "Utilities/QOXUIUtils.h"

#include <gtest/gtest.h>

#include <ctime>

namespace
{

/// The time that the clock of the records tells.
std::tm now;

std::tm Now()
{
    return now;
}

class FileDetailsTest : public testing::Test
{
protected:
    FileDetailsTest()
    {
        SetDate(2016, 3, 9);
        SetTime(13, 5, 7);
    }

    static void SetDate(int year, int month, int day)
    {
        now.tm_year = year - 1900;
        now.tm_mon = month - 1;
        now.tm_mday = day;
    }

    static void SetTime(int hour, int minute, int second)
    {
        now.tm_hour = hour;
        now.tm_min = minute;
        now.tm_sec = second;
    }

    OwnSettings settings;
    CQOXRMLumeq record{ nullptr, Now };
};

struct StampOfLanguage
{
    const char* language;
    const wchar_t* date;
    const wchar_t* time;
};

constexpr StampOfLanguage Stamps[] = {
    { "Chinese", L"03/09/2016", L"13:05:07" },
    { "Korean", L"03/09/2016", L"13:05:07" },
    { "Chinese-Simplified", L"2016/03/09", L"1:05pm" },
    { "Russian", L"09/03/16", L"1.05pm" },
    { "Spanish", L"09/03/16", L"1.05pm" },
    { "French", L"09/03/16", L"1.05pm" },
    { "German", L"09.03.16", L"1.05pm" },
    { "Japanese", L"28/03/09", L"13:05:07" },
    { "English", L"03/09/2016", L"13:05:07" },
    { "", L"03/09/2016", L"13:05:07" },
};

} // namespace

TEST_F(FileDetailsTest, EachLanguageHasItsForm)
{
    for (const StampOfLanguage& stamp : Stamps)
    {
        EXPECT_EQ(record.GetFormattedDate(stamp.language), stamp.date) << stamp.language;
        EXPECT_EQ(record.GetFormattedTime(stamp.language), stamp.time) << stamp.language;
        EXPECT_EQ(record.GetDateTimeStamp(stamp.language), std::wstring(stamp.date) + L" " + stamp.time);
    }
}

TEST_F(FileDetailsTest, AnEmptyLanguageHasTheMonthFirstTheWholeYearAndSeconds)
{
    SetTime(0, 0, 0);
    EXPECT_EQ(record.GetDateTimeStamp(""), L"03/09/2016 00:00:00");
}

TEST_F(FileDetailsTest, LanguagesAreComparedWithoutCase)
{
    SetDate(2016, 12, 31);
    EXPECT_EQ(record.GetFormattedDate("chinese"), L"12/31/2016");
    EXPECT_EQ(record.GetFormattedDate("chinese-simplified"), L"2016/12/31");
    EXPECT_EQ(record.GetFormattedTime("fRENCH"), L"1.05pm");
}

TEST_F(FileDetailsTest, ALanguageWithoutAFormOfItsOwnTakesTheLastOne)
{
    EXPECT_EQ(record.GetDateTimeStamp("portuguese-brazilian"), L"03/09/2016 13:05:07");
    EXPECT_EQ(record.GetDateTimeStamp("French "), L"03/09/2016 13:05:07");
}

TEST_F(FileDetailsTest, MidnightAndNoonAreTwelve)
{
    SetTime(0, 0, 59);
    EXPECT_EQ(record.GetFormattedTime("French"), L"12.00am");
    SetTime(11, 59, 0);
    EXPECT_EQ(record.GetFormattedTime("French"), L"11.59am");
    SetTime(12, 0, 0);
    EXPECT_EQ(record.GetFormattedTime("French"), L"12.00pm");
    SetTime(23, 9, 0);
    EXPECT_EQ(record.GetFormattedTime("Chinese-Simplified"), L"11:09pm");
}

TEST_F(FileDetailsTest, JapaneseYearsAreCountedFrom1988AndShortOnesFromTheCentury)
{
    SetDate(1989, 1, 8);
    EXPECT_EQ(record.GetFormattedDate("Japanese"), L"01/01/08");
    SetDate(2005, 1, 8);
    EXPECT_EQ(record.GetFormattedDate("German"), L"08.01.05");
    SetDate(1980, 1, 8);
    EXPECT_EQ(record.GetFormattedDate("Japanese"), L"-08/01/08");
}

TEST_F(FileDetailsTest, AnUpdateTakesUserTimeAndPath)
{
    record.UpdateFileDetails("/tmp/rules.vrf", "German");
    EXPECT_EQ(record.strName, L"/tmp/rules.vrf");
    EXPECT_EQ(record.strCreatedOn, L"09.03.16 1.05pm");
    EXPECT_EQ(record.strCreatedBy, Platform::UserName());
    EXPECT_FALSE(record.strCreatedBy.empty());
}

TEST_F(FileDetailsTest, ARecordGoesByTheLocalTimeOfTheSystem)
{
    const std::time_t before = std::time(nullptr);
    std::tm local = CurrentLocalTime();
    local.tm_isdst = -1;
    const std::time_t told = std::mktime(&local);
    EXPECT_GE(told, before);
    EXPECT_LE(told, std::time(nullptr));
}
