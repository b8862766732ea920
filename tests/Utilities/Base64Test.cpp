#include "Utilities/Base64.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

std::string Encode(const std::string& bytes, std::uint32_t flags = 0)
{
    std::vector<std::uint8_t> source(bytes.begin(), bytes.end());
    source.push_back(0); // so that there is an address also without bytes
    const auto length = static_cast<std::int32_t>(bytes.size());
    std::int32_t room = Base64EncodeGetRequiredLength(length, flags);
    std::string text(static_cast<std::size_t>(room) + 1, '#');
    EXPECT_TRUE(Base64Encode(source.data(), length, text.data(), &room, flags));
    EXPECT_LT(static_cast<std::size_t>(room), text.size()) << "the required length is an upper bound";
    return text.substr(0, static_cast<std::size_t>(room));
}

std::string Decode(const std::string& text)
{
    std::vector<std::uint8_t> bytes(text.size() + 1);
    auto length = static_cast<std::int32_t>(text.size());
    EXPECT_TRUE(Base64Decode(text.data(), static_cast<std::int32_t>(text.size()), bytes.data(), &length));
    return { bytes.begin(), bytes.begin() + length };
}

std::string SomeBytes(std::size_t count)
{
    std::string bytes;
    for (std::size_t index = 0; index < count; ++index)
    {
        bytes += static_cast<char>(index * 37 + 11);
    }
    return bytes;
}

} // namespace

TEST(Base64Test, KnownTextsAreEncodedWithPadding)
{
    EXPECT_EQ(Encode(""), "");
    EXPECT_EQ(Encode("f"), "Zg==");
    EXPECT_EQ(Encode("fo"), "Zm8=");
    EXPECT_EQ(Encode("foo"), "Zm9v");
    EXPECT_EQ(Encode("foobar"), "Zm9vYmFy");
    EXPECT_EQ(Encode("\xFF\xEF\xBE\xFB"), "/++++w==");
}

TEST(Base64Test, TheTerminatorOfAWideTextIsThreeAsAndPadding)
{
    EXPECT_EQ(Encode(std::string(2, '\0')), "AAA=");
}

TEST(Base64Test, FiftySevenBytesFillALineAndItsEndStays)
{
    const std::string text = Encode(SomeBytes(57));
    EXPECT_EQ(text.size(), 78u);
    EXPECT_EQ(text.find("\r\n"), 76u);
}

TEST(Base64Test, FiftyEightBytesTakeAnotherLineOfFour)
{
    const std::string text = Encode(SomeBytes(58));
    EXPECT_EQ(text.size(), 82u);
    EXPECT_EQ(text.find("\r\n"), 76u);
    EXPECT_EQ(text.substr(80), "==");
}

TEST(Base64Test, FiftyFourBytesHaveNoLineEnd)
{
    const std::string text = Encode(SomeBytes(54));
    EXPECT_EQ(text.size(), 72u);
    EXPECT_EQ(text.find('\r'), std::string::npos);
}

TEST(Base64Test, ALastGroupThatIsNotWholeFollowsAFullLineOnTheSameLine)
{
    // 56 bytes are 18 whole groups and two bytes: the line gets no end though it has 76.
    EXPECT_EQ(Encode(SomeBytes(56)).size(), 76u);
    EXPECT_EQ(Encode(SomeBytes(114)).substr(154), "\r\n");
}

TEST(Base64Test, PaddingAndLineEndsCanBeTurnedOff)
{
    EXPECT_EQ(Encode("f", Base64NoPadding), "Zg");
    EXPECT_EQ(Encode("fo", Base64NoPadding), "Zm8");
    EXPECT_EQ(Encode(SomeBytes(57), Base64NoLineEnds).size(), 76u);
    EXPECT_EQ(Encode(SomeBytes(200), Base64NoLineEnds | Base64NoPadding).size(), 267u);
}

TEST(Base64Test, TheRequiredLengthCountsPaddingAndLines)
{
    EXPECT_EQ(Base64EncodeGetRequiredLength(0, 0), 2);
    EXPECT_EQ(Base64EncodeGetRequiredLength(1, 0), 6);
    EXPECT_EQ(Base64EncodeGetRequiredLength(57, 0), 80);
    EXPECT_EQ(Base64EncodeGetRequiredLength(58, 0), 84);
    EXPECT_EQ(Base64EncodeGetRequiredLength(58, Base64NoLineEnds), 80);
    EXPECT_EQ(Base64EncodeGetRequiredLength(378, 0), 518);
    EXPECT_EQ(Base64EncodeGetRequiredLength(380, 0), 522);
    EXPECT_EQ(Base64EncodeGetRequiredLength(3, Base64NoPadding | Base64NoLineEnds), 4);
}

TEST(Base64Test, ALengthThatCannotBeRaisesAFailure)
{
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max() / 4;
    EXPECT_GT(Base64EncodeGetRequiredLength(Most, 0), Most);
    EXPECT_THROW(Base64EncodeGetRequiredLength(Most + 1, 0), std::length_error);
    EXPECT_THROW(Base64EncodeGetRequiredLength(-1, 0), std::length_error);
}

