#include "Platform/Posix/FileOperations.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace Platform::Posix
{

int FileOperations::Open(const std::string& path, int flags, mode_t mode)
{
    return ::open(path.c_str(), flags, mode);
}

ssize_t FileOperations::Read(int file, void* data, std::size_t size)
{
    return ::read(file, data, size);
}

ssize_t FileOperations::Write(int file, const void* data, std::size_t size)
{
    return ::write(file, data, size);
}

int FileOperations::ChangeOwner(int file, uid_t user, gid_t group)
{
    return ::fchown(file, user, group);
}

int FileOperations::Reserve(int file, off_t size)
{
    return ::fallocate(file, FALLOC_FL_KEEP_SIZE, 0, size);
}

int FileOperations::Truncate(int file, off_t size)
{
    return ::ftruncate(file, size);
}

int FileOperations::Sync(int file)
{
    return ::fsync(file);
}

int FileOperations::Close(int file)
{
    return ::close(file);
}

int FileOperations::Rename(const std::string& from, const std::string& to)
{
    return std::rename(from.c_str(), to.c_str());
}

} // namespace Platform::Posix
