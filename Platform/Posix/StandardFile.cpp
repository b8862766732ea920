#include "Platform/StandardFile.h"

#include "Platform/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform
{

static_assert(sizeof(off_t) == sizeof(std::int64_t), "archives have up to 4 GiB");

std::FILE* OpenStandardFile(const std::wstring& path, StandardFileUse use)
{
    // Not to block on a pipe that has nobody at its other end; regular files aren't affected.
    const int common = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int flags = use == StandardFileUse::Read ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
    const int descriptor = ::open(NativePath(path).c_str(), flags | common, 0666);
    if (descriptor < 0)
    {
        return nullptr;
    }
    struct stat status = {};
    std::FILE* file = nullptr;
    if (::fstat(descriptor, &status) == 0 && !S_ISDIR(status.st_mode))
    {
        file = ::fdopen(descriptor, use == StandardFileUse::Read ? "rb" : "wb");
    }
    if (file == nullptr)
    {
        ::close(descriptor);
    }
    return file;
}

bool SeekStandardFile(std::FILE* file, std::int64_t offset, int origin)
{
    return ::fseeko(file, offset, origin) == 0;
}

std::int64_t StandardFilePosition(std::FILE* file)
{
    return ::ftello(file);
}

} // namespace Platform
