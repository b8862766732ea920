#include "Compound/IOMemoryStream.h"

#include "tests/Compound/TestStreams.h"

#include <gtest/gtest.h>

#include <array>
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
