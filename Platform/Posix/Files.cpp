#include "Platform/Files.h"

#include "Platform/Posix/PathBytes.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform
{

const wchar_t PathSeparator = L'/';
const char* const TextLineEnd = "\n";

namespace
{

std::optional<struct stat> StatusOf(const std::wstring& path)
{
    struct stat status = {};
    if (::stat(NativePath(path).c_str(), &status) != 0)
    {
        return std::nullopt;
    }
    return status;
}

/// True for a folder that is no link, so that `..` behind it leads back to where it lies.
bool IsRealFolder(const std::wstring& path)
{
    struct stat status = {};
    return ::lstat(NativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// Takes `.`, doubled separators and, where no link is in the way, `..` out of a path.
std::wstring Tidy(const std::wstring& path)
{
    std::wstring result;
    std::size_t start = 0;
    while (start <= path.size())
    {
        const std::size_t end = std::min(path.find(L'/', start), path.size());
        const std::wstring part = path.substr(start, end - start);
        start = end + 1;
        if (part.empty() || part == L".")
        {
            continue;
        }
        if (part == L".." && result.empty())
        {
            continue; // above the root is the root
        }
        if (part == L".." && FileNamePart(result) != L".." && IsRealFolder(result))
        {
            result = FolderPart(result);
            continue;
        }
        result += L'/';
        result += part;
    }
    const bool endsInFolder = path.size() > 1 && path.back() == L'/';
    return result.empty() || endsInFolder ? result + L'/' : result;
}

} // namespace

std::filesystem::path NativePath(const std::wstring& path)
{
    return std::filesystem::path(Posix::PathBytes(path));
}

std::wstring AbsolutePath(const std::wstring& path)
{
    if (path.empty())
    {
        return path;
    }
    std::wstring absolute = path;
    if (!IsAbsolutePath(path))
    {
        std::error_code error;
        const std::filesystem::path current = std::filesystem::current_path(error);
        if (error)
        {
            return path;
        }
        absolute = Posix::PathText(current.native()) + L'/' + path;
    }
    // Nearly every path is tidy, and this is asked for with each loaded library.
    const bool tidy = absolute.find(L"/.") == std::wstring::npos && absolute.find(L"//") == std::wstring::npos;
    return tidy ? absolute : Tidy(absolute);
}

std::wstring ResolvedPath(const std::wstring& path)
{
    struct Free
    {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Free> resolved(::realpath(NativePath(path).c_str(), nullptr));
    return resolved != nullptr ? Posix::PathText(resolved.get()) : AbsolutePath(path);
}

bool IsAbsolutePath(std::wstring_view path)
{
    return !path.empty() && path.front() == L'/';
}

bool PathExists(const std::wstring& path)
{
    return StatusOf(path).has_value();
}

bool IsSameFile(const std::wstring& path, const std::wstring& other)
{
    if (path == other)
    {
        return true;
    }
    const auto status = StatusOf(path);
    const auto otherStatus = StatusOf(other);
    return status && otherStatus && status->st_dev == otherStatus->st_dev && status->st_ino == otherStatus->st_ino;
}

bool FileExists(const std::wstring& path)
{
    const auto status = StatusOf(path);
    return status && !S_ISDIR(status->st_mode) &&
           ::faccessat(AT_FDCWD, NativePath(path).c_str(), R_OK, AT_EACCESS) == 0;
}

bool DeleteFileAt(const std::wstring& path)
{
    const std::filesystem::path native = NativePath(path);
    if (native.empty() || ::unlink(native.c_str()) == 0)
    {
        return true;
    }
    struct stat status = {};
    return ::lstat(native.c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

std::wstring TemporaryFolder()
{
    const char* configured = std::getenv("TMPDIR");
    std::wstring folder = configured != nullptr ? Posix::PathText(configured) : std::wstring();
    if (!IsAbsolutePath(folder) || !FolderExists(folder))
    {
        folder = L"/tmp";
    }
    if (!FolderExists(folder))
    {
        return {};
    }
    return folder.back() == L'/' ? folder : folder + L'/';
}

} // namespace Platform
