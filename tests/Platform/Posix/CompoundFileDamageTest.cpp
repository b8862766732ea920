#include "Platform/Files.h"
#include "Platform/StructuredStorage.h"
#include "tests/Platform/Posix/CompoundFileTools.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

using namespace Platform;

namespace
{

constexpr std::uint32_t Exclusive = StorageMode::ShareExclusive;

constexpr std::size_t SectorSize = 512;
constexpr std::size_t EntrySize = 128;

// Places in the header.
constexpr std::size_t FatCountAt = 44;
constexpr std::size_t DirectoryStartAt = 48;
constexpr std::size_t MiniFatStartAt = 60;
constexpr std::size_t DifatStartAt = 68;
constexpr std::size_t DifatAt = 76;

// Places in an entry of the directory.
constexpr std::size_t TypeAt = 66;
constexpr std::size_t LeftAt = 68;
constexpr std::size_t RightAt = 72;
constexpr std::size_t ChildAt = 76;
constexpr std::size_t StartAt = 116;
constexpr std::size_t SizeAt = 120;

/// Numbers that are no sector of a small file, the marks of tables among them.
constexpr std::array<std::uint32_t, 9> WildNumbers = { 0xFFFFFFFF, 0xFFFFFFFE, 0xFFFFFFFD, 0xFFFFFFFC, 0xFFFFFFFB,
                                                       0xFFFFFFFA, 0x80000000, 0x7FFFFFFF, 0x00010000 };

/// A document of two storages and of streams of both kinds, as bytes to be changed. All
/// streams fill their last sector, so each byte from the last table on belongs to one.
class CompoundFileDamageTest : public testing::Test
{
protected:
    std::uint32_t Get(std::size_t at) const
    {
        std::uint32_t number = 0;
        for (std::size_t index = 4; index-- > 0;)
        {
            number = number << 8 | static_cast<unsigned char>(m_bytes[at + index]);
        }
        return number;
    }

    void Put(std::size_t at, std::uint32_t number)
    {
        for (std::size_t index = 0; index < 4; ++index)
        {
            m_bytes[at + index] = static_cast<char>(number >> (8 * index));
        }
    }

    static std::size_t SectorAt(std::uint32_t sector) { return (sector + std::size_t(1)) * SectorSize; }

    /// Where the FAT says what follows a sector. These files have one sector of it.
    std::size_t FatEntryAt(std::uint32_t sector) const { return SectorAt(Get(DifatAt)) + 4 * sector; }

    /// Where an entry of the directory stands, by its name.
    std::size_t EntryAt(const std::string& name) const
    {
        std::string units;
        for (const char character : name + '\0')
        {
            units += { character, '\0' };
        }
        for (std::uint32_t sector = Get(DirectoryStartAt); sector < 0xFFFFFFF0; sector = Get(FatEntryAt(sector)))
        {
            for (std::size_t at = SectorAt(sector); at < SectorAt(sector) + SectorSize; at += EntrySize)
            {
                if (m_bytes.compare(at, units.size(), units) == 0)
                {
                    return at;
                }
            }
        }
        throw std::runtime_error("no such entry");
    }

    std::uint32_t NumberOf(const std::string& name) const
    {
        return static_cast<std::uint32_t>((EntryAt(name) - SectorAt(Get(DirectoryStartAt))) / EntrySize);
    }

    /// The listing, or one line with the status if the document doesn't open.
    DocumentLines Listing() const
    {
        const auto block = BlockOf(m_bytes);
        const auto root = OpenStorageOnMemory(*block, StorageMode::ShareDenyWrite);
        if (root.object == nullptr)
        {
            return { root.status == StorageStatus::Damaged ? "damaged" : "other failure" };
        }
        return List(*root.object);
    }

    void ExpectDamaged() const { EXPECT_EQ(Listing(), DocumentLines{ "damaged" }); }

