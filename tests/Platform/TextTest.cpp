#include "Platform/Text.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

struct Utf8Case
{
    const char* name;
    std::string bytes;
    std::u16string text;
};

class Utf8Test : public testing::TestWithParam<Utf8Case>
{
};

TEST_P(Utf8Test, ReadsAsUnicodeTells)
{
    EXPECT_EQ(WideToUtf16(Utf8ToWide(GetParam().bytes)), GetParam().text);
    EXPECT_EQ(IsUtf8(GetParam().bytes), GetParam().text.find(u'\uFFFD') == std::u16string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Text, Utf8Test,
    testing::Values(Utf8Case{ "Empty", "", u"" }, Utf8Case{ "Ascii", "abc", u"abc" },
                    Utf8Case{ "Nul", std::string("a\0b", 3), std::u16string(u"a\0b", 3) },
                    Utf8Case{ "TwoBytes", "\xC3\xA9", u"\u00E9" }, Utf8Case{ "ThreeBytes", "\xE6\x97\xA5", u"\u65E5" },
                    Utf8Case{ "FourBytes", "\xF0\x9F\x98\x80", u"\U0001F600" },
                    Utf8Case{ "LastCodePoint", "\xF4\x8F\xBF\xBF", u"\U0010FFFF" },
                    Utf8Case{ "AboveLastCodePoint", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD" },
                    Utf8Case{ "Overlong", "\xC0\xAF", u"\uFFFD\uFFFD" },
                    Utf8Case{ "OverlongThree", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD" },
                    Utf8Case{ "OverlongFour", "\xF0\x80\x80\xAF", u"\uFFFD\uFFFD\uFFFD\uFFFD" },
                    Utf8Case{ "Surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD" },
                    Utf8Case{ "LoneTail", "a\x80z", u"a\uFFFDz" }, Utf8Case{ "CutOffAtEnd", "a\xE6\x97", u"a\uFFFD" },
                    Utf8Case{ "CutOffKeepsWhatFollows", "\xE6\x97z", u"\uFFFDz" },
                    Utf8Case{ "CutOffByAnother", "\xE6\xC3\xA9", u"\uFFFD\u00E9" },
                    Utf8Case{ "NeverUsedByte", "\xFFz", u"\uFFFDz" },
                    Utf8Case{ "AsciiOverEightThenOther", "0123456789\xC3\xA9", u"0123456789\u00E9" }),
    [](const testing::TestParamInfo<Utf8Case>& row) { return row.param.name; });

TEST(TextTest, TheReplacementCharacterItselfIsUtf8)
{
    EXPECT_TRUE(IsUtf8("a\xEF\xBF\xBDz"));
    EXPECT_FALSE(IsUtf8("a\xEF\xBF\xBDz\xEF"));
}

TEST(TextTest, WideTextGoesThroughUtf8Unchanged)
{
    const std::wstring text = L"abc \u00E9 \u65E5\u672C \U0001F600 \U0010FFFF";
    EXPECT_EQ(WideToUtf8(text), "abc \xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF");
    EXPECT_EQ(Utf8ToWide(WideToUtf8(text)), text);
}

TEST(TextTest, EveryCodePointGoesThroughUtf8AndUtf16)
{
    for (char32_t code = 1; code <= 0x10FFFF; code += code < 0x1000 ? 1 : 61)
    {
        if (code >= 0xD800 && code <= 0xDFFF)
        {
            continue;
        }
        const std::u16string units = code < 0x10000 ? std::u16string(1, static_cast<char16_t>(code))
                                                    : std::u16string{ static_cast<char16_t>(0xD7C0 + (code >> 10)),
                                                                      static_cast<char16_t>(0xDC00 + (code & 0x3FF)) };
        const std::wstring wide = Utf16ToWide(units);
        ASSERT_EQ(WideToUtf16(wide), units) << std::hex << static_cast<unsigned>(code);
        ASSERT_EQ(Utf8ToWide(WideToUtf8(wide)), wide) << std::hex << static_cast<unsigned>(code);
    }
}

TEST(TextTest, LoneSurrogateInWideTextBecomesReplacement)
{
    EXPECT_EQ(WideToUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");
    EXPECT_EQ(WideToUtf8(std::wstring(1, static_cast<wchar_t>(0xDC00)) + L"z"), "\xEF\xBF\xBDz");
    EXPECT_EQ(WideToUtf16(std::wstring(1, static_cast<wchar_t>(0xDFFF))), u"\uFFFD");
}

TEST(TextTest, LoneSurrogateInUtf16BecomesReplacement)
{
    const std::u16string high(1, static_cast<char16_t>(0xD83D));
    const std::u16string low(1, static_cast<char16_t>(0xDE00));
    EXPECT_EQ(Utf16ToWide(high), L"\uFFFD");
    EXPECT_EQ(Utf16ToWide(high + u"a"), L"\uFFFDa");
    EXPECT_EQ(Utf16ToWide(low + high), L"\uFFFD\uFFFD");
    EXPECT_EQ(Utf16ToWide(high + low), L"\U0001F600");
}

TEST(TextTest, MegabytesOfAsciiComeThroughWhole)
{
    const std::string bytes(3'000'001, 'x');
    EXPECT_EQ(WideToUtf8(Utf8ToWide(bytes)), bytes);
}

TEST(TextTest, LowerCaseCoversMoreThanAscii)
{
    EXPECT_EQ(ToLower(L"C:\\X\\Y.DLL [@Z`"), L"c:\\x\\y.dll [@z`");
    EXPECT_EQ(ToLower(L"\u00C9\u0416\u03A9"), L"\u00E9\u0436\u03C9");
    EXPECT_EQ(ToLower(L"\u65E5\U0001F600"), L"\u65E5\U0001F600");
}

TEST(TextTest, ComparesWithoutCase)
{
    EXPECT_TRUE(EqualsNoCase(L"", L""));
    EXPECT_TRUE(EqualsNoCase(L"QoxRule", L"qOXrULE"));
    EXPECT_TRUE(EqualsNoCase(L"\u00C9t\u00C9", L"\u00E9T\u00E9"));
    EXPECT_FALSE(EqualsNoCase(L"abc", L"abcd"));
    EXPECT_FALSE(EqualsNoCase(L"abc", L"abd"));
    EXPECT_FALSE(EqualsNoCase(L"@", L"`"));
}

TEST(TextTest, AsciiIsTheSameInEveryCodePage)
{
    EXPECT_EQ(ToCodePage(L"C:\\a b.vrf"), "C:\\a b.vrf");
    EXPECT_EQ(FromCodePage("C:\\a b.vrf"), L"C:\\a b.vrf");
}

} // namespace
