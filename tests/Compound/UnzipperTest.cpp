#include "Compound/Unzipper.h"

#include "tests/Compound/MemoryArchiveFile.h"
#include "tests/Compound/TestArchive.h"
#include "tests/Compound/TestStreams.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{

/// An archive in memory.
struct Archive
{
    explicit Archive(const std::string& bytes, const ArchiveFaults& faults = {})
        : unzipper(std::make_unique<MemoryArchiveFile>(std::make_shared<std::string>(bytes), faults))
    {
    }

    std::size_t Count() const { return unzipper.GetEntries().size(); }

    bool Extract(std::size_t index, std::string& contents)
    {
        TestSink sink;
        const bool good = unzipper.ExtractEntry(unzipper.GetEntries().at(index), &sink);
        contents = sink.bytes;
        return good;
    }

    std::string Contents(std::size_t index = 0)
    {
        std::string contents;
        Extract(index, contents);
        return contents;
    }

    Unzipper unzipper;
};

std::string WithComment(std::size_t size)
{
    TestArchiveOptions options;
    options.comment.assign(size, 'c');
    return MakeTestArchive({ Deflated("a", "abc") }, options);
}

} // namespace

TEST(UnzipperTest, EntriesComeInTheOrderOfTheDirectory)
{
    Archive archive(MakeTestArchive({ Deflated("b", "second"), Stored("a/c", "first"), Deflated("b", "third") }));
    EXPECT_EQ(archive.unzipper.Status(), 0);
    ASSERT_EQ(archive.Count(), 3u);
    EXPECT_EQ(archive.unzipper.GetEntries()[0].name, L"b");
    EXPECT_EQ(archive.unzipper.GetEntries()[1].name, L"a/c");
    EXPECT_EQ(archive.unzipper.GetEntries()[1].uncompressedSize, 5u);
    EXPECT_EQ(archive.unzipper.GetEntries()[1].compressedSize, 5u);
    EXPECT_EQ(archive.Contents(0), "second");
    EXPECT_EQ(archive.Contents(1), "first");
    EXPECT_EQ(archive.Contents(2), "third");
}