    /// All is as it was but for one line.
    void ExpectChanged(const std::string& from, const std::string& to) const
    {
        DocumentLines expected = m_listing;
        for (std::string& line : expected)
        {
            if (line.starts_with(from))
            {
                line = to;
            }
        }
        EXPECT_EQ(Listing(), expected);
        EXPECT_NE(expected, m_listing);
    }

    const DocumentLines m_lines = { "stream small 512 1", "stream tiny 128 2",      "stream large 5120 3",
                                    "storage one",        "storage one/deep",       "stream one/deep/x 4608 4",
                                    "storage two",        "stream two/inside 448 5" };
    const std::string m_whole = FileOf(m_lines);
    std::string m_bytes = m_whole;
    const DocumentLines m_listing = Listing();
};

TEST_F(CompoundFileDamageTest, UnchangedItIsWhole)
{
    EXPECT_EQ(Sorted(m_listing), SortedListingOf(m_lines));
    EXPECT_EQ(NumberOf("Root Entry"), 0u);
    EXPECT_EQ(m_whole.size() % SectorSize, 0u);
}

TEST_F(CompoundFileDamageTest, CutAtEveryByteItIsNeverWhole)
{
    for (std::size_t size = 0; size < m_whole.size(); ++size)
    {
        m_bytes = m_whole.substr(0, size);
        ASSERT_NE(Listing(), m_listing) << size;
    }
}

TEST_F(CompoundFileDamageTest, CutAtEveryByteWhatIsStillThereIsRead)
{
    // The contents of streams come last, so the document opens without some of them.
    m_bytes.resize(m_whole.size() - 1);
    const DocumentLines listing = Listing();
    EXPECT_EQ(listing.size(), m_listing.size());
    EXPECT_EQ(std::count_if(listing.begin(), listing.end(), [](const auto& line) { return line.ends_with('!'); }), 1);
}

TEST_F(CompoundFileDamageTest, WithAnyByteChangedItHoldsNoMoreThanTheFileHasRoomFor)
{
    const std::size_t mostEntries = m_whole.size() / EntrySize;
    for (std::size_t at = 0; at < m_whole.size(); ++at)
    {
        for (const unsigned char value : { 0x01, 0x80, 0xFF })
        {
            m_bytes = m_whole;
            m_bytes[at] = static_cast<char>(m_bytes[at] ^ value);
            const DocumentLines listing = Listing();
            ASSERT_LE(listing.size(), mostEntries) << at;
        }
        // No stream has bytes to spare: whatever is changed behind the tables shows.
        if (at >= m_whole.size() - 5120 - 4608)
        {
            ASSERT_NE(Listing(), m_listing) << at;
        }
    }
}

TEST_F(CompoundFileDamageTest, ChainThatRunsInACircleIsRefused)
{
    const std::uint32_t start = Get(EntryAt("large") + StartAt);
    Put(FatEntryAt(start + 3), start);
    ExpectChanged("stream large", "stream large !");
    Put(FatEntryAt(start + 3), start + 3);
    ExpectChanged("stream large", "stream large !");
    Put(FatEntryAt(start + 3), start + 2);
    ExpectChanged("stream large", "stream large !");
}

TEST_F(CompoundFileDamageTest, ChainThatEndsTooSoonIsRefused)
{
    const std::uint32_t start = Get(EntryAt("large") + StartAt);
    for (const std::uint32_t number : WildNumbers)
    {
        Put(FatEntryAt(start + 3), number);
        ExpectChanged("stream large", "stream large !");
    }
}

TEST_F(CompoundFileDamageTest, MiniChainThatRunsInACircleOrEndsTooSoonIsRefused)
{
    const std::size_t table = SectorAt(Get(MiniFatStartAt));
    const std::uint32_t start = Get(EntryAt("small") + StartAt);
    Put(table + 4 * (start + 2), start);
    ExpectChanged("stream small", "stream small !");
    for (const std::uint32_t number : WildNumbers)
    {
        Put(table + 4 * (start + 2), number);
        ExpectChanged("stream small", "stream small !");
    }
}

TEST_F(CompoundFileDamageTest, WildStartOfAStreamIsRefused)
{
    for (const char* name : { "large", "small" })
    {
        for (const std::uint32_t number : WildNumbers)
        {
            m_bytes = m_whole;
            Put(EntryAt(name) + StartAt, number);
            ExpectChanged(std::string("stream ") + name, std::string("stream ") + name + " !");
        }
    }
}

TEST_F(CompoundFileDamageTest, SizeThatTheFileHasNoRoomForIsRefused)
{
    for (const std::uint32_t size : { 5633u, 1'000'000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu })
    {
        Put(EntryAt("large") + SizeAt, size);
        ExpectChanged("stream large", "stream large !");
    }
}

TEST_F(CompoundFileDamageTest, UpperHalfOfASizeMeansNothingWithSmallSectors)
{
    Put(EntryAt("large") + SizeAt + 4, 0xFFFFFFFF);
    EXPECT_EQ(Listing(), m_listing);
}

TEST_F(CompoundFileDamageTest, WildStartsInTheHeaderAreRefused)
{
    for (const std::uint32_t number : WildNumbers)
    {
        m_bytes = m_whole;
        Put(DirectoryStartAt, number);
        ExpectDamaged();

        m_bytes = m_whole;
        Put(DifatAt, number);
        ExpectDamaged();
    }
}

TEST_F(CompoundFileDamageTest, WithoutATableOfMiniSectorsOnlyLargeAndEmptyStreamsAreRead)
{
    for (const std::uint32_t number : WildNumbers)
    {
        m_bytes = m_whole;
        Put(MiniFatStartAt, number);
        const DocumentLines listing = Listing();
        ASSERT_EQ(listing.size(), m_listing.size());
        EXPECT_EQ(std::count_if(listing.begin(), listing.end(), [](const auto& line) { return line.ends_with('!'); }),
                  3);
    }
}

TEST_F(CompoundFileDamageTest, DirectoryThatRunsInACircleIsRefused)
{
    const std::uint32_t start = Get(DirectoryStartAt);
    Put(FatEntryAt(start), start);
    ExpectDamaged();
    Put(FatEntryAt(start), start + 1);
    Put(FatEntryAt(start + 1), start);
    ExpectDamaged();
}

TEST_F(CompoundFileDamageTest, ClaimedNumbersOfTablesMeanNothing)
{
    Put(FatCountAt, 0xFFFFFFFF);
    Put(DifatStartAt, 3);
    Put(DifatStartAt + 4, 0xFFFFFFFF);
    EXPECT_EQ(Listing(), m_listing);
}

TEST_F(CompoundFileDamageTest, TreeThatLeadsBackIsRefused)
{
    for (const std::size_t link : { LeftAt, RightAt })
    {
        for (const char* target : { "Root Entry", "large", "small", "one", "two" })
        {
            m_bytes = m_whole;
            const std::uint32_t number = NumberOf(target);
            Put(EntryAt("large") + link, number);
            Put(EntryAt("small") + link, number);
            Put(EntryAt("tiny") + link, number);
            ExpectDamaged();
        }
    }
}

TEST_F(CompoundFileDamageTest, StorageThatContainsItselfOrOneAboveItIsNotOpened)
{
    for (const char* target : { "Root Entry", "one", "deep" })
    {
        m_bytes = m_whole;
        Put(EntryAt("deep") + ChildAt, NumberOf(target));
        const DocumentLines listing = Listing();
        EXPECT_EQ(std::count(listing.begin(), listing.end(), "storage one/deep !"), 1) << target;
    }
}

TEST_F(CompoundFileDamageTest, EntryOfTwoStoragesIsGivenOnce)
{
    Put(EntryAt("one") + ChildAt, NumberOf("inside"));
    const DocumentLines listing = Listing();
    EXPECT_EQ(std::count(listing.begin(), listing.end(), "storage two !"), 1);
}

TEST_F(CompoundFileDamageTest, TreeOutOfOrderIsReadAllTheSame)
{
    // The listing stays in the order of the tree, and every name is still found.
    m_bytes[EntryAt("large")] = 'a';
    m_bytes[EntryAt("small")] = 'b';
    m_bytes[EntryAt("one")] = 'z';
    DocumentLines expected = m_listing;
    for (std::string& line : expected)
    {
        const std::size_t name = line.find(' ') + 1;
        const std::string_view rest = std::string_view(line).substr(name);
        line[name] = rest.starts_with("large") ? 'a'
                   : rest.starts_with("small") ? 'b'
                   : rest.starts_with("one")   ? 'z'
                                               : line[name];
    }
    EXPECT_EQ(Listing(), expected);
}

TEST_F(CompoundFileDamageTest, OfTwoEntriesOfOneNameTheFirstIsFound)
{
    m_bytes.replace(EntryAt("small"), 10, std::string("l\0A\0r\0G\0e\0", 10));
    const DocumentLines listing = Listing();
    const auto large = std::find_if(m_listing.begin(), m_listing.end(),
                                    [](const std::string& line) { return line.starts_with("stream large"); });
    ASSERT_NE(large, m_listing.end());
    EXPECT_EQ(std::count(listing.begin(), listing.end(), *large), 1);
    EXPECT_EQ(std::count(listing.begin(), listing.end(), "stream lArGe" + large->substr(12)), 1);
}

TEST_F(CompoundFileDamageTest, WildNumbersInATreeAreRefused)
{
    for (const std::uint32_t number : WildNumbers)
    {
        if (number != 0xFFFFFFFF)
        {
            m_bytes = m_whole;
            Put(ChildAt + EntryAt("Root Entry"), number);
            ExpectDamaged();
        }
    }
}

TEST_F(CompoundFileDamageTest, EntriesOfImpossibleTypesAndNamesAreRefused)
{
    for (const char type : { 0, 5 })
    {
        m_bytes = m_whole;
        m_bytes[EntryAt("large") + TypeAt] = type;
        ExpectDamaged();
    }
    for (const char length : { 0, 1, 2, 3, 11, 66, 127 })
    {
        m_bytes = m_whole;
        m_bytes[EntryAt("large") + 64] = length;
        ExpectDamaged();
    }
    m_bytes = m_whole;
    m_bytes[EntryAt("large")] = 0;
    ExpectDamaged();
}

TEST_F(CompoundFileDamageTest, EntryOfAReservedTypeIsPassedOver)
{
    m_bytes[EntryAt("large") + TypeAt] = 3;
    DocumentLines expected = m_listing;
    std::erase_if(expected, [](const std::string& line) { return line.starts_with("stream large"); });
    EXPECT_EQ(Listing(), expected);
}

struct HeaderChange
{
    const char* name;
    std::size_t at;
    std::string bytes;
};

class CompoundFileHeaderTest : public testing::TestWithParam<HeaderChange>
{
};

TEST_P(CompoundFileHeaderTest, IsRefused)
{
    std::string bytes = FileOf({ "stream s 10 1" });
    ASSERT_EQ(StatusOf(bytes), StorageStatus::Done);
    bytes.replace(GetParam().at, GetParam().bytes.size(), GetParam().bytes);
    EXPECT_EQ(StatusOf(bytes), StorageStatus::Damaged);
}

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Headers, CompoundFileHeaderTest,
    testing::Values(HeaderChange{ "OtherSignature", 0, "PK" }, HeaderChange{ "VersionTwo", 26, "\2" },
                    HeaderChange{ "VersionFourWithSmallSectors", 26, "\4" },
                    HeaderChange{ "LargeSectorsInVersionThree", 30, "\14" }, HeaderChange{ "HugeSectors", 30, "\77" },
                    HeaderChange{ "SectorsOfOneByte", 30, "\0"s }, HeaderChange{ "OtherByteOrder", 28, "\xFF\xFE" },
                    HeaderChange{ "OtherMiniSectors", 32, "\7" }, HeaderChange{ "HugeMiniSectors", 32, "\77" },
                    HeaderChange{ "OtherCutoff", 57, "\2" }, HeaderChange{ "NoFat", 44, "\0"s }),
    [](const testing::TestParamInfo<HeaderChange>& row) { return row.param.name; });

