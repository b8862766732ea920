#include "Platform/Files.h"

#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Platform;

namespace
{

TEST(PosixPathTest, AbsolutePathIsTidied)
{
    const ::TemporaryFolder folder;
    ASSERT_TRUE(MakeFolder(folder.File(L"real")));
    EXPECT_EQ(AbsolutePath(folder.Path() + L"//./real/../x.vrf"), folder.File(L"x.vrf"));
    EXPECT_EQ(AbsolutePath(folder.File(L".hidden")), folder.File(L".hidden"));
    EXPECT_EQ(AbsolutePath(L"/../.."), L"/");
    EXPECT_EQ(AbsolutePath(L"/"), L"/");
}

TEST(PosixPathTest, ParentOfALinkIsLeftToTheSystem)
{
    const ::TemporaryFolder folder;
    std::filesystem::create_directory_symlink("/", NativePath(folder.File(L"link")));
    EXPECT_EQ(AbsolutePath(folder.File(L"link/../x")), folder.File(L"link/../x"));
    EXPECT_EQ(AbsolutePath(folder.File(L"missing/../x")), folder.File(L"missing/../x"));
    EXPECT_EQ(AbsolutePath(folder.File(L"link/./x")), folder.File(L"link/x"));
}

TEST(PosixFilesTest, UnreadableFileCantBeOpened)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    ASSERT_EQ(::chmod(NativePath(folder.Path()).c_str(), 0755), 0);
    ASSERT_EQ(::chmod(NativePath(folder.File(L"a")).c_str(), 0), 0);
    EXPECT_TRUE(RunWithoutPrivileges(
        [&folder]
        {
            const std::wstring path = folder.File(L"a");
            return PathExists(path) && !FileExists(path) && !ReadWholeFile(path);
        }));
}

TEST(PosixFilesTest, DeletingALinkLeavesItsTarget)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    std::filesystem::create_symlink("a", NativePath(folder.File(L"link")));
    EXPECT_TRUE(DeleteFileAt(folder.File(L"link")));
    EXPECT_EQ(ReadBytes(folder.File(L"a")), "1");
}

TEST(PosixFilesTest, FileThatMayNotBeDeletedIsNotGone)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "1");
    ASSERT_EQ(::chmod(NativePath(folder.Path()).c_str(), 0555), 0);
    EXPECT_TRUE(RunWithoutPrivileges([&folder] { return !DeleteFileAt(folder.File(L"a")); }));
    ASSERT_EQ(::chmod(NativePath(folder.Path()).c_str(), 0755), 0);
    EXPECT_TRUE(PathExists(folder.File(L"a")));
}

TEST(PosixFilesTest, TemporaryFolderComesFromItsVariable)
{
    const ::TemporaryFolder folder;
    const ScopedVariable variable("TMPDIR", folder.Path());
    EXPECT_EQ(Platform::TemporaryFolder(), folder.Path() + L"/");
    const ScopedVariable withSeparator("TMPDIR", folder.Path() + L"/");
    EXPECT_EQ(Platform::TemporaryFolder(), folder.Path() + L"/");
}

TEST(PosixFilesTest, TemporaryFolderThatIsNoneIsPassedOver)
{
    const ScopedVariable missing("TMPDIR", L"/no/such/folder");
    EXPECT_EQ(Platform::TemporaryFolder(), L"/tmp/");
    const ScopedVariable relative("TMPDIR", L"tmp");
    EXPECT_EQ(Platform::TemporaryFolder(), L"/tmp/");
    const ScopedVariable unset("TMPDIR", std::nullopt);
    EXPECT_EQ(Platform::TemporaryFolder(), L"/tmp/");
}

} // namespace
