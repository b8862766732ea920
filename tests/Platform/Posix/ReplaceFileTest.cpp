#include "Platform/Files.h"
#include "Platform/Posix/FileOperations.h"
#include "tests/Platform/Posix/FaultyOperations.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <span>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

using Call = FaultyOperations::Call;

class ReplaceFileFaultTest : public testing::Test
{
protected:
    ReplaceFileFaultTest() { WriteBytes(m_path, "the old contents"); }

    bool Replace(FaultyOperations& operations) { return ReplaceFileWith(operations, m_native, "new and whole"); }

    std::size_t CountEntries() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(NativePath(m_folder.Path())),
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
    std::string m_native = NativePath(m_path).native();
};

struct Fault
{
    const char* name;
    Call call;
    int number;
    int error;
};

class ReplaceFileFailureTest : public ReplaceFileFaultTest, public testing::WithParamInterface<Fault>
{
};

TEST_P(ReplaceFileFailureTest, LeavesTheOldFileAndNothingBeside)
{
    FaultyOperations operations(GetParam().call, GetParam().number, GetParam().error);
    operations.mostAtOnce = 4;
    EXPECT_FALSE(Replace(operations));
    EXPECT_TRUE(operations.HasFailed());
    EXPECT_EQ(ReadBytes(m_path), "the old contents");
    EXPECT_EQ(CountEntries(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, ReplaceFileFailureTest,
    testing::Values(Fault{ "FullDiskAtOpening", Call::Open, 1, ENOSPC }, Fault{ "FirstWrite", Call::Write, 1, ENOSPC },
                    Fault{ "ThirdWrite", Call::Write, 3, ENOSPC }, Fault{ "BrokenDevice", Call::Write, 2, EIO },
                    Fault{ "Flush", Call::Sync, 1, EIO }, Fault{ "Closing", Call::Close, 1, EDQUOT },
                    Fault{ "Renaming", Call::Rename, 1, EIO }),
    [](const testing::TestParamInfo<Fault>& row) { return row.param.name; });

TEST_F(ReplaceFileFaultTest, FailureLeavesNoFileWhereNoneWas)
{
    FaultyOperations operations(Call::Write, 1, ENOSPC);
    EXPECT_FALSE(ReplaceFileWith(operations, NativePath(m_folder.File(L"new.vrf")).native(), "x"));
    EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(ReplaceFileFaultTest, InterruptedAndShortWritesAreContinued)
{
    FaultyOperations operations(Call::Write, 2, EINTR);
    operations.mostAtOnce = 3;
    EXPECT_TRUE(Replace(operations));
    EXPECT_TRUE(operations.HasFailed());
    EXPECT_EQ(ReadBytes(m_path), "new and whole");
}

TEST_F(ReplaceFileFaultTest, FileAndFolderAreFlushedInOrder)
{
    FaultyOperations operations(Call::None, 1, 0);
    EXPECT_TRUE(Replace(operations));
    EXPECT_EQ(operations.Calls(), (std::vector<Call>{ Call::Open, Call::Write, Call::Sync, Call::Close, Call::Rename,
                                                      Call::Open, Call::Sync, Call::Close }));
}

TEST_F(ReplaceFileFaultTest, FailedFlushOfTheFolderIsNoFailure)
{
    FaultyOperations operations(Call::Sync, 2, EIO);
    EXPECT_TRUE(Replace(operations));
    EXPECT_TRUE(operations.HasFailed());
    EXPECT_EQ(ReadBytes(m_path), "new and whole");
}

TEST_F(ReplaceFileFaultTest, WritesInPlaceWhereNoFileCanBeMadeBeside)
{
    for (const int error : { EACCES, EPERM, EROFS })
    {
        WriteBytes(m_path, "the old contents");
        const ino_t before = Inode();
        FaultyOperations operations(Call::Open, 1, error);
        EXPECT_TRUE(Replace(operations));
        EXPECT_EQ(ReadBytes(m_path), "new and whole");
        EXPECT_EQ(Inode(), before);
        EXPECT_EQ(CountEntries(), 1u);
    }
}

TEST_F(ReplaceFileFaultTest, WritesInPlaceWhereTheFileMayNotBeTakenAway)
{
    for (const int error : { EACCES, EPERM, EBUSY })
    {
        WriteBytes(m_path, "the old contents");
        const ino_t before = Inode();
        FaultyOperations operations(Call::Rename, 1, error);
        EXPECT_TRUE(Replace(operations));
        EXPECT_EQ(ReadBytes(m_path), "new and whole");
        EXPECT_EQ(Inode(), before);
        EXPECT_EQ(CountEntries(), 1u);
    }
}

TEST_F(ReplaceFileFaultTest, FullDiskIsSeenBeforeTheOldContentsAreTouchedInPlace)
{
    struct FullDisk : FaultyOperations
    {
        FullDisk() : FaultyOperations(Call::Open, 1, EACCES) {}
        int Reserve(int, off_t) override
        {
            errno = ENOSPC;
            return -1;
        }
    };
    FullDisk operations;
    EXPECT_FALSE(Replace(operations));
    EXPECT_EQ(ReadBytes(m_path), "the old contents");
}

TEST_F(ReplaceFileFaultTest, FileThatCantKeepItsOwnerIsWrittenInPlace)
{
    if (::geteuid() != 0)
    {
        GTEST_SKIP() << "only the administrator can make another's file";
    }
    ASSERT_EQ(::chown(m_native.c_str(), 12345, 12345), 0);
    const ino_t before = Inode();
    FaultyOperations operations(Call::ChangeOwner, 1, EPERM);
    EXPECT_TRUE(Replace(operations));
    EXPECT_TRUE(operations.HasFailed());
    EXPECT_EQ(ReadBytes(m_path), "new and whole");
    EXPECT_EQ(Inode(), before);
    EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(ReplaceFileFaultTest, OwnerIsKept)
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

TEST_F(ReplaceFileFaultTest, PermissionsAreKept)
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

TEST_F(ReplaceFileFaultTest, TheListOfFurtherUsersIsKept)
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

TEST_F(ReplaceFileFaultTest, NewFileHasThePermissionsOfAPlainWriter)
{
    const mode_t before = ::umask(027);
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"new.vrf"), "x"));
    ::umask(before);
    struct stat status = {};
    ASSERT_EQ(::stat(NativePath(m_folder.File(L"new.vrf")).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_F(ReplaceFileFaultTest, LinksAreFollowedAndStay)
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

TEST_F(ReplaceFileFaultTest, LinkToNothingYetMakesItsTarget)
{
    std::filesystem::create_symlink("later.vrf", NativePath(m_folder.File(L"link")));
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"link"), "x"));
    EXPECT_EQ(ReadBytes(m_folder.File(L"later.vrf")), "x");
    EXPECT_TRUE(std::filesystem::is_symlink(NativePath(m_folder.File(L"link"))));
}

TEST_F(ReplaceFileFaultTest, LinksInACircleFail)
{
    std::filesystem::create_symlink("two", NativePath(m_folder.File(L"one")));
    std::filesystem::create_symlink("one", NativePath(m_folder.File(L"two")));
    EXPECT_FALSE(SaveFileWhole(m_folder.File(L"one"), "x"));
    EXPECT_EQ(CountEntries(), 3u);
}

TEST_F(ReplaceFileFaultTest, DeviceIsWrittenInPlace)
{
    std::filesystem::create_symlink("/dev/null", NativePath(m_folder.File(L"null")));
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"null"), "x"));
    struct stat status = {};
    ASSERT_EQ(::stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST_F(ReplaceFileFaultTest, PipeIsWrittenToItsReader)
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

TEST_F(ReplaceFileFaultTest, PipeWithoutAReaderFailsAndDoesNotBlock)
{
    const std::string pipe = NativePath(m_folder.File(L"pipe")).native();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(SaveFileWhole(m_folder.File(L"pipe"), "x"));
    EXPECT_FALSE(ReadWholeFile(m_folder.File(L"pipe")));
}

TEST_F(ReplaceFileFaultTest, ReaderThatLeavesAPipeDoesNotEndTheProcess)
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

TEST_F(ReplaceFileFaultTest, FileThatMayNotBeWrittenFailsThoughItsFolderMay)
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

TEST_F(ReplaceFileFaultTest, WritableFileInAFolderThatMayNotBeWrittenIsWrittenInPlace)
{
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0555), 0);
    ASSERT_EQ(::chmod(m_native.c_str(), 0666), 0);
    EXPECT_TRUE(RunWithoutPrivileges([this] { return SaveFileWhole(m_path, "short"); }));
    EXPECT_TRUE(RunWithoutPrivileges([this] { return !SaveFileWhole(m_folder.File(L"new.vrf"), "x"); }));
    EXPECT_EQ(ReadBytes(m_path), "short");
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0755), 0);
    EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(ReplaceFileFaultTest, ReadingGoesOnAfterShortAndInterruptedReads)
{
    FaultyOperations operations(Call::Read, 2, EINTR);
    operations.mostAtOnce = 5;
    const auto bytes = ReadWholeFileWith(operations, m_native);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->View(), "the old contents");
}

