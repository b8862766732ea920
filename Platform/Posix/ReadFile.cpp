#include "Platform/Posix/FileOperations.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <tuple>

namespace Platform::Posix
{
namespace
{

struct FreeDeleter
{
    void operator()(void* data) const { std::free(data); }
};

using Buffer = std::unique_ptr<char, FreeDeleter>;

bool Grow(Buffer& buffer, std::size_t capacity)
{
    auto* grown = static_cast<char*>(std::realloc(buffer.get(), capacity));
    if (grown == nullptr)
    {
        return false;
    }
    std::ignore = buffer.release(); // realloc has freed it or given it back
    buffer.reset(grown);
    return true;
}

/// Reads from an open file to its end.
std::optional<FileBytes> ReadToEnd(FileOperations& operations, int file)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !S_ISREG(status.st_mode))
    {
        return std::nullopt;
    }
    // The size is only a guess: the file may grow or shrink while it is read, and some
    // file systems tell none. The one byte more finds the end without growing again.
    constexpr std::size_t MostAtOnce = std::size_t(1) << 24;
    std::size_t capacity = std::min<std::uintmax_t>(static_cast<std::uintmax_t>(status.st_size), MostAtOnce) + 1;
    std::size_t size = 0;
    Buffer buffer;
    if (!Grow(buffer, capacity))
    {
        return std::nullopt;
    }
    for (;;)
    {
        if (size == capacity)
        {
            if (capacity > SIZE_MAX / 2 || !Grow(buffer, capacity * 2))
            {
                return std::nullopt;
            }
            capacity *= 2;
        }
        const ssize_t count = operations.Read(file, buffer.get() + size, capacity - size);
        if (count < 0 && errno == EINTR)
        {
            continue;
        }
        if (count < 0)
        {
            return std::nullopt;
        }
        if (count == 0)
        {
            break;
        }
        size += static_cast<std::size_t>(count);
    }
    if (capacity - size > size / 8 + 4096)
    {
        // If the smaller block isn't to be had, the larger one serves as well.
        std::ignore = Grow(buffer, size + 1);
    }
    return FileBytes(buffer.release(), size);
}

} // namespace

std::optional<FileBytes> ReadWholeFileWith(FileOperations& operations, const std::string& path)
{
    // Not to block on a pipe that nobody writes to; regular files aren't affected.
    const int file = operations.Open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0);
    if (file < 0)
    {
        return std::nullopt;
    }
    std::optional<FileBytes> bytes = ReadToEnd(operations, file);
    // Nothing was written, so closing can't lose anything.
    std::ignore = operations.Close(file);
    return bytes;
}

} // namespace Platform::Posix

namespace Platform
{

std::optional<FileBytes> ReadWholeFile(const std::wstring& path)
{
    Posix::FileOperations operations;
    return Posix::ReadWholeFileWith(operations, NativePath(path).native());
}

} // namespace Platform