TEST(Base64Test, NoPointerMayBeNullAndTheRoomMustBeTheRequiredOne)
{
    const std::uint8_t source = 7;
    std::array<char, 8> text = { 'x' };
    std::int32_t room = 8;
    EXPECT_FALSE(Base64Encode(nullptr, 1, text.data(), &room, 0));
    EXPECT_FALSE(Base64Encode(&source, 1, nullptr, &room, 0));
    EXPECT_FALSE(Base64Encode(&source, 1, text.data(), nullptr, 0));
    EXPECT_FALSE(Base64Encode(&source, -1, text.data(), &room, 0));
    room = 5;
    EXPECT_FALSE(Base64Encode(&source, 1, text.data(), &room, 0));
    EXPECT_EQ(room, 5);
    EXPECT_EQ(text[0], 'x');
    room = 6;
    EXPECT_TRUE(Base64Encode(&source, 1, text.data(), &room, 0));
    EXPECT_EQ(room, 4);
}

TEST(Base64Test, BytesOfEveryLengthComeBackWithAndWithoutLineEndsAndPadding)
{
    for (std::size_t count = 0; count < 600; ++count)
    {
        for (std::uint32_t flags = 0; flags < 4; ++flags)
        {
            ASSERT_EQ(Decode(Encode(SomeBytes(count), flags)), SomeBytes(count)) << count << " " << flags;
        }
    }
}

TEST(Base64Test, WhateverIsOutsideTheAlphabetIsSkipped)
{
    EXPECT_EQ(Decode("Z m\t9-v_Y\xE9m=Fy\r\n=="), "foobar");
    EXPECT_EQ(Decode("===="), "");
}

TEST(Base64Test, AGroupThatIsCutOffGivesTheWholeBytesInIt)
{
    EXPECT_EQ(Decode("Z"), "");
    EXPECT_EQ(Decode("Zm"), "f");
    EXPECT_EQ(Decode("Zm9"), "fo");
}

TEST(Base64Test, AZeroByteEndsTheTextBetweenGroupsAndIsSkippedWithin)
{
    EXPECT_EQ(Decode(std::string("Zm9v\0YmFy", 9)), "foo");
    EXPECT_EQ(Decode(std::string("Z\0m\0009\0v", 7)), "foo");
    EXPECT_EQ(Decode(std::string("\0Zm9v", 5)), "");
}

TEST(Base64Test, WithTooLittleRoomTheRestIsCountedAndNotWritten)
{
    std::array<std::uint8_t, 6> bytes = {};
    std::int32_t length = 4;
    EXPECT_FALSE(Base64Decode("Zm9vYmFy", 8, bytes.data(), &length));
    EXPECT_EQ(length, 6);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 6>{ 'f', 'o', 'o', 'b', 0, 0 }));
}

TEST(Base64Test, WithoutADestinationOnlyTheCountIsTold)
{
    std::int32_t length = 100;
    EXPECT_FALSE(Base64Decode("Zm9vYmFy", 8, nullptr, &length));
    EXPECT_EQ(length, 6);
}

TEST(Base64Test, WithoutASourceOrALengthNothingIsWritten)
{
    std::uint8_t byte = 9;
    std::int32_t length = 1;
    EXPECT_FALSE(Base64Decode(nullptr, 4, &byte, &length));
    EXPECT_FALSE(Base64Decode("Zm9v", 4, &byte, nullptr));
    EXPECT_FALSE(Base64Decode("Zm9v", -1, &byte, &length));
    EXPECT_EQ(byte, 9);
    EXPECT_EQ(length, 1);
}

TEST(WideBase64Test, TheBytesOfAWideTextAreItsUnitsLowByteFirstWithATerminator)
{
    std::array<char, 64> text = {};
    EXPECT_EQ(WideBase64Source(L"").Encode(text), 4);
    EXPECT_STREQ(text.data(), "AAA=");
    EXPECT_EQ(WideBase64Source(L"A\u65E5").Encode(text), 8);
    EXPECT_STREQ(text.data(), "QQDlZQAA");
    // Two units beyond the first plane, whatever a wide character has.
    EXPECT_EQ(WideBase64Source(L"\U0001F600").Encode(text), 8);
    EXPECT_STREQ(text.data(), "PdgA3gAA");
}

TEST(WideBase64Test, TooLittleRoomForAWideTextGivesNothing)
{
    std::array<char, 5> text = { 'x' };
    EXPECT_EQ(WideBase64Source(L"").Encode(text), 0);
    EXPECT_EQ(text[0], 'x');
}

TEST(WideBase64Test, UnitsAreDecodedAsTheTwoCharactersThatTheyHold)
{
    std::array<std::uint8_t, 8> bytes = {};
    const std::wstring packed = { L'Z' | L'm' << 8, L'9' | L'v' << 8 };
    EXPECT_EQ(WideBase64Target(packed).Decode(bytes), 3);
    EXPECT_EQ(bytes[0], 'f');
    EXPECT_EQ(bytes[2], 'o');
    EXPECT_EQ(bytes[3], 0);
    EXPECT_EQ(WideBase64Target(L"").Decode(bytes), 0);
}

TEST(WideBase64Test, UnitsOfOneCharacterHoldAZeroByteThatIsSkippedWithinAGroup)
{
    std::array<std::uint8_t, 8> bytes = {};
    EXPECT_EQ(WideBase64Target(L"Zm9v").Decode(bytes), 3);
    EXPECT_EQ(bytes[1], 'o');
    // The zero byte of the fourth unit stands at the start of the next group.
    EXPECT_EQ(WideBase64Target(L"Zm9vYmFy").Decode(bytes), 3);
}

TEST(WideBase64Test, NoMoreBytesAreWrittenThanThereIsRoom)
{
    std::array<std::uint8_t, 3> bytes = {};
    const std::wstring packed = { L'Z' | L'm' << 8, L'9' | L'v' << 8 };
    EXPECT_EQ(WideBase64Target(packed).Decode(std::span(bytes).first(2)), 3);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 3>{ 'f', 'o', 0 }));
}
