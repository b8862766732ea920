#include "Platform/FolderEntries.h"

#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform
{
namespace
{

struct FolderCloser
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

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
    const std::unique_ptr<DIR, FolderCloser> open(::opendir(NativePath(folder).c_str()));
    if (open == nullptr)
    {
        return std::nullopt;
    }
    std::vector<FolderEntry> entries;
    while (const dirent* const entry = ::readdir(open.get()))
    {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
        {
            entries.push_back({ Posix::PathText(name), IsFolder(open.get(), *entry) });
        }
    }
    return entries;
}

bool RemoveEmptyFolder(const std::wstring& folder)
{
    return ::rmdir(NativePath(folder).c_str()) == 0 || errno == ENOENT;
}

} // namespace Platform
