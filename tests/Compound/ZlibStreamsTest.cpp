#include "Compound/ZlibStreams.h"

#include "tests/Compound/TestStreams.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <numeric>
#include <string>
#include <vector>
#include <zlib.h>

namespace
{

/// What zlib makes of a text, in one go.
std::string Compressed(const std::string& text)
{
    std::string result(compressBound(text.size()), '\0');
    uLongf size = result.size();
    compress(reinterpret_cast<unsigned char*>(result.data()), &size,
             reinterpret_cast<const unsigned char*>(text.data()), text.size());
    result.resize(size);
    return result;
}

std::string Written(const std::string& text)
{
    TestSink target;
    {
        ZlibOutputStream stream(&target);
        EXPECT_EQ(stream.Write(text.data(), static_cast<std::uint32_t>(text.size())), text.size());
        EXPECT_EQ(target.bytes, "") << "nothing is written before the stream ends";
    }
    return target.bytes;
}

std::string Read(const std::string& bytes)
{
    TestSource source(bytes);
    ZlibInputStream stream(&source);
    return ReadToEnd(stream);
}

} // namespace

TEST(ZlibStreamsTest, AStreamIntoWhichNothingWasWrittenStillGivesACompleteEmptyOne)
{
    EXPECT_EQ(Written(""), Compressed(""));
    EXPECT_EQ(Written("").size(), 8u);
    EXPECT_EQ(Read(Written("")), "");
}

TEST(ZlibStreamsTest, ContentsComeBackWhateverTheirSize)
{
    for (const std::size_t size : { 1, 100, 16383, 16384, 16385, 32768, 300'000 })
    {
        const std::string text = SampleText(size);
        EXPECT_EQ(Written(text), Compressed(text)) << size;
        EXPECT_EQ(Read(Written(text)), text) << size;
        const std::string noise = Noise(size);
        EXPECT_EQ(Read(Written(noise)), noise) << size;
    }
}

TEST(ZlibStreamsTest, ASourceOfExactlyOneBlockIsReadOnceMoreAndThenFinished)
{
    TestSource source(SampleText(16384));
    TestSink sink;
    EXPECT_EQ(DeflateStream(source, sink, -1), 0);
    EXPECT_EQ(source.asked, (std::vector<std::uint32_t>{ 16384, 16384 }));
    EXPECT_EQ(sink.bytes, Compressed(SampleText(16384)));
}

TEST(ZlibStreamsTest, AShortReadIsTheEndOfTheSource)
{
    // What such a source would deliver later is never asked for.
    TestSource source("abcdef", { 3 });
    TestSink sink;
    EXPECT_EQ(DeflateStream(source, sink, -1), 0);
    EXPECT_EQ(source.asked.size(), 1u);
    EXPECT_EQ(Read(sink.bytes), "abc");
}

TEST(ZlibStreamsTest, InflatingGoesOnOverShortReads)
{
    const std::string text = SampleText(5000);
    TestSource source(Compressed(text), { 1, 2, 3, 4, 5 });
    TestSink sink;
    EXPECT_EQ(InflateStream(source, sink), 0);
    EXPECT_EQ(sink.bytes, text);
}

TEST(ZlibStreamsTest, ASinkThatTakesLessEndsTheWork)
{
    {
        TestSource source(Noise(100'000));
        TestSink sink(20'000);
        EXPECT_EQ(DeflateStream(source, sink, -1), -1);
        EXPECT_EQ(sink.bytes.size(), 20'000u);
        EXPECT_LT(source.asked.size(), 7u);
    }
    TestSource source(Compressed(SampleText(100'000)));
    TestSink sink(20'000);
    EXPECT_EQ(InflateStream(source, sink), -1);
    EXPECT_EQ(sink.bytes, SampleText(100'000).substr(0, 20'000));
    EXPECT_EQ(sink.given, (std::vector<std::uint32_t>{ 16384, 16384 }));
}

TEST(ZlibStreamsTest, ASourceThatEndsEarlyIsADataErrorAndItsPartIsDelivered)
{
    const std::string text = SampleText(200'000);
    const std::string whole = Compressed(text);
    TestSource source(whole.substr(0, whole.size() - 1));
    TestSink sink;
    EXPECT_EQ(InflateStream(source, sink), Z_DATA_ERROR);
    EXPECT_EQ(sink.bytes, text);

    const std::string half = Read(whole.substr(0, whole.size() / 2));
    EXPECT_GT(half.size(), 50'000u);
    EXPECT_LT(half.size(), text.size());
    EXPECT_EQ(half, text.substr(0, half.size()));
}

TEST(ZlibStreamsTest, WhatIsNoZlibStreamGivesADataErrorAndNothing)
{
    for (const std::string bytes : { "", "x", "PK\3\4 and more of it", "no stream at all" })
    {
        TestSource source(bytes);
        TestSink sink;
        EXPECT_EQ(InflateStream(source, sink), Z_DATA_ERROR) << bytes;
        EXPECT_EQ(sink.bytes, "") << bytes;
    }
}

TEST(ZlibStreamsTest, AStreamThatNeedsADictionaryIsADataError)
{
    z_stream stream = {};
    ASSERT_EQ(deflateInit(&stream, 6), Z_OK);
    const std::string text = "If Hole.Depth Then";
    std::vector<unsigned char> dictionary(text.begin(), text.end());
    deflateSetDictionary(&stream, dictionary.data(), static_cast<unsigned int>(dictionary.size()));
    std::string bytes(1000, '\0');
    stream.next_in = dictionary.data();
    stream.avail_in = static_cast<unsigned int>(dictionary.size());
    stream.next_out = reinterpret_cast<unsigned char*>(bytes.data());
    stream.avail_out = static_cast<unsigned int>(bytes.size());
    ASSERT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    bytes.resize(stream.total_out);
    deflateEnd(&stream);

    TestSource source(bytes);
    TestSink sink;
    EXPECT_EQ(InflateStream(source, sink), Z_DATA_ERROR);
    EXPECT_EQ(sink.bytes, "");
}

TEST(ZlibStreamsTest, ALevelThatZlibDoesntKnowGivesItsCode)
{
    TestSource source("abc");
    TestSink sink;
    EXPECT_EQ(DeflateStream(source, sink, 77), Z_STREAM_ERROR);
    EXPECT_TRUE(source.asked.empty());
}

TEST(ZlibStreamsTest, StreamsOverNothingAreEmpty)
{
    ZlibInputStream input(nullptr);
    std::array<char, 4> buffer = {};
    EXPECT_EQ(input.Read(buffer.data(), 4), 0u);
    const auto output = std::make_unique<ZlibOutputStream>(nullptr);
    EXPECT_EQ(output->Write("abc", 3), 3u);
}
