#include "Platform/Posix/TemporaryFile.h"

#include "Platform/Posix/FolderHandle.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace Platform::Posix
{
namespace
{

constexpr std::string_view NamePrefix = ".vantrel-";
constexpr std::size_t NameDigits = 16;

bool IsTemporaryName(std::string_view name)
{
    return name.size() == NamePrefix.size() + NameDigits && name.starts_with(NamePrefix) &&
           name.find_first_not_of("0123456789abcdef", NamePrefix.size()) == std::string_view::npos;
}

/// Removes a file that whoever made it left behind. `now` is the time of the file system.
void RemoveIfLeftOver(int folder, const char* name, time_t now)
{
    // No save takes so long. Where locks don't reach to other machines this alone keeps
    // theirs from being taken for left over.
    constexpr time_t LeastAge = 600;
    const Descriptor file(::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status = {};
    if (file && ::fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode) && now - status.st_mtime >= LeastAge &&
        ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0)
    {
        ::unlinkat(folder, name, 0);
    }
}

} // namespace

std::string FolderOf(const std::string& path)
{
    const std::size_t separator = path.rfind('/');
    return separator == std::string::npos ? std::string("./") : path.substr(0, separator + 1);
}

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
            errno = EIO;
        }
        return false;
    }
    return true;
}

bool Flush(FileOperations& operations, int file)
{
    return operations.Sync(file) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

TemporaryFile::TemporaryFile(FileOperations& operations, const std::string& folder, mode_t mode)
    : m_operations(operations), m_folder(folder)
{
    std::random_device random;
    for (int tries = 0; tries < 16; ++tries)
    {
        std::array<char, 32> name = {};
        std::snprintf(name.data(), name.size(), "%.*s%08x%08x", static_cast<int>(NamePrefix.size()), NamePrefix.data(),
                      random(), random());
        m_path = folder + name.data();
        // The name is new by O_EXCL, so no link that waits under it is followed.
        m_file = operations.Open(m_path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (m_file < 0 && errno == EEXIST)
        {
            continue;
        }
        m_exists = m_file >= 0;
        if (!m_exists || TakeLock())
        {
            return;
        }
        // Someone took it for left over before it had its lock.
        std::ignore = operations.Close(std::exchange(m_file, -1));
        ::unlink(m_path.c_str());
        m_exists = false;
        errno = EEXIST;
    }
}

TemporaryFile::~TemporaryFile()
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

bool TemporaryFile::TakeLock()
{
    // On a descriptor of its own: the file is closed before it takes the other's place.
    m_lock = Descriptor(::fcntl(m_file, F_DUPFD_CLOEXEC, 0));
    if (!m_lock || (::flock(m_lock.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK))
    {
        return false;
    }
    struct stat status = {};
    return ::fstat(m_lock.Get(), &status) == 0 && status.st_nlink > 0;
}

bool TemporaryFile::FlushAndClose()
{
    if (!Flush(m_operations, m_file))
    {
        return false;
    }
    const int file = std::exchange(m_file, -1);
    return m_operations.Close(file) == 0;
}

bool TemporaryFile::TakePlaceOf(const std::string& target)
{
    if (m_operations.Rename(m_path, target) != 0)
    {
        return false;
    }
    m_exists = false;
    const int folder = m_operations.Open(m_folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (folder >= 0)
    {
        // The new contents are in place whatever comes of it; only a power failure in the
        // next seconds could still bring back the old ones, and those are whole too.
        std::ignore = m_operations.Sync(folder);
        std::ignore = m_operations.Close(folder);
    }
    RemoveLeftOvers();
    return true;
}

void TemporaryFile::RemoveLeftOvers() const
{
    const FolderHandle folder(::opendir(m_folder.c_str()));
    struct stat now = {};
    if (folder == nullptr || ::fstat(m_lock.Get(), &now) != 0)
    {
        return;
    }
    while (const dirent* const entry = ::readdir(folder.get()))
    {
        if (IsTemporaryName(entry->d_name))
        {
            RemoveIfLeftOver(::dirfd(folder.get()), entry->d_name, now.st_mtime);
        }
    }
}

} // namespace Platform::Posix
