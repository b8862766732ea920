#include "Compound/CompoundPaths.h"

#include "Compound/CompoundDocument.h"
#include "tests/Compound/TestDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

class CompoundPathsTest : public testing::Test
{
protected:
    ICompoundFolder* Folder(const wchar_t* path) { return OpenFolderByPath(document.Root(), path, 10); }

    TestDocument document;
};

} // namespace

TEST_F(CompoundPathsTest, FullPathsBeginWithTheRoot)
{
    EXPECT_EQ(GetFullFolderPath(document.Root()), L"root:");
    ICompoundFolder* const inner = Folder(L"a/b");
    EXPECT_EQ(GetFullFolderPath(inner), L"root:/a/b");
    EXPECT_EQ(GetFullFilePath(inner->OpenFile(L"c.bas", 10)), L"root:/a/b/c.bas");
    EXPECT_EQ(GetFullFilePath(document.Root()->OpenFile(L"x", 10)), L"root:/x");
    EXPECT_EQ(GetFullFolderPath(nullptr), L"");
    EXPECT_EQ(GetFullFilePath(nullptr), L"");
}

TEST_F(CompoundPathsTest, ThePathOfAFileWithoutAParentIsItsName)
{
    class Orphan : public ICompoundFile
    {
    public:
        IInputStream* GetInputStream() override { return nullptr; }
        IOutputStream* GetOutputStream() override { return nullptr; }
        ICompoundFolder* GetParent() override { return nullptr; }
        const wchar_t* GetName() override { return L"alone"; }
        std::int32_t GetSize(std::uint32_t* /*size*/) override { return -1; }
    };
    Orphan file;
    EXPECT_EQ(GetFullFilePath(&file), L"alone");
    EXPECT_FALSE(CloseFileInParent(&file));
    EXPECT_FALSE(CloseFileInParent(nullptr));
}

TEST_F(CompoundPathsTest, ARelativePathIsWhatFollowsTheFolder)
{
    ICompoundFolder* const folder = Folder(L"a/b");
    EXPECT_EQ(GetRelativePath(folder, L"root:/a/b/c/d"), L"c/d");
    EXPECT_EQ(GetRelativePath(folder, L"ROOT:/A/B/C"), L"C");
    EXPECT_EQ(GetRelativePath(folder, L"root:/a/b"), L"");
    EXPECT_EQ(GetRelativePath(folder, L"root:/a/b/"), L"");
    EXPECT_EQ(GetRelativePath(folder, L"root:/a"), L"root:/a") << "shorter than the folder's path";
    EXPECT_EQ(GetRelativePath(folder, L"root:/x/b/c"), L"root:/x/b/c");
    EXPECT_EQ(GetRelativePath(folder, L"root:/a/bc/d"), L"/d") << "the place of the separator isn't looked at";
    EXPECT_EQ(GetRelativePath(folder, L"c/d"), L"c/d");
    EXPECT_EQ(GetRelativePath(document.Root(), L"root:/a/b"), L"a/b");
}

TEST_F(CompoundPathsTest, FoldersAndFilesAreOpenedByPath)
{
    ICompoundFolder* const folder = Folder(L"a/b");
    EXPECT_EQ(Folder(L"//a///b//"), folder) << "empty pieces don't count";
    EXPECT_EQ(Folder(L"root:/a/b"), folder) << "from the root by the full path";
    EXPECT_EQ(OpenFolderByPath(folder, L"root:/A/B/c", 10)->GetParent(), folder);
    ICompoundFile* const file = OpenFileByPath(document.Root(), L"/a/b/x.bas", 10);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->GetParent(), folder);
    EXPECT_STREQ(file->GetName(), L"x.bas");
}

TEST_F(CompoundPathsTest, AStepThatCantBeTakenGivesNull)
{
    ICompoundFile* const file = document.Root()->OpenFile(L"a", 10);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(Folder(L"a/b/c"), nullptr) << "a is an open file";
    EXPECT_EQ(OpenFileByPath(document.Root(), L"a/b", 10), nullptr);
    EXPECT_EQ(OpenFileByPath(document.Root(), L"c/b", 4), nullptr) << "no bit in common with the folder's mode";
    EXPECT_EQ(OpenFolderByPath(nullptr, L"a", 10), nullptr);
    EXPECT_EQ(OpenFolderByPath(document.Root(), nullptr, 10), nullptr);
    EXPECT_EQ(OpenFileByPath(nullptr, L"a", 10), nullptr);
    EXPECT_EQ(OpenFileByPath(document.Root(), nullptr, 10), nullptr);
}

TEST_F(CompoundPathsTest, APathWithoutPiecesIsTheFolderItselfAndNoFile)
{
    EXPECT_EQ(Folder(L""), document.Root());
    EXPECT_EQ(Folder(L"root:"), document.Root());
    EXPECT_EQ(OpenFileByPath(document.Root(), L"", 10), nullptr);
    EXPECT_EQ(OpenFileByPath(document.Root(), L"//", 10), nullptr);
}

TEST_F(CompoundPathsTest, JoiningNamesPutsADashAndNoSlashBetweenThem)
{
    EXPECT_EQ(JoinCompoundName(L"rule", L"help"), L"rule-help");
    EXPECT_EQ(JoinCompoundName(L"", L"help"), L"-help");
    EXPECT_EQ(JoinCompoundName(nullptr, L"help"), L"help");
}

TEST_F(CompoundPathsTest, AFileIsClosedThroughItsParent)
{
    ICompoundFile* const file = OpenFileByPath(document.Root(), L"a/b", 10);
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(CloseFileInParent(file));
}

TEST(SplitCompoundPathTest, EmptyPiecesAreDropped)
{
    using Pieces = std::vector<std::wstring_view>;
    EXPECT_EQ(SplitCompoundPath(L"a/b"), (Pieces{ L"a", L"b" }));
    EXPECT_EQ(SplitCompoundPath(L"//a///b/"), (Pieces{ L"a", L"b" }));
    EXPECT_EQ(SplitCompoundPath(L"a"), Pieces{ L"a" });
    EXPECT_EQ(SplitCompoundPath(L""), Pieces{});
    EXPECT_EQ(SplitCompoundPath(L"///"), Pieces{});
    EXPECT_EQ(SplitCompoundPath(L"a\\b"), Pieces{ L"a\\b" }) << "only one character separates";
}
