#include "Compound/MSCompoundFolder.h"

#include "tests/Compound/MSCompoundTools.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace
{

using Names = std::vector<std::wstring>;

class MSCompoundFolderTest : public testing::Test
{
protected:
    MSCompoundFolderTest() { Open(MakeMode); }

    void Open(std::uint32_t mode)
    {
        m_document.reset();
        m_document = std::make_unique<OpenMSDocument>(m_folder.File(L"document"), mode);
        m_root = m_document->Root();
        ASSERT_NE(m_root, nullptr);
    }

    TemporaryFolder m_folder;
    std::unique_ptr<OpenMSDocument> m_document;
    ICompoundFolder* m_root = nullptr;
};

TEST_F(MSCompoundFolderTest, FileThatExistsIsNotOpenedForWriting)
{
    ASSERT_TRUE(PutFile(m_root, L"a", "first"));
    EXPECT_EQ(m_root->OpenFile(L"a", MakeMode), nullptr);
    EXPECT_EQ(m_root->OpenFile(L"A", MakeMode), nullptr);
    Open(ReadMode);
    EXPECT_EQ(GetFile(m_root, L"a"), "first");
}

TEST_F(MSCompoundFolderTest, FolderThatExistsIsOpenedForWritingAndANewOneIsMade)
{
    ICompoundFolder* const made = m_root->OpenFolder(L"new", MakeMode);
    ASSERT_NE(made, nullptr);
    ASSERT_TRUE(PutFile(made, L"first", "1"));
    ASSERT_TRUE(m_root->CloseFolder(made));

    ICompoundFolder* const opened = m_root->OpenFolder(L"NEW", MakeMode);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(NamesIn(opened), Names{ L"first" });
    ASSERT_TRUE(PutFile(opened, L"second", "2"));

    Open(ReadMode);
    EXPECT_EQ(NamesIn(m_root->OpenFolder(L"new", ReadMode)), (Names{ L"first", L"second" }));
}

TEST_F(MSCompoundFolderTest, ListingShowsFilesAndFoldersAlikeAndNothingElse)
{
    ASSERT_TRUE(PutFile(m_root, L"file", "1"));
    ASSERT_NE(m_root->OpenFolder(L"folder", MakeMode), nullptr);
    ASSERT_TRUE(PutFile(m_root, L"x", ""));
    Open(ReadMode);
    EXPECT_EQ(NamesIn(m_root), (Names{ L"x", L"file", L"folder/" }));
    EXPECT_EQ(NamesIn(m_root->OpenFolder(L"folder", ReadMode)), Names());
}

TEST_F(MSCompoundFolderTest, DocumentThatIsWrittenIsListedAsFarAsItIs)
{
    EXPECT_EQ(NamesIn(m_root), Names());
    ASSERT_TRUE(PutFile(m_root, L"b", "1"));
    ASSERT_NE(m_root->OpenFile(L"open", MakeMode), nullptr);
    EXPECT_EQ(NamesIn(m_root), (Names{ L"b", L"open" }));
}

TEST_F(MSCompoundFolderTest, ListingIsThatOfTheMomentWhenItWasMade)
{
    ASSERT_TRUE(PutFile(m_root, L"a", "1"));
    IFolderEnumerator* enumerator = m_root->GetEnumerator();
    ASSERT_TRUE(PutFile(m_root, L"b", "2"));
    ASSERT_NE(enumerator->Next(), nullptr);
    EXPECT_EQ(enumerator->Next(), nullptr);
    EXPECT_EQ(enumerator->Next(), nullptr);
    EXPECT_EQ(m_root->ReleaseEnumerator(&enumerator), &enumerator);
    EXPECT_EQ(enumerator, nullptr);
}

TEST_F(MSCompoundFolderTest, ModeHasToShareABitWithTheFolders)
{
    EXPECT_EQ(m_root->OpenFile(L"a", ReadMode), nullptr);
    EXPECT_EQ(m_root->OpenFolder(L"a", ReadMode), nullptr);
    EXPECT_EQ(m_root->OpenFile(L"a", 0), nullptr);
    EXPECT_EQ(NamesIn(m_root), Names());
    ASSERT_TRUE(PutFile(m_root, L"a", "1"));
    Open(ReadMode);
    EXPECT_EQ(m_root->OpenFile(L"a", MakeMode), nullptr);
    EXPECT_EQ(m_root->OpenFolder(L"a", MakeMode), nullptr);
    EXPECT_NE(m_root->OpenFile(L"a", CompoundModeExisting), nullptr);
}

TEST_F(MSCompoundFolderTest, FolderThatIsOpenIsGivenAgain)
{
    ICompoundFolder* const folder = m_root->OpenFolder(L"a", MakeMode);
    EXPECT_EQ(m_root->OpenFolder(L"A", MakeMode), folder);
    Open(ReadMode);
    ICompoundFolder* const read = m_root->OpenFolder(L"a", ReadMode);
    EXPECT_EQ(m_root->OpenFolder(L"A", ReadMode), read);
}

TEST_F(MSCompoundFolderTest, FileThatIsOpenIsNotOpenedASecondTime)
{
    ICompoundFile* const first = m_root->OpenFile(L"a", MakeMode);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(m_root->OpenFile(L"a", MakeMode), nullptr);
    Open(ReadMode);
    ICompoundFile* const read = m_root->OpenFile(L"a", ReadMode);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(m_root->OpenFile(L"a", ReadMode), nullptr);
    EXPECT_TRUE(m_root->CloseFile(read));
    EXPECT_NE(m_root->OpenFile(L"a", ReadMode), nullptr);
}

TEST_F(MSCompoundFolderTest, NameOfAnOpenFileIsNoFolder)
{
    ICompoundFile* const file = m_root->OpenFile(L"a", MakeMode);
    EXPECT_EQ(m_root->OpenFolder(L"a", MakeMode), nullptr);
    EXPECT_EQ(file->GetOutputStream()->Write("kept", 4), 4u);
    Open(ReadMode);
    ASSERT_NE(m_root->OpenFile(L"a", ReadMode), nullptr);
    EXPECT_EQ(m_root->OpenFolder(L"a", ReadMode), nullptr);
}

TEST_F(MSCompoundFolderTest, FolderThatIsWrittenTakesThePlaceOfAClosedFile)
{
    ASSERT_TRUE(PutFile(m_root, L"a", "gone"));
    EXPECT_NE(m_root->OpenFolder(L"a", MakeMode), nullptr);
    EXPECT_EQ(NamesIn(m_root), Names{ L"a/" });
}

TEST_F(MSCompoundFolderTest, NamesThatTheStorageRefusesGiveNull)
{
    const std::wstring tooLong(32, L'n');
    for (const wchar_t* name : { L"", L"a/b", L"a\\b", L"a:b", L"a!b", tooLong.c_str() })
    {
        EXPECT_EQ(m_root->OpenFile(name, MakeMode), nullptr);
        EXPECT_EQ(m_root->OpenFolder(name, MakeMode), nullptr);
    }
    EXPECT_EQ(m_root->OpenFile(nullptr, MakeMode), nullptr);
    EXPECT_EQ(m_root->OpenFolder(nullptr, MakeMode), nullptr);
    EXPECT_FALSE(m_root->HasChild(L"a/b"));
}

TEST_F(MSCompoundFolderTest, HasChildTellsWhatWasOpenedAlsoIfItIsClosed)
{
    ASSERT_TRUE(PutFile(m_root, L"File", "1"));
    ASSERT_NE(m_root->OpenFolder(L"Folder", MakeMode), nullptr);
    EXPECT_TRUE(m_root->HasChild(L"file"));
    EXPECT_TRUE(m_root->HasChild(L"FOLDER"));
    EXPECT_FALSE(m_root->HasChild(L"other"));
    EXPECT_FALSE(m_root->HasChild(nullptr));
    Open(ReadMode);
    EXPECT_FALSE(m_root->HasChild(L"file"));
}

TEST_F(MSCompoundFolderTest, OnlyAChildOfTheFolderIsClosed)
{
    ICompoundFolder* const first = m_root->OpenFolder(L"first", MakeMode);
    ICompoundFolder* const second = m_root->OpenFolder(L"second", MakeMode);
    ICompoundFile* const file = first->OpenFile(L"a", MakeMode);
    EXPECT_FALSE(second->CloseFile(file));
    EXPECT_FALSE(second->CloseFolder(first));
    EXPECT_FALSE(m_root->CloseFile(nullptr));
    EXPECT_FALSE(m_root->CloseFolder(nullptr));
    EXPECT_EQ(file->GetOutputStream()->Write("open", 4), 4u);
    EXPECT_TRUE(first->CloseFile(file));
    EXPECT_TRUE(m_root->CloseFolder(first));
}

TEST_F(MSCompoundFolderTest, ChildrenKnowTheirParentAndName)
{
    ICompoundFolder* const folder = m_root->OpenFolder(L"Folder", MakeMode);
    ICompoundFile* const file = folder->OpenFile(L"File", MakeMode);
    EXPECT_EQ(folder->GetParent(), m_root);
    EXPECT_STREQ(folder->GetName(), L"Folder");
    EXPECT_EQ(file->GetParent(), folder);
    EXPECT_STREQ(file->GetName(), L"File");
}

TEST_F(MSCompoundFolderTest, StreamsAreThoseOfTheModeAndTheSameAtEachCall)
{
    ICompoundFile* const made = m_root->OpenFile(L"a", MakeMode);
    EXPECT_EQ(made->GetInputStream(), nullptr);
    ASSERT_NE(made->GetOutputStream(), nullptr);
    EXPECT_EQ(made->GetOutputStream(), made->GetOutputStream());
    Open(ReadMode);
    ICompoundFile* const read = m_root->OpenFile(L"a", ReadMode);
    EXPECT_EQ(read->GetOutputStream(), nullptr);
    ASSERT_NE(read->GetInputStream(), nullptr);
    EXPECT_EQ(read->GetInputStream(), read->GetInputStream());
}

TEST_F(MSCompoundFolderTest, FileOfAReadDocumentTakesNothingWhateverItsMode)
{
    ASSERT_TRUE(PutFile(m_root, L"a", "kept"));
    Open(ReadMode);
    ICompoundFile* const file = m_root->OpenFile(L"a", CompoundModeRead | CompoundModeWrite);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->GetOutputStream()->Write("x", 1), 0u);
    char contents[8] = {};
    EXPECT_EQ(file->GetInputStream()->Read(contents, 8), 4u);
    EXPECT_EQ(file->GetInputStream()->Read(contents, 8), 0u);
}

