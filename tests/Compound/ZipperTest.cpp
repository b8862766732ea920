#include "Compound/Zipper.h"

#include "Compound/Unzipper.h"
#include "Platform/Text.h"
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

/// Position of the directory's first record.
std::size_t Directory(const std::string& archive)
{
    return Number32(archive, archive.size() - 22 + 16);
}

struct Attempt
{
    std::int32_t result;
    std::string archive;
};

/// Adds one file while something fails.
Attempt AddWith(const ArchiveFaults& faults, const wchar_t* name = L"a.txt", const std::string& contents = "abc")
{
    const auto bytes = std::make_shared<std::string>();
    std::int32_t result = 0;
    {
        Zipper zipper(std::make_unique<MemoryArchiveFile>(bytes, faults), FixedTime);
        TestSource source(contents);
        result = zipper.AddFile(name, &source);
    }
    return { result, *bytes };
}

std::size_t EntryCount(const std::string& archive)
{
    return Number16(archive, archive.size() - 22 + 8);
}

} // namespace

TEST(ZipperTest, AFileWithoutDataIsADeflatedEmptyStream)
{
    const std::string archive = WriteArchive({ { L"a.txt", "" } });
    EXPECT_EQ(Number16(archive, 8), 8u);
    EXPECT_EQ(Number32(archive, 14), 0u) << "checksum";
    EXPECT_EQ(Number32(archive, 18), 2u) << "compressed size";
    EXPECT_EQ(Number32(archive, 22), 0u) << "size";
    EXPECT_EQ(archive.substr(30 + 5 + 17, 2), std::string("\3\0", 2));
}

TEST(ZipperTest, TheMethodFollowsFromTheName)
{
    const std::string archive = WriteArchive({ { L"A.JPG", "abc" } });
    EXPECT_EQ(Number16(archive, 8), 0u);
    EXPECT_EQ(Number32(archive, 18), 3u);
    EXPECT_EQ(archive.substr(30 + 5 + 17, 3), "abc");
    EXPECT_EQ(Number16(archive, Directory(archive) + 10), 0u);
    EXPECT_EQ(Number16(WriteArchive({ { L"a.jpg.txt", "abc" } }), 8), 8u);
}

TEST(ZipperTest, AStoredFileOfExactlyTwoBlocksHasNoDataAndAChecksum)
{
    const std::string archive = WriteArchive({ { L"a.png", SampleText(32768) } });
    EXPECT_NE(Number32(archive, 14), 0u);
    EXPECT_EQ(Number32(archive, 18), 0u);
    EXPECT_EQ(Number32(archive, 22), 0u);
    EXPECT_EQ(Directory(archive), 30u + 5 + 17);
}

