#include "Utilities/FolderFunctions.h"

#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

const std::wstring Separator(1, Platform::PathSeparator);

// A folder in which nobody, the administrator included, can make a file.
constexpr const wchar_t* NotWritable = L"/proc/self";

bool IsFull(std::wstring_view path)
{
    return IsWellFormedFolder(FolderToCheck(std::wstring(path), Platform::DrivePaths), Platform::DrivePaths);
}

} // namespace

TEST(FolderFunctionsTest, ForwardSlashesAndAFinalDotMeanTheFolderWithBackslashesAndWithoutTheDot)
{
    EXPECT_EQ(FolderToCheck(L"D:/Rules/", Platform::DrivePaths), L"D:\\Rules\\");
    EXPECT_EQ(FolderToCheck(L"D:\\Rules.", Platform::DrivePaths), L"D:\\Rules\\");
    EXPECT_EQ(FolderToCheck(L"D:/Rules/.", Platform::DrivePaths), L"D:\\Rules\\");
    EXPECT_EQ(FolderToCheck(L"D:/Ru.les", Platform::DrivePaths), L"D:\\Ru.les\\");
    EXPECT_EQ(FolderToCheck(L"/srv/rules/.", Platform::RootPaths), L"/srv/rules/");
    EXPECT_EQ(FolderToCheck(L"/srv/back\\slash", Platform::RootPaths), L"/srv/back\\slash/");
}

TEST(FolderFunctionsTest, OnlyOneDotIsCutOff)
{
    EXPECT_EQ(FolderToCheck(L"D:\\Rules..", Platform::DrivePaths), L"D:\\Rules.\\");
}

TEST(FolderFunctionsTest, ADriveLetterWithAColonGainsItsSeparator)
{
    EXPECT_EQ(FolderToCheck(L"d:", Platform::DrivePaths), L"d:\\");
    EXPECT_TRUE(IsFull(L"d:"));
}

TEST(FolderFunctionsTest, ADriveFormIsALetterAColonAndASeparator)
{
    EXPECT_TRUE(IsFull(L"D:\\Rules"));
    EXPECT_TRUE(IsFull(L"z:\\"));
    EXPECT_FALSE(IsFull(L"1:\\Rules"));
    EXPECT_FALSE(IsFull(L"D:Rules"));
    EXPECT_FALSE(IsFull(L"DD:\\Rules"));
    EXPECT_FALSE(IsFull(L"\\Rules"));
    EXPECT_FALSE(IsFull(L"Rules"));
    EXPECT_FALSE(IsFull(L"\u00C4:\\Rules"));
}

TEST(FolderFunctionsTest, ANetworkFormNeedsAServerAndAShare)
{
    EXPECT_TRUE(IsFull(L"\\\\server\\share")) << "the separator at its end comes first";
    EXPECT_TRUE(IsFull(L"//server/share/rules"));
    EXPECT_FALSE(IsFull(L"\\\\server"));
    EXPECT_FALSE(IsFull(L"\\\\server\\"));
    EXPECT_FALSE(IsFull(L"\\\\server\\\\"));
    EXPECT_FALSE(IsFull(L"\\\\\\share\\"));
    EXPECT_FALSE(IsFull(L"\\\\"));
}

TEST(FolderFunctionsTest, WithoutDrivesAFullPathBeginsWithTheRoot)
{
    EXPECT_TRUE(IsWellFormedFolder(L"/srv/", Platform::RootPaths));
    EXPECT_TRUE(IsWellFormedFolder(L"/", Platform::RootPaths));
    EXPECT_FALSE(IsWellFormedFolder(L"srv/", Platform::RootPaths));
    EXPECT_FALSE(IsWellFormedFolder(L"", Platform::RootPaths));
    EXPECT_FALSE(IsWellFormedFolder(L"D:\\Rules\\", Platform::RootPaths));
}

TEST(FolderFunctionsTest, AnEmptyTextOrOneThatIsNoFullPathIsInvalid)
{
    EXPECT_EQ(CheckFolderPath(L""), FolderPathInvalid);
    EXPECT_EQ(CheckFolderPath(L"."), FolderPathInvalid);
    EXPECT_EQ(CheckFolderPath(L"rules"), FolderPathInvalid);
}

