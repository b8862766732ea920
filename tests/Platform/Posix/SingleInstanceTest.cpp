#include "Platform/SingleInstance.h"

#include "Platform/Files.h"
#include "Platform/Posix/InstanceMarkState.h"
#include "Platform/Text.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <glib.h>
#include <gtest/gtest.h>
#include <optional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Platform;

namespace
{

constexpr const char* Name = "VantrelTest";

std::wstring TextOf(const void* data, std::size_t size)
{
    std::u16string units(size / sizeof(char16_t), u'\0');
    std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    EXPECT_TRUE(units.ends_with(u'\0'));
    units.pop_back();
    return Utf16ToWide(units);
}

class SingleInstanceTest : public testing::Test
{
protected:
    /// Starts a later instance that sends `path` and ends with the result.
    static pid_t StartLater(const std::wstring& path)
    {
        return StartChild(
            [&path]
            {
                InstanceMark mark(Name);
                if (mark.CreationError() != InstanceMark::AlreadyExists)
                {
                    return 100;
                }
                return static_cast<int>(ForwardToInstance(mark, path));
            });
    }

    /// Runs the loop until the process has ended.
    static std::optional<ForwardResult> RunLoopUntilEnd(pid_t child)
    {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        int status = 0;
        while (::waitpid(child, &status, WNOHANG) == 0)
        {
            if (std::chrono::steady_clock::now() > limit)
            {
                ::kill(child, SIGKILL);
            }
            RunLoop();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (!WIFEXITED(status) || WEXITSTATUS(status) == 100)
        {
            return std::nullopt;
        }
        return static_cast<ForwardResult>(WEXITSTATUS(status));
    }

    static void RunLoop()
    {
        while (g_main_context_iteration(nullptr, FALSE))
        {
        }
    }

    InstanceRequests Requests()
    {
        InstanceRequests requests;
        requests.onActivate = [this] { m_events.emplace_back(L"activate"); };
        requests.onData = [this](const void* data, std::size_t size)
        {
            m_events.push_back(TextOf(data, size));
            return m_accepts;
        };
        return requests;
    }

    ::TemporaryFolder m_folder;
    ScopedVariable m_variable{ "XDG_RUNTIME_DIR", m_folder.Path() };
    std::vector<std::wstring> m_events;
    bool m_accepts = true;
};

using Events = std::vector<std::wstring>;

TEST_F(SingleInstanceTest, FirstOneHasTheMarkAndLaterOnesSeeIt)
{
    InstanceMark first(Name);
    EXPECT_EQ(first.CreationError(), 0);
    EXPECT_EQ(WaitForChild(StartChild([] { return InstanceMark(Name).CreationError(); })), 183);
    EXPECT_EQ(WaitForChild(StartChild([] { return InstanceMark("Another").CreationError(); })), 0);
}

TEST_F(SingleInstanceTest, MarkIsFreeAfterItsEnd)
{
    {
        InstanceMark first(Name);
    }
    EXPECT_EQ(WaitForChild(StartChild([] { return InstanceMark(Name).CreationError(); })), 0);
    InstanceMark next(Name);
    EXPECT_EQ(next.CreationError(), 0);
}

TEST_F(SingleInstanceTest, FileIsHandedOverAfterTheWindowCameToTheFront)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a b/R\u00E8gle \U0001F600.vrf")), ForwardResult::Accepted);
    EXPECT_EQ(m_events, (Events{ L"activate", L"/a b/R\u00E8gle \U0001F600.vrf" }));
}

TEST_F(SingleInstanceTest, StartWithoutAFileSendsNothing)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"")), ForwardResult::Activated);
    EXPECT_EQ(m_events, Events{ L"activate" });
}

TEST_F(SingleInstanceTest, RefusalGoesBackToTheSender)
{
    m_accepts = false;
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::Refused);
    EXPECT_EQ(m_events.size(), 2u);
}

TEST_F(SingleInstanceTest, ExceptionInARequestIsARefusal)
{
    InstanceMark first(Name);
    InstanceRequests requests;
    requests.onData = [](const void*, std::size_t) -> bool { throw 1; };
    const InstanceInbox inbox(first, nullptr, std::move(requests));
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::Refused);
}

TEST_F(SingleInstanceTest, RequestsDuringTheStartWaitForTheInbox)
{
    InstanceMark first(Name);
    const pid_t one = StartLater(L"/1.vrf");
    const pid_t two = StartLater(L"/2.vrf");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(::waitpid(one, nullptr, WNOHANG), 0);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(one), ForwardResult::Accepted);
    EXPECT_EQ(RunLoopUntilEnd(two), ForwardResult::Accepted);
    EXPECT_EQ(m_events.size(), 4u);
}

