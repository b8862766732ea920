#include "tests/Platform/Posix/FaultyOperations.h"
#include "tests/Platform/Posix/OldFileFixture.h"
#include "tests/Platform/Posix/TestProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

/// What is at the path beside contents: owner and permissions, links, pipes and devices.
class ReplacedFileKindTest : public OldFileFixture
{
};

TEST_F(ReplacedFileKindTest, FileThatCantKeepItsOwnerIsWrittenInPlace)
{
    if (::geteuid() != 0)
    {
        GTEST_SKIP() << "only the administrator can make another's file";
    }
    ASSERT_EQ(::chown(m_native.c_str(), 12345, 12345), 0);
    const ino_t before = Inode();
    FaultyOperations operations(FaultyOperations::Call::ChangeOwner, 1, EPERM);
    EXPECT_TRUE(ReplaceFileWith(operations, m_native, "new and whole"));
    EXPECT_TRUE(operations.HasFailed());
    EXPECT_EQ(ReadBytes(m_path), "new and whole");
    EXPECT_EQ(Inode(), before);
    EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(ReplacedFileKindTest, OwnerIsKept)
{
    if (::geteuid() != 0)
    {
        GTEST_SKIP() << "only the administrator can make another's file";
    }
    ASSERT_EQ(::chown(m_native.c_str(), 12345, 23456), 0);
    EXPECT_TRUE(SaveFileWhole(m_path, "new"));
    struct stat status = {};
    ASSERT_EQ(::stat(m_native.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345u);
    EXPECT_EQ(status.st_gid, 23456u);
}

TEST_F(ReplacedFileKindTest, PermissionsAreKept)
{
    for (const mode_t mode : { 0600, 0640, 0666, 0755 })
    {
        ASSERT_EQ(::chmod(m_native.c_str(), mode), 0);
        EXPECT_TRUE(SaveFileWhole(m_path, "new"));
        struct stat status = {};
        ASSERT_EQ(::stat(m_native.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode);
    }
}

TEST_F(ReplacedFileKindTest, TheListOfFurtherUsersIsKept)
{
    // The version, then tag, permissions and number of each entry: the owner, user 1234, the
    // owning group, the mask and everybody else.
    constexpr std::uint32_t Nobody = 0xFFFFFFFF;
    constexpr std::array<std::uint32_t, 11> List = { 2,      6U << 16 | 0x01, Nobody, 4U << 16 | 0x02,
                                                     1234,   0U << 16 | 0x04, Nobody, 4U << 16 | 0x10,
                                                     Nobody, 0U << 16 | 0x20, Nobody };
    constexpr const char* Name = "system.posix_acl_access";
    if (::setxattr(m_native.c_str(), Name, List.data(), sizeof List, 0) != 0)
    {
        GTEST_SKIP() << "the file system has no such lists";
    }
    EXPECT_TRUE(SaveFileWhole(m_path, "new and whole"));
    EXPECT_EQ(ReadBytes(m_path), "new and whole");
    std::array<std::uint32_t, 12> kept = {};
    EXPECT_EQ(::getxattr(m_native.c_str(), Name, kept.data(), sizeof kept), static_cast<ssize_t>(sizeof List));
    EXPECT_TRUE(std::equal(List.begin(), List.end(), kept.begin()));
}

TEST_F(ReplacedFileKindTest, NewFileHasThePermissionsOfAPlainWriter)
{
    const mode_t before = ::umask(027);
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"new.vrf"), "x"));
    ::umask(before);
    struct stat status = {};
    ASSERT_EQ(::stat(NativePath(m_folder.File(L"new.vrf")).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_F(ReplacedFileKindTest, LinksAreFollowedAndStay)
{
    std::filesystem::create_directory(NativePath(m_folder.File(L"links")));
    const std::wstring direct = m_folder.File(L"links/direct.vrf");
    const std::wstring twice = m_folder.File(L"links/twice.vrf");
    std::filesystem::create_symlink("../rules.vrf", NativePath(direct));
    std::filesystem::create_symlink(NativePath(direct), NativePath(twice));
    EXPECT_TRUE(SaveFileWhole(twice, "through two links"));
    EXPECT_EQ(ReadBytes(m_path), "through two links");
    EXPECT_TRUE(std::filesystem::is_symlink(NativePath(twice)));
    EXPECT_TRUE(std::filesystem::is_symlink(NativePath(direct)));
}

TEST_F(ReplacedFileKindTest, LinkToNothingYetMakesItsTarget)
{
    std::filesystem::create_symlink("later.vrf", NativePath(m_folder.File(L"link")));
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"link"), "x"));
    EXPECT_EQ(ReadBytes(m_folder.File(L"later.vrf")), "x");
    EXPECT_TRUE(std::filesystem::is_symlink(NativePath(m_folder.File(L"link"))));
}

