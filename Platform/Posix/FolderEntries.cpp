#include "Platform/FolderEntries.h"

#include "Platform/Files.h"
#include "Platform/Posix/FolderHandle.h"
#include "Platform/Posix/PathBytes.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Platform
{
namespace
{

bool IsFolder(DIR* folder, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
    {
        return entry.d_type == DT_DIR;
    }
    struct stat status = {};
    return ::fstatat(::dirfd(folder), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::optional<std::vector<FolderEntry>> FolderEntries(const std::wstring& folder)
{
    const Posix::FolderHandle open(::opendir(NativePath(folder).c_str()));
    if (open == nullptr)
    {
        return std::nullopt;
    }
    std::vector<FolderEntry> entries;
    errno = 0;
    while (const dirent* const entry = ::readdir(open.get()))
    {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
        {
            entries.push_back({ Posix::PathText(name), IsFolder(open.get(), *entry) });
        }
        errno = 0; // only an error of the listing itself counts
    }
    return errno == 0 ? std::optional(std::move(entries)) : std::nullopt;
}

bool RemoveEmptyFolder(const std::wstring& folder)
{
    return ::rmdir(NativePath(folder).c_str()) == 0 || errno == ENOENT;
}

} // namespace Platform
