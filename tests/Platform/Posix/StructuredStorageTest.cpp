#include "Platform/StructuredStorage.h"

#include "Platform/Files.h"
#include "tests/Platform/Posix/CompoundFileTools.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

constexpr std::uint32_t Exclusive = StorageMode::ShareExclusive;
constexpr std::uint32_t ExclusiveWrite = StorageMode::ShareExclusive | StorageMode::Write;
constexpr std::uint32_t MakeInner = ExclusiveWrite | StorageMode::Create;
constexpr std::uint32_t MakeFile = StorageMode::Transacted | StorageMode::Create | StorageMode::Write;
constexpr std::uint32_t MakeInMemory = StorageMode::DirectSingleWriter | StorageMode::Create | ExclusiveWrite;

TEST(StorageModeTest, ValuesAreThoseOfTheSystem)
{
    EXPECT_EQ(StorageMode::Transacted, 0x10000u);
    EXPECT_EQ(MakeFile, 0x11001u);
    EXPECT_EQ(MakeInMemory, 0x401011u);
    EXPECT_EQ(StorageMode::ShareDenyWrite, 0x20u);
    EXPECT_EQ(Exclusive, 0x10u);
    EXPECT_EQ(ExclusiveWrite, 0x11u);
    EXPECT_EQ(MakeInner, 0x1011u);
}

class StructuredStorageTest : public testing::Test
{
protected:
    StructuredStorageTest() { m_root = CreateStorageOnMemory(*m_block, MakeInMemory).object; }

    /// Ends writing and opens the document for reading.
    void Reopen()
    {
        m_root.reset();
        m_root = OpenStorageOnMemory(*m_block, StorageMode::ShareDenyWrite).object;
        ASSERT_NE(m_root, nullptr);
    }

    std::unique_ptr<MemoryBlock> m_block = MemoryBlock::Allocate(16384);
    std::unique_ptr<Storage> m_root;
};

TEST_F(StructuredStorageTest, InnerObjectsHaveToBeExclusive)
{
    for (const std::uint32_t mode : { 0x1u, 0x21u, 0x31u, 0x41u, 0x10011u, 0x12u, 0x13u, 0xFFFFFFFFu })
    {
        EXPECT_EQ(m_root->CreateStream(L"s", mode).status, StorageStatus::InvalidMode) << mode;
        EXPECT_EQ(m_root->CreateStorage(L"s", mode).status, StorageStatus::InvalidMode) << mode;
        EXPECT_EQ(m_root->OpenStorage(L"s", mode).status, StorageStatus::InvalidMode) << mode;
    }
    Reopen();
    for (const std::uint32_t mode : { 0x0u, 0x20u, 0x40u, 0x10010u })
    {
        EXPECT_EQ(m_root->OpenStream(L"s", mode).status, StorageStatus::InvalidMode) << mode;
        EXPECT_EQ(m_root->OpenStorage(L"s", mode).status, StorageStatus::InvalidMode) << mode;
    }
}

TEST_F(StructuredStorageTest, DocumentsAreMadeOrReadButNotChanged)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"document");
    WriteBytes(path, FileOf({}));
    EXPECT_EQ(OpenStorageFile(path, StorageMode::Transacted | StorageMode::Write).status, StorageStatus::InvalidMode);
    EXPECT_EQ(OpenStorageFile(path, MakeFile).status, StorageStatus::InvalidMode);
    EXPECT_EQ(CreateStorageFile(path, StorageMode::Transacted | StorageMode::Create).status,
              StorageStatus::InvalidMode);
    EXPECT_EQ(CreateStorageFile(path, StorageMode::Create | StorageMode::Write).status, StorageStatus::InvalidMode);
    EXPECT_EQ(OpenStorageOnMemory(*m_block, ExclusiveWrite).status, StorageStatus::InvalidMode);
    EXPECT_EQ(CreateStorageOnMemory(*m_block, ExclusiveWrite).status, StorageStatus::InvalidMode);
}

TEST_F(StructuredStorageTest, DocumentThatIsMadeIsNotRead)
{
    const auto stream = m_root->CreateStream(L"s", ExclusiveWrite).object;
    ASSERT_EQ(stream->Write("abc", 3), 3u);
    char buffer[3] = {};
    EXPECT_EQ(stream->Read(buffer, 3), 0u);
    EXPECT_EQ(stream->Size(), 3u);
    EXPECT_EQ(m_root->OpenStream(L"s", Exclusive).status, StorageStatus::AccessDenied);
    EXPECT_EQ(m_root->OpenStorage(L"s", Exclusive).status, StorageStatus::AccessDenied);
}

