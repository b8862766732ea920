#include "Utilities/ValueText.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

TEST(FormatDoubleTest, ZerosAtTheEndAreDroppedButForOne)
{
    EXPECT_EQ(FormatDouble(2.5), L"2.5");
    EXPECT_EQ(FormatDouble(3.0), L"3.0");
    EXPECT_EQ(FormatDouble(100.0), L"100.0");
    EXPECT_EQ(FormatDouble(0.0), L"0.0");
    EXPECT_EQ(FormatDouble(-0.25), L"-0.25");
}

TEST(FormatDoubleTest, ThereAreSixDecimalsAtMost)
{
    EXPECT_EQ(FormatDouble(0.1234567), L"0.123457");
    EXPECT_EQ(FormatDouble(1e-9), L"0.0");
}

TEST(FormatDoubleTest, TheLargestNumberIsWrittenOut)
{
    const std::wstring text = FormatDouble(-std::numeric_limits<double>::max());
    EXPECT_EQ(text.size(), 312u);
    EXPECT_EQ(text.substr(0, 8), L"-1797693");
    EXPECT_EQ(text.substr(310), L".0");
}

TEST(ParseDoubleTest, ANumberIsReadUpToWhatIsNoDigitOrPoint)
{
    EXPECT_EQ(ParseDouble(L"2.5"), 2.5);
    EXPECT_EQ(ParseDouble(L" \t2.5 mm"), 2.5);
    EXPECT_EQ(ParseDouble(L".5"), 0.5);
    EXPECT_EQ(ParseDouble(L"1.2.3"), 1.2);
}

TEST(ParseDoubleTest, ASignOrAnExponentEndsTheNumber)
{
    EXPECT_EQ(ParseDouble(L"-3"), 0.0);
    EXPECT_EQ(ParseDouble(L"+3"), 0.0);
    EXPECT_EQ(ParseDouble(L"2e3"), 2.0);
}

TEST(ParseDoubleTest, ATextWithoutANumberIsZero)
{
    for (const wchar_t* const text : { L"", L" ", L".", L"..", L"x1", L"inf", L"nan" })
    {
        EXPECT_EQ(ParseDouble(text), 0.0);
    }
}

TEST(OperatorTest, TheCodesAndTextsOfComparisonsGoBothWays)
{
    for (const auto& [code, text] : { std::pair<std::int32_t, const wchar_t*>{ 1, L"RANGE" },
                                      { 3, L"=" },
                                      { 5, L"<" },
                                      { 6, L">" },
                                      { 7, L">=" },
                                      { 8, L"<=" } })
    {
        EXPECT_EQ(GetOperatorCode(text), code);
        EXPECT_EQ(GetOperatorText(code), text);
    }
}

TEST(OperatorTest, CaseDoesNotMatter)
{
    EXPECT_EQ(GetOperatorCode(L"range"), 1);
    EXPECT_EQ(GetOperatorCode(L"Range"), 1);
}

TEST(OperatorTest, AnythingElseHasNoCodeAndOtherCodesHaveNoText)
{
    for (const wchar_t* const text : { L"", L"==", L"= ", L"<>", L"RANGES" })
    {
        EXPECT_EQ(GetOperatorCode(text), 0) << text;
    }
    for (const std::int32_t code : { -1, 0, 2, 4, 9 })
    {
        EXPECT_EQ(GetOperatorText(code), L"") << code;
    }
}