TEST_F(SingleInstanceTest, ManyRequestsAtOnceAreAllCarriedOut)
{
    InstanceMark first(Name);
    constexpr std::size_t Many = 40; // more than are answered at a time
    std::vector<pid_t> senders;
    for (std::size_t number = 0; number < Many; ++number)
    {
        senders.push_back(StartLater(L"/" + std::to_wstring(number) + L".vrf"));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100)); // so that most of them wait
    const InstanceInbox inbox(first, nullptr, Requests());
    for (const pid_t sender : senders)
    {
        EXPECT_EQ(RunLoopUntilEnd(sender), ForwardResult::Accepted);
    }
    EXPECT_EQ(m_events.size(), 2 * Many);
}

TEST_F(SingleInstanceTest, FirstOneHasNoOneToForwardTo)
{
    InstanceMark first(Name);
    EXPECT_EQ(ForwardToInstance(first, L"/a.vrf"), ForwardResult::NoInstance);
}

TEST_F(SingleInstanceTest, InboxOfALaterInstanceStaysEmpty)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(WaitForChild(StartChild(
                  [this]
                  {
                      InstanceMark later(Name);
                      const InstanceInbox own(later, nullptr, Requests());
                      RunLoop();
                      return later.CreationError() == InstanceMark::AlreadyExists && m_events.empty() ? 0 : 1;
                  })),
              0);
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"")), ForwardResult::Activated);
}

TEST_F(SingleInstanceTest, SocketOfACrashedInstanceIsReplaced)
{
    ASSERT_EQ(WaitForChild(StartChild(
                  []() -> int
                  {
                      const InstanceMark* crashed = new InstanceMark(Name);
                      ::_exit(crashed->CreationError());
                  })),
              0);
    ASSERT_FALSE(std::filesystem::is_empty(NativePath(m_folder.Path())));
    InstanceMark first(Name);
    EXPECT_EQ(first.CreationError(), 0);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::Accepted);
}

TEST_F(SingleInstanceTest, InstanceWithoutASocketIsNoInstanceToSendTo)
{
    InstanceMark first(Name);
    ASSERT_EQ(::unlink(first.GetState()->paths.socket.c_str()), 0);
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::NoInstance);
}

TEST_F(SingleInstanceTest, ForkedProcessLeavesTheFilesOfItsParent)
{
    InstanceMark first(Name);
    EXPECT_EQ(WaitForChild(StartChild(
                  [&first]
                  {
                      first.~InstanceMark();
                      return 0;
                  })),
              0);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::Accepted);
}

TEST_F(SingleInstanceTest, StartedProgramsDontInheritTheMark)
{
    InstanceMark first(Name);
    ASSERT_TRUE(first.GetState()->listener);
    EXPECT_NE(::fcntl(first.GetState()->listener.Get(), F_GETFD) & FD_CLOEXEC, 0);
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    {
        std::error_code error;
        const auto target = std::filesystem::read_symlink(entry.path(), error);
        if (!error && target.native() == first.GetState()->paths.lock)
        {
            const int file = std::stoi(entry.path().filename().native());
            EXPECT_NE(::fcntl(file, F_GETFD) & FD_CLOEXEC, 0);
        }
    }
}

/// A sender that does what no later instance does.
class RawSender
{
public:
    explicit RawSender(const InstanceMark& mark)
    {
        bool nobody = false;
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        m_connection = Posix::ConnectTo(mark.GetState()->paths.socket, until, nobody);
    }

    bool Send(std::string_view bytes)
    {
        return ::send(m_connection.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(bytes.size());
    }

    /// The answer; nothing if the connection was closed without one or isn't closed yet.
    std::optional<char> Answer()
    {
        char answer = 0;
        return ::recv(m_connection.Get(), &answer, 1, MSG_DONTWAIT) == 1 ? std::optional(answer) : std::nullopt;
    }

    bool IsClosed()
    {
        char answer = 0;
        return ::recv(m_connection.Get(), &answer, 1, MSG_DONTWAIT) == 0;
    }

private:
    Posix::Descriptor m_connection;
};

TEST_F(SingleInstanceTest, StuckSenderHoldsUpNobody)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    RawSender stuck(first);
    ASSERT_TRUE(stuck.Send(std::string("\x06\0\0", 3)));
    RunLoop();
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::Accepted);
    EXPECT_FALSE(stuck.IsClosed());
}

