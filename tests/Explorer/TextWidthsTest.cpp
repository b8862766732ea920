#include "Explorer/TextWidths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

class TextWidthsTest : public testing::Test
{
protected:
    /// Ten pixels for a letter.
    int Measure(const std::wstring& text)
    {
        if (text.find_first_not_of(text[0]) != std::wstring::npos)
        {
            measured.push_back(text);
        }
        return static_cast<int>(text.size()) * 10;
    }

    std::vector<std::wstring> measured; // those of more than one letter many times
    TextWidths widths{ [this](const std::wstring& text) { return Measure(text); } };
};

} // namespace

TEST_F(TextWidthsTest, AWidthAboveTheRoomIsTheMeasuredOne)
{
    EXPECT_EQ(widths.WidthIfAbove(L"abc", 29.9), 30);
    EXPECT_EQ(widths.WidthIfAbove(L"abc", 30), 0);
    EXPECT_EQ(widths.WidthIfAbove(L"", 0), 0);
}

TEST_F(TextWidthsTest, ATextThatItsLettersLeaveRoomForIsNotMeasured)
{
    EXPECT_EQ(widths.WidthIfAbove(L"abcde", 60), 0);
    EXPECT_EQ(widths.WidthIfAbove(L"edcba", 60), 0);
    EXPECT_TRUE(measured.empty());
}

TEST_F(TextWidthsTest, ATextIsMeasuredOnceUntilAllIsForgotten)
{
    widths.WidthIfAbove(L"abc", 20);
    widths.WidthIfAbove(L"abc", 25);
    EXPECT_EQ(measured, std::vector<std::wstring>{ L"abc" });
    widths.Forget();
    widths.WidthIfAbove(L"abc", 20);
    EXPECT_EQ(measured.size(), 2U);
}

TEST_F(TextWidthsTest, LettersThatChangeBesideOthersAreAlwaysMeasured)
{
    for (const std::wstring& text : { std::wstring(L"e\u0301a"), std::wstring(L"\u0627\u0644"),
                                      std::wstring(L"\u0915\u093f"), std::wstring(L"a\U0001f600") })
    {
        measured.clear();
        EXPECT_EQ(widths.WidthIfAbove(text, 1000), 0);
        EXPECT_EQ(measured, std::vector<std::wstring>{ text });
    }
}

TEST_F(TextWidthsTest, IdeographsAndSyllablesAreTakenByThemselves)
{
    EXPECT_EQ(widths.WidthIfAbove(L"\u898f\u5247\uaddc\uce59", 100), 0);
    EXPECT_TRUE(measured.empty());
}

TEST_F(TextWidthsTest, TextsThatDifferInTheirNumbersAloneAreMeasuredOnce)
{
    EXPECT_EQ(widths.WidthIfAbove(L"rule 123", 70), 80);
    EXPECT_EQ(widths.WidthIfAbove(L"rule 456", 70), 80);
    EXPECT_EQ(std::count(measured.begin(), measured.end(), L"rule 000"), 1);
    EXPECT_EQ(std::count(measured.begin(), measured.end(), L"rule 456"), 0);
}

TEST(TextWidthsDigitsTest, WhereDigitsAreOfDifferentWidthsEachTextIsMeasured)
{
    for (const std::wstring narrow : { L"1", L"71" }) // a digit, and one beside another
    {
        std::vector<std::wstring> measured;
        TextWidths widths(
            [&](const std::wstring& text)
            {
                measured.push_back(text);
                return static_cast<int>(text.size()) * 10 - (text.find(narrow) != std::wstring::npos ? 1 : 0);
            });
        EXPECT_EQ(widths.WidthIfAbove(L"rule 00", 60), 70);
        EXPECT_EQ(widths.WidthIfAbove(L"rule 71", 60), 69);
    }
}
