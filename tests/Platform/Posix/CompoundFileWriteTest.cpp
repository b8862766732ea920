#include "Platform/Files.h"
#include "Platform/StructuredStorage.h"
#include "tests/Platform/Posix/CompoundFileTools.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace Platform;

namespace
{

constexpr std::uint32_t MakeFile = StorageMode::Transacted | StorageMode::Create | StorageMode::Write;
constexpr std::uint32_t ExclusiveWrite = StorageMode::ShareExclusive | StorageMode::Write;

std::string Repeated(std::string_view text, int count)
{
    std::string result;
    while (count-- > 0)
    {
        result += text;
    }
    return result;
}

struct Shape
{
    const char* name;
    DocumentLines lines;
};

DocumentLines StreamsOfSizes(const std::vector<std::size_t>& sizes)
{
    DocumentLines lines;
    for (const std::size_t size : sizes)
    {
        lines.push_back("stream of " + std::to_string(size) + " " + std::to_string(size) + " " +
                        std::to_string(lines.size()));
    }
    return lines;
}

DocumentLines ManyStreams(int count, int size)
{
    DocumentLines lines;
    for (int index = 0; index < count; ++index)
    {
        const int number = index * 7'919 % count; // not in the order of names
        lines.push_back("stream rule " + std::to_string(number) + " " + std::to_string(size) + " " +
                        std::to_string(number));
    }
    return lines;
}

/// Storages with 0, 1, 2, ... entries, so that trees of every size are there.
DocumentLines TreesOfEverySize(int most)
{
    DocumentLines lines;
    for (int count = 0; count <= most; ++count)
    {
        const std::string storage = "with " + std::to_string(count);
        lines.push_back("storage " + storage);
        for (int index = 0; index < count; ++index)
        {
            lines.push_back("stream " + storage + "/" + std::to_string(index) + " " + std::to_string(index) + " 1");
        }
    }
    return lines;
}

DocumentLines Nested(int depth)
{
    DocumentLines lines;
    std::string path;
    for (int level = 0; level < depth; ++level)
    {
        path += level == 0 ? "in" : "/in";
        lines.push_back("storage " + path);
        lines.push_back("stream " + path + "/here 100 " + std::to_string(level));
    }
    return lines;
}

class CompoundFileShapeTest : public testing::TestWithParam<Shape>
{
};

TEST_P(CompoundFileShapeTest, IsReadBackByAnotherReaderAndByOurs)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    {
        const auto root = CreateStorageFile(path, MakeFile).object;
        ASSERT_NE(root, nullptr);
        Fill(*root, GetParam().lines);
        ASSERT_TRUE(root->Commit());
    }
    const auto listing = CheckedListing(path);
    ASSERT_TRUE(listing);
    EXPECT_EQ(Sorted(*listing), SortedListingOf(GetParam().lines));

    const auto root = OpenStorageFile(path, StorageMode::Transacted).object;
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(List(*root), *listing);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, CompoundFileShapeTest,
    testing::Values(
        Shape{ "Empty", {} }, Shape{ "OneEmptyStream", { "stream a 0 0" } },
        Shape{ "OneEmptyStorage", { "storage a" } },
        Shape{ "SizesAroundTheBorders",
               StreamsOfSizes({ 0,    1,    63,   64,   65,   127,  128,  511,  512,  513,   1023,
                                1024, 4032, 4033, 4095, 4096, 4097, 4607, 4608, 4609, 65536, 1048577 }) },
        Shape{ "OnlySmallStreams", ManyStreams(300, 77) }, Shape{ "OnlyLargeStreams", ManyStreams(40, 5000) },
        Shape{ "ThousandStreams", ManyStreams(1000, 40) }, Shape{ "TreesOfEverySize", TreesOfEverySize(70) },
        Shape{ "DeeplyNested", Nested(60) },
        // 109 sectors of the FAT stand in the header and speak of 13,952 sectors. The file
        // is made of more, and with the third shape of one more sector of the list of them.
        Shape{ "LastThatNeedsNoListOfTheFat", { "stream a 7086080 3", "stream b 100 1" } },
        Shape{ "FirstThatNeedsAListOfTheFat", { "stream a 7086081 3", "stream b 100 1" } },
        Shape{ "TwoSectorsOfThatList", { "stream a 16000000 3", "stream b 5000 1" } },
        Shape{ "NamesOfOtherAlphabets",
               { "stream Größe 10 1", "stream größer 10 2", "storage 規則", "stream 規則/材料 5000 3",
                 "stream \xF0\x9F\x94\xA7 12 4", "stream \xF0\x9F\x94\xA8x 13 5", "stream ÿ 1 6", "stream Ā 1 7",
                 "stream ж 1 8", "stream Я 1 9" } },
        Shape{ "LongestNames",
               { "stream " + std::string(31, 'n') + " 10 1", "storage " + Repeated("\xF0\x9F\x94\xA7", 15) + "x" } },
        Shape{ "NamesThatDifferInOrderByCase",
               { "stream b 1 1", "stream A 1 2", "stream a1 1 3", "stream B1 1 4", "stream _ 1 5", "stream ~ 1 6" } }),
    [](const testing::TestParamInfo<Shape>& row) { return row.param.name; });

