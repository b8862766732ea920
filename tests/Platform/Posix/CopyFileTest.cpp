#include "Platform/Files.h"
#include "Platform/Posix/FileOperations.h"
#include "tests/Platform/Posix/FaultyOperations.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

using Call = FaultyOperations::Call;

mode_t ModeOf(const std::wstring& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(NativePath(path).c_str(), &status), 0);
    return status.st_mode & 07777;
}

class CopyFileTest : public testing::Test
{
protected:
    CopyFileTest() { WriteBytes(m_from, "the old contents"); }

    bool Copy(FileOperations& operations) const
    {
        return CopyFileWith(operations, NativePath(m_from).native(), NativePath(m_to).native());
    }

    std::size_t CountEntries() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(NativePath(m_folder.Path())),
                                                      std::filesystem::directory_iterator()));
    }

    ::TemporaryFolder m_folder;
    std::wstring m_from = m_folder.File(L"rules.vrf");
    std::wstring m_to = m_folder.File(L"copy.vrf");
};

TEST_F(CopyFileTest, CopyHasTheBytesAndIsForTheUserAlone)
{
    std::string bytes(3'000'000, 'x');
    bytes[5] = '\0';
    bytes.back() = 'y';
    WriteBytes(m_from, bytes);
    ASSERT_EQ(::chmod(NativePath(m_from).c_str(), 0666), 0);
    EXPECT_TRUE(CopyFileWhole(m_from, m_to));
    EXPECT_EQ(ReadBytes(m_to), bytes);
    EXPECT_EQ(ModeOf(m_to), 0600u);
    EXPECT_EQ(ReadBytes(m_from), bytes);
    EXPECT_EQ(CountEntries(), 2u);
}

TEST_F(CopyFileTest, CopyIsAFileOfItsOwnThatLaterWritesLeaveAlone)
{
    EXPECT_TRUE(CopyFileWhole(m_from, m_to));
    WriteBytes(m_from, "written in place");
    EXPECT_EQ(ReadBytes(m_to), "the old contents");
}

TEST_F(CopyFileTest, CopyIsFlushedBeforeItHasItsName)
{
    FaultyOperations operations(Call::None, 1, 0);
    EXPECT_TRUE(Copy(operations));
    EXPECT_EQ(operations.Calls(),
              (std::vector<Call>{ Call::Open, Call::Open, Call::Read, Call::Read, Call::Write, Call::Sync, Call::Close,
                                  Call::Rename, Call::Open, Call::Sync, Call::Close }));
}

TEST_F(CopyFileTest, EmptyFileIsCopied)
{
    WriteBytes(m_from, "");
    EXPECT_TRUE(CopyFileWhole(m_from, m_to));
    EXPECT_EQ(ReadBytes(m_to), "");
}

TEST_F(CopyFileTest, WhatIsNoRegularFileIsNotCopied)
{
    EXPECT_FALSE(CopyFileWhole(m_folder.Path(), m_to));
    EXPECT_FALSE(CopyFileWhole(L"/dev/null", m_to));
    EXPECT_FALSE(CopyFileWhole(m_folder.File(L"missing"), m_to));
    ASSERT_EQ(::mkfifo(NativePath(m_folder.File(L"pipe")).c_str(), 0600), 0);
    EXPECT_FALSE(CopyFileWhole(m_folder.File(L"pipe"), m_to));
    EXPECT_FALSE(PathExists(m_to));
}

TEST_F(CopyFileTest, FolderThatIsMissingOrMayNotBeWrittenTakesNoCopy)
{
    EXPECT_FALSE(CopyFileWhole(m_from, m_folder.File(L"missing/copy.vrf")));
    ASSERT_EQ(::chmod(NativePath(m_from).c_str(), 0644), 0);
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0555), 0);
    EXPECT_TRUE(RunWithoutPrivileges([this] { return !CopyFileWhole(m_from, m_to); }));
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0755), 0);
    EXPECT_EQ(CountEntries(), 1u);
}

TEST_F(CopyFileTest, LinkAtTheTargetIsReplacedAndWhatItLeadsToStays)
{
    WriteBytes(m_folder.File(L"other"), "other");
    std::filesystem::create_symlink("other", NativePath(m_to));
    EXPECT_TRUE(CopyFileWhole(m_from, m_to));
    EXPECT_EQ(ReadBytes(m_folder.File(L"other")), "other");
    EXPECT_EQ(ReadBytes(m_to), "the old contents");
    EXPECT_FALSE(std::filesystem::is_symlink(NativePath(m_to)));
}

TEST_F(CopyFileTest, InterruptedAndShortCallsAreContinued)
{
    for (const Call call : { Call::Read, Call::Write })
    {
        FaultyOperations operations(call, 2, EINTR);
        operations.mostAtOnce = 3;
        EXPECT_TRUE(Copy(operations));
        EXPECT_TRUE(operations.HasFailed());
        EXPECT_EQ(ReadBytes(m_to), "the old contents");
    }
}

struct Fault
{
    const char* name;
    Call call;
    int number;
    int error;
};

class CopyFileFailureTest : public CopyFileTest, public testing::WithParamInterface<Fault>
{
};

TEST_P(CopyFileFailureTest, LeavesNoCopyAndTheFileAsItWas)
{
    FaultyOperations operations(GetParam().call, GetParam().number, GetParam().error);
    operations.mostAtOnce = 4;
    EXPECT_FALSE(Copy(operations));
    EXPECT_TRUE(operations.HasFailed());
    EXPECT_EQ(ReadBytes(m_from), "the old contents");
    EXPECT_EQ(CountEntries(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    Faults, CopyFileFailureTest,
    testing::Values(Fault{ "OpeningTheFile", Call::Open, 1, EACCES }, Fault{ "OpeningTheCopy", Call::Open, 2, ENOSPC },
                    Fault{ "ReadingHalfway", Call::Read, 2, EIO }, Fault{ "FullDisk", Call::Write, 3, ENOSPC },
                    Fault{ "Flush", Call::Sync, 1, EIO }, Fault{ "Closing", Call::Close, 1, EDQUOT },
                    Fault{ "Renaming", Call::Rename, 1, EIO }),
    [](const testing::TestParamInfo<Fault>& row) { return row.param.name; });

TEST(PrivateFolderTest, FoldersThatAreMadeAreForTheUserAlone)
{
    const ::TemporaryFolder folder;
    EXPECT_TRUE(MakeFolder(folder.File(L"there")));
    ASSERT_EQ(::chmod(NativePath(folder.File(L"there")).c_str(), 0755), 0);
    EXPECT_TRUE(MakePrivateFolderTree(folder.File(L"there/a/b")));
    EXPECT_EQ(ModeOf(folder.File(L"there")), 0755u);
    EXPECT_EQ(ModeOf(folder.File(L"there/a")), 0700u);
    EXPECT_EQ(ModeOf(folder.File(L"there/a/b")), 0700u);
    EXPECT_TRUE(MakePrivateFolderTree(folder.File(L"there/a/b")));
    WriteBytes(folder.File(L"file"), "");
    EXPECT_FALSE(MakePrivateFolderTree(folder.File(L"file")));
    EXPECT_FALSE(MakePrivateFolderTree(folder.File(L"file/a")));
}

} // namespace
