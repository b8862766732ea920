#include "Platform/HeldFile.h"

#include "Platform/Files.h"
#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/FileError.h"
#include "Platform/Posix/PathBytes.h"

#include <array>
#include <cerrno>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <optional>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/types.h>
#include <unistd.h>
#include <utility>

namespace Platform
{

struct HeldFile::State
{
    Posix::Descriptor file; // the lock goes with it
};

namespace
{

/// True if the file can't be locked because its file system knows no locks. It is held all
/// the same then, as a file that nobody else has open.
bool HasNoLocks(int error)
{
    return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
}

/// The error, or 0.
int Lock(int file, int kind)
{
    int result = -1;
    do
    {
        result = ::flock(file, kind | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0 || HasNoLocks(errno) ? 0 : errno;
}

/// Locks the file against others who do the same. The error, or 0.
int LockAgainstWriters(int file)
{
    // Whoever holds the file shares its lock, which lets nobody have it alone. On network
    // file systems a lock is more than an agreement: one that isn't shared keeps everybody
    // from reading, this process included.
    const int error = Lock(file, LOCK_EX);
    return error != 0 ? error : Lock(file, LOCK_SH);
}

/// True if the path still leads to the open file: whoever saves puts a new one in its place.
bool IsStillThere(int file, const std::string& path)
{
    struct stat opened = {};
    struct stat present = {};
    return ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &present) == 0 && opened.st_dev == present.st_dev &&
           opened.st_ino == present.st_ino;
}

Posix::Descriptor OpenOnce(const std::string& path, FileCause& cause)
{
    // Whatever isn't a file would keep the opening waiting.
    Posix::Descriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file)
    {
        cause = Posix::CauseOf(errno);
        return file;
    }
    struct stat status = {};
    if (::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
    {
        cause = FileCause::AccessDenied;
        return Posix::Descriptor();
    }
    if (const int error = LockAgainstWriters(file.Get()); error != 0)
    {
        cause = Posix::CauseOf(error);
        return Posix::Descriptor();
    }
    cause = FileCause::None;
    return file;
}

std::wstring UserName(uid_t user)
{
    std::array<char, 4096> buffer = {};
    struct passwd entry = {};
    struct passwd* found = nullptr;
    ::getpwuid_r(user, &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? Posix::PathText(found->pw_name) : std::to_wstring(user);
}

/// The process that has the lock on a file, from a line of the system's list of locks.
std::optional<pid_t> ProcessOfLock(const std::string& line, const struct stat& file)
{
    int process = 0;
    unsigned major = 0;
    unsigned minor = 0;
    std::uintmax_t inode = 0;
    const bool understood =
        std::sscanf(line.c_str(), "%*s FLOCK %*s %*s %d %x:%x:%" SCNuMAX, &process, &major, &minor, &inode) == 4;
    const bool same = understood && process > 0 && makedev(major, minor) == file.st_dev && inode == file.st_ino;
    return same ? std::optional<pid_t>(process) : std::nullopt;
}

} // namespace

HeldFile::HeldFile(std::wstring path, std::unique_ptr<State> state) : m_path(std::move(path)), m_state(std::move(state))
{
}

HeldFile::~HeldFile() = default;

std::unique_ptr<HeldFile> HeldFile::Open(const std::wstring& path, FileCause& cause)
{
    const std::string bytes = Posix::PathBytes(path);
    constexpr int MostTries = 10;
    for (int round = 0; round < MostTries; ++round)
    {
        Posix::Descriptor file = OpenOnce(bytes, cause);
        if (!file)
        {
            return nullptr;
        }
        if (IsStillThere(file.Get(), bytes))
        {
            return std::unique_ptr<HeldFile>(new HeldFile(path, std::make_unique<State>(State{ std::move(file) })));
        }
    }
    cause = FileCause::SharingViolation; // someone replaces it over and over
    return nullptr;
}

std::wstring UserHoldingFile(const std::wstring& path)
{
    struct stat file = {};
    if (::stat(Posix::PathBytes(path).c_str(), &file) != 0)
    {
        return {};
    }
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);)
    {
        const std::optional<pid_t> process = ProcessOfLock(line, file);
        struct stat owner = {};
        if (process && ::stat(("/proc/" + std::to_string(*process)).c_str(), &owner) == 0)
        {
            return UserName(owner.st_uid);
        }
    }
    return {};
}

} // namespace Platform
