#include "tests/Platform/Posix/FaultyOperations.h"
#include "tests/Platform/Posix/OldFileFixture.h"

#include <cerrno>
#include <cstddef>
#include <gtest/gtest.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

using Call = FaultyOperations::Call;

class ReplaceFileFaultTest : public OldFileFixture
{
protected:
    bool Replace(FaultyOperations& operations) { return ReplaceFileWith(operations, m_native, "new and whole"); }
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

} // namespace
