#include "Document/RulePassword.h"
#include "tests/Support/ScopedLocale.h"

#include <gtest/gtest.h>

namespace
{

std::wstring RoundTrip(const std::wstring& password)
{
    const std::optional<std::wstring> packed = RulePassword::Pack(password);
    return packed ? RulePassword::Unpack(*packed) : L"refused";
}

} // namespace

TEST(RulePasswordTest, TwoCharactersOfTheEncodedTextMakeOneUnitOfTheFile)
{
    // AAA=, YQAAAA== and YQBiAAAA by pairs.
    EXPECT_EQ(RulePassword::Pack(L""), L"\u4141\u3D41");
    EXPECT_EQ(RulePassword::Pack(L"a"), L"\u5159\u4141\u4141\u3D3D");
    EXPECT_EQ(RulePassword::Pack(L"ab"), L"\u5159\u6942\u4141\u4141");
}

TEST(RulePasswordTest, ALineEndOfTheEncodedTextIsOneUnit)
{
    const std::wstring packed = RulePassword::Pack(std::wstring(40, L'x')).value();
    ASSERT_EQ(packed.size(), 57u);
    EXPECT_EQ(packed[38], 0x0A0D);
}

TEST(RulePasswordTest, PasswordsOfAllLengthsThatFitComeBack)
{
    for (std::size_t length = 0; length <= RulePassword::MostUnits; ++length)
    {
        ASSERT_EQ(RoundTrip(std::wstring(length, L'k')), std::wstring(length, L'k'));
    }
}

TEST(RulePasswordTest, TheLongestPasswordLeavesRoomForTheEndAndALongerOneIsRefused)
{
    EXPECT_EQ(RulePassword::Pack(std::wstring(188, L'k')).value().size(), 258u);
    EXPECT_TRUE(RulePassword::Fits(std::wstring(188, L'k')));
    EXPECT_FALSE(RulePassword::Fits(std::wstring(189, L'k')));
    EXPECT_EQ(RulePassword::Pack(std::wstring(189, L'k')), std::nullopt);
    EXPECT_FALSE(RulePassword::Fits(std::wstring(1000000, L'k')));
}

TEST(RulePasswordTest, AllCharactersComeBackWhereTheCodePageHasThem)
{
    const ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.IsTaken());
    EXPECT_EQ(RoundTrip(L"R\u00E8gle \u65E5\u672C \U0001F600 "), L"R\u00E8gle \u65E5\u672C \U0001F600 ");
}

TEST(RulePasswordTest, CharactersOfTwoUnitsCountTwice)
{
    const ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.IsTaken());
    const std::wstring faces(94, L'\U0001F600');
    EXPECT_EQ(RoundTrip(faces), faces);
    EXPECT_FALSE(RulePassword::Fits(faces + L"x"));
}

TEST(RulePasswordTest, ACharacterOutsideTheCodePageDoesNotMatchAfterARoundTrip)
{
    const Latin1Locale locale;
    if (!locale.IsTaken())
    {
        GTEST_SKIP() << "no Latin-1 locale can be made on this machine";
    }
    EXPECT_EQ(RoundTrip(L"R\u00E8gle"), L"R\u00E8gle");
    EXPECT_EQ(RoundTrip(L"\u65E5\u00E8"), L"?\u00E8");
}

TEST(RulePasswordTest, AnyTextOfAFileGivesSomePassword)
{
    EXPECT_EQ(RulePassword::Unpack(L""), L"");
    EXPECT_EQ(RulePassword::Unpack(L"\u65E5\u672C"), L"z"); // the bytes E5 65 2C 67 hold "eg"
    EXPECT_EQ(RulePassword::Unpack(L"\uD7FF\uFFFD\U0001F600"), L"");
    // One byte and three are half a unit more.
    EXPECT_EQ(RulePassword::Unpack(L"\u5159"), L"a");
    EXPECT_EQ(RulePassword::Unpack(L"\u5159\u6942"), L"ab");
}

TEST(RulePasswordTest, OfATextThatIsTooLongTheStartIsDecoded)
{
    std::wstring packed;
    for (int count = 0; count < 100000; ++count)
    {
        packed += L"\u5159\u6942"; // YQBi: no terminator
    }
    EXPECT_LT(RulePassword::Unpack(packed).size(), 260u);
}

TEST(RulePasswordTest, WhatFollowsTheTerminatorDoesNotCount)
{
    EXPECT_EQ(RulePassword::Unpack(RulePassword::Pack(L"ab").value() + L"\u5159\u6942"), L"ab");
}