TEST_F(ReplacedFileKindTest, LinksInACircleFail)
{
    std::filesystem::create_symlink("two", NativePath(m_folder.File(L"one")));
    std::filesystem::create_symlink("one", NativePath(m_folder.File(L"two")));
    EXPECT_FALSE(SaveFileWhole(m_folder.File(L"one"), "x"));
    EXPECT_EQ(CountEntries(), 3u);
}

TEST_F(ReplacedFileKindTest, DeviceIsWrittenInPlace)
{
    std::filesystem::create_symlink("/dev/null", NativePath(m_folder.File(L"null")));
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"null"), "x"));
    struct stat status = {};
    ASSERT_EQ(::stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST_F(ReplacedFileKindTest, PipeIsWrittenToItsReader)
{
    const std::string pipe = NativePath(m_folder.File(L"pipe")).native();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"pipe"), "through"));
    char read[16] = {};
    EXPECT_EQ(::read(reader, read, sizeof(read)), 7);
    EXPECT_STREQ(read, "through");
    ::close(reader);
}

TEST_F(ReplacedFileKindTest, PipeWithoutAReaderFailsAndDoesNotBlock)
{
    const std::string pipe = NativePath(m_folder.File(L"pipe")).native();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(SaveFileWhole(m_folder.File(L"pipe"), "x"));
    EXPECT_FALSE(ReadWholeFile(m_folder.File(L"pipe")));
}

TEST_F(ReplacedFileKindTest, ReaderThatLeavesAPipeDoesNotEndTheProcess)
{
    struct LeavingReader : FileOperations
    {
        int reader = -1;
        ssize_t Write(int file, const void* data, std::size_t size) override
        {
            ::close(std::exchange(reader, -1));
            return FileOperations::Write(file, data, size);
        }
    };
    const std::string pipe = NativePath(m_folder.File(L"pipe")).native();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    LeavingReader operations;
    operations.reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(ReplaceFileWith(operations, pipe, "x"));
    sigset_t pending;
    ASSERT_EQ(::sigpending(&pending), 0);
    EXPECT_EQ(::sigismember(&pending, SIGPIPE), 0);
}

TEST_F(ReplacedFileKindTest, FileThatMayNotBeWrittenFailsThoughItsFolderMay)
{
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0777), 0);
    ASSERT_EQ(::chmod(m_native.c_str(), 0444), 0);
    if (::geteuid() == 0)
    {
        // The one who tries owns the file, so that only its permissions are in the way.
        ASSERT_EQ(::chown(m_native.c_str(), UserWithoutPrivileges, UserWithoutPrivileges), 0);
    }
    EXPECT_TRUE(RunWithoutPrivileges([this] { return !SaveFileWhole(m_path, "x") && CountEntries() == 1; }));
    EXPECT_EQ(ReadBytes(m_path), "the old contents");
}

TEST_F(ReplacedFileKindTest, WritableFileInAFolderThatMayNotBeWrittenIsWrittenInPlace)
{
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0555), 0);
    ASSERT_EQ(::chmod(m_native.c_str(), 0666), 0);
    EXPECT_TRUE(RunWithoutPrivileges([this] { return SaveFileWhole(m_path, "short"); }));
    EXPECT_TRUE(RunWithoutPrivileges([this] { return !SaveFileWhole(m_folder.File(L"new.vrf"), "x"); }));
    EXPECT_EQ(ReadBytes(m_path), "short");
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0755), 0);
    EXPECT_EQ(CountEntries(), 1u);
}

} // namespace
