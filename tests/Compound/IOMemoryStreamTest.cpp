#include "Compound/IOMemoryStream.h"

#include "tests/Compound/TestStreams.h"

#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>

TEST(IOMemoryStreamTest, ReadingBeyondTheEndGivesNothing)
{
    IOMemoryStream stream;
    std::array<char, 8> buffer = {};
    EXPECT_EQ(stream.Read(buffer.data(), 8), 0u);
    EXPECT_EQ(stream.Write("abc", 3), 3u);
    EXPECT_EQ(stream.Read(buffer.data(), 8), 3u);
    EXPECT_EQ(std::string(buffer.data()), "abc");
    EXPECT_EQ(stream.Read(buffer.data(), 8), 0u);
    EXPECT_EQ(stream.Read(buffer.data(), 8), 0u);
}

TEST(IOMemoryStreamTest, ReadingNoBytesDoesntMoveThePosition)
{
    IOMemoryStream stream;
    stream.Write("abc", 3);
    std::array<char, 4> buffer = {};
    EXPECT_EQ(stream.Read(buffer.data(), 0), 0u);
    EXPECT_EQ(stream.Read(nullptr, 0), 0u);
    EXPECT_EQ(stream.Read(buffer.data(), 4), 3u);
    EXPECT_EQ(std::string(buffer.data()), "abc");
}

TEST(IOMemoryStreamTest, WhatIsWrittenAfterAReadIsDeliveredByLaterOnes)
{
    IOMemoryStream stream;
    std::array<char, 8> buffer = {};
    stream.Write("abc", 3);
    EXPECT_EQ(stream.Read(buffer.data(), 2), 2u);
    stream.Write("def", 3);
    EXPECT_EQ(stream.Read(buffer.data(), 8), 4u);
    EXPECT_EQ(std::string(buffer.data(), 4), "cdef");
}

TEST(IOMemoryStreamTest, WritingNothingTakesNothing)
{
    IOMemoryStream stream;
    EXPECT_EQ(stream.Write("", 0), 0u);
    EXPECT_EQ(stream.Write(nullptr, 0), 0u);
    EXPECT_EQ(ReadToEnd(stream), "");
}

TEST(IOMemoryStreamTest, OneObjectIsBothStreams)
{
    IOMemoryStream stream;
    IOutputStream* const output = &stream;
    IInputStream* const input = &stream;
    const std::string text = SampleText(100'000);
    for (std::size_t offset = 0; offset < text.size(); offset += 1000)
    {
        EXPECT_EQ(output->Write(text.data() + offset, 1000), 1000u);
    }
    EXPECT_EQ(ReadToEnd(*input), text);
}

TEST(IOMemoryStreamTest, RoomBehindTheContentsIsFilledInPlace)
{
    IOMemoryStream stream;
    stream.Write("ab", 2);
    const std::span<unsigned char> room = stream.Spare(1000);
    ASSERT_GE(room.size(), 1000u);
    room[0] = 'c';
    room[1] = 'd';
    EXPECT_EQ(stream.Size(), 2u) << "not before it is said";
    stream.Commit(1);
    EXPECT_EQ(stream.Size(), 3u);
    EXPECT_EQ(ReadToEnd(stream), "abc");
    EXPECT_TRUE(stream.Spare(0).empty());
}

TEST(IOMemoryStreamTest, CuttingBackForgetsTheLatestBytesButNoneThatWereRead)
{
    IOMemoryStream stream;
    stream.Write("abcdef", 6);
    stream.CutBack(9);
    EXPECT_EQ(stream.Size(), 6u);
    stream.CutBack(4);
    char first = 0;
    stream.Read(&first, 1);
    stream.CutBack(0);
    EXPECT_EQ(stream.Size(), 1u);
    stream.Write("z", 1);
    EXPECT_EQ(ReadToEnd(stream), "z");
}

TEST(IOMemoryStreamTest, TensOfMegabytesAreHeldLikeAnythingElse)
{
    IOMemoryStream stream;
    const std::string piece = SampleText(1'000'003);
    for (int count = 0; count < 40; ++count)
    {
        ASSERT_EQ(stream.Write(piece.data(), 1'000'003), 1'000'003u);
    }
    EXPECT_EQ(stream.Size(), 40'000'120u);
    std::string read(piece.size(), '\0');
    for (int count = 0; count < 40; ++count)
    {
        ASSERT_EQ(stream.Read(read.data(), 1'000'003), 1'000'003u);
        ASSERT_TRUE(read == piece) << count;
    }
    EXPECT_EQ(stream.Read(read.data(), 1), 0u);
}