TEST(UnzipperTest, ADeflatedEntryIsTrueAndAStoredOneFalseThoughItWasCopied)
{
    Archive archive(MakeTestArchive({ Deflated("a", SampleText(100'000)), Stored("b", SampleText(100'000)) }));
    std::string contents;
    EXPECT_TRUE(archive.Extract(0, contents));
    EXPECT_EQ(contents, SampleText(100'000));
    EXPECT_FALSE(archive.Extract(1, contents));
    EXPECT_EQ(contents, SampleText(100'000));
}

TEST(UnzipperTest, AStoredEntryWhoseSizesDifferGivesNothing)
{
    TestEntry entry = Stored("a", "abc");
    entry.uncompressedSize = 4;
    EXPECT_EQ(Archive(MakeTestArchive({ entry })).Contents(), "");
}

TEST(UnzipperTest, MethodsOtherThanStoredAreInflated)
{
    TestEntry entry = Deflated("a", "abc");
    entry.method = 99;
    EXPECT_EQ(Archive(MakeTestArchive({ entry })).Contents(), "abc");
}

TEST(UnzipperTest, TheLocalHeaderTellsTheMethodAndTheDirectoryTheSizes)
{
    std::string bytes = MakeTestArchive({ Stored("a", "abc") });
    bytes.replace(18, 8, 8, '\xFF'); // the sizes of the local header
    EXPECT_EQ(Archive(bytes).Contents(), "abc");
    bytes[bytes.rfind("PK\1\2") + 10] = 8; // the method in the directory
    EXPECT_EQ(Archive(bytes).Contents(), "abc");
    bytes.replace(0, 4, "none"); // the signature isn't looked at
    EXPECT_EQ(Archive(bytes).Contents(), "abc");
}

TEST(UnzipperTest, ChecksumsAndSizesArentCompared)
{
    TestEntry entry = Deflated("a", "abc");
    entry.uncompressedSize = 1'000'000;
    std::string bytes = MakeTestArchive({ entry });
    bytes.replace(14, 4, "CRC!");
    bytes.replace(bytes.rfind("PK\1\2") + 16, 4, "CRC!");
    Archive archive(bytes);
    std::string contents;
    EXPECT_TRUE(archive.Extract(0, contents));
    EXPECT_EQ(contents, "abc");
    EXPECT_EQ(archive.unzipper.GetEntries()[0].uncompressedSize, 1'000'000u);
}

TEST(UnzipperTest, AnArchiveWithoutEntriesReadsAsEmpty)
{
    const Archive archive(MakeTestArchive({}));
    EXPECT_EQ(archive.unzipper.Status(), 3);
    EXPECT_EQ(archive.Count(), 0u);
}

TEST(UnzipperTest, WhatIsNoArchiveHasNoEntries)
{
    for (const std::string bytes :
         { "", "P", "PK\5", "PK\5\6", "PK\5\6x", "no archive at all, but longer than a record" })
    {
        const Archive archive(bytes);
        EXPECT_EQ(archive.Count(), 0u) << bytes;
        EXPECT_EQ(archive.unzipper.Status(), bytes == "PK\5\6x" ? 3 : 2) << bytes;
    }
    TemporaryFolder folder;
    EXPECT_EQ(Unzipper(folder.File(L"missing").c_str()).Status(), 2);
    EXPECT_EQ(Unzipper(static_cast<const wchar_t*>(nullptr)).Status(), 2);
}

TEST(UnzipperTest, AnEndRecordIsFoundOnlyNearTheEnd)
{
    // The record and its comment have 1028 bytes together at most.
    EXPECT_EQ(Archive(WithComment(1006)).Count(), 1u);
    EXPECT_EQ(Archive(WithComment(1007)).Count(), 0u);
    EXPECT_EQ(Archive(WithComment(1007)).unzipper.Status(), 2);
    EXPECT_EQ(Archive(WithComment(65535)).Count(), 0u);
    EXPECT_EQ(Archive(WithComment(1006)).Contents(), "abc");
}

TEST(UnzipperTest, OfSeveralEndRecordsTheLastOneCounts)
{
    TestArchiveOptions options;
    options.comment = std::string("PK\5\6") + std::string(18, '\0');
    const Archive archive(MakeTestArchive({ Deflated("a", "abc") }, options));
    EXPECT_EQ(archive.unzipper.Status(), 0);
    EXPECT_EQ(archive.Count(), 0u);
}

TEST(UnzipperTest, AnEndRecordThatIsCutOffIsNone)
{
    const std::string bytes = MakeTestArchive({ Deflated("a", "abc") });
    EXPECT_EQ(Archive(bytes.substr(0, bytes.size() - 1)).unzipper.Status(), 2);
}

TEST(UnzipperTest, ReadingTheDirectoryStopsAtTheFirstRecordThatFails)
{
    std::string bytes = MakeTestArchive({ Deflated("a", "1"), Deflated("b", "2"), Deflated("c", "3") });
    const std::size_t last = bytes.rfind("PK\1\2");
    bytes[last - 47] = 'X'; // the signature of the second
    const Archive archive(bytes);
    EXPECT_EQ(archive.unzipper.Status(), 0);
    EXPECT_EQ(archive.Count(), 1u);
}

TEST(UnzipperTest, ExtraFieldsAndCommentsAreSkipped)
{
    TestEntry first = Deflated("a", "1");
    first.centralExtra = std::string(300, 'e');
    first.centralComment = std::string(70, 'c');
    Archive archive(MakeTestArchive({ first, Deflated("b", "2") }));
    ASSERT_EQ(archive.Count(), 2u);
    EXPECT_EQ(archive.Contents(1), "2");
}

TEST(UnzipperTest, ANameEndsAtAZeroByte)
{
    const Archive archive(MakeTestArchive({ Deflated(std::string("a\0b", 3), "1"), Deflated("", "2") }));
    ASSERT_EQ(archive.Count(), 2u);
    EXPECT_EQ(archive.unzipper.GetEntries()[0].name, L"a");
    EXPECT_EQ(archive.unzipper.GetEntries()[1].name, L"");
}

TEST(UnzipperTest, WhatIsNoUtf8InANameIsReplaced)
{
    const Archive archive(MakeTestArchive({ Deflated("r\xe9gle", "1") }));
    EXPECT_EQ(archive.unzipper.GetEntries().at(0).name, L"r\xfffdgle");
}

TEST(UnzipperTest, ReadsAndSeeksThatFailEndInNothing)
{
    const std::string bytes = MakeTestArchive({ Deflated("a", "abc"), Deflated("b", "def") });
    std::size_t complete = 0;
    for (int number = 1; number <= 12; ++number)
    {
        for (const bool reads : { true, false })
        {
            ArchiveFaults faults;
            (reads ? faults.read : faults.seek) = number;
            faults.fromThenOn = true;
            Archive archive(bytes, faults);
            std::string contents;
            const bool good = archive.Count() == 2 && archive.Extract(0, contents);
            EXPECT_EQ(good, contents == "abc") << number;
            complete += good ? 1 : 0;
        }
    }
    EXPECT_GT(complete, 0u);
    EXPECT_LT(complete, 20u);
}

TEST(UnzipperTest, AnEntryOfSomeoneElsesMakingIsExtractedToo)
{
    Archive archive(MakeTestArchive({ Deflated("a", "abc") }));
    ZipEntry entry;
    entry.compressedSize = 100;
    TestSink sink;
    EXPECT_TRUE(archive.unzipper.ExtractEntry(entry, &sink));
    EXPECT_EQ(sink.bytes, "abc");
    EXPECT_FALSE(archive.unzipper.ExtractEntry(entry, nullptr));
    entry.offset = 0xFFFFFFFF;
    EXPECT_FALSE(archive.unzipper.ExtractEntry(entry, &sink));
}

TEST(UnzipperTest, DamagedDataGivesAsMuchInMemoryAsAnywhere)
{
    const std::string whole = MakeTestArchive({ Deflated("a", SampleText(400'000)) });
    for (const std::size_t damage : { 40u, 5'000u, 17'000u, 33'000u })
    {
        std::string bytes = whole;
        bytes[damage] = static_cast<char>(~bytes[damage]);
        Archive archive(bytes);
        IOMemoryStream memory;
        std::string contents;
        const bool good = archive.Extract(0, contents);
        EXPECT_EQ(archive.unzipper.ExtractEntry(archive.unzipper.GetEntries().at(0), &memory), good);
        EXPECT_EQ(ReadToEnd(memory), contents) << damage;
    }
}

TEST(UnzipperTest, AFileOnDiskIsReadLikeOneInMemory)
{
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.zip");
    WriteBytes(path, MakeTestArchive({ Deflated("a", SampleText(300'000)), Deflated("b", "def") }));
    Unzipper unzipper(path.c_str());
    ASSERT_EQ(unzipper.GetEntries().size(), 2u);
    TestSink second;
    TestSink first;
    EXPECT_TRUE(unzipper.ExtractEntry(unzipper.GetEntries()[1], &second));
    EXPECT_TRUE(unzipper.ExtractEntry(unzipper.GetEntries()[0], &first));
    EXPECT_EQ(first.bytes, SampleText(300'000));
    EXPECT_EQ(second.bytes, "def");
}
