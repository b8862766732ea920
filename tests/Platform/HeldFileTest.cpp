#include "Platform/HeldFile.h"

#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

class HeldFileTest : public testing::Test
{
protected:
    FileCause CauseFor(const std::wstring& path)
    {
        FileCause cause = FileCause::Generic;
        const auto file = HeldFile::Open(path, cause);
        EXPECT_EQ(file != nullptr, cause == FileCause::None);
        return cause;
    }

    ::TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"held.vrf");
};

TEST_F(HeldFileTest, HoldsAgainstASecondHolderUntilItIsLetGo)
{
    WriteBytes(m_path, "contents");
    FileCause cause = FileCause::Generic;
    auto held = HeldFile::Open(m_path, cause);
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(cause, FileCause::None);
    EXPECT_EQ(held->Path(), m_path);
    EXPECT_EQ(CauseFor(m_path), FileCause::SharingViolation);
    EXPECT_EQ(ReadBytes(m_path), "contents") << "others may read";
    held.reset();
    EXPECT_EQ(CauseFor(m_path), FileCause::None);
    EXPECT_EQ(ReadBytes(m_path), "contents");
}

TEST_F(HeldFileTest, AMissingFileIsNotMade)
{
    EXPECT_EQ(CauseFor(m_path), FileCause::FileNotFound);
    EXPECT_FALSE(PathExists(m_path));
}

TEST_F(HeldFileTest, AFolderIsRefused)
{
    EXPECT_EQ(CauseFor(m_folder.Path()), FileCause::AccessDenied);
}

TEST_F(HeldFileTest, AnEmptyPathIsNoFile)
{
    EXPECT_EQ(CauseFor(L""), FileCause::FileNotFound);
}

TEST_F(HeldFileTest, NobodyHoldsAFreeFile)
{
    WriteBytes(m_path, "contents");
    EXPECT_EQ(UserHoldingFile(m_path), L"");
    EXPECT_EQ(UserHoldingFile(m_folder.File(L"missing")), L"");
}

} // namespace