TEST_F(StructuredStorageTest, NameThatIsTakenIsRefusedWhateverItsCase)
{
    ASSERT_EQ(m_root->CreateStream(L"Name ä", ExclusiveWrite).status, StorageStatus::Done);
    EXPECT_EQ(m_root->CreateStream(L"nAME Ä", ExclusiveWrite).status, StorageStatus::AlreadyExists);
    EXPECT_EQ(m_root->CreateStorage(L"name ä", ExclusiveWrite).status, StorageStatus::AlreadyExists);
    EXPECT_EQ(m_root->CreateStream(L"Name a", ExclusiveWrite).status, StorageStatus::Done);
    EXPECT_EQ(m_root->List()->size(), 2u);
}

TEST_F(StructuredStorageTest, CreateReplacesWhatIsClosedAndNotWhatIsOpen)
{
    {
        const auto open = m_root->CreateStream(L"s", ExclusiveWrite).object;
        EXPECT_EQ(m_root->CreateStorage(L"S", MakeInner).status, StorageStatus::AccessDenied);
        EXPECT_EQ(m_root->CreateStream(L"S", MakeInner).status, StorageStatus::AccessDenied);
        EXPECT_EQ(open->Write("abc", 3), 3u);
    }
    EXPECT_EQ(m_root->CreateStorage(L"S", MakeInner).status, StorageStatus::Done);
    ASSERT_EQ(m_root->List()->size(), 1u);
    EXPECT_EQ(m_root->List()->front().kind, StorageEntryKind::Storage);
}

TEST_F(StructuredStorageTest, WhatIsOpenIsNotOpenedAgainUntilItIsClosed)
{
    auto inner = m_root->CreateStorage(L"in", ExclusiveWrite);
    ASSERT_EQ(inner.status, StorageStatus::Done);
    EXPECT_EQ(m_root->OpenStorage(L"IN", ExclusiveWrite).status, StorageStatus::AccessDenied);
    inner.object->CreateStream(L"s", ExclusiveWrite);
    inner.object.reset();
    EXPECT_EQ(m_root->OpenStorage(L"IN", ExclusiveWrite).status, StorageStatus::Done);

    Reopen();
    inner = m_root->OpenStorage(L"in", Exclusive);
    EXPECT_EQ(m_root->OpenStorage(L"In", Exclusive).status, StorageStatus::AccessDenied);
    auto stream = inner.object->OpenStream(L"s", Exclusive);
    ASSERT_EQ(stream.status, StorageStatus::Done);
    EXPECT_EQ(inner.object->OpenStream(L"S", Exclusive).status, StorageStatus::AccessDenied);
    stream.object.reset();
    EXPECT_EQ(inner.object->OpenStream(L"S", Exclusive).status, StorageStatus::Done);
    inner.object.reset();
    EXPECT_EQ(m_root->OpenStorage(L"In", Exclusive).status, StorageStatus::Done);
}

TEST_F(StructuredStorageTest, ObjectsWhoseParentIsClosedServeNoMoreCalls)
{
    auto inner = m_root->CreateStorage(L"in", ExclusiveWrite).object;
    const auto deep = inner->CreateStorage(L"deep", ExclusiveWrite).object;
    const auto stream = deep->CreateStream(L"s", ExclusiveWrite).object;
    ASSERT_EQ(stream->Write("abc", 3), 3u);
    inner.reset();
    EXPECT_EQ(stream->Write("def", 3), 0u);
    EXPECT_FALSE(stream->Size());
    EXPECT_FALSE(stream->Commit());
    EXPECT_FALSE(deep->Commit());
    EXPECT_FALSE(deep->List());
    EXPECT_EQ(deep->CreateStream(L"t", ExclusiveWrite).status, StorageStatus::AccessDenied);

    inner = m_root->OpenStorage(L"in", ExclusiveWrite).object;
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->OpenStorage(L"deep", ExclusiveWrite).status, StorageStatus::Done);

    Reopen();
    auto readInner = m_root->OpenStorage(L"in", Exclusive).object;
    const auto readDeep = readInner->OpenStorage(L"deep", Exclusive).object;
    const auto readStream = readDeep->OpenStream(L"s", Exclusive).object;
    EXPECT_EQ(readStream->Size(), 3u);
    m_root.reset();
    char buffer[3] = {};
    EXPECT_EQ(readStream->Read(buffer, 3), 0u);
    EXPECT_FALSE(readStream->Size());
    EXPECT_FALSE(readInner->List());
    EXPECT_EQ(readInner->OpenStorage(L"deep", Exclusive).status, StorageStatus::AccessDenied);
}

