#include "Compound/ZipPasses.h"

#include "tests/Compound/MemoryArchiveFile.h"
#include "tests/Compound/TestArchive.h"
#include "tests/Compound/TestStreams.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <zlib.h>

namespace
{

std::uint32_t Crc(const std::string& bytes)
{
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<unsigned int>(bytes.size())));
}

std::uint32_t SizeOf(const std::string& bytes)
{
    return static_cast<std::uint32_t>(bytes.size());
}

/// A file in memory and what a pass has counted.
struct Pass
{
    std::shared_ptr<std::string> bytes = std::make_shared<std::string>();
    ZipTotals totals;

    std::int32_t Store(const std::string& text, const ArchiveFaults& faults = {})
    {
        TestSource source(text);
        MemoryArchiveFile file(bytes, faults);
        return StoreIntoArchive(source, file, totals);
    }

    std::int32_t Deflate(const std::string& text, const ArchiveFaults& faults = {})
    {
        TestSource source(text);
        MemoryArchiveFile file(bytes, faults);
        return DeflateIntoArchive(source, file, totals);
    }
};

struct Extracted
{
    bool good;
    std::string contents;
};

Extracted Inflate(const std::string& bytes, std::uint32_t size, std::size_t limit = SIZE_MAX)
{
    MemoryArchiveFile file(std::make_shared<std::string>(bytes));
    TestSink sink(limit);
    const bool good = InflateFromArchive(file, size, sink);
    return { good, sink.bytes };
}

std::string Copy(const std::string& bytes, std::uint32_t size)
{
    MemoryArchiveFile file(std::make_shared<std::string>(bytes));
    TestSink sink;
    CopyFromArchive(file, size, sink);
    return sink.bytes;
}

} // namespace

