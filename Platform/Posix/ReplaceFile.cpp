#include "Platform/Posix/FileError.h"
#include "Platform/Posix/FileOperations.h"
#include "Platform/Posix/TemporaryFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Platform::Posix
{
namespace
{

/// How an attempt to save ended, and the error if it didn't work.
struct Outcome
{
    enum class Kind
    {
        Done,
        Failed,
        NotPossibleHere, ///< Nothing is wrong with the file, but it can't be replaced; write in place.
    };

    Kind kind = Kind::Done;
    int error = 0;
};

Outcome Failed(int error)
{
    return { Outcome::Kind::Failed, error };
}

Outcome NotPossibleHere(int error)
{
    return { Outcome::Kind::NotPossibleHere, error };
}

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

using Pieces = std::span<const std::string_view>;

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

/// Writes the contents over what the open file holds. `regular` tells whether there is
/// something to cut off behind them. The error, or 0.
int Overwrite(FileOperations& operations, int file, Pieces pieces, bool regular, const BeforeReplacing& before)
{
    const off_t size = SizeOf(pieces);
    if (regular && size != 0 && operations.Reserve(file, size) != 0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG))
    {
        return errno; // a full disk shows itself here, while the old contents are still whole
    }
    if (regular && before)
    {
        before();
    }
    const bool good = WriteAll(operations, file, pieces) && (!regular || operations.Truncate(file, size) == 0) &&
                      Flush(operations, file);
    return good ? 0 : errno;
}

Outcome WriteInPlace(FileOperations& operations, const std::string& path, Pieces pieces, bool regular,
                     const BeforeReplacing& before)
{
    const PipeSignalGuard guard;
    const int file = operations.Open(path, O_WRONLY | O_NOCTTY | O_CLOEXEC | (regular ? 0 : O_NONBLOCK), 0);
    if (file < 0)
    {
        return Failed(errno);
    }
    const int error = Overwrite(operations, file, pieces, regular, before);
    const bool closed = operations.Close(file) == 0;
    if (error != 0)
    {
        return Failed(error);
    }
    return closed ? Outcome() : Failed(errno);
}

/// Gives the new file the list of further users and groups of the old one. Without it, the bits
/// for the group would give the owning group whatever the list allows at most.
bool KeepAccessList(int file, const std::string& target)
{
    constexpr const char* AccessList = "system.posix_acl_access";
    const ssize_t size = ::getxattr(target.c_str(), AccessList, nullptr, 0);
    if (size <= 0)
    {
        return size == 0 || errno == ENODATA || errno == ENOTSUP;
    }
    std::vector<char> list(static_cast<std::size_t>(size));
    const ssize_t read = ::getxattr(target.c_str(), AccessList, list.data(), list.size());
    return read > 0 && ::fsetxattr(file, AccessList, list.data(), static_cast<std::size_t>(read), 0) == 0;
}

/// Gives the new file the owner and the permissions of the old one.
bool KeepPermissions(FileOperations& operations, int file, const std::string& target, const struct stat& old)
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
    return ::fchmod(file, old.st_mode & PermissionBits) == 0 && KeepAccessList(file, target);
}

/// Puts the contents into a new file and that into the place of `target`. `old` is null
/// if there is no such file yet.
Outcome ReplaceByNewFile(FileOperations& operations, const std::string& target, const struct stat* old, Pieces pieces,
                         const BeforeReplacing& before)
{
    // Nobody else may read the contents before the permissions are those of the old file.
    TemporaryFile temporary(operations, FolderOf(target), old != nullptr ? 0600 : 0666);
    if (temporary.File() < 0)
    {
        const bool refused = errno == EACCES || errno == EPERM || errno == EROFS;
        return refused ? NotPossibleHere(errno) : Failed(errno);
    }
    if (old != nullptr && !KeepPermissions(operations, temporary.File(), target, *old))
    {
        return NotPossibleHere(errno);
    }
    if (!WriteAll(operations, temporary.File(), pieces) || !temporary.FlushAndClose())
    {
        return Failed(errno);
    }
    if (old != nullptr && before)
    {
        before();
    }
    if (!temporary.TakePlaceOf(target))
    {
        // A folder may guard its files against others than their owners, and a file may be mounted.
        const bool refused = errno == EACCES || errno == EPERM || errno == EBUSY;
        return refused ? NotPossibleHere(errno) : Failed(errno);
    }
    return {};
}

Outcome Replace(FileOperations& operations, const std::string& path, Pieces pieces, const BeforeReplacing& before)
{
    const std::string target = FollowLinks(path);
    if (target.empty())
    {
        return Failed(path.empty() ? ENOENT : ELOOP);
    }
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
    {
        return Failed(errno);
    }
    if (exists && S_ISDIR(old.st_mode))
    {
        return Failed(EISDIR);
    }
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
    {
        return Failed(errno);
    }
    if (exists && !S_ISREG(old.st_mode))
    {
        return WriteInPlace(operations, target, pieces, false, before);
    }
    bool called = false;
    const BeforeReplacing once = [&]
    {
        if (before && !std::exchange(called, true))
        {
            before();
        }
    };
    const Outcome outcome = ReplaceByNewFile(operations, target, exists ? &old : nullptr, pieces, once);
    const bool inPlace = outcome.kind == Outcome::Kind::NotPossibleHere && exists;
    return inPlace ? WriteInPlace(operations, target, pieces, true, once) : outcome;
}

} // namespace

bool ReplaceFileWith(FileOperations& operations, const std::string& path, std::string_view bytes)
{
    FileCause cause = FileCause::None;
    return ReplaceFileWith(operations, path, Pieces(&bytes, 1), {}, cause);
}

bool ReplaceFileWith(FileOperations& operations, const std::string& path, Pieces pieces, const BeforeReplacing& before,
                     FileCause& cause)
{
    const Outcome outcome = Replace(operations, path, pieces, before);
    const bool done = outcome.kind == Outcome::Kind::Done;
    // A write that takes nothing gives no error of its own.
    cause = done ? FileCause::None : CauseOf(outcome.error != 0 ? outcome.error : EIO);
    return done;
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
    FileCause cause = FileCause::None;
    return SaveFileWhole(path, pieces, {}, cause);
}

bool SaveFileWhole(const std::wstring& path, std::span<const std::string_view> pieces, const BeforeReplacing& before,
                   FileCause& cause)
{
    Posix::FileOperations operations;
    return Posix::ReplaceFileWith(operations, NativePath(path).native(), pieces, before, cause);
}

} // namespace Platform
