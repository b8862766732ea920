#include "Platform/Files.h"

#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

using namespace Platform;

namespace
{

std::size_t CountEntries(const std::wstring& folder)
{
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(NativePath(folder)))
    {
        ++count;
    }
    return count;
}

TEST(PathTest, NameStandsBehindTheLastSeparator)
{
    const std::wstring separator(1, PathSeparator);
    EXPECT_EQ(FileNamePart(separator + L"a" + separator + L"b.vrf"), L"b.vrf");
    EXPECT_EQ(FileNamePart(L"b.vrf"), L"b.vrf");
    EXPECT_EQ(FileNamePart(L"a" + separator), L"");
    EXPECT_EQ(FileNamePart(L""), L"");
}

TEST(PathTest, FolderStandsBeforeTheLastSeparator)
{
    const std::wstring separator(1, PathSeparator);
    EXPECT_EQ(FolderPart(separator + L"a" + separator + L"b.vrf"), separator + L"a");
    EXPECT_EQ(FolderPart(L"b.vrf"), L"");
    EXPECT_EQ(FolderPart(separator + L"b"), L"");
}

TEST(PathTest, AbsolutePathStaysAsItIs)
{
    const ::TemporaryFolder folder;
    EXPECT_EQ(AbsolutePath(folder.File(L"x.vrf")), folder.File(L"x.vrf"));
    EXPECT_TRUE(IsAbsolutePath(folder.Path()));
    EXPECT_EQ(AbsolutePath(L""), L"");
    EXPECT_FALSE(IsAbsolutePath(L""));
    EXPECT_FALSE(IsAbsolutePath(L"a.vrf"));
}

TEST(PathTest, RelativePathIsTakenFromTheCurrentFolder)
{
    const ::TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(NativePath(folder.Path()));
    EXPECT_EQ(AbsolutePath(L"x.vrf"), folder.File(L"x.vrf"));
    std::filesystem::current_path(before);
}

TEST(FilesTest, TellsFilesFromFolders)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    EXPECT_TRUE(PathExists(folder.Path()));
    EXPECT_TRUE(FolderExists(folder.Path()));
    EXPECT_FALSE(FileExists(folder.Path()));
    EXPECT_TRUE(PathExists(folder.File(L"a")));
    EXPECT_FALSE(FolderExists(folder.File(L"a")));
    EXPECT_TRUE(FileExists(folder.File(L"a")));
    EXPECT_FALSE(PathExists(folder.File(L"b")));
    EXPECT_FALSE(FileExists(folder.File(L"b")));
    EXPECT_FALSE(PathExists(L""));
}

TEST(FilesTest, MakesFoldersAndAcceptsThoseThatAreThere)
{
    const ::TemporaryFolder folder;
    const std::wstring deep = folder.File(L"a") + PathSeparator + L"b" + PathSeparator + L"c";
    EXPECT_FALSE(MakeFolder(deep));
    EXPECT_TRUE(MakeFolderTree(deep));
    EXPECT_TRUE(FolderExists(deep));
    EXPECT_TRUE(MakeFolderTree(deep + PathSeparator));
    EXPECT_TRUE(MakeFolder(deep));
}

TEST(FilesTest, FileInTheWayOfAFolderFails)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    EXPECT_FALSE(MakeFolder(folder.File(L"a")));
    EXPECT_FALSE(MakeFolderTree(folder.File(L"a") + PathSeparator + L"b"));
    EXPECT_EQ(ReadBytes(folder.File(L"a")), "1");
}

TEST(FilesTest, DeletedMeansGoneAfterwards)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    EXPECT_TRUE(DeleteFileAt(folder.File(L"a")));
    EXPECT_FALSE(PathExists(folder.File(L"a")));
    EXPECT_TRUE(DeleteFileAt(folder.File(L"a")));
    EXPECT_FALSE(DeleteFileAt(folder.Path()));
}

TEST(FilesTest, NamesInAFolderAreThoseOfFilesAndFolders)
{
    const ::TemporaryFolder folder;
    ASSERT_TRUE(NamesInFolder(folder.Path()));
    EXPECT_TRUE(NamesInFolder(folder.Path())->empty());
    WriteBytes(folder.File(L".hidden"), "");
    WriteBytes(folder.File(L"\u00c4\u65e5 b.vrf"), "");
    EXPECT_TRUE(MakeFolder(folder.File(L"inner")));
    auto names = NamesInFolder(folder.Path());
    ASSERT_TRUE(names);
    std::sort(names->begin(), names->end());
    EXPECT_EQ(*names, (std::vector<std::wstring>{ L".hidden", L"inner", L"\u00c4\u65e5 b.vrf" }));
    EXPECT_FALSE(NamesInFolder(folder.File(L"missing")));
    EXPECT_FALSE(NamesInFolder(folder.File(L".hidden")));
}

TEST(FilesTest, ResolvedPathIsTheSameForEveryWayToAFile)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a.vrf"), "");
    const std::wstring path = ResolvedPath(folder.File(L"a.vrf"));
    EXPECT_EQ(FileNamePart(path), L"a.vrf");
    EXPECT_TRUE(IsAbsolutePath(path));
    std::filesystem::create_symlink("a.vrf", NativePath(folder.File(L"link.vrf")));
    EXPECT_EQ(ResolvedPath(folder.File(L"link.vrf")), path);
    const std::wstring separator(1, PathSeparator);
    EXPECT_EQ(ResolvedPath(folder.Path() + separator + L"." + separator + L"a.vrf"), path);
    EXPECT_EQ(ResolvedPath(folder.File(L"missing")), folder.File(L"missing"));
    EXPECT_EQ(ResolvedPath(L""), L"");
}

