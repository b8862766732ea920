// Archives that someone broke, or made to break whoever reads them. Whatever they hold, the
// reader ends soon, and with no more memory than their contents take.

#include "Compound/CompoundDocument.h"
#include "Compound/Unzipper.h"
#include "tests/Compound/MemoryArchiveFile.h"
#include "tests/Compound/TestArchive.h"
#include "tests/Compound/TestDocument.h"
#include "tests/Compound/TestStreams.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace
{

/// Counts and forgets.
class CountingSink final : public IOutputStream
{
public:
    std::uint32_t Write(const void* /*buffer*/, std::uint32_t count) override
    {
        m_total += count;
        return count;
    }

    std::uint64_t Total() const { return m_total; }

private:
    std::uint64_t m_total = 0;
};

struct ReadResult
{
    std::size_t entries = 0;
    std::size_t goodEntries = 0;
    std::uint64_t bytes = 0;
};

/// Reads all that an archive says it has.
ReadResult ReadAll(const std::string& bytes)
{
    Unzipper unzipper(std::make_unique<MemoryArchiveFile>(std::make_shared<std::string>(bytes)));
    ReadResult result;
    result.entries = unzipper.GetEntries().size();
    for (const ZipEntry& entry : unzipper.GetEntries())
    {
        CountingSink sink;
        result.goodEntries += unzipper.ExtractEntry(entry, &sink) ? 1 : 0;
        result.bytes += sink.Total();
    }
    return result;
}

std::string Sample()
{
    return WriteArchive({ { L"ExportRuleList.xml", SampleText(300) },
                          { L"folder/r\x00e9gle.bas", SampleText(50) },
                          { L"picture.png", "stored" } });
}

/// No entry of a small archive can grow to more than this.
constexpr std::uint64_t MostOfSample = 2'000'000;

} // namespace

TEST(DamagedArchiveTest, ASampleCutAtAnyByteHasItsEntriesOnlyWhenItIsWhole)
{
    const std::string whole = Sample();
    EXPECT_EQ(ReadAll(whole).entries, 3u);
    EXPECT_EQ(ReadAll(whole).goodEntries, 2u);
    for (std::size_t length = 0; length < whole.size(); ++length)
    {
        ASSERT_EQ(ReadAll(whole.substr(0, length)).entries, 0u) << length;
        // Cut at the front the offsets don't fit any more.
        ASSERT_LT(ReadAll(whole.substr(whole.size() - length)).bytes, MostOfSample) << length;
    }
}

TEST(DamagedArchiveTest, ASampleWithAnyByteChangedIsReadWithoutHarm)
{
    const std::string whole = Sample();
    std::size_t stillWhole = 0;
    for (std::size_t index = 0; index < whole.size(); ++index)
    {
        for (const int change : { 0x01, 0x80, 0xFF })
        {
            std::string changed = whole;
            changed[index] = static_cast<char>(changed[index] ^ change);
            const ReadResult result = ReadAll(changed);
            ASSERT_LE(result.entries, 3u) << index;
            ASSERT_LT(result.bytes, MostOfSample) << index;
            stillWhole += result.goodEntries == 2 ? 1 : 0;
        }
    }
    // Times, versions, attributes and checksums are not looked at.
    EXPECT_GT(stillWhole, 100u);
    EXPECT_LT(stillWhole, whole.size() * 3);
}

TEST(DamagedArchiveTest, DocumentsOverSamplesWithAByteChangedAreListedAndRead)
{
    const std::string whole = Sample();
    std::set<std::vector<std::wstring>> listings;
    for (std::size_t index = whole.rfind("PK\1\2") - 130; index < whole.size(); ++index)
    {
        std::string changed = whole;
        changed[index] = static_cast<char>(~changed[index]);
        const TestDocument document(changed);
        const auto names = document.List(document.Root());
        listings.insert(names);
        for (const std::wstring& name : names)
        {
            if (name.back() != L'/')
            {
                ASSERT_LT(document.Read(name.c_str()).size(), MostOfSample) << index;
            }
        }
    }
    EXPECT_GT(listings.size(), 10u);
}

