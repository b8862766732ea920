#include "Platform/Files.h"
#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/PathBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace Platform
{
namespace
{

constexpr mode_t AllMayUse = 0777; // as far as the user's mask goes
constexpr mode_t UserOnly = 0700;

bool MakeOneFolder(const std::wstring& path, mode_t mode)
{
    if (::mkdir(NativePath(path).c_str(), mode) != 0)
    {
        return FolderExists(path);
    }
    // What is to be safe in the new folder is lost with the folder's own entry. Where that
    // can't be flushed it goes to the disk with all the rest, a little later.
    const Posix::Descriptor above(::open(NativePath(FolderPart(path)).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::ignore = !above || ::fsync(above.Get()) == 0;
    return true;
}

bool MakeFolders(const std::wstring& path, mode_t mode)
{
    if (MakeOneFolder(path, mode))
    {
        return true;
    }
    // From the top down: the folders above a missing one may be missing too.
    for (std::size_t separator = path.find(L'/', 1); separator != std::wstring::npos;
         separator = path.find(L'/', separator + 1))
    {
        if (!MakeOneFolder(path.substr(0, separator), mode))
        {
            return false;
        }
    }
    return MakeOneFolder(path, mode);
}

} // namespace

bool FolderExists(const std::wstring& path)
{
    struct stat status = {};
    return ::stat(NativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool MakeFolder(const std::wstring& path)
{
    return MakeOneFolder(path, AllMayUse);
}

bool MakeFolderTree(const std::wstring& path)
{
    return MakeFolders(path, AllMayUse);
}

bool MakePrivateFolderTree(const std::wstring& path)
{
    return MakeFolders(path, UserOnly);
}

} // namespace Platform