TEST(ZipperTest, TimesAreThoseOfTheClockWhenTheFileIsAdded)
{
    const std::string archive = WriteArchive({ { L"a", "x" } });
    EXPECT_EQ(Number16(archive, 10), (13u << 11) | (14u << 5) | 22u);
    EXPECT_EQ(Number16(archive, 12), (40u << 9) | (2u << 5) | 29u);
    EXPECT_EQ(Number32(archive, 31 + 5), 1'582'982'099u);

    const auto bytes = std::make_shared<std::string>();
    {
        int year = 2000;
        Zipper zipper(std::make_unique<MemoryArchiveFile>(bytes),
                      [&year] { return ArchiveTime{ 0, year++, 1, 1, 0, 0, 0 }; });
        TestSource first("");
        TestSource second("");
        zipper.AddFile(L"a", &first);
        zipper.AddFile(L"b", &second);
    }
    const std::size_t next = 30 + 1 + 17 + 2;
    EXPECT_EQ(Number16(*bytes, 12) >> 9, 20u);
    EXPECT_EQ(Number16(*bytes, next + 12) >> 9, 21u);
}

TEST(ZipperTest, NamesAreUtf8WithoutAFlag)
{
    const std::wstring name = L"R\x00e9gle/\x4e2d\x6587.bas";
    const std::string archive = WriteArchive({ { name, "x" } });
    const std::string bytes = "R\xc3\xa9gle/\xe4\xb8\xad\xe6\x96\x87.bas";
    EXPECT_EQ(Number16(archive, 6), 0u);
    EXPECT_EQ(Number16(archive, 26), bytes.size());
    EXPECT_EQ(archive.substr(30, bytes.size()), bytes);
    EXPECT_EQ(Number16(archive, Directory(archive) + 8), 0u);
    EXPECT_EQ(archive.substr(Directory(archive) + 46, bytes.size()), bytes);
    const Unzipper unzipper(std::make_unique<MemoryArchiveFile>(std::make_shared<std::string>(archive)));
    ASSERT_EQ(unzipper.GetEntries().size(), 1u);
    EXPECT_EQ(unzipper.GetEntries()[0].name, name);
}

TEST(ZipperTest, TheDirectoryHasTheFilesInTheOrderOfAdding)
{
    const std::string archive = WriteArchive({ { L"b", "1" }, { L"a", "2" }, { L"b", "3" } });
    EXPECT_EQ(EntryCount(archive), 3u);
    const std::size_t directory = Directory(archive);
    EXPECT_EQ(archive[directory + 46], 'b');
    EXPECT_EQ(archive[directory + 56 + 46], 'a');
    EXPECT_EQ(archive[directory + 2 * 56 + 46], 'b');
    EXPECT_EQ(Number32(archive, archive.size() - 22 + 12), 3u * 56);
    EXPECT_EQ(Number32(archive, directory + 42), 0u);
    EXPECT_EQ(archive.substr(Number32(archive, directory + 56 + 42), 4), "PK\3\4");
}

TEST(ZipperTest, MoreThan65535EntriesWrapTheCounts)
{
    const auto bytes = std::make_shared<std::string>();
    {
        Zipper zipper(std::make_unique<MemoryArchiveFile>(bytes), FixedTime);
        for (int index = 0; index < 65538; ++index)
        {
            TestSource source("");
            ASSERT_EQ(zipper.AddFile(std::to_wstring(index).append(L".Z").c_str(), &source), 0);
        }
    }
    EXPECT_EQ(Number16(*bytes, bytes->size() - 22 + 8), 2u);
    EXPECT_EQ(Number16(*bytes, bytes->size() - 22 + 10), 2u);
    const Unzipper unzipper(std::make_unique<MemoryArchiveFile>(bytes));
    ASSERT_EQ(unzipper.GetEntries().size(), 2u);
    EXPECT_EQ(unzipper.GetEntries()[1].name, L"1.Z");
}

TEST(ZipperTest, AFileThatCantBeOpenedShowsInTheStatus)
{
    TemporaryFolder folder;
    const Zipper good(folder.File(L"a.zip").c_str());
    EXPECT_EQ(good.Status(), 0);
    Zipper bad(folder.Path().c_str());
    EXPECT_EQ(bad.Status(), 1);
    TestSource source("abc");
    EXPECT_EQ(bad.AddFile(L"a", &source), Zipper::HeaderNotWritten);
    EXPECT_EQ(Zipper(nullptr).Status(), 1);
}

TEST(ZipperTest, AHeaderThatCantBeWrittenIs1024)
{
    EXPECT_EQ(Zipper::HeaderNotWritten, 1024);
    ArchiveFaults faults;
    faults.write = 1;
    Attempt attempt = AddWith(faults);
    EXPECT_EQ(attempt.result, 1024);
    EXPECT_EQ(EntryCount(attempt.archive), 0u);
    EXPECT_EQ(attempt.archive.size(), 22u) << "nothing was written behind it";

    faults.writesInPart = true;
    EXPECT_EQ(AddWith(faults).result, 1024);

    faults.write = 5; // header, name, extra, data, header
    attempt = AddWith(faults);
    EXPECT_EQ(attempt.result, 1024);
    const Unzipper unzipper(std::make_unique<MemoryArchiveFile>(std::make_shared<std::string>(attempt.archive)));
    EXPECT_TRUE(unzipper.GetEntries().empty()) << "the file isn't in the directory";
}

TEST(ZipperTest, OtherShortWritesGoUnnoticed)
{
    const std::string good = WriteArchive({ { L"a.txt", "abc" } });
    for (const int write : { 2, 3, 4 })
    {
        ArchiveFaults faults;
        faults.write = write;
        const Attempt attempt = AddWith(faults);
        EXPECT_EQ(attempt.result, 0) << write;
        EXPECT_EQ(attempt.archive.size(), good.size()) << "the place is kept";
        EXPECT_EQ(attempt.archive.substr(0, 30), good.substr(0, 30)) << write;
        EXPECT_EQ(attempt.archive.substr(Directory(good)), good.substr(Directory(good))) << write;
    }
}

TEST(ZipperTest, StoringThatFailsLeavesAnEntryWithoutSizeAndChecksum)
{
    ArchiveFaults faults;
    faults.write = 4; // header, name, extra, data
    const Attempt attempt = AddWith(faults, L"a.gz");
    EXPECT_EQ(attempt.result, 0);
    EXPECT_EQ(EntryCount(attempt.archive), 1u);
    EXPECT_EQ(Number32(attempt.archive, 14), 0u);
    EXPECT_EQ(Number32(attempt.archive, 18), 0u);
    EXPECT_EQ(Number32(attempt.archive, 22), 0u);
}

TEST(ZipperTest, ASeekThatFailsIs33554432)
{
    EXPECT_EQ(Zipper::SeekFailed, 33554432);
    for (const int seek : { 1, 2 })
    {
        ArchiveFaults faults;
        faults.seek = seek;
        const Attempt attempt = AddWith(faults);
        EXPECT_EQ(attempt.result, 33554432) << seek;
        EXPECT_EQ(EntryCount(attempt.archive), 0u) << seek;
    }
    ArchiveFaults faults;
    faults.position = 1;
    EXPECT_EQ(AddWith(faults).result, 33554432);
}

TEST(ZipperTest, ANameThatTheFormatHasNoRoomForIsRefused)
{
    const ArchiveFaults none;
    EXPECT_EQ(AddWith(none, std::wstring(65535, L'a').c_str()).result, 0);
    const Attempt attempt = AddWith(none, std::wstring(65536, L'a').c_str());
    EXPECT_EQ(attempt.result, Zipper::HeaderNotWritten);
    EXPECT_EQ(attempt.archive.size(), 22u);
}

TEST(ZipperTest, NoNameAndNoSourceAreRefused)
{
    const auto bytes = std::make_shared<std::string>();
    {
        Zipper zipper(std::make_unique<MemoryArchiveFile>(bytes), FixedTime);
        TestSource source("abc");
        EXPECT_EQ(zipper.AddFile(nullptr, &source), Zipper::HeaderNotWritten);
        EXPECT_EQ(zipper.AddFile(L"a", nullptr), Zipper::HeaderNotWritten);
    }
    EXPECT_EQ(bytes->size(), 22u);
}

TEST(ZipperTest, AFileOnDiskHasTheSameBytesAsOneInMemory)
{
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.zip");
    const std::string text = Noise(100'000);
    {
        Zipper zipper(ReplaceArchiveFile(path), FixedTime);
        TestSource first(text);
        TestSource second("abc");
        EXPECT_EQ(zipper.AddFile(L"a/b.txt", &first), 0);
        EXPECT_EQ(zipper.AddFile(L"c.zip", &second), 0);
    }
    EXPECT_EQ(ReadBytes(path), WriteArchive({ { L"a/b.txt", text }, { L"c.zip", "abc" } }));
}