TEST(DamagedArchiveTest, ASizeThatIsOnlyClaimedCostsNothing)
{
    TestEntry deflated = Deflated("a", "ten bytes!");
    deflated.compressedSize = 0xFFFFFFFF;
    deflated.uncompressedSize = 0xFFFFFFFF;
    TestEntry stored = Stored("b", "ten bytes!");
    stored.compressedSize = 0xFFFFFFF0;
    stored.uncompressedSize = 0xFFFFFFF0;
    const std::string archive = MakeTestArchive({ deflated, stored });
    const TestDocument document(archive);
    EXPECT_EQ(document.Read(L"a"), "ten bytes!");
    EXPECT_EQ(document.Read(L"b"), archive.substr(archive.find("ten bytes!"))) << "to the end of the file";
}

TEST(DamagedArchiveTest, RecordsThatPointAnywhereGiveWhatLiesThere)
{
    for (const std::uint32_t offset : { 1u, 5u, 100u, 1000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFE2u, 0xFFFFFFFFu })
    {
        TestEntry deflated = Deflated("a", SampleText(500));
        TestEntry stored = Stored("b", "abc");
        deflated.offset = offset;
        stored.offset = offset;
        EXPECT_LT(ReadAll(MakeTestArchive({ deflated, stored })).bytes, MostOfSample) << offset;

        TestArchiveOptions options;
        options.directoryOffset = offset;
        EXPECT_EQ(ReadAll(MakeTestArchive({ Deflated("a", "abc") }, options)).entries, 0u) << offset;
    }
}

TEST(DamagedArchiveTest, AnEntryMayPointToTheDirectoryAndToItself)
{
    TestEntry entry = Stored("PK\3\4", "abc");
    entry.offset = static_cast<std::uint32_t>(30 + 4 + 3); // its own record
    entry.compressedSize = 1000;
    entry.uncompressedSize = 1000;
    const std::string archive = MakeTestArchive({ entry });
    EXPECT_LE(ReadAll(archive).bytes, archive.size());
}

TEST(DamagedArchiveTest, EntriesThatOverlapGiveTheSameBytes)
{
    TestEntry first = Stored("a", "shared");
    TestEntry second = Stored("b", "");
    second.offset = 0;
    second.compressedSize = 6;
    second.uncompressedSize = 6;
    const TestDocument document(MakeTestArchive({ first, second }));
    EXPECT_EQ(document.Read(L"a"), "shared");
    EXPECT_EQ(document.Read(L"b"), "shared");
}

TEST(DamagedArchiveTest, AMillionClaimedEntriesAreAsManyAsThereAre)
{
    TestArchiveOptions options;
    options.entries = 0xFFFF;
    std::string archive = MakeTestArchive({ Deflated("a", "abc"), Deflated("b", "def") }, options);
    EXPECT_EQ(ReadAll(archive).entries, 2u);
    archive.replace(archive.size() - 10, 4, std::string("\x40\x42\x0F\0", 4)); // the directory's size
    EXPECT_EQ(ReadAll(archive).entries, 2u);
}

TEST(DamagedArchiveTest, NamesAreTakenAsTheyStandAndOnlyEverCompared)
{
    const std::string archive = MakeTestArchive({
        Deflated("../up", "1"),
        Deflated("/absolute", "2"),
        Deflated("C:\\drive", "3"),
        Deflated("\\\\server\\share", "4"),
        Deflated(std::string("zero\0byte", 9), "5"),
        Deflated("a/../../b", "6"),
        Deflated("nul", "7"),
    });
    const TestDocument document(archive);
    EXPECT_EQ(
        document.List(document.Root()),
        (std::vector<std::wstring>{ L"../", L"absolute", L"C:\\drive", L"\\\\server\\share", L"zero", L"a/", L"nul" }));
    EXPECT_EQ(document.Read(L"C:\\drive"), "3");
    EXPECT_EQ(document.Read(L"../up"), "1");
    EXPECT_EQ(document.Root()->OpenFile(L"up", 5), nullptr) << "nothing is resolved";
    EXPECT_EQ(document.Root()->OpenFile(L"b", 5), nullptr);
    EXPECT_EQ(document.Root()->OpenFile(L"absolute", 5), nullptr);
    EXPECT_EQ(document.Read(L"zero"), "5");
}

