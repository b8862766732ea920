#pragma once

#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>

/// A file with contents in a folder of its own, and what is seen of it from outside.
class OldFileFixture : public testing::Test
{
protected:
    OldFileFixture() { WriteBytes(m_path, "the old contents"); }

    std::size_t CountEntries() const
    {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(Platform::NativePath(m_folder.Path())),
                          std::filesystem::directory_iterator()));
    }

    ino_t Inode() const
    {
        struct stat status = {};
        EXPECT_EQ(::stat(m_native.c_str(), &status), 0);
        return status.st_ino;
    }

    ::TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"rules.vrf");
    std::string m_native = Platform::NativePath(m_path).native();
};
