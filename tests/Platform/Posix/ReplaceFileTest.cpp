#include "Platform/Files.h"
#include "Platform/Posix/FileOperations.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

/// Passes everything on, but for one call of one kind, which fails.
class FaultyOperations : public FileOperations
{
public:
    enum class Call
    {
        None,
        Open,
        Read,
        Write,
        ChangeOwner,
        Reserve,
        Truncate,
        Sync,
        Close,
        Rename,
    };

    FaultyOperations(Call call, int number, int error) : m_call(call), m_number(number), m_error(error) {}

    bool HasFailed() const { return m_number <= 0; }
    const std::vector<Call>& Calls() const { return m_calls; }

    /// No more bytes than this go through one call.
    std::size_t mostAtOnce = SIZE_MAX;

    int Open(const std::string& path, int flags, mode_t mode) override
    {
        return Fails(Call::Open) ? -1 : FileOperations::Open(path, flags, mode);
    }
    ssize_t Read(int file, void* data, std::size_t size) override
    {
        return Fails(Call::Read) ? -1 : FileOperations::Read(file, data, std::min(size, mostAtOnce));
    }
    ssize_t Write(int file, const void* data, std::size_t size) override
    {
        return Fails(Call::Write) ? -1 : FileOperations::Write(file, data, std::min(size, mostAtOnce));
    }
    int ChangeOwner(int file, uid_t user, gid_t group) override
    {
        return Fails(Call::ChangeOwner) ? -1 : FileOperations::ChangeOwner(file, user, group);
    }
    int Reserve(int file, off_t size) override
    {
        return Fails(Call::Reserve) ? -1 : FileOperations::Reserve(file, size);
    }
    int Truncate(int file, off_t size) override
    {
        return Fails(Call::Truncate) ? -1 : FileOperations::Truncate(file, size);
    }
    int Sync(int file) override { return Fails(Call::Sync) ? -1 : FileOperations::Sync(file); }
    int Close(int file) override
    {
        const int result = FileOperations::Close(file);
        return Fails(Call::Close) ? -1 : result;
    }
    int Rename(const std::string& from, const std::string& to) override
    {
        return Fails(Call::Rename) ? -1 : FileOperations::Rename(from, to);
    }

private:
    bool Fails(Call call)
    {
        m_calls.push_back(call);
        const bool fails = call == m_call && --m_number == 0;
        if (fails)
        {
            errno = m_error;
        }
        return fails;
    }

    Call m_call;
    int m_number;
    int m_error;
    std::vector<Call> m_calls;
};

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

} // namespace
