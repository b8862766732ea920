#include "Platform/Posix/CompoundFile/ByteSource.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform::Posix::CompoundFile
{

StorageStatus FileSource::Open(const std::string& path, std::unique_ptr<ByteSource>& source)
{
    // Not to block on a pipe that nobody writes to; regular files aren't affected.
    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0)
    {
        switch (errno)
        {
        case ENOENT:
        case ENOTDIR:
            return StorageStatus::NotFound;
        case EACCES:
        case EPERM:
            return StorageStatus::AccessDenied;
        default:
            return StorageStatus::Failed;
        }
    }
    struct stat status = {};
    const bool regular = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    // The object closes the file whatever comes of it.
    std::unique_ptr<ByteSource> opened(new FileSource(file, static_cast<std::uint64_t>(status.st_size)));
    if (!regular)
    {
        return StorageStatus::AccessDenied;
    }
    source = std::move(opened);
    return StorageStatus::Done;
}

FileSource::~FileSource()
{
    ::close(m_file);
}

bool FileSource::ReadAt(std::uint64_t offset, void* buffer, std::size_t count)
{
    if (offset > m_size || count > m_size - offset)
    {
        return false;
    }
    auto* to = static_cast<char*>(buffer);
    while (count > 0)
    {
        const ssize_t got = ::pread(m_file, to, count, static_cast<off_t>(offset));
        if (got < 0 && errno == EINTR)
        {
            continue;
        }
        if (got <= 0)
        {
            return false;
        }
        to += got;
        offset += static_cast<std::uint64_t>(got);
        count -= static_cast<std::size_t>(got);
    }
    return true;
}

bool MemorySource::ReadAt(std::uint64_t offset, void* buffer, std::size_t count)
{
    return offset <= std::numeric_limits<std::size_t>::max() &&
           m_block.Read(static_cast<std::size_t>(offset), buffer, count);
}

} // namespace Platform::Posix::CompoundFile