TEST_F(SingleInstanceTest, SenderWithAHugeRecordIsCutOff)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    RawSender sender(first);
    ASSERT_TRUE(sender.Send("\xFF\xFF\xFF\x7F"));
    RunLoop();
    EXPECT_TRUE(sender.IsClosed());
    EXPECT_TRUE(m_events.empty());
}

TEST_F(SingleInstanceTest, SenderThatLeavesEarlyIsForgotten)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    {
        RawSender sender(first);
        RunLoop();
    }
    RunLoop();
    EXPECT_TRUE(m_events.empty());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"")), ForwardResult::Activated);
}

TEST_F(SingleInstanceTest, RecordOfAnOddSizeIsHandedOnAsItIs)
{
    InstanceMark first(Name);
    std::size_t received = 0;
    InstanceRequests requests;
    requests.onData = [&received](const void*, std::size_t size)
    {
        received = size;
        return true;
    };
    const InstanceInbox inbox(first, nullptr, std::move(requests));
    RawSender sender(first);
    ASSERT_TRUE(sender.Send(std::string("\x03\0\0\0abc", 7)));
    RunLoop();
    EXPECT_EQ(received, 3u);
    EXPECT_EQ(sender.Answer(), 1);
}

TEST_F(SingleInstanceTest, InboxMayGoAwayInTheMiddleOfARequest)
{
    InstanceMark first(Name);
    std::optional<InstanceInbox> inbox;
    bool dataCame = false;
    InstanceRequests requests;
    requests.onActivate = [&inbox] { inbox.reset(); };
    requests.onData = [&dataCame](const void*, std::size_t) { return dataCame = true; };
    inbox.emplace(first, nullptr, std::move(requests));
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/a.vrf")), ForwardResult::Refused);
    EXPECT_FALSE(dataCame);
}

TEST_F(SingleInstanceTest, LoopMayRunInTheMiddleOfARequest)
{
    InstanceMark first(Name);
    int depth = 0;
    int deepest = 0;
    pid_t second = -1;
    std::optional<ForwardResult> secondResult;
    InstanceRequests requests;
    requests.onData = [&](const void*, std::size_t)
    {
        deepest = std::max(deepest, ++depth);
        if (depth == 1)
        {
            second = StartLater(L"/second.vrf");
            secondResult = RunLoopUntilEnd(second);
        }
        --depth;
        return true;
    };
    const InstanceInbox inbox(first, nullptr, std::move(requests));
    EXPECT_EQ(RunLoopUntilEnd(StartLater(L"/first.vrf")), ForwardResult::Accepted);
    EXPECT_EQ(secondResult, ForwardResult::Accepted);
    EXPECT_EQ(deepest, 2);
}

TEST_F(SingleInstanceTest, PathThatIsTooLongIsRefusedButTheWindowComes)
{
    InstanceMark first(Name);
    const InstanceInbox inbox(first, nullptr, Requests());
    EXPECT_EQ(RunLoopUntilEnd(StartLater(std::wstring(40'000, L'x'))), ForwardResult::Refused);
    EXPECT_EQ(m_events, Events{ L"activate" });
}

TEST_F(SingleInstanceTest, FolderThatOthersMayWriteToIsNotUsed)
{
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0777), 0);
    const Posix::InstancePaths paths = Posix::PathsOfInstance(Name);
    EXPECT_TRUE(paths.lock.starts_with("/tmp/vantrel-" + std::to_string(::geteuid()) + "/")) << paths.lock;
    struct stat status = {};
    ASSERT_EQ(::stat(("/tmp/vantrel-" + std::to_string(::geteuid())).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(SingleInstanceTest, FolderTooDeepForASocketIsNotUsed)
{
    const std::wstring deep = m_folder.File(std::wstring(100, L'd'));
    ASSERT_TRUE(MakeFolder(deep));
    const ScopedVariable variable("XDG_RUNTIME_DIR", deep);
    InstanceMark first(Name);
    EXPECT_TRUE(first.GetState()->paths.socket.starts_with("/tmp/vantrel-")) << first.GetState()->paths.socket;
    EXPECT_TRUE(first.GetState()->listener);
    EXPECT_EQ(::unlink(first.GetState()->paths.lock.c_str()), 0);
}

TEST_F(SingleInstanceTest, NameOfTheSocketIsTheSameOnEveryStart)
{
    const Posix::InstancePaths paths = Posix::PathsOfInstance(Name);
    EXPECT_EQ(paths.socket, Posix::PathsOfInstance(Name).socket);
    EXPECT_NE(paths.socket, Posix::PathsOfInstance("Another").socket);
    EXPECT_LT(paths.socket.size(), 108u);
}

} // namespace
