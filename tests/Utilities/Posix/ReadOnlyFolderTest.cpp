#include "Utilities/FolderFunctions.h"

#include "Platform/Files.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using std::filesystem::perms;

TEST(ReadOnlyFolderTest, AFolderThatMayOnlyBeReadIsNotWritable)
{
    const TemporaryFolder folder;
    const std::wstring readOnly = folder.File(L"read only");
    ASSERT_TRUE(Platform::MakeFolder(readOnly));
    std::filesystem::permissions(Platform::NativePath(folder.Path()), perms::all);
    const auto check = [&readOnly](perms mode)
    {
        std::filesystem::permissions(Platform::NativePath(readOnly), mode);
        const auto is = [&readOnly](FolderCheck result)
        { return RunWithoutPrivileges([&] { return CheckFolderPath(readOnly) == result; }); };
        return is(FolderUsable) ? FolderUsable : is(FolderNotWritable) ? FolderNotWritable : FolderPathInvalid;
    };
    const perms mayRead = perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec;
    EXPECT_EQ(check(mayRead), FolderNotWritable);
    EXPECT_EQ(check(perms::all), FolderUsable);
}
