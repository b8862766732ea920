#include "Platform/Posix/FileOperations.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <random>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace Platform::Posix
{
namespace
{

enum class Outcome
{
    Done,
    Failed,
    NotPossibleHere, ///< Nothing is wrong with the file, but it can't be replaced; write in place.
};

/// Keeps a pipe without a reader from ending the process; the write just fails.
class PipeSignalGuard
{
public:
    PipeSignalGuard()
    {
        sigset_t pending;
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        m_wasPending = sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
        m_blocked = pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before) == 0;
    }

    ~PipeSignalGuard()
    {
        if (!m_blocked)
        {
            return;
        }
        if (!m_wasPending)
        {
            const timespec noWait = {};
            while (sigtimedwait(&m_pipe, nullptr, &noWait) < 0 && errno == EINTR)
            {
            }
        }
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }

    PipeSignalGuard(const PipeSignalGuard&) = delete;
    PipeSignalGuard& operator=(const PipeSignalGuard&) = delete;

private:
    sigset_t m_pipe;
    sigset_t m_before;
    bool m_wasPending = false;
    bool m_blocked = false;
};

/// The file that a path leads to at the end of its links, be it there or not. Empty if
/// the links go in a circle.
std::string FollowLinks(std::string path)
{
    constexpr int MostLinks = 40;
    std::array<char, PATH_MAX> target = {};
    for (int links = 0; links < MostLinks; ++links)
    {
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0)
        {
            return path;
        }
        std::string next(target.data(), static_cast<std::size_t>(length));
        const std::size_t separator = path.rfind('/');
        if (next.empty() || next.front() == '/' || separator == std::string::npos)
        {
            path = std::move(next);
        }
        else
        {
            path = path.substr(0, separator + 1) + next;
        }
    }
    return {};
}

std::string FolderOf(const std::string& path)
{
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? std::string("./") : path.substr(0, separator + 1);
}

using Pieces = std::span<const std::string_view>;

bool WriteAll(FileOperations& operations, int file, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t count = operations.Write(file, bytes.data(), bytes.size());
        if (count > 0)
        {
            bytes.remove_prefix(static_cast<std::size_t>(count));
            continue;
        }
        if (count < 0 && errno == EINTR)
        {
            continue;
        }
        if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK))
        {
            // Only pipes come here. A reader that takes nothing for so long has gone astray.
            constexpr int MostWait = 5000;
            pollfd waiting = { file, POLLOUT, 0 };
            if (::poll(&waiting, 1, MostWait) > 0)
            {
                continue;
            }
        }
        return false;
    }
    return true;
}

bool WriteAll(FileOperations& operations, int file, Pieces pieces)
{
    return std::all_of(pieces.begin(), pieces.end(),
                       [&](std::string_view piece) { return WriteAll(operations, file, piece); });
}

off_t SizeOf(Pieces pieces)
{
    off_t size = 0;
    for (const std::string_view piece : pieces)
    {
        size += static_cast<off_t>(piece.size());
    }
    return size;
}