TEST(CompoundFileBombTest, TreeThatIsALongListIsReadWithoutStack)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    DocumentLines lines;
    for (int index = 0; index < 100'000; ++index)
    {
        lines.push_back("stream " + std::to_string(index) + " 0 0");
    }
    WriteByOther(path, lines, "--tree chain");
    const auto root = OpenStorageFile(path, StorageMode::Transacted).object;
    ASSERT_NE(root, nullptr);
    const auto entries = root->List();
    ASSERT_EQ(entries->size(), lines.size());
    EXPECT_EQ(entries->front().name, L"0");
    EXPECT_EQ(entries->back().name, L"99999");
    EXPECT_EQ(root->OpenStream(L"54321", Exclusive).status, StorageStatus::Done);
}

/// A file that is nearly all hole and claims to be as large as the format allows.
TEST(CompoundFileBombTest, FileOfHolesTakesNeitherTimeNorMemory)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    WriteByOther(path, { "stream s 5000 1", "stream t 10 2" }, "--version 4");
    std::string bytes = ReadBytes(path);
    // The FAT is said to go on, with its first sector again and again.
    for (std::size_t at = DifatAt + 4; at < SectorSize; at += 4)
    {
        bytes.replace(at, 4, bytes, DifatAt, 4);
    }
    bytes.replace(FatCountAt, 4, "\xFF\xFF\xFF\x7F");
    WriteBytes(path, bytes);
    constexpr std::uintmax_t Terabyte = std::uintmax_t(1) << 40;
    std::error_code error;
    std::filesystem::resize_file(NativePath(path), Terabyte, error);
    if (error)
    {
        GTEST_SKIP() << "the file system has no files of that size";
    }
    const auto start = std::chrono::steady_clock::now();
    const StorageStatus status = OpenStorageFile(path, StorageMode::Transacted).status;
    EXPECT_EQ(status, StorageStatus::Damaged); // the list of the FAT leads into the hole
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(CompoundFileBombTest, ManyStreamsOnTheSameSectorsTakeNoMemoryOfTheirOwn)
{
    // Each of 1,000 entries claims the one stream of a megabyte.
    DocumentLines lines = { "stream large 1000000 1" };
    for (int index = 0; index < 1000; ++index)
    {
        lines.push_back("stream e" + std::to_string(index) + " 64 1");
    }
    std::string bytes = FileOf(lines);
    const std::size_t name = bytes.find(std::string("l\0a\0r\0g\0e", 9));
    ASSERT_NE(name, std::string::npos);
    const std::string place = bytes.substr(name + StartAt, 12);
    std::size_t changed = 0;
    for (std::size_t at = name % EntrySize; at + EntrySize <= bytes.size(); at += EntrySize)
    {
        if (bytes[at] == 'e' && bytes[at + TypeAt] == 2)
        {
            bytes.replace(at + StartAt, place.size(), place);
            ++changed;
        }
    }
    ASSERT_EQ(changed, 1000u);
    const auto block = BlockOf(bytes);
    const auto root = OpenStorageOnMemory(*block, StorageMode::ShareDenyWrite).object;
    ASSERT_NE(root, nullptr);
    std::vector<std::unique_ptr<StorageStream>> streams;
    for (int index = 0; index < 1000; ++index)
    {
        streams.push_back(root->OpenStream(L"e" + std::to_wstring(index), Exclusive).object);
        ASSERT_NE(streams.back(), nullptr);
        EXPECT_EQ(streams.back()->Size(), 1'000'000u);
    }
}

} // namespace
