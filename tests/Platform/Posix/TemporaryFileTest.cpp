#include "Platform/Posix/FileOperations.h"
#include "tests/Platform/Posix/OldFileFixture.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

/// Files like those that a process leaves behind that was ended while it saved.
class LeftOverFileTest : public OldFileFixture
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
