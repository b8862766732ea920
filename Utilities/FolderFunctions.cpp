#include "Utilities/FolderFunctions.h"

#include "Platform/Files.h"
#include "Platform/FolderEntries.h"
#include "Platform/StandardFile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace
{

constexpr const wchar_t* TrialFile = L"_t.txt";

bool IsDriveLetter(wchar_t character)
{
    return (character >= L'A' && character <= L'Z') || (character >= L'a' && character <= L'z');
}

bool HasDriveForm(std::wstring_view path)
{
    return path.size() >= 3 && IsDriveLetter(path[0]) && path[1] == L':' && path[2] == L'\\';
}

/// `\\server\share\`, with neither name empty.
bool HasNetworkForm(std::wstring_view path)
{
    if (!path.starts_with(L"\\\\"))
    {
        return false;
    }
    const std::size_t behindServer = path.find(L'\\', 2);
    if (behindServer == std::wstring_view::npos || behindServer == 2)
    {
        return false;
    }
    const std::size_t behindShare = path.find(L'\\', behindServer + 1);
    return behindShare != std::wstring_view::npos && behindShare > behindServer + 1;
}

/// Makes a file in the folder and deletes it again. A file of the user's that has its name is
/// left as it is; that it may be written to tells the same.
bool CanMakeFileIn(const std::wstring& folder)
{
    const std::wstring path = folder + TrialFile;
    if (Platform::PathExists(path))
    {
        return Platform::CanWriteFile(path);
    }
    std::FILE* const file = Platform::OpenStandardFile(path, Platform::StandardFileUse::Replace);
    if (file == nullptr)
    {
        return false;
    }
    std::fclose(file);
    Platform::DeleteFileAt(path);
    return true;
}

bool IsRoot(const std::wstring& path)
{
    return path.find_first_not_of(Platform::PathSeparator) == std::wstring::npos || path.back() == L':';
}

void RemoveTreeBelow(const std::wstring& folder)
{
    for (const Platform::FolderEntry& entry :
         Platform::FolderEntries(folder).value_or(std::vector<Platform::FolderEntry>()))
    {
        const std::wstring path = folder + Platform::PathSeparator + entry.name;
        if (entry.isFolder)
        {
            RemoveTreeBelow(path);
        }
        else
        {
            Platform::DeleteFileAt(path);
        }
    }
    Platform::RemoveEmptyFolder(folder);
}

} // namespace

std::uint32_t CheckFolderPath(const std::wstring& path)
{
    const std::wstring folder = FolderToCheck(path);
    if (!IsWellFormedFolder(folder))
    {
        return FolderPathInvalid;
    }
    if (!Platform::PathExists(folder))
    {
        return FolderMissing;
    }
    return CanMakeFileIn(folder) ? FolderUsable : FolderNotWritable;
}

std::wstring FolderToCheck(std::wstring path, const Platform::PathStyle& style)
{
    if (style.otherSeparator != L'\0')
    {
        std::replace(path.begin(), path.end(), style.otherSeparator, style.separator);
    }
    if (path.ends_with(L'.'))
    {
        path.pop_back();
    }
    if (!path.empty() && path.back() != style.separator)
    {
        path += style.separator;
    }
    return path;
}

bool IsWellFormedFolder(std::wstring_view path, const Platform::PathStyle& style)
{
    return style.hasDrives ? HasDriveForm(path) || HasNetworkForm(path) : path.starts_with(style.separator);
}

void RemoveFolderTree(const std::wstring& folder)
{
    std::wstring path = folder;
    while (!path.empty() && path.back() == Platform::PathSeparator)
    {
        path.pop_back();
    }
    std::error_code error;
    if (!IsRoot(path) && !std::filesystem::is_symlink(Platform::NativePath(path), error))
    {
        RemoveTreeBelow(path);
    }
}
