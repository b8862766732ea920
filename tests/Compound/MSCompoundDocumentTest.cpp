#include "Compound/MSCompoundDocument.h"

#include "Platform/Files.h"
#include "tests/Compound/MSCompoundTools.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

namespace
{

using Names = std::vector<std::wstring>;

class MSCompoundDocumentTest : public testing::Test
{
protected:
    TemporaryFolder m_folder;
    const std::wstring m_path = m_folder.File(L"rules.package");
};

TEST_F(MSCompoundDocumentTest, WhatIsWrittenIsReadBack)
{
    const std::string large(100'000, 'l');
    {
        OpenMSDocument document(m_path, MakeMode);
        ICompoundFolder* const root = document.Root();
        ASSERT_NE(root, nullptr);
        EXPECT_TRUE(PutFile(root, L"rules.vrf", "contents"));
        ICompoundFolder* const folder = root->OpenFolder(L"scripts", MakeMode);
        ASSERT_NE(folder, nullptr);
        EXPECT_TRUE(PutFile(folder, L"large", large));
        EXPECT_TRUE(PutFile(folder, L"empty", ""));
        EXPECT_TRUE(root->CloseFolder(folder));
        EXPECT_TRUE(document.Close());
    }
    OpenMSDocument document(m_path, ReadMode);
    ICompoundFolder* const root = document.Root();
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(GetFile(root, L"rules.vrf"), "contents");
    ICompoundFolder* const folder = root->OpenFolder(L"Scripts", ReadMode);
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(GetFile(folder, L"LARGE"), large);
    EXPECT_EQ(GetFile(folder, L"empty"), "");
    EXPECT_EQ(GetFile(folder, L"missing"), "(none)");
}

TEST_F(MSCompoundDocumentTest, TypeIsThatOfTheFlavour)
{
    const OpenMSDocument document(m_path, MakeMode);
    EXPECT_EQ(document->type, CompoundTypeStructured);
}

TEST_F(MSCompoundDocumentTest, RootHasItsNameAndNoParentAndIsTheSameAtEachCall)
{
    const OpenMSDocument document(m_path, MakeMode);
    ICompoundFolder* const root = document.Root();
    ASSERT_NE(root, nullptr);
    EXPECT_STREQ(root->GetName(), L"root:");
    EXPECT_EQ(root->GetParent(), nullptr);
    EXPECT_EQ(document.Root(), root);
}

TEST_F(MSCompoundDocumentTest, RootOfAReadDocumentThatDoesNotOpenIsNullOnEachCall)
{
    const OpenMSDocument missing(m_path, ReadMode);
    EXPECT_EQ(missing.Root(), nullptr);
    EXPECT_EQ(missing.Root(), nullptr);

    WriteBytes(m_path, "no document");
    const OpenMSDocument wrong(m_path, ReadMode);
    EXPECT_EQ(wrong.Root(), nullptr);
    EXPECT_EQ(wrong.Root(), nullptr);
}

TEST_F(MSCompoundDocumentTest, RootIsThereAsSoonAsTheFileCanBeOpened)
{
    const OpenMSDocument reader(m_path, ReadMode);
    EXPECT_EQ(reader.Root(), nullptr);
    {
        const OpenMSDocument writer(m_path, MakeMode);
        ASSERT_TRUE(PutFile(writer.Root(), L"a", "1"));
    }
    ASSERT_NE(reader.Root(), nullptr);
    EXPECT_EQ(GetFile(reader.Root(), L"a"), "1");
}

TEST_F(MSCompoundDocumentTest, NothingIsOpenedBeforeTheRootIsAskedFor)
{
    WriteBytes(m_path, "old");
    {
        const OpenMSDocument document(m_path, MakeMode);
    }
    EXPECT_EQ(ReadBytes(m_path), "old");
}

TEST_F(MSCompoundDocumentTest, FileThatCannotBeWrittenGivesNoRoot)
{
    const OpenMSDocument document(m_folder.File(L"missing") + Platform::PathSeparator + L"a", MakeMode);
    EXPECT_EQ(document.Root(), nullptr);
    const OpenMSDocument folder(m_folder.Path(), MakeMode);
    EXPECT_EQ(folder.Root(), nullptr);
    const OpenMSDocument noPath(std::wstring(), MakeMode);
    EXPECT_EQ(noPath.Root(), nullptr);
}

TEST_F(MSCompoundDocumentTest, WriteBitAloneWrites)
{
    {
        const OpenMSDocument document(m_path, CompoundModeWrite);
        ASSERT_NE(document.Root(), nullptr);
        ICompoundFile* const file = document.Root()->OpenFile(L"a", CompoundModeWrite);
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(file->GetOutputStream()->Write("xy", 2), 2u);
    }
    const OpenMSDocument document(m_path, CompoundModeRead);
    EXPECT_EQ(GetFile(document.Root(), L"a"), "xy");
}

TEST_F(MSCompoundDocumentTest, ReadBitComesBeforeTheWriteBit)
{
    const OpenMSDocument missing(m_path, CompoundModeRead | CompoundModeWrite);
    EXPECT_EQ(missing.Root(), nullptr);
    EXPECT_FALSE(Platform::PathExists(m_path));
}

TEST_F(MSCompoundDocumentTest, ModeWithoutReadAndWriteGivesNoRoot)
{
    const OpenMSDocument document(m_path, CompoundModeExisting | CompoundModeOverwrite);
    EXPECT_EQ(document.Root(), nullptr);
}

TEST_F(MSCompoundDocumentTest, ClosingCompletesWhatIsStillOpen)
{
    {
        OpenMSDocument document(m_path, MakeMode);
        ICompoundFolder* const folder = document.Root()->OpenFolder(L"a", MakeMode)->OpenFolder(L"b", MakeMode);
        ICompoundFile* const file = folder->OpenFile(L"open", MakeMode);
        ASSERT_EQ(file->GetOutputStream()->Write("left open", 9), 9u);
        EXPECT_TRUE(document.Close());
    }
    const OpenMSDocument document(m_path, ReadMode);
    ICompoundFolder* const folder = document.Root()->OpenFolder(L"a", ReadMode)->OpenFolder(L"b", ReadMode);
    EXPECT_EQ(GetFile(folder, L"open"), "left open");
}

TEST_F(MSCompoundDocumentTest, OldFileStaysUntilTheDocumentIsClosed)
{
    WriteBytes(m_path, "old");
    OpenMSDocument document(m_path, MakeMode);
    ASSERT_TRUE(PutFile(document.Root(), L"a", "1"));
    EXPECT_EQ(ReadBytes(m_path), "old");
    document.Close();
    const OpenMSDocument reader(m_path, ReadMode);
    EXPECT_EQ(NamesIn(reader.Root()), Names{ L"a" });
}

TEST_F(MSCompoundDocumentTest, DocumentWithoutARootIsClosedToo)
{
    OpenMSDocument document(m_path, ReadMode);
    EXPECT_TRUE(document.Close());
}

} // namespace
