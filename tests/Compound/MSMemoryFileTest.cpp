#include "Compound/MSMemoryFile.h"

#include "tests/Compound/MSCompoundTools.h"

#include <gtest/gtest.h>

namespace
{

TEST(MSMemoryFileTest, FirstBlockHas16384Bytes)
{
    MSMemoryFile memory;
    EXPECT_EQ(memory.GetSize(), 16384u);
}

TEST(MSMemoryFileTest, WithoutMemoryItHasNoSizeAndADocumentOnItNoRoot)
{
    MSMemoryFile memory(nullptr);
    EXPECT_EQ(memory.GetSize(), 0u);
    for (const std::uint32_t mode : { ReadMode, MakeMode })
    {
        const OpenMSDocument document(&memory, mode);
        EXPECT_EQ(document.Root(), nullptr);
        EXPECT_EQ(document.Root(), nullptr);
    }
}

TEST(MSMemoryFileTest, DocumentOnNoFileHasNoRoot)
{
    const OpenMSDocument document(static_cast<IMemoryFile*>(nullptr), MakeMode);
    EXPECT_EQ(document.Root(), nullptr);
}

/// A memory file of another flavour.
class OtherMemoryFile : public IMemoryFile
{
public:
    std::uint32_t GetSize() override { return 16384; }
};

TEST(MSMemoryFileTest, DocumentOnAFileOfAnotherFlavourHasNoRoot)
{
    OtherMemoryFile memory;
    const OpenMSDocument document(&memory, MakeMode);
    EXPECT_EQ(document.Root(), nullptr);
}

TEST(MSMemoryFileTest, DocumentInMemoryIsReadBack)
{
    MSMemoryFile memory;
    const std::string large(50'000, 'l');
    {
        const OpenMSDocument document(&memory, MakeMode);
        ASSERT_NE(document.Root(), nullptr);
        ASSERT_TRUE(PutFile(document.Root()->OpenFolder(L"in", MakeMode), L"large", large));
        ASSERT_TRUE(PutFile(document.Root(), L"small", "s"));
        EXPECT_GT(memory.GetSize(), 50'000u);
    }
    const OpenMSDocument document(&memory, ReadMode);
    ASSERT_NE(document.Root(), nullptr);
    EXPECT_EQ(NamesIn(document.Root()), (std::vector<std::wstring>{ L"in/", L"small" }));
    EXPECT_EQ(GetFile(document.Root(), L"small"), "s");
    EXPECT_EQ(GetFile(document.Root()->OpenFolder(L"in", ReadMode), L"large"), large);
}

TEST(MSMemoryFileTest, SmallDocumentStaysInTheFirstBlock)
{
    MSMemoryFile memory;
    {
        const OpenMSDocument document(&memory, MakeMode);
        ASSERT_TRUE(PutFile(document.Root(), L"small", "s"));
    }
    EXPECT_EQ(memory.GetSize(), 16384u);
}

TEST(MSMemoryFileTest, BlockWithoutADocumentGivesNoRootForReading)
{
    MSMemoryFile memory;
    const OpenMSDocument document(&memory, ReadMode);
    EXPECT_EQ(document.Root(), nullptr);
    EXPECT_EQ(memory.GetSize(), 16384u);
}

TEST(MSMemoryFileTest, NewDocumentTakesThePlaceOfTheOldOne)
{
    MSMemoryFile memory;
    for (const wchar_t* name : { L"first", L"second" })
    {
        const OpenMSDocument document(&memory, MakeMode);
        ASSERT_TRUE(PutFile(document.Root(), name, "1"));
    }
    const OpenMSDocument document(&memory, ReadMode);
    EXPECT_EQ(NamesIn(document.Root()), std::vector<std::wstring>{ L"second" });
}

} // namespace
