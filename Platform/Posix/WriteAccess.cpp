#include "Platform/Files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform
{

bool CanWriteFile(const std::wstring& path)
{
    const std::filesystem::path native = NativePath(path);
    struct stat status
    {
    };
    if (::stat(native.c_str(), &status) == 0)
    {
        return !S_ISDIR(status.st_mode) && ::faccessat(AT_FDCWD, native.c_str(), W_OK, AT_EACCESS) == 0;
    }
    if (errno != ENOENT || native.empty())
    {
        return false;
    }
    const std::filesystem::path folder = native.has_parent_path() ? native.parent_path() : ".";
    return ::stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace Platform
