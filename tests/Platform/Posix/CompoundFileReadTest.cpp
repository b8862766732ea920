#include "Platform/Files.h"
#include "Platform/StructuredStorage.h"
#include "tests/Platform/Posix/CompoundFileTools.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace Platform;

namespace
{

constexpr std::uint32_t Exclusive = StorageMode::ShareExclusive;

struct Writing
{
    const char* name;
    const char* options;
};

/// Files that were written by other code, in ways that ours never writes.
class CompoundFileOfOthersTest : public testing::TestWithParam<Writing>
{
protected:
    void ExpectReadBack(const DocumentLines& lines)
    {
        WriteByOther(m_path, lines, GetParam().options);
        const auto root = OpenStorageFile(m_path, StorageMode::Transacted);
        ASSERT_EQ(root.status, StorageStatus::Done);
        EXPECT_EQ(Sorted(List(*root.object)), SortedListingOf(lines));
    }

    ::TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"document");
};

TEST_P(CompoundFileOfOthersTest, EmptyDocument)
{
    ExpectReadBack({});
}

TEST_P(CompoundFileOfOthersTest, StreamsOfManySizesAndStorages)
{
    DocumentLines lines = { "storage a", "storage a/b", "storage empty" };
    unsigned number = 0;
    for (const int size : { 0, 1, 63, 64, 65, 511, 512, 4095, 4096, 4097, 8192, 70'000 })
    {
        for (const char* parent : { "", "a/", "a/b/" })
        {
            lines.push_back("stream " + std::string(parent) + "s" + std::to_string(size) + " " + std::to_string(size) +
                            " " + std::to_string(++number));
        }
    }
    ExpectReadBack(lines);
}

TEST_P(CompoundFileOfOthersTest, ThousandStreams)
{
    DocumentLines lines;
    for (int index = 0; index < 1000; ++index)
    {
        lines.push_back("stream name " + std::to_string(index) + " " + std::to_string(index * 9) + " 3");
    }
    ExpectReadBack(lines);
}

TEST_P(CompoundFileOfOthersTest, FileWithAListOfTheFatBeyondTheHeader)
{
    ExpectReadBack({ "stream large 8000000 1", "stream small 100 2" });
}

TEST_P(CompoundFileOfOthersTest, NamesOfOtherAlphabetsAreFoundWithoutRegardToCase)
{
    const DocumentLines lines = { "storage Größe", "stream Größe/Ж\xF0\x9F\x94\xA7 5000 1", "stream 規則 7 2" };
    ExpectReadBack(lines);
    const auto root = OpenStorageFile(m_path, StorageMode::Transacted).object;
    const auto inner = root->OpenStorage(L"gRÖSSE", Exclusive);
    EXPECT_EQ(inner.status, StorageStatus::NotFound); // case is that of single characters
    const auto found = root->OpenStorage(L"gRÖßE", Exclusive);
    ASSERT_EQ(found.status, StorageStatus::Done);
    EXPECT_EQ(found.object->OpenStream(L"ж\U0001F527", Exclusive).status, StorageStatus::Done);
}

INSTANTIATE_TEST_SUITE_P(Writings, CompoundFileOfOthersTest,
                         testing::Values(Writing{ "InOrder", "" }, Writing{ "Backwards", "--order reverse" },
                                         Writing{ "Shuffled", "--order shuffled --gaps" },
                                         Writing{ "LargeSectors", "--version 4" },
                                         Writing{ "LargeSectorsShuffled", "--version 4 --order shuffled --gaps" },
                                         Writing{ "TreesThatAreLists", "--tree chain" },
                                         Writing{ "PaddingLeftOut", "--cut-padding" }),
                         [](const testing::TestParamInfo<Writing>& row) { return row.param.name; });

class CompoundFileReadTest : public testing::Test
{
protected:
    void Open(const DocumentLines& lines)
    {
        m_block = BlockOf(FileOf(lines));
        m_root = OpenStorageOnMemory(*m_block, StorageMode::ShareDenyWrite).object;
        ASSERT_NE(m_root, nullptr);
    }

    std::unique_ptr<MemoryBlock> m_block;
    std::unique_ptr<Storage> m_root;
};

TEST_F(CompoundFileReadTest, StreamIsReadInStepsOfAnySizeUpToItsEnd)
{
    for (const std::size_t size : { std::size_t(100), std::size_t(4095), std::size_t(30'000) })
    {
        Open({ "stream before 100 9", "stream s " + std::to_string(size) + " 1" });
        const std::string contents = StreamContents(size, 1);
        for (const std::uint32_t step : { 1u, 7u, 64u, 512u, 4095u, 4096u, 5000u, 40'000u })
        {
            const auto stream = m_root->OpenStream(L"s", Exclusive).object;
            std::string got(size + step, '\0');
            std::size_t done = 0;
            while (const std::uint32_t count = stream->Read(got.data() + done, step))
            {
                ASSERT_EQ(count, std::min<std::size_t>(step, size - done));
                done += count;
            }
            EXPECT_EQ(got.substr(0, done), contents) << size << " in steps of " << step;
        }
    }
}

TEST_F(CompoundFileReadTest, SmallAndLargeReadsOfOneStreamFollowOneAnother)
{
    Open({ "stream s 60000 1" });
    const std::string contents = StreamContents(60'000, 1);
    const auto stream = m_root->OpenStream(L"s", Exclusive).object;
    std::string got(60'000, '\0');
    std::size_t done = 0;
    for (std::uint32_t step = 10; done < contents.size(); step = step * 5 % 9973)
    {
        const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(step, contents.size() - done));
        ASSERT_EQ(stream->Read(got.data() + done, count), count);
        done += count;
    }
    EXPECT_EQ(got, contents);
    char more = 0;
    EXPECT_EQ(stream->Read(&more, 1), 0u);
}

TEST_F(CompoundFileReadTest, NothingCanBeWritten)
{
    Open({ "stream s 10 1", "storage in" });
    const std::uint32_t write = StorageMode::ShareExclusive | StorageMode::Write;
    EXPECT_EQ(m_root->CreateStream(L"new", write).status, StorageStatus::AccessDenied);
    EXPECT_EQ(m_root->CreateStorage(L"new", write).status, StorageStatus::AccessDenied);
    EXPECT_EQ(m_root->OpenStream(L"s", write).status, StorageStatus::AccessDenied);
    EXPECT_EQ(m_root->OpenStorage(L"in", write).status, StorageStatus::AccessDenied);
    const auto stream = m_root->OpenStream(L"s", Exclusive).object;
    EXPECT_EQ(stream->Write("x", 1), 0u);
    EXPECT_EQ(stream->Size(), 10u);
}

TEST_F(CompoundFileReadTest, StorageIsNoStreamAndAStreamNoStorage)
{
    Open({ "stream s 10 1", "storage in" });
    EXPECT_EQ(m_root->OpenStorage(L"s", Exclusive).status, StorageStatus::NotFound);
    EXPECT_EQ(m_root->OpenStream(L"in", Exclusive).status, StorageStatus::NotFound);
    EXPECT_EQ(m_root->OpenStream(L"none", Exclusive).status, StorageStatus::NotFound);
}

TEST_F(CompoundFileReadTest, StreamStaysReadableWhenTheFileIsDeleted)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    WriteBytes(path, FileOf({ "stream s 100000 1" }));
    const auto root = OpenStorageFile(path, StorageMode::Transacted).object;
    ASSERT_TRUE(DeleteFileAt(path));
    EXPECT_EQ(List(*root), SortedListingOf({ "stream s 100000 1" }));
}

TEST_F(CompoundFileReadTest, FileThatIsCutOffWhileOpenGivesShortReads)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    const std::string bytes = FileOf({ "stream s 100000 1" });
    WriteBytes(path, bytes);
    const auto root = OpenStorageFile(path, StorageMode::Transacted).object;
    const auto stream = root->OpenStream(L"s", Exclusive).object;
    ASSERT_NE(stream, nullptr);
    WriteBytes(path, bytes.substr(0, 600));
    std::string got(100'000, '\0');
    EXPECT_LT(stream->Read(got.data(), 100'000), 100'000u);
}

TEST_F(CompoundFileReadTest, PathThatIsNoFileIsRefusedWithItsCause)
{
    const ::TemporaryFolder folder;
    EXPECT_EQ(OpenStorageFile(folder.File(L"missing"), StorageMode::Transacted).status, StorageStatus::NotFound);
    EXPECT_EQ(OpenStorageFile(folder.Path(), StorageMode::Transacted).status, StorageStatus::AccessDenied);
    WriteBytes(folder.File(L"empty"), "");
    EXPECT_EQ(OpenStorageFile(folder.File(L"empty"), StorageMode::Transacted).status, StorageStatus::Damaged);
    WriteBytes(folder.File(L"text"), std::string(5000, 'x'));
    EXPECT_EQ(OpenStorageFile(folder.File(L"text"), StorageMode::Transacted).status, StorageStatus::Damaged);
}

} // namespace
