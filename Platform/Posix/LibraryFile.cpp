#include "Platform/Posix/LibraryFile.h"

#include "Platform/Files.h"
#include "Platform/Posix/FolderHandle.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Text.h"

#include <algorithm>
#include <sys/stat.h>
#include <vector>

namespace Platform::Posix
{
namespace
{

bool HasKind(const std::string& path, mode_t kind)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

/// Names in the folder that match without regard to case, in an order that doesn't
/// depend on how the folder is stored.
std::vector<std::string> MatchingNames(const std::string& folder, const std::wstring& wanted)
{
    std::vector<std::string> names;
    const FolderHandle open(::opendir(folder.empty() ? "/" : folder.c_str()));
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr)
    {
        if (EqualsNoCase(PathText(entry->d_name), wanted))
        {
            names.emplace_back(entry->d_name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Finds the rest of a path, `parts` from `index` on, in a folder.
std::optional<std::string> FindBelow(const std::string& folder, const std::vector<std::wstring>& parts,
                                     std::size_t index)
{
    const bool last = index + 1 == parts.size();
    const auto tryName = [&](const std::string& name) -> std::optional<std::string>
    {
        std::string path = folder + '/' + name;
        if (!HasKind(path, last ? S_IFREG : S_IFDIR))
        {
            return std::nullopt;
        }
        return last ? std::move(path) : FindBelow(path, parts, index + 1);
    };
    // As it is written first. It also leads through folders that may be entered but not listed.
    const std::string exact = PathBytes(parts[index]);
    if (auto found = exact.empty() ? std::nullopt : tryName(exact))
    {
        return found;
    }
    for (const std::string& name : MatchingNames(folder, parts[index]))
    {
        if (auto found = name != exact ? tryName(name) : std::nullopt)
        {
            return found;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> FindLibraryFile(const std::wstring& path)
{
    const std::wstring absolute = AbsolutePath(path);
    std::string bytes = PathBytes(absolute);
    if (HasKind(bytes, S_IFREG))
    {
        return bytes;
    }
    std::vector<std::wstring> parts;
    for (std::size_t start = 1; start <= absolute.size();)
    {
        const std::size_t end = std::min(absolute.find(L'/', start), absolute.size());
        parts.push_back(absolute.substr(start, end - start));
        start = end + 1;
    }
    // No file lies deeper than the system's longest path reaches.
    constexpr std::size_t MostParts = 2048;
    if (!IsAbsolutePath(absolute) || parts.empty() || parts.size() > MostParts)
    {
        return std::nullopt;
    }
    return FindBelow({}, parts, 0);
}

} // namespace Platform::Posix