TEST_F(MSCompoundFolderTest, SizeIsThatOfTheContentsByNow)
{
    ICompoundFile* const file = m_root->OpenFile(L"a", MakeMode);
    std::uint32_t size = 7;
    EXPECT_EQ(file->GetSize(&size), 0);
    EXPECT_EQ(size, 0u);
    const std::string contents(5000, 'x');
    ASSERT_EQ(file->GetOutputStream()->Write(contents.data(), 5000), 5000u);
    EXPECT_EQ(file->GetSize(&size), 0);
    EXPECT_EQ(size, 5000u);
    EXPECT_EQ(file->GetSize(nullptr), -1);
    Open(ReadMode);
    EXPECT_EQ(m_root->OpenFile(L"a", ReadMode)->GetSize(&size), 0);
    EXPECT_EQ(size, 5000u);
}

TEST_F(MSCompoundFolderTest, ThousandsOfChildrenAreOpenAtOnce)
{
    for (int index = 0; index < 3000; ++index)
    {
        const std::wstring name = std::to_wstring(index);
        ASSERT_NE(m_root->OpenFile((L"file " + name).c_str(), MakeMode), nullptr);
        ASSERT_NE(m_root->OpenFolder((L"folder " + name).c_str(), MakeMode), nullptr);
    }
    Open(ReadMode);
    EXPECT_EQ(NamesIn(m_root).size(), 6000u);
}

} // namespace