TEST(DamagedArchiveTest, ABombIsInflatedBlockByBlock)
{
    // What is held is up to whoever takes it.
    std::string zeros;
    zeros.resize(100'000'000);
    const TestEntry bomb = Deflated("bomb", zeros);
    EXPECT_LT(bomb.data.size(), 100'000u);
    EXPECT_EQ(ReadAll(MakeTestArchive({ bomb })).bytes, 100'000'000u);

    Unzipper unzipper(std::make_unique<MemoryArchiveFile>(std::make_shared<std::string>(MakeTestArchive({ bomb }))));
    TestSink sink(1'000'000);
    EXPECT_FALSE(unzipper.ExtractEntry(unzipper.GetEntries().at(0), &sink));
    EXPECT_EQ(sink.bytes.size(), 1'000'000u);
    EXPECT_LT(sink.given.size(), 70u) << "it stops where the taker does";
}

TEST(DamagedArchiveTest, EntriesOfOneNameOverTheSameBytesAreHeldDown)
{
    // Each of them gives 1 MB, so together they would give a thousand.
    std::vector<TestEntry> entries = { Deflated("a", std::string(1'000'000, '\0')) };
    TestEntry again = entries.front();
    again.data.clear();
    again.offset = 0;
    again.compressedSize = static_cast<std::uint32_t>(entries.front().data.size());
    entries.resize(1000, again);
    const std::string archive = MakeTestArchive(entries);
    const TestDocument document(archive);
    ICompoundFile* const file = document.Root()->OpenFile(L"a", 5);
    ASSERT_NE(file, nullptr);
    std::uint64_t total = 0;
    std::vector<char> block(1'000'000);
    while (const std::uint32_t count = file->GetInputStream()->Read(block.data(), 1'000'000))
    {
        total += count;
    }
    EXPECT_GE(total, 2'000'000u) << "more than one is given";
    EXPECT_LE(total, archive.size() * 1032);
    EXPECT_LT(total, 100'000'000u);
}

TEST(DamagedArchiveTest, EntriesOfOneNameOverDataThatGivesNextToNothingAreHeldDownToo)
{
    // Half a megabyte of empty blocks takes its time each time, though a single byte comes of
    // it. With the most entries that an archive can have, it would be a quarter of an hour.
    std::string data;
    for (int count = 0; count < 100'000; ++count)
    {
        data += std::string("\x02\x08\x20\x80\x00", 5); // four blocks of ten bits
    }
    data += std::string("\x01\x01\x00\xFE\xFFx", 6); // the last one, stored
    TestEntry again;
    again.name = "a";
    again.uncompressedSize = 1;
    again.compressedSize = static_cast<std::uint32_t>(data.size());
    again.offset = 0;
    std::vector<TestEntry> entries(1000, again);
    entries.front().data = data;
    const TestDocument document(MakeTestArchive(entries));
    EXPECT_EQ(document.Read(L"a"), "xx");
}

TEST(DamagedArchiveTest, TheLargestDirectoryIsListedAndSearchedAtOnce)
{
    std::vector<TestEntry> entries;
    entries.reserve(65535);
    for (int index = 0; index < 65535; ++index)
    {
        entries.push_back(Stored("f/" + std::to_string(index) + "/x", ""));
    }
    const TestDocument document(MakeTestArchive(entries));
    EXPECT_EQ(document.List(L"f").size(), 65535u);
    ICompoundFolder* const folder = document.Root()->OpenFolder(L"f", 5);
    for (int index = 0; index < 65535; ++index)
    {
        ASSERT_NE(folder->OpenFolder(std::to_wstring(index).c_str(), 5), nullptr);
    }
}