TEST_F(ReplaceFileFaultTest, ReadingThatFailsHalfwayGivesNothing)
{
    FaultyOperations operations(Call::Read, 2, EIO);
    operations.mostAtOnce = 5;
    EXPECT_FALSE(ReadWholeFileWith(operations, m_native));
    EXPECT_EQ(operations.Calls().back(), Call::Close);
}

TEST_F(ReplaceFileFaultTest, FileThatGrowsWhileItIsReadIsReadToItsEnd)
{
    struct Growing : FileOperations
    {
        std::wstring path;
        int left = 3;
        ssize_t Read(int file, void* data, std::size_t size) override
        {
            if (left-- > 0)
            {
                const int appending = ::open(NativePath(path).c_str(), O_WRONLY | O_APPEND);
                const std::string more(10'000, 'x');
                EXPECT_EQ(::write(appending, more.data(), more.size()), 10'000);
                ::close(appending);
            }
            return FileOperations::Read(file, data, size);
        }
    };
    Growing operations;
    operations.path = m_path;
    const auto bytes = ReadWholeFileWith(operations, m_native);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->View(), ReadBytes(m_path));
    EXPECT_EQ(bytes->Size(), 30'016u);
}

TEST_F(ReplaceFileFaultTest, FileThatShrinksWhileItIsReadGivesWhatIsLeft)
{
    struct Shrinking : FileOperations
    {
        std::string path;
        ssize_t Read(int file, void* data, std::size_t size) override
        {
            EXPECT_EQ(::truncate(path.c_str(), 3), 0);
            return FileOperations::Read(file, data, size);
        }
    };
    Shrinking operations;
    operations.path = m_native;
    const auto bytes = ReadWholeFileWith(operations, m_native);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->View(), "the");
}

TEST_F(ReplaceFileFaultTest, FileWithoutASizeIsReadToItsEnd)
{
    const auto bytes = ReadWholeFile(L"/proc/self/status");
    ASSERT_TRUE(bytes);
    EXPECT_GT(bytes->Size(), 100u);
}

TEST_F(ReplaceFileFaultTest, DeviceIsNotRead)
{
    EXPECT_FALSE(ReadWholeFile(L"/dev/zero"));
}

TEST_F(ReplaceFileFaultTest, WhatIsToBeDoneBeforeReplacingFindsTheOldContentsAndTheNewOnesOnTheDisk)
{
    FaultyOperations operations(Call::None, 1, 0);
    std::string found;
    std::vector<Call> callsBefore;
    FileCause cause = FileCause::Generic;
    const std::string_view contents = "new and whole";
    const auto before = [&]
    {
        found += ReadBytes(m_path);
        callsBefore = operations.Calls();
    };
    EXPECT_TRUE(ReplaceFileWith(operations, m_native, std::span(&contents, 1), before, cause));
    EXPECT_EQ(found, "the old contents");
    EXPECT_EQ(callsBefore, (std::vector<Call>{ Call::Open, Call::Write, Call::Sync, Call::Close }));
    EXPECT_EQ(cause, FileCause::None);
    EXPECT_EQ(ReadBytes(m_path), "new and whole");
}

TEST_F(ReplaceFileFaultTest, NothingIsDoneBeforeReplacingWhereNothingIsReplaced)
{
    const std::string_view contents = "x";
    FileCause cause = FileCause::None;
    const auto never = [] { ADD_FAILURE() << "there is nothing to be done"; };
    FaultyOperations fullDisk(Call::Write, 1, ENOSPC);
    EXPECT_FALSE(ReplaceFileWith(fullDisk, m_native, std::span(&contents, 1), never, cause));
    FaultyOperations faultless(Call::None, 1, 0);
    const std::string fresh = NativePath(m_folder.File(L"new.vrf")).native();
    EXPECT_TRUE(ReplaceFileWith(faultless, fresh, std::span(&contents, 1), never, cause));
    EXPECT_TRUE(ReplaceFileWith(faultless, "/dev/null", std::span(&contents, 1), never, cause));
}

TEST_F(ReplaceFileFaultTest, WhatIsToBeDoneBeforeReplacingIsDoneOnceAndBeforeAFileIsWrittenInPlace)
{
    for (const Call call : { Call::Open, Call::Rename })
    {
        WriteBytes(m_path, "the old contents");
        FaultyOperations operations(call, 1, EACCES);
        std::string found;
        FileCause cause = FileCause::None;
        const std::string_view contents = "new and whole";
        EXPECT_TRUE(ReplaceFileWith(
            operations, m_native, std::span(&contents, 1), [&] { found += ReadBytes(m_path); }, cause));
        EXPECT_TRUE(operations.HasFailed());
        EXPECT_EQ(found, "the old contents");
        EXPECT_EQ(ReadBytes(m_path), "new and whole");
    }
}

TEST_F(ReplaceFileFaultTest, TheCauseOfAFailureIsTold)
{
    const std::string_view contents = "x";
    FileCause cause = FileCause::None;
    const auto replace = [&](Call call, int error, const std::string& path)
    {
        FaultyOperations operations(call, 1, error);
        EXPECT_FALSE(ReplaceFileWith(operations, path, std::span(&contents, 1), {}, cause));
        return cause;
    };
    EXPECT_EQ(replace(Call::Open, ENOSPC, m_native), FileCause::DiskFull);
    EXPECT_EQ(replace(Call::Write, EDQUOT, m_native), FileCause::DiskFull);
    EXPECT_EQ(replace(Call::Sync, EIO, m_native), FileCause::Generic);
    EXPECT_EQ(replace(Call::Close, ENOSPC, m_native), FileCause::DiskFull);
    EXPECT_EQ(replace(Call::Rename, EROFS, m_native), FileCause::AccessDenied);
    EXPECT_EQ(replace(Call::None, 0, NativePath(m_folder.Path()).native()), FileCause::AccessDenied);
    EXPECT_EQ(replace(Call::None, 0, NativePath(m_folder.File(L"gone/x.vrf")).native()), FileCause::FileNotFound);
    EXPECT_EQ(replace(Call::None, 0, ""), FileCause::FileNotFound);
}

TEST_F(ReplaceFileFaultTest, AWriteThatTakesNothingIsAFailure)
{
    struct NothingTaken : FileOperations
    {
        ssize_t Write(int, const void*, std::size_t) override
        {
            errno = 0;
            return 0;
        }
    };
    NothingTaken operations;
    FileCause cause = FileCause::None;
    const std::string_view contents = "x";
    EXPECT_FALSE(ReplaceFileWith(operations, m_native, std::span(&contents, 1), {}, cause));
    EXPECT_EQ(cause, FileCause::Generic);
    EXPECT_EQ(ReadBytes(m_path), "the old contents");
}

/// Files like those that a process leaves behind that was ended while it saved.
class LeftOverFileTest : public ReplaceFileFaultTest
{
protected:
    void Leave(const std::wstring& name, int ageInMinutes) const
    {
        const std::wstring path = m_folder.File(name);
        WriteBytes(path, "half of");
        std::filesystem::last_write_time(NativePath(path), std::filesystem::file_time_type::clock::now() -
                                                               std::chrono::minutes(ageInMinutes));
    }

    bool IsThere(const std::wstring& name) const { return PathExists(m_folder.File(name)); }

    static constexpr const wchar_t* Name = L".vantrel-0123456789abcdef";
};

TEST_F(LeftOverFileTest, IsRemovedByTheNextSaveInItsFolder)
{
    Leave(Name, 20);
    Leave(L".vantrel-00000000ffffffff", 60 * 24 * 365);
    EXPECT_TRUE(SaveFileWhole(m_folder.File(L"another.vrf"), "x"));
    EXPECT_FALSE(IsThere(Name));
    EXPECT_FALSE(IsThere(L".vantrel-00000000ffffffff"));
    EXPECT_EQ(ReadBytes(m_path), "the old contents");
    EXPECT_EQ(CountEntries(), 2u);
}

TEST_F(LeftOverFileTest, StaysWhileItMayStillBeWritten)
{
    Leave(Name, 1);
    Leave(L".vantrel-00000000ffffffff", 20);
    const int file = ::open(NativePath(m_folder.File(L".vantrel-00000000ffffffff")).c_str(), O_RDONLY);
    ASSERT_EQ(::flock(file, LOCK_EX), 0);
    EXPECT_TRUE(SaveFileWhole(m_path, "x"));
    EXPECT_TRUE(IsThere(Name));
    EXPECT_TRUE(IsThere(L".vantrel-00000000ffffffff"));
    ::close(file);
}

TEST_F(LeftOverFileTest, IsNoneOfAnotherNameOrKind)
{
    const std::vector<std::wstring> names = { L".vantrel-0123456789abcde",      L".vantrel-0123456789abcdef0",
                                              L".vantrel-0123456789ABCDEF",     L"vantrel-0123456789abcdef",
                                              L".vantrel-0123456789abcdef.vrf", L".vantrel-" };
    for (const std::wstring& name : names)
    {
        Leave(name, 60);
    }
    std::filesystem::create_directory(NativePath(m_folder.File(L".vantrel-aaaaaaaaaaaaaaaa")));
    std::filesystem::create_symlink("rules.vrf", NativePath(m_folder.File(L".vantrel-bbbbbbbbbbbbbbbb")));
    EXPECT_TRUE(SaveFileWhole(m_path, "x"));
    EXPECT_EQ(CountEntries(), names.size() + 3);
}

TEST_F(LeftOverFileTest, IsKnownByItsLockWhileItIsBeingWritten)
{
    struct Watching : FileOperations
    {
        std::wstring folder;
        int locked = 0;
        int Sync(int file) override
        {
            for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder)))
            {
                const int other = ::open(entry.path().c_str(), O_RDONLY);
                locked += entry.path().filename().string().starts_with(".vantrel-") &&
                          ::flock(other, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
                ::close(other);
            }
            return FileOperations::Sync(file);
        }
    };
    Watching operations;
    operations.folder = m_folder.Path();
    EXPECT_TRUE(ReplaceFileWith(operations, m_native, "x"));
    EXPECT_EQ(operations.locked, 1);
}

} // namespace
