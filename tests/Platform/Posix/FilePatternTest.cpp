#include "Platform/FilePattern.h"

#include <gtest/gtest.h>

TEST(FilePatternTest, EachLetterStandsForBothOfItsForms)
{
    EXPECT_EQ(Platform::FilePattern(L"*.vrf"), L"*.[vV][rR][fF]");
    EXPECT_EQ(Platform::FilePattern(L"*.VRF"), L"*.[vV][rR][fF]");
    EXPECT_EQ(Platform::FilePattern(L"Az*"), L"[aA][zZ]*");
}

TEST(FilePatternTest, LettersBeyondAsciiHaveBothFormsToo)
{
    EXPECT_EQ(Platform::FilePattern(L"*.r\u00E8g"), L"*.[rR][\u00E8\u00C8][gG]");
    EXPECT_EQ(Platform::FilePattern(L"*.\u0416"), L"*.[\u0436\u0416]");
}

TEST(FilePatternTest, ALetterOfThreeFormsStandsForAllOfThem)
{
    EXPECT_EQ(Platform::FilePattern(L"\u01C5"), L"[\u01C6\u01C4\u01C5]");
}

TEST(FilePatternTest, WhatHasNoCaseStays)
{
    EXPECT_EQ(Platform::FilePattern(L""), L"");
    EXPECT_EQ(Platform::FilePattern(L"*"), L"*");
    EXPECT_EQ(Platform::FilePattern(L"?_1-2.7z*"), L"?_1-2.7[zZ]*");
    EXPECT_EQ(Platform::FilePattern(L"*.\u898F\u5247"), L"*.\u898F\u5247");
    EXPECT_EQ(Platform::FilePattern(L"*.\u00DF"), L"*.\u00DF");
}

TEST(FilePatternTest, SeveralPatternsStaySeparate)
{
    EXPECT_EQ(Platform::FilePattern(L"*.so;*.a"), L"*.[sS][oO];*.[aA]");
    EXPECT_EQ(Platform::FilePattern(L";*.a;;"), L";*.[aA];;");
    EXPECT_EQ(Platform::FilePattern(L"[x;*.a"), L"[x;*.[aA]") << "a choice ends with its pattern";
}

TEST(FilePatternTest, ChoicesOfCharactersStay)
{
    EXPECT_EQ(Platform::FilePattern(L"a[b-d]e"), L"[aA][b-d][eE]");
    EXPECT_EQ(Platform::FilePattern(L"*.[vV][rR]f"), L"*.[vV][rR][fF]");
    EXPECT_EQ(Platform::FilePattern(L"[]a]b"), L"[]a][bB]");
    EXPECT_EQ(Platform::FilePattern(L"[!]a]b"), L"[!]a][bB]");
    EXPECT_EQ(Platform::FilePattern(L"[^]a]b"), L"[^]a][bB]");
    EXPECT_EQ(Platform::FilePattern(L"[a\\]b]c"), L"[a\\]b][cC]");
    EXPECT_EQ(Platform::FilePattern(L"[ab"), L"[ab") << "is not closed";
    EXPECT_EQ(Platform::FilePattern(L"["), L"[");
    EXPECT_EQ(Platform::FilePattern(L"[!"), L"[!");
    EXPECT_EQ(Platform::FilePattern(L"[a\\"), L"[a\\");
}

TEST(FilePatternTest, EscapedCharactersStay)
{
    EXPECT_EQ(Platform::FilePattern(L"\\[a]"), L"\\[[aA]]");
    EXPECT_EQ(Platform::FilePattern(L"\\*a"), L"\\*[aA]");
    EXPECT_EQ(Platform::FilePattern(L"a\\"), L"[aA]\\");
}

TEST(FilePatternTest, ThePatternOfAPatternIsTheSame)
{
    const std::wstring pattern = Platform::FilePattern(L"*.vrf;r\u00E8gles.*");
    EXPECT_EQ(Platform::FilePattern(pattern), pattern);
}