class CompoundFileWriteTest : public testing::Test
{
protected:
    void Make()
    {
        m_root = CreateStorageFile(m_path, MakeFile).object;
        ASSERT_NE(m_root, nullptr);
    }

    DocumentLines Saved() const
    {
        const auto root = OpenStorageFile(m_path, StorageMode::Transacted).object;
        return root != nullptr ? List(*root) : DocumentLines{ "no document" };
    }

    ::TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"document");
    std::unique_ptr<Storage> m_root;
};

TEST_F(CompoundFileWriteTest, SameDocumentMakesTheSameBytes)
{
    const DocumentLines lines = { "stream a 100 1", "storage b", "stream b/c 5000 2" };
    const DocumentLines otherOrder = { "storage b", "stream b/c 5000 2", "stream a 100 1" };
    EXPECT_EQ(FileOf(lines), FileOf(otherOrder));
}

TEST_F(CompoundFileWriteTest, ListOfTheFatGoesBeyondTheHeaderOnlyWhereItMust)
{
    constexpr std::size_t CountOfSuchSectors = 72;
    EXPECT_EQ(FileOf({ "stream a 7086080 3", "stream b 100 1" })[CountOfSuchSectors], 0);
    EXPECT_EQ(FileOf({ "stream a 7086081 3", "stream b 100 1" })[CountOfSuchSectors], 1);
    EXPECT_EQ(FileOf({ "stream a 16000000 3", "stream b 5000 1" })[CountOfSuchSectors], 2);
}