TEST_F(StructuredStorageTest, StoragesNestedDeeplyTakeNoStackWhenTheyAreClosed)
{
    std::vector<std::unique_ptr<Storage>> open;
    Storage* parent = m_root.get();
    for (int depth = 0; depth < 20'000; ++depth)
    {
        open.push_back(parent->CreateStorage(L"in", ExclusiveWrite).object);
        parent = open.back().get();
    }
    ASSERT_NE(parent, nullptr);
    // Parents first, so that the innermost one is the last to know all of them.
    for (auto& storage : open)
    {
        storage.reset();
    }
    EXPECT_TRUE(m_root->Commit());
    EXPECT_EQ(m_root->CreateStorage(L"in", MakeInner).status, StorageStatus::Done);
}

struct NameRow
{
    const char* name;
    std::wstring text;
    StorageStatus status;
};

class StorageNameTest : public StructuredStorageTest, public testing::WithParamInterface<NameRow>
{
};

TEST_P(StorageNameTest, IsTakenOrRefused)
{
    EXPECT_EQ(m_root->CreateStream(GetParam().text, ExclusiveWrite).status, GetParam().status);
    Reopen();
    const bool taken = GetParam().status == StorageStatus::Done;
    ASSERT_EQ(m_root->List()->size(), taken ? 1u : 0u);
    EXPECT_EQ(m_root->OpenStream(GetParam().text, Exclusive).status, GetParam().status);
    if (taken)
    {
        EXPECT_EQ(m_root->List()->front().name, GetParam().text);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Names, StorageNameTest,
    testing::Values(NameRow{ "OneCharacter", L"a", StorageStatus::Done }, NameRow{ "Blank", L" ", StorageStatus::Done },
                    NameRow{ "ControlCharacterFirst", L"\5Summary", StorageStatus::Done },
                    NameRow{ "Dots", L"..", StorageStatus::Done },
                    NameRow{ "ThirtyOneUnits", std::wstring(31, L'n'), StorageStatus::Done },
                    NameRow{ "ThirtyTwoUnits", std::wstring(32, L'n'), StorageStatus::InvalidName },
                    NameRow{ "PairsOfThirtyOneUnits", std::wstring(15, L'\U0001F527') + L'x', StorageStatus::Done },
                    NameRow{ "PairsOfThirtyTwoUnits", std::wstring(16, L'\U0001F527'), StorageStatus::InvalidName },
                    NameRow{ "Empty", L"", StorageStatus::InvalidName },
                    NameRow{ "Slash", L"a/b", StorageStatus::InvalidName },
                    NameRow{ "Backslash", L"a\\b", StorageStatus::InvalidName },
                    NameRow{ "Colon", L"a:b", StorageStatus::InvalidName },
                    NameRow{ "ExclamationMark", L"a!b", StorageStatus::InvalidName },
                    NameRow{ "Nul", std::wstring(L"a\0b", 3), StorageStatus::InvalidName },
                    NameRow{ "HalfAPair", std::wstring(1, wchar_t(0xD83D)), StorageStatus::InvalidName },
                    NameRow{ "NoCharacter", std::wstring(1, wchar_t(0x110000)), StorageStatus::InvalidName }),
    [](const testing::TestParamInfo<NameRow>& row) { return row.param.name; });

TEST_F(StructuredStorageTest, NameWithHalfAPairIsFoundAsItIsListed)
{
    m_root->CreateStream(L"a\x4E00z", ExclusiveWrite);
    m_root.reset();
    std::string bytes(m_block->Size(), '\0');
    ASSERT_TRUE(m_block->Read(0, bytes.data(), bytes.size()));
    const std::size_t at = bytes.find(std::string("a\0\0\x4Ez\0", 6));
    ASSERT_NE(at, std::string::npos);
    ASSERT_TRUE(m_block->Write(at + 2, "\x3D\xD8"));
    Reopen();
    const std::wstring listed = m_root->List()->front().name;
    EXPECT_EQ(listed, L"a\xFFFDz");
    EXPECT_EQ(m_root->OpenStream(listed, Exclusive).status, StorageStatus::Done);
}

TEST_F(StructuredStorageTest, BlockGrowsWhileItIsWritten)
{
    EXPECT_EQ(m_block->Size(), 16384u);
    const auto stream = m_root->CreateStream(L"s", ExclusiveWrite).object;
    const std::string piece(10'000, 'x');
    ASSERT_EQ(stream->Write(piece.data(), 10'000), 10'000u);
    EXPECT_EQ(m_block->Size(), 16384u);
    for (std::uint32_t written = 20'000; written <= 200'000; written += 10'000)
    {
        ASSERT_EQ(stream->Write(piece.data(), 10'000), 10'000u);
        ASSERT_GE(m_block->Size(), written);
        ASSERT_LE(m_block->Size(), std::max(16384u, written + 8192));
    }
}

TEST_F(StructuredStorageTest, BlockHoldsTheDocumentWhenTheRootIsCommitted)
{
    Fill(*m_root, { "stream a 100 1", "storage b", "stream b/c 50000 2" });
    ASSERT_TRUE(m_root->Commit());
    const auto reader = OpenStorageOnMemory(*m_block, StorageMode::ShareDenyWrite).object;
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(Sorted(List(*reader)), SortedListingOf({ "stream a 100 1", "storage b", "stream b/c 50000 2" }));
}

TEST_F(StructuredStorageTest, BlockHoldsTheDocumentWhenTheRootIsGoneWithoutACommit)
{
    Fill(*m_root, { "stream a 100 1" });
    Reopen();
    EXPECT_EQ(List(*m_root), SortedListingOf({ "stream a 100 1" }));
}

TEST_F(StructuredStorageTest, TransactedRootInMemoryIsLostWithoutACommit)
{
    m_root = CreateStorageOnMemory(*m_block, MakeFile).object;
    Fill(*m_root, { "stream a 100 1" });
    m_root.reset();
    Reopen();
    EXPECT_EQ(List(*m_root), DocumentLines());
}

TEST_F(StructuredStorageTest, NothingOfWhatABlockHeldIsLeftBehindANewDocument)
{
    Fill(*m_root, { "stream a 100000 1" });
    m_root.reset();
    const std::size_t before = m_block->Size();
    m_root = CreateStorageOnMemory(*m_block, MakeInMemory).object;
    Fill(*m_root, { "stream b 0 1" });
    m_root.reset();
    ASSERT_EQ(m_block->Size(), before);
    std::string rest(before - 4096, 'x');
    ASSERT_TRUE(m_block->Read(4096, rest.data(), rest.size()));
    EXPECT_EQ(rest, std::string(rest.size(), '\0'));
}

TEST_F(StructuredStorageTest, ReaderOfABlockThatChangesUnderItEndsInFailures)
{
    Fill(*m_root, { "stream a 100000 1" });
    Reopen();
    const auto stream = m_root->OpenStream(L"a", Exclusive).object;
    const auto writer = CreateStorageOnMemory(*m_block, MakeInMemory).object;
    Fill(*writer, { "stream b 900000 1" }); // the block moves
    std::string got(100'000, '\0');
    EXPECT_EQ(stream->Read(got.data(), 100'000), 100'000u);
    EXPECT_EQ(got, StreamContents(100'000, 1));
}

TEST_F(StructuredStorageTest, DocumentBeyondTheLimitOfTheFormatIsRefusedBeforeItTakesMemory)
{
    // No byte of this is touched: what is too large is refused by its size.
    const auto stream = m_root->CreateStream(L"s", ExclusiveWrite).object;
    const char byte = 0;
    EXPECT_EQ(stream->Write(&byte, 0x7FFFFFFF), 0u);
    EXPECT_EQ(stream->Write(&byte, 0xFFFFFFFF), 0u);
    EXPECT_EQ(stream->Size(), 0u);
    EXPECT_EQ(m_block->Size(), 16384u);
    EXPECT_EQ(stream->Write(&byte, 1), 1u);
}

TEST(MemoryBlockTest, ReadsAndWritesWithinItsBounds)
{
    const auto block = MemoryBlock::Allocate(10);
    ASSERT_NE(block, nullptr);
    std::string bytes(10, 'x');
    EXPECT_TRUE(block->Read(0, bytes.data(), 10));
    EXPECT_EQ(bytes, std::string(10, '\0'));
    EXPECT_FALSE(block->Read(1, bytes.data(), 10));
    EXPECT_FALSE(block->Read(SIZE_MAX, bytes.data(), 10));
    EXPECT_TRUE(block->Read(10, nullptr, 0));
    EXPECT_TRUE(block->Write(8, "abcd"));
    EXPECT_EQ(block->Size(), 12u);
    EXPECT_TRUE(block->Reserve(5));
    EXPECT_EQ(block->Size(), 12u);
    EXPECT_TRUE(block->Read(8, bytes.data(), 4));
    EXPECT_EQ(bytes.substr(0, 4), "abcd");
}

TEST(MemoryBlockTest, SizeThatNoMachineHasGivesNone)
{
    EXPECT_EQ(MemoryBlock::Allocate(SIZE_MAX), nullptr);
    const auto block = MemoryBlock::Allocate(10);
    EXPECT_FALSE(block->Reserve(SIZE_MAX));
    EXPECT_FALSE(block->Write(SIZE_MAX, "ab"));
    EXPECT_EQ(block->Size(), 10u);
}

} // namespace