TEST(ZipPassesTest, StoringLeavesFullBlocksOutButNotOfTheChecksum)
{
    const std::string text = SampleText(20'000);
    Pass pass;
    EXPECT_EQ(pass.Store(text), 0);
    EXPECT_EQ(*pass.bytes, text.substr(16384));
    EXPECT_EQ(pass.totals.readSize, 3616u);
    EXPECT_EQ(pass.totals.writeSize, 3616u);
    EXPECT_EQ(pass.totals.crc, Crc(text));
}

TEST(ZipPassesTest, StoringExactlyTwoBlocksStoresNothing)
{
    const std::string text = SampleText(32768);
    Pass pass;
    EXPECT_EQ(pass.Store(text), 0);
    EXPECT_EQ(*pass.bytes, "");
    EXPECT_EQ(pass.totals.readSize, 0u);
    EXPECT_EQ(pass.totals.writeSize, 0u);
    EXPECT_EQ(pass.totals.crc, Crc(text));
    EXPECT_NE(pass.totals.crc, 0u);
}

TEST(ZipPassesTest, StoringGoesOnOverShortReads)
{
    TestSource source("abcdefgh", { 3, 1 });
    Pass pass;
    MemoryArchiveFile file(pass.bytes);
    EXPECT_EQ(StoreIntoArchive(source, file, pass.totals), 0);
    EXPECT_EQ(*pass.bytes, "abcdefgh");
    EXPECT_EQ(pass.totals.writeSize, 8u);
    EXPECT_EQ(source.asked.size(), 4u) << "until a read gives nothing";
}

TEST(ZipPassesTest, AShortWriteEndsStoringWithItsCodeAndLeavesTheTotalsAlone)
{
    ArchiveFaults faults;
    faults.write = 1;
    faults.writesInPart = true;
    Pass pass;
    pass.totals = { 1, 2, 3 };
    EXPECT_EQ(pass.Store(SampleText(20'000), faults), 393216);
    EXPECT_EQ(pass.totals.readSize, 1u);
    EXPECT_EQ(pass.totals.writeSize, 2u);
    EXPECT_EQ(pass.totals.crc, 3u);
    EXPECT_EQ(pass.bytes->size(), 1808u);
}

TEST(ZipPassesTest, DeflatingCountsAndSumsWhatItReads)
{
    for (const std::size_t size : { 0, 1, 16383, 16384, 16385, 100'000 })
    {
        const std::string text = SampleText(size);
        Pass pass;
        EXPECT_EQ(pass.Deflate(text), 0);
        EXPECT_EQ(pass.totals.readSize, size);
        EXPECT_EQ(pass.totals.writeSize, pass.bytes->size());
        EXPECT_EQ(pass.totals.crc, Crc(text));
        const Extracted extracted = Inflate(*pass.bytes, pass.totals.writeSize);
        EXPECT_TRUE(extracted.good);
        EXPECT_EQ(extracted.contents, text);
    }
}

TEST(ZipPassesTest, ShortWritesWhileDeflatingGoUnnoticed)
{
    ArchiveFaults faults;
    faults.write = 1;
    faults.fromThenOn = true;
    Pass whole;
    Pass pass;
    whole.Deflate(Noise(50'000));
    EXPECT_EQ(pass.Deflate(Noise(50'000), faults), 0);
    EXPECT_EQ(*pass.bytes, "");
    EXPECT_EQ(pass.totals.writeSize, whole.totals.writeSize);
    EXPECT_EQ(pass.totals.readSize, 50'000u);
}

TEST(ZipPassesTest, InflatingStopsWithTheBytesOrWithTheStream)
{
    const std::string text = SampleText(200'000);
    const std::string bytes = RawDeflate(text);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    EXPECT_EQ(Inflate(bytes, size).contents, text);
    EXPECT_TRUE(Inflate(bytes, size).good);
    EXPECT_TRUE(Inflate(bytes + "more that isn't looked at", size + 10).good);
    EXPECT_TRUE(Inflate(bytes, 0xFFFFFFFF).good) << "a size that is only claimed";
    EXPECT_EQ(Inflate(bytes, 0xFFFFFFFF).contents, text);

    const Extracted cut = Inflate(bytes, size / 2);
    EXPECT_FALSE(cut.good);
    EXPECT_GT(cut.contents.size(), 50'000u);
    EXPECT_EQ(cut.contents, text.substr(0, cut.contents.size())) << "what came before the end is kept";
    EXPECT_FALSE(Inflate(bytes, 0).good);
    EXPECT_FALSE(Inflate("", 100).good);
}

TEST(ZipPassesTest, ADataErrorEndsInflatingWithWhatCameBefore)
{
    const std::string text = SampleText(400'000);
    std::string bytes = RawDeflate(text);
    ASSERT_GT(bytes.size(), 20'000u);
    bytes[17'000] = static_cast<char>(~bytes[17'000]);
    const Extracted extracted = Inflate(bytes, static_cast<std::uint32_t>(bytes.size()));
    EXPECT_GE(extracted.contents.size(), 16384u);
    EXPECT_EQ(extracted.contents.substr(0, 16384), text.substr(0, 16384));
    EXPECT_FALSE(Inflate("\x07\xFF\xFF", 3).good) << "a kind of block that there isn't";
}

TEST(ZipPassesTest, ASinkThatTakesLessEndsInflating)
{
    const std::string bytes = RawDeflate(SampleText(200'000));
    const Extracted extracted = Inflate(bytes, static_cast<std::uint32_t>(bytes.size()), 20'000);
    EXPECT_FALSE(extracted.good);
    EXPECT_EQ(extracted.contents.size(), 20'000u);
}

TEST(ZipPassesTest, InflatingAtOnceGivesTheSameOrNothing)
{
    for (const std::string& text :
         { std::string(), SampleText(1), SampleText(300'000), Noise(300'000), std::string(3'000'000, 'x') })
    {
        const std::string bytes = RawDeflate(text);
        for (const std::size_t size : { bytes.size(), bytes.size() + 1, std::size_t(0xFFFFFFFF), bytes.size() - 1,
                                        bytes.size() / 2, std::size_t(0) })
        {
            MemoryArchiveFile file(std::make_shared<std::string>(bytes + "?"));
            IOMemoryStream memory;
            memory.Write("before", 6);
            const bool good = InflateWholeFromArchive(file, static_cast<std::uint32_t>(size), SizeOf(text), memory);
            EXPECT_EQ(good, Inflate(bytes, static_cast<std::uint32_t>(size)).good) << size;
            EXPECT_EQ(ReadToEnd(memory), good ? "before" + text : "before") << size;
        }
    }
}

TEST(ZipPassesTest, ASizeThatIsntTrueChangesNothingThatIsInflated)
{
    for (const std::string& text :
         { std::string(), SampleText(1), SampleText(300'000), Noise(300'000), std::string(3'000'000, 'x') })
    {
        const std::string bytes = RawDeflate(text);
        for (const std::uint32_t claimed : { 0u, 1u, SizeOf(text) / 2, SizeOf(text) + 1, 0xFFFFFFFFu })
        {
            MemoryArchiveFile file(std::make_shared<std::string>(bytes));
            IOMemoryStream memory;
            EXPECT_TRUE(InflateWholeFromArchive(file, SizeOf(bytes), claimed, memory)) << claimed;
            EXPECT_EQ(ReadToEnd(memory), text) << claimed;
        }
    }
}

TEST(ZipPassesTest, AClaimOfFourGigabytesMakesRoomForWhatTheBytesCanGive)
{
    const std::string bytes = RawDeflate("ten bytes!");
    MemoryArchiveFile file(std::make_shared<std::string>(bytes));
    IOMemoryStream memory;
    EXPECT_TRUE(InflateWholeFromArchive(file, 0xFFFFFFFF, 0xFFFFFFFF, memory));
    EXPECT_EQ(memory.Size(), 10u);
    EXPECT_LE(memory.Spare(1).size(), 16 * bytes.size()) << "the room that is left";
}

TEST(ZipPassesTest, CopyingStopsAtTheEndOfTheFile)
{
    const std::string text = SampleText(40'000);
    EXPECT_EQ(Copy(text, 40'000), text);
    EXPECT_EQ(Copy(text, 16'384), text.substr(0, 16'384));
    EXPECT_EQ(Copy(text, 0xFFFFFFFF), text);
    EXPECT_EQ(Copy(text, 0), "");
}
