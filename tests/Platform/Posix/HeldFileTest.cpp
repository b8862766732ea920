#include "Platform/HeldFile.h"

#include "Platform/Files.h"
#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/PathBytes.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Platform;

namespace
{

class PosixHeldFileTest : public testing::Test
{
protected:
    FileCause CauseFor(const std::wstring& path)
    {
        FileCause cause = FileCause::Generic;
        const auto file = HeldFile::Open(path, cause);
        return cause;
    }

    ::TemporaryFolder m_folder;
    std::wstring m_path = m_folder.File(L"held.vrf");
};

/// Another process that holds a file until it is told to end.
class Holder
{
public:
    explicit Holder(const std::wstring& path)
    {
        std::array<int, 2> ready = {};
        EXPECT_EQ(::pipe(ready.data()), 0);
        m_process = StartChild(
            [&path, &ready]
            {
                FileCause cause = FileCause::Generic;
                const auto file = HeldFile::Open(path, cause);
                const char answer = file != nullptr ? 'y' : 'n';
                if (::write(ready[1], &answer, 1) != 1)
                {
                    return 1;
                }
                ::pause();
                return 0;
            });
        char answer = 0;
        EXPECT_EQ(::read(ready[0], &answer, 1), 1);
        m_holds = answer == 'y';
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~Holder() { End(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool Holds() const { return m_holds; }

    void End()
    {
        if (m_process > 0)
        {
            ::kill(m_process, SIGKILL);
            WaitForChild(m_process);
            m_process = 0;
        }
    }

private:
    pid_t m_process = 0;
    bool m_holds = false;
};

TEST_F(PosixHeldFileTest, AnotherProcessKeepsItUntilItEndsHoweverItEnds)
{
    WriteBytes(m_path, "contents");
    Holder holder(m_path);
    ASSERT_TRUE(holder.Holds());
    EXPECT_EQ(CauseFor(m_path), FileCause::SharingViolation);
    holder.End();
    EXPECT_EQ(CauseFor(m_path), FileCause::None);
}

TEST_F(PosixHeldFileTest, ItsLockKeepsNobodyFromReading)
{
    WriteBytes(m_path, "contents");
    FileCause cause = FileCause::Generic;
    const auto held = HeldFile::Open(m_path, cause);
    ASSERT_NE(held, nullptr);
    const Posix::Descriptor reader(::open(Posix::PathBytes(m_path).c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_TRUE(reader);
    // Network file systems let whoever could share the lock read, and nobody else.
    EXPECT_EQ(::flock(reader.Get(), LOCK_EX | LOCK_NB), -1);
    EXPECT_EQ(::flock(reader.Get(), LOCK_SH | LOCK_NB), 0);
}

TEST_F(PosixHeldFileTest, TheUserOfTheOtherProcessIsTold)
{
    WriteBytes(m_path, "contents");
    const Holder holder(m_path);
    ASSERT_TRUE(holder.Holds());
    const struct passwd* const user = ::getpwuid(::getuid());
    const std::string name = user != nullptr ? user->pw_name : std::to_string(::getuid());
    EXPECT_EQ(UserHoldingFile(m_path), std::wstring(name.begin(), name.end()));
}

TEST_F(PosixHeldFileTest, TheFileThatWasSavedOverIsNotTheOneThatIsHeld)
{
    WriteBytes(m_path, "old");
    FileCause cause = FileCause::Generic;
    const auto old = HeldFile::Open(m_path, cause);
    ASSERT_NE(old, nullptr);
    ASSERT_TRUE(SaveFileWhole(m_path, "new"));
    EXPECT_EQ(CauseFor(m_path), FileCause::None) << "the new file is free";
}

TEST_F(PosixHeldFileTest, AFileThatMayOnlyBeReadIsDenied)
{
    WriteBytes(m_path, "contents");
    ASSERT_EQ(::chmod(NativePath(m_path).c_str(), 0444), 0);
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0755), 0);
    EXPECT_TRUE(RunWithoutPrivileges([this] { return CauseFor(m_path) == FileCause::AccessDenied; }));
}

TEST_F(PosixHeldFileTest, APathThroughAFileIsABadPath)
{
    WriteBytes(m_path, "contents");
    EXPECT_EQ(CauseFor(m_path + L"/below"), FileCause::BadPath);
}

TEST_F(PosixHeldFileTest, APipeIsRefusedWithoutWaiting)
{
    ASSERT_EQ(::mkfifo(NativePath(m_path).c_str(), 0600), 0);
    EXPECT_EQ(CauseFor(m_path), FileCause::AccessDenied);
}

} // namespace