TEST_F(CompoundFileWriteTest, StreamWrittenInManyPiecesHoldsThemInOrder)
{
    Make();
    const std::string contents = StreamContents(300'000, 1);
    {
        const auto stream = m_root->CreateStream(L"s", ExclusiveWrite).object;
        std::size_t done = 0;
        for (std::size_t step = 0; done < contents.size(); step = (step + 37) % 4001)
        {
            const auto count = static_cast<std::uint32_t>(std::min(step, contents.size() - done));
            ASSERT_EQ(stream->Write(contents.data() + done, count), count);
            done += count;
            ASSERT_EQ(stream->Size(), done);
        }
    }
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(Saved(), SortedListingOf({ "stream s 300000 1" }));
    EXPECT_EQ(CheckedListing(m_path), Saved());
}

TEST_F(CompoundFileWriteTest, NothingIsInTheFileBeforeTheRootCommits)
{
    Make();
    Fill(*m_root, { "stream a 10 1" });
    EXPECT_FALSE(PathExists(m_path));
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(Saved(), SortedListingOf({ "stream a 10 1" }));
}

TEST_F(CompoundFileWriteTest, CommitOfAnInnerStorageIsNotPermanentYet)
{
    Make();
    const auto inner = m_root->CreateStorage(L"in", ExclusiveWrite).object;
    const auto stream = inner->CreateStream(L"s", ExclusiveWrite).object;
    ASSERT_EQ(stream->Write("abc", 3), 3u);
    EXPECT_TRUE(stream->Commit());
    EXPECT_TRUE(inner->Commit());
    EXPECT_FALSE(PathExists(m_path));
}

TEST_F(CompoundFileWriteTest, RootThatIsNotCommittedLeavesTheOldFile)
{
    WriteBytes(m_path, FileOf({ "stream old 10 1" }));
    Make();
    Fill(*m_root, { "stream new 10 1" });
    m_root.reset();
    EXPECT_EQ(Saved(), SortedListingOf({ "stream old 10 1" }));
}

TEST_F(CompoundFileWriteTest, CommitReplacesTheOldFile)
{
    WriteBytes(m_path, FileOf({ "stream old 100000 1" }));
    Make();
    Fill(*m_root, { "stream new 10 1" });
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(Saved(), SortedListingOf({ "stream new 10 1" }));
    EXPECT_TRUE(CheckedListing(m_path));
}

TEST_F(CompoundFileWriteTest, CommitTakesInWhatIsStillOpenAndMayBeRepeated)
{
    Make();
    const auto inner = m_root->CreateStorage(L"in", ExclusiveWrite).object;
    const auto stream = inner->CreateStream(L"s", ExclusiveWrite).object;
    const std::string contents = StreamContents(9000, 5);
    ASSERT_EQ(stream->Write(contents.data(), 3000), 3000u);
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(Sorted(Saved()), SortedListingOf({ "storage in", "stream in/s 3000 5" }));
    ASSERT_EQ(stream->Write(contents.data() + 3000, 6000), 6000u);
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(Sorted(Saved()), SortedListingOf({ "storage in", "stream in/s 9000 5" }));
}

TEST_F(CompoundFileWriteTest, FailedCommitLeavesTheOldFileAndCanBeRepeated)
{
    const std::wstring inside = m_folder.File(L"folder");
    const std::wstring moved = m_folder.File(L"moved");
    ASSERT_TRUE(MakeFolder(inside));
    m_path = inside + L"/document";
    WriteBytes(m_path, FileOf({ "stream old 10 1" }));
    Make();
    Fill(*m_root, { "stream new 10 2" });

    std::filesystem::rename(NativePath(inside), NativePath(moved));
    EXPECT_FALSE(m_root->Commit());
    std::filesystem::rename(NativePath(moved), NativePath(inside));
    EXPECT_EQ(Saved(), SortedListingOf({ "stream old 10 1" }));
    EXPECT_TRUE(m_root->Commit());
    EXPECT_EQ(Saved(), SortedListingOf({ "stream new 10 2" }));
}

TEST_F(CompoundFileWriteTest, ReaderKeepsWhatItOpenedWhenTheFileIsReplaced)
{
    WriteBytes(m_path, FileOf({ "stream old 100000 1" }));
    const auto reader = OpenStorageFile(m_path, StorageMode::Transacted).object;
    Make();
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(List(*reader), SortedListingOf({ "stream old 100000 1" }));
    EXPECT_EQ(Saved(), DocumentLines());
}

TEST_F(CompoundFileWriteTest, ListingShowsWhatIsThereByLengthThenUpperCaseName)
{
    Make();
    Fill(*m_root, { "stream bb 1 1", "stream C 1 1", "storage a", "stream B 1 1", "stream Aa 1 1", "storage _" });
    std::vector<std::wstring> names;
    const auto entries = m_root->List();
    for (const StorageEntry& entry : *entries)
    {
        names.push_back(entry.name);
    }
    EXPECT_EQ(names, (std::vector<std::wstring>{ L"a", L"B", L"C", L"_", L"Aa", L"bb" }));
}

TEST_F(CompoundFileWriteTest, ReplacedStorageIsGoneWithAllThatWasInIt)
{
    Make();
    Fill(*m_root, { "storage in", "storage in/deep", "stream in/deep/s 100000 1", "stream in/t 50 2" });
    {
        const auto again = m_root->CreateStorage(L"IN", ExclusiveWrite | StorageMode::Create);
        ASSERT_EQ(again.status, StorageStatus::Done);
        EXPECT_TRUE(again.object->List().value().empty());
    }
    ASSERT_TRUE(m_root->Commit());
    EXPECT_EQ(CheckedListing(m_path), DocumentLines{ "storage IN" });
    EXPECT_LE(ReadBytes(m_path).size(), 2048u);
}

TEST_F(CompoundFileWriteTest, FileThatCannotBeWrittenIsRefusedAtOnce)
{
    EXPECT_EQ(CreateStorageFile(m_folder.File(L"missing/document"), MakeFile).status, StorageStatus::AccessDenied);
    EXPECT_EQ(CreateStorageFile(m_folder.Path(), MakeFile).status, StorageStatus::AccessDenied);
    EXPECT_EQ(CreateStorageFile(L"", MakeFile).status, StorageStatus::AccessDenied);
}

TEST_F(CompoundFileWriteTest, ExistingFileIsReplacedOnlyIfTheModeSaysSo)
{
    WriteBytes(m_path, "something");
    const std::uint32_t withoutCreate = StorageMode::Transacted | StorageMode::Write;
    EXPECT_EQ(CreateStorageFile(m_path, withoutCreate).status, StorageStatus::AlreadyExists);
    EXPECT_EQ(CreateStorageFile(m_folder.File(L"new"), withoutCreate).status, StorageStatus::Done);
}

} // namespace
