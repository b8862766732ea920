#include "Explorer/Controls/ScrollBarNeed.h"

#include <gtest/gtest.h>

namespace
{

constexpr int LetterWidth = 10;
constexpr int LineHeight = 20;

ScrollBarNeed Need(const std::wstring& text, int width, int height)
{
    return ScrollBarsFor(text, LineHeight, width, height,
                         [](const std::wstring& line) { return static_cast<int>(line.size()) * LetterWidth; });
}

using Lines = std::vector<std::wstring>;

} // namespace

TEST(ScrollBarNeedTest, LinesEndAtLineFeedsWithoutTheCarriageReturnAheadOfThem)
{
    EXPECT_EQ(LinesOf(L"a\r\nb\nc"), (Lines{ L"a", L"b", L"c" }));
    EXPECT_EQ(LinesOf(L"a\n"), (Lines{ L"a", L"" }));
    EXPECT_EQ(LinesOf(L"a\rb\r\r\nc\r"), (Lines{ L"a\rb\r", L"c" }));
    EXPECT_EQ(LinesOf(L""), (Lines{ L"" }));
}

TEST(ScrollBarNeedTest, AShortTextNeedsNoBars)
{
    EXPECT_EQ(Need(L"abc", 100, 100), (ScrollBarNeed{ false, false }));
    EXPECT_EQ(Need(L"", 100, 100), (ScrollBarNeed{ false, false }));
}

TEST(ScrollBarNeedTest, TheHorizontalBarShowsAsSoonAsALineReachesTheClientWidth)
{
    EXPECT_EQ(Need(L"short\n123456789", 100, 100), (ScrollBarNeed{ false, false }));
    EXPECT_EQ(Need(L"short\n1234567890", 100, 100), (ScrollBarNeed{ true, false }));
    EXPECT_EQ(Need(L"1234567890\r\nshort", 100, 100), (ScrollBarNeed{ true, false }));
}

TEST(ScrollBarNeedTest, TheCarriageReturnAtALinesEndHasNoWidth)
{
    EXPECT_EQ(Need(L"123456789\r\n", 100, 100), (ScrollBarNeed{ false, false }));
}

TEST(ScrollBarNeedTest, TheVerticalBarShowsAsSoonAsTheLinesReachTheClientHeight)
{
    EXPECT_EQ(Need(L"1\n2\n3\n4", 100, 100), (ScrollBarNeed{ false, false }));
    EXPECT_EQ(Need(L"1\n2\n3\n4\n5", 100, 100), (ScrollBarNeed{ false, true }));
    EXPECT_EQ(Need(L"1\n2\n3\n4\n", 100, 100), (ScrollBarNeed{ false, true })) << "the line behind the last end counts";
}