TEST(FilesTest, ContentsAreTheSameIfEveryByteIs)
{
    const ::TemporaryFolder folder;
    std::string bytes(600'000, 'x');
    WriteBytes(folder.File(L"a"), bytes);
    WriteBytes(folder.File(L"b"), bytes);
    EXPECT_TRUE(HaveSameContents(folder.File(L"a"), folder.File(L"b")));
    EXPECT_TRUE(HaveSameContents(folder.File(L"a"), folder.File(L"a")));
    bytes.back() = 'y';
    WriteBytes(folder.File(L"b"), bytes);
    EXPECT_FALSE(HaveSameContents(folder.File(L"a"), folder.File(L"b")));
    bytes.pop_back();
    WriteBytes(folder.File(L"b"), bytes);
    EXPECT_FALSE(HaveSameContents(folder.File(L"a"), folder.File(L"b")));
    EXPECT_FALSE(HaveSameContents(folder.File(L"a"), folder.File(L"missing")));
    EXPECT_FALSE(HaveSameContents(folder.Path(), folder.Path()));
}

TEST(FilesTest, TemporaryFolderEndsInASeparator)
{
    const std::wstring folder = Platform::TemporaryFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_EQ(folder.back(), PathSeparator);
    EXPECT_TRUE(FolderExists(folder));
}

TEST(ReadWholeFileTest, GivesTheBytesAsTheyAre)
{
    const ::TemporaryFolder folder;
    std::string bytes(200'000, 'x');
    bytes[5] = '\0';
    bytes[6] = '\r';
    WriteBytes(folder.File(L"a"), bytes);
    const auto read = ReadWholeFile(folder.File(L"a"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->View(), bytes);
}

TEST(ReadWholeFileTest, EmptyFileIsNotAFailure)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "");
    const auto read = ReadWholeFile(folder.File(L"a"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Size(), 0u);
}

TEST(ReadWholeFileTest, FolderOrMissingFileGivesNothing)
{
    const ::TemporaryFolder folder;
    EXPECT_FALSE(ReadWholeFile(folder.Path()));
    EXPECT_FALSE(ReadWholeFile(folder.File(L"a")));
    EXPECT_FALSE(ReadWholeFile(L""));
}

TEST(ReadWholeFileTest, PathWithATerminatorInItNamesNoFile)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    EXPECT_FALSE(ReadWholeFile(folder.File(std::wstring(L"a\0b", 3))));
}

TEST(FileBytesTest, DetachedStorageIsTheCallers)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "text");
    auto read = ReadWholeFile(folder.File(L"a"));
    ASSERT_TRUE(read);
    FileBytes moved = std::move(*read);
    EXPECT_EQ(moved.View(), "text");
    void* storage = moved.Detach();
    EXPECT_EQ(moved.Size(), 0u);
    EXPECT_EQ(moved.Detach(), nullptr);
    std::free(storage);
}

TEST(ReplaceFileTest, MakesAFileThatIsMissing)
{
    const ::TemporaryFolder folder;
    EXPECT_TRUE(SaveFileWhole(folder.File(L"a"), "new"));
    EXPECT_EQ(ReadBytes(folder.File(L"a")), "new");
    EXPECT_EQ(CountEntries(folder.Path()), 1u);
}

TEST(ReplaceFileTest, ReplacesLongerByShorterAndLeavesNothingBeside)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "a much longer text");
    EXPECT_TRUE(SaveFileWhole(folder.File(L"a"), "new"));
    EXPECT_EQ(ReadBytes(folder.File(L"a")), "new");
    EXPECT_TRUE(SaveFileWhole(folder.File(L"a"), ""));
    EXPECT_EQ(ReadBytes(folder.File(L"a")), "");
    EXPECT_EQ(CountEntries(folder.Path()), 1u);
}

TEST(ReplaceFileTest, FolderCantBeReplaced)
{
    const ::TemporaryFolder folder;
    ASSERT_TRUE(MakeFolder(folder.File(L"a")));
    EXPECT_FALSE(SaveFileWhole(folder.File(L"a"), "new"));
    EXPECT_TRUE(FolderExists(folder.File(L"a")));
    EXPECT_EQ(CountEntries(folder.Path()), 1u);
}

TEST(ReplaceFileTest, MissingFolderIsNotMade)
{
    const ::TemporaryFolder folder;
    EXPECT_FALSE(SaveFileWhole(folder.File(L"none") + PathSeparator + L"a", "new"));
    EXPECT_FALSE(PathExists(folder.File(L"none")));
    EXPECT_FALSE(SaveFileWhole(L"", "new"));
}

TEST(ReplaceFileTest, NameBeyondAsciiIsTheRightFile)
{
    const ::TemporaryFolder folder;
    const std::wstring path = folder.File(L"R\u00E8gle \u65E5\u672C.vrf");
    EXPECT_TRUE(SaveFileWhole(path, "new"));
    const auto read = ReadWholeFile(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->View(), "new");
    EXPECT_TRUE(DeleteFileAt(path));
    EXPECT_EQ(CountEntries(folder.Path()), 0u);
}

} // namespace
