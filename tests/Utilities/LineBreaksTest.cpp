#include "Utilities/LineBreaks.h"

#include <gtest/gtest.h>

namespace
{

/// With characters that are all 1 wide.
std::wstring Broken(const std::wstring& text, int width)
{
    return BrokenIntoLines(text, width, [](const std::wstring& line) { return static_cast<int>(line.size()); });
}

} // namespace

TEST(LineBreaksTest, ATextThatFitsStaysAsItIs)
{
    EXPECT_EQ(Broken(L"", 4), L"");
    EXPECT_EQ(Broken(L"four", 4), L"four");
    EXPECT_EQ(Broken(L"a b\n\nc d\n", 4), L"a b\n\nc d\n");
}

TEST(LineBreaksTest, LinesAreBrokenAtTheLastBlankThatLeavesThemNarrowEnough)
{
    EXPECT_EQ(Broken(L"one two three four", 8), L"one two\nthree\nfour");
    EXPECT_EQ(Broken(L"one two", 7), L"one two");
    EXPECT_EQ(Broken(L"one two", 6), L"one\ntwo");
    EXPECT_EQ(Broken(L"one two\nthree four", 8), L"one two\nthree\nfour");
}

TEST(LineBreaksTest, BlanksAtABreakAreInNeitherLineAndCountForNothing)
{
    EXPECT_EQ(Broken(L"one   two", 3), L"one\ntwo");
    EXPECT_EQ(Broken(L"one two  ", 7), L"one two");
    EXPECT_EQ(Broken(L"one  two", 8), L"one  two");
}

TEST(LineBreaksTest, AWordThatIsWiderHasALineOfItsOwn)
{
    EXPECT_EQ(Broken(L"a widest b", 3), L"a\nwidest\nb");
    EXPECT_EQ(Broken(L"widest", 0), L"widest");
}

TEST(LineBreaksTest, TextsWithoutBlanksAreBrokenBetweenCharacters)
{
    EXPECT_EQ(Broken(L"\u898f\u5247\u3092\u78ba\u8a8d\u3059\u308b", 3),
              L"\u898f\u5247\u3092\n\u78ba\u8a8d\u3059\n\u308b");
    EXPECT_EQ(Broken(L"\u6587\u4ef6ABC\u6587\u4ef6", 4), L"\u6587\u4ef6\nABC\u6587\n\u4ef6");
}

TEST(LineBreaksTest, ClosingMarksStayWithWhatTheyCloseAndOpeningOnesWithWhatFollows)
{
    EXPECT_EQ(Broken(L"\u898f\u5247\u3002\u898f", 2), L"\u898f\n\u5247\u3002\n\u898f");
    EXPECT_EQ(Broken(L"\u898f\u5247\u300c\u898f\u300d", 3), L"\u898f\u5247\n\u300c\u898f\u300d");
    EXPECT_EQ(Broken(L"\u30a8\u30e9\u30fc", 2), L"\u30a8\n\u30e9\u30fc");
}

TEST(LineBreaksTest, KoreanIsBrokenAtBlanks)
{
    EXPECT_EQ(Broken(L"\uaddc\uce59\uc744 \ud655\uc778", 4), L"\uaddc\uce59\uc744\n\ud655\uc778");
}