TEST(FolderFunctionsTest, AFolderThatCanBeWrittenToIsUsableAndNothingStaysInIt)
{
    const TemporaryFolder folder;
    EXPECT_EQ(CheckFolderPath(folder.Path()), FolderUsable);
    EXPECT_EQ(CheckFolderPath(folder.Path() + Separator), FolderUsable);
    EXPECT_EQ(CheckFolderPath(folder.Path() + L"."), FolderUsable);
    EXPECT_TRUE(std::filesystem::is_empty(Platform::NativePath(folder.Path())));
}

TEST(FolderFunctionsTest, AFolderMayHaveAnyLettersInItsName)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"R\u00E8gles \u898F\u5247");
    ASSERT_TRUE(Platform::MakeFolder(path));
    EXPECT_EQ(CheckFolderPath(path), FolderUsable);
}

TEST(FolderFunctionsTest, AFolderThatIsNotThereIsMissing)
{
    const TemporaryFolder folder;
    EXPECT_EQ(CheckFolderPath(folder.File(L"none")), FolderMissing);
    WriteBytes(folder.File(L"file"), "");
    EXPECT_EQ(CheckFolderPath(folder.File(L"file")), FolderMissing) << "a file is no folder";
    EXPECT_EQ(CheckFolderPath(folder.File(std::wstring(400, L'x'))), FolderMissing);
}

TEST(FolderFunctionsTest, AFolderInWhichNoFileCanBeMadeIsNotWritable)
{
    EXPECT_EQ(CheckFolderPath(NotWritable), FolderNotWritable);
}

TEST(FolderFunctionsTest, AUsersFileOfTheTrialFilesNameIsLeftAsItIs)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"_t.txt"), "mine");
    EXPECT_EQ(CheckFolderPath(folder.Path()), FolderUsable);
    EXPECT_EQ(ReadBytes(folder.File(L"_t.txt")), "mine");
}

TEST(FolderFunctionsTest, AFolderTreeGoesWithAllThatIsInIt)
{
    const TemporaryFolder folder;
    const std::wstring tree = folder.File(L"tree");
    ASSERT_TRUE(Platform::MakeFolderTree(tree + Separator + L"a" + Separator + L"b"));
    WriteBytes(tree + Separator + L".hidden", "1");
    WriteBytes(tree + Separator + L"a" + Separator + L"b" + Separator + L"file.txt", "2");
    WriteBytes(folder.File(L"beside"), "3");
    RemoveFolderTree(tree + Separator);
    EXPECT_FALSE(Platform::PathExists(tree));
    EXPECT_TRUE(Platform::PathExists(folder.File(L"beside")));
}

TEST(FolderFunctionsTest, LinksInAFolderTreeGoButNotWhatTheyLeadTo)
{
    const TemporaryFolder folder;
    const std::wstring tree = folder.File(L"tree");
    const std::wstring kept = folder.File(L"kept");
    ASSERT_TRUE(Platform::MakeFolder(tree));
    ASSERT_TRUE(Platform::MakeFolder(kept));
    WriteBytes(kept + Separator + L"file.txt", "kept");
    std::filesystem::create_directory_symlink(Platform::NativePath(kept),
                                              Platform::NativePath(tree + Separator + L"link"));
    RemoveFolderTree(tree);
    EXPECT_FALSE(Platform::PathExists(tree));
    EXPECT_EQ(ReadBytes(kept + Separator + L"file.txt"), "kept");
}

TEST(FolderFunctionsTest, ALinkInTheFoldersPlaceIsLeftAlone)
{
    const TemporaryFolder folder;
    const std::wstring kept = folder.File(L"kept");
    ASSERT_TRUE(Platform::MakeFolder(kept));
    WriteBytes(kept + Separator + L"file.txt", "kept");
    std::filesystem::create_directory_symlink(Platform::NativePath(kept), Platform::NativePath(folder.File(L"link")));
    RemoveFolderTree(folder.File(L"link") + Separator);
    EXPECT_EQ(ReadBytes(kept + Separator + L"file.txt"), "kept");
}

TEST(FolderFunctionsTest, RemovingAMissingFolderHasNoEffect)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"file"), "1");
    RemoveFolderTree(folder.File(L"none"));
    RemoveFolderTree(L"");
    RemoveFolderTree(folder.File(L"file"));
    EXPECT_EQ(ReadBytes(folder.File(L"file")), "1");
}
