#include "Application/ForwardedFile.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

std::optional<std::wstring> Forwarded(const std::string& bytes)
{
    return ForwardedPath(bytes.data(), bytes.size());
}

} // namespace

TEST(ForwardedFileTest, APathEndsAtItsTerminator)
{
    EXPECT_EQ(Forwarded(std::string("a\0.\0v\0\0\0x\0", 10)), L"a.v");
}

TEST(ForwardedFileTest, NothingIsReadBeyondTheSize)
{
    EXPECT_EQ(Forwarded(std::string("a\0b\0", 4)), L"ab") << "no terminator";
    EXPECT_EQ(Forwarded(std::string("a\0b", 3)), L"a") << "half a unit";
    EXPECT_EQ(Forwarded("a"), std::nullopt);
    EXPECT_EQ(Forwarded(""), std::nullopt);
    EXPECT_EQ(ForwardedPath(nullptr, 100), std::nullopt);
}

TEST(ForwardedFileTest, CharactersBeyondSixteenBitsAreJoined)
{
    EXPECT_EQ(Forwarded(std::string("\x3d\xd8\x00\xde\0\0", 6)), L"\U0001f600");
}