bool Flush(FileOperations& operations, int file)
{
    // What can't be flushed at all, like a device, is as safe as it gets.
    return operations.Sync(file) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

/// Writes the contents over what the file holds. `regular` tells whether there is
/// something to cut off behind them.
bool WriteInPlace(FileOperations& operations, const std::string& path, Pieces pieces, bool regular)
{
    const PipeSignalGuard guard;
    const int file = operations.Open(path, O_WRONLY | O_NOCTTY | O_CLOEXEC | (regular ? 0 : O_NONBLOCK), 0);
    if (file < 0)
    {
        return false;
    }
    bool good = true;
    const off_t size = SizeOf(pieces);
    if (regular && size != 0)
    {
        // A full disk shows itself here, while the old contents are still whole.
        const bool reserved = operations.Reserve(file, size) == 0;
        good = reserved || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
    }
    good = good && WriteAll(operations, file, pieces);
    good = good && (!regular || operations.Truncate(file, size) == 0);
    good = good && Flush(operations, file);
    return operations.Close(file) == 0 && good;
}

/// A temporary file beside the target. Gone at the end unless it took the target's place.
class TemporaryFileBeside
{
public:
    TemporaryFileBeside(FileOperations& operations, const std::string& folder, mode_t mode) : m_operations(operations)
    {
        std::random_device random;
        for (int tries = 0; tries < 16; ++tries)
        {
            std::array<char, 32> name = {};
            std::snprintf(name.data(), name.size(), ".vantrel-%08x%08x", random(), random());
            m_path = folder + name.data();
            // The name is new by O_EXCL, so no link that waits under it is followed.
            m_file = operations.Open(m_path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
            if (m_file >= 0 || errno != EEXIST)
            {
                m_exists = m_file >= 0;
                return;
            }
        }
    }

    ~TemporaryFileBeside()
    {
        if (m_file >= 0)
        {
            std::ignore = m_operations.Close(m_file); // given up already
        }
        if (m_exists)
        {
            ::unlink(m_path.c_str());
        }
    }

    TemporaryFileBeside(const TemporaryFileBeside&) = delete;
    TemporaryFileBeside& operator=(const TemporaryFileBeside&) = delete;

    int File() const { return m_file; }

    bool Close()
    {
        const int file = std::exchange(m_file, -1);
        return m_operations.Close(file) == 0;
    }

    bool TakePlaceOf(const std::string& target)
    {
        if (m_operations.Rename(m_path, target) != 0)
        {
            return false;
        }
        m_exists = false;
        return true;
    }

private:
    FileOperations& m_operations;
    std::string m_path;
    int m_file = -1;
    bool m_exists = false;
};

/// Gives the new file the owner and the permissions of the old one.
bool KeepPermissions(FileOperations& operations, int file, const struct stat& old)
{
    struct stat made = {};
    if (::fstat(file, &made) != 0)
    {
        return false;
    }
    if ((made.st_uid != old.st_uid || made.st_gid != old.st_gid) &&
        operations.ChangeOwner(file, old.st_uid, old.st_gid) != 0)
    {
        return false;
    }
    // After the owner, since changing that takes bits away.
    constexpr mode_t PermissionBits = 07777;
    return ::fchmod(file, old.st_mode & PermissionBits) == 0;
}

/// Puts the contents into a new file and that into the place of `target`. `old` is null
/// if there is no such file yet.
Outcome ReplaceByNewFile(FileOperations& operations, const std::string& target, const struct stat* old, Pieces pieces)
{
    const std::string folder = FolderOf(target);
    // Nobody else may read the contents before the permissions are those of the old file.
    TemporaryFileBeside temporary(operations, folder, old != nullptr ? 0600 : 0666);
    if (temporary.File() < 0)
    {
        const bool refused = errno == EACCES || errno == EPERM || errno == EROFS;
        return refused ? Outcome::NotPossibleHere : Outcome::Failed;
    }
    if (old != nullptr && !KeepPermissions(operations, temporary.File(), *old))
    {
        return Outcome::NotPossibleHere;
    }
    if (!WriteAll(operations, temporary.File(), pieces) || !Flush(operations, temporary.File()) || !temporary.Close())
    {
        return Outcome::Failed;
    }
    if (!temporary.TakePlaceOf(target))
    {
        // A folder may guard its files against others than their owners, and a file may be mounted.
        const bool refused = errno == EACCES || errno == EPERM || errno == EBUSY;
        return refused ? Outcome::NotPossibleHere : Outcome::Failed;
    }
    const int folderFile = operations.Open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (folderFile >= 0)
    {
        // The new contents are in place whatever comes of it; only a power failure in the
        // next seconds could still bring back the old ones, and those are whole too.
        std::ignore = operations.Sync(folderFile);
        std::ignore = operations.Close(folderFile);
    }
    return Outcome::Done;
}

} // namespace

bool ReplaceFileWith(FileOperations& operations, const std::string& path, std::string_view bytes)
{
    return ReplaceFileWith(operations, path, Pieces(&bytes, 1));
}

bool ReplaceFileWith(FileOperations& operations, const std::string& path, Pieces pieces)
{
    const std::string target = FollowLinks(path);
    if (target.empty())
    {
        return false;
    }
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
    {
        return false;
    }
    if (exists && (S_ISDIR(old.st_mode) || ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0))
    {
        return false;
    }
    if (exists && !S_ISREG(old.st_mode))
    {
        return WriteInPlace(operations, target, pieces, false);
    }
    switch (ReplaceByNewFile(operations, target, exists ? &old : nullptr, pieces))
    {
    case Outcome::Done:
        return true;
    case Outcome::NotPossibleHere:
        return exists && WriteInPlace(operations, target, pieces, true);
    case Outcome::Failed:
        break;
    }
    return false;
}

} // namespace Platform::Posix

namespace Platform
{

bool SaveFileWhole(const std::wstring& path, std::string_view bytes)
{
    return SaveFileWhole(path, std::span(&bytes, 1));
}

bool SaveFileWhole(const std::wstring& path, std::span<const std::string_view> pieces)
{
    Posix::FileOperations operations;
    return Posix::ReplaceFileWith(operations, NativePath(path).native(), pieces);
}

} // namespace Platform
