#include "Platform/Posix/InstanceSocket.h"

#include "Platform/Posix/PathBytes.h"
#include "Platform/Process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace Platform::Posix
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr auto RetryAfter = std::chrono::milliseconds(20);
constexpr auto PatienceWithNobody = std::chrono::seconds(1);
constexpr int Backlog = 16;

/// "/vantrel-", sixteen digits, the longer suffix.
constexpr std::size_t LongestName = 9 + 16 + 5;

/// The same on every start, unlike the hash of the standard library.
std::uint64_t StableHash(std::string_view bytes)
{
    std::uint64_t hash = 14695981039346656037u;
    for (const char byte : bytes)
    {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211u;
    }
    return hash;
}

/// True for a real folder of this user that others can't put anything into.
bool IsPrivateFolder(const std::string& folder)
{
    struct stat status = {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
           (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

std::string RuntimeFolder()
{
    const char* configured = std::getenv("XDG_RUNTIME_DIR");
    if (configured != nullptr && *configured == '/')
    {
        std::string folder = configured;
        while (folder.ends_with('/'))
        {
            folder.pop_back();
        }
        if (folder.size() + LongestName < sizeof(sockaddr_un::sun_path) && IsPrivateFolder(folder))
        {
            return folder;
        }
    }
    std::string folder = "/tmp/vantrel-" + std::to_string(::geteuid());
    // Whether it was there already doesn't matter, only whose it is.
    std::ignore = ::mkdir(folder.c_str(), 0700);
    return IsPrivateFolder(folder) ? folder : std::string();
}

std::optional<sockaddr_un> AddressOf(const std::string& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof(address.sun_path))
    {
        return std::nullopt;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

std::string FileNameOf(std::string_view identity)
{
    std::array<char, 32> name = {};
    std::snprintf(name.data(), name.size(), "/vantrel-%016llx", static_cast<unsigned long long>(StableHash(identity)));
    return name.data();
}

Descriptor MakeSocket()
{
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

} // namespace

InstancePaths PathsOfInstance(const char* markName)
{
    const std::string folder = RuntimeFolder();
    if (folder.empty())
    {
        return {};
    }
    // The mark is one for all copies of the program; a file goes only to one of this copy.
    const std::string mark = markName;
    return { folder + FileNameOf(mark) + ".lock",
             folder + FileNameOf(mark + '\0' + PathBytes(ProgramPath())) + ".sock" };
}

Descriptor ListenAt(const std::string& path)
{
    const auto address = AddressOf(path);
    Descriptor listener = MakeSocket();
    if (!address || !listener)
    {
        return Descriptor();
    }
    ::unlink(path.c_str());
    const auto* generic = reinterpret_cast<const sockaddr*>(&*address);
    const bool listens =
        ::bind(listener.Get(), generic, sizeof(*address)) == 0 && ::listen(listener.Get(), Backlog) == 0;
    return listens ? std::move(listener) : Descriptor();
}

Descriptor ConnectTo(const std::string& path, Clock::time_point until, bool& nobody)
{
    nobody = true;
    const auto address = AddressOf(path);
    if (!address)
    {
        return Descriptor();
    }
    const auto* generic = reinterpret_cast<const sockaddr*>(&*address);
    const Clock::time_point giveUp = Clock::now() + PatienceWithNobody;
    for (;;)
    {
        Descriptor connection = MakeSocket();
        if (!connection)
        {
            return Descriptor();
        }
        if (::connect(connection.Get(), generic, sizeof(*address)) == 0)
        {
            nobody = false;
            return connection;
        }
        const bool isFull = errno == EAGAIN; // others wait for it too
        const bool isMissing = errno == ECONNREFUSED || errno == ENOENT;
        nobody = !isFull;
        if ((!isFull && !isMissing && errno != EINTR) || Clock::now() >= (isFull ? until : std::min(until, giveUp)))
        {
            return Descriptor();
        }
        std::this_thread::sleep_for(RetryAfter);
    }
}

bool IsPeerOfThisUser(int socket)
{
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

bool WaitFor(int socket, short events, Clock::time_point until)
{
    for (;;)
    {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - Clock::now()).count();
        if (left <= 0)
        {
            return false;
        }
        pollfd waiting = { socket, events, 0 };
        const int ready = ::poll(&waiting, 1, static_cast<int>(left));
        if (ready > 0)
        {
            return true;
        }
        if (ready < 0 && errno != EINTR)
        {
            return false;
        }
    }
}

} // namespace Platform::Posix
