#include "Utilities/FolderFunctions.h"

#include "Platform/Files.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

using std::filesystem::perms;

TEST(RemoveFolderTreeTest, WhatCannotBeDeletedIsPassedOverAndItsFolderStays)
{
    const TemporaryFolder folder;
    const std::wstring tree = folder.File(L"tree");
    const std::wstring guarded = tree + Platform::PathSeparator + L"guarded";
    const std::wstring kept = guarded + Platform::PathSeparator + L"kept";
    const std::wstring other = tree + Platform::PathSeparator + L"other";
    ASSERT_TRUE(Platform::MakeFolderTree(guarded));
    WriteBytes(kept, "1");
    WriteBytes(other, "2");
    std::filesystem::permissions(Platform::NativePath(folder.Path()), perms::all);
    std::filesystem::permissions(Platform::NativePath(tree), perms::all);
    std::filesystem::permissions(Platform::NativePath(guarded),
                                 perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec);
    EXPECT_TRUE(RunWithoutPrivileges(
        [&tree]
        {
            RemoveFolderTree(tree);
            return true;
        }));
    EXPECT_EQ(ReadBytes(kept), "1");
    EXPECT_TRUE(Platform::FolderExists(tree));
    EXPECT_FALSE(Platform::PathExists(other));
    std::filesystem::permissions(Platform::NativePath(guarded), perms::owner_all);
}
