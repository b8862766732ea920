#pragma once

#include <optional>
#include <string>
#include <vector>

/// What lies in a folder.
namespace Platform
{

struct FolderEntry
{
    std::wstring name;
    bool isFolder = false; ///< A link to a folder is none: it is removed like a file.
};

/// What lies in a folder, the folder itself and the one above left out, in no particular
/// order. Nothing if the folder can't be listed.
std::optional<std::vector<FolderEntry>> FolderEntries(const std::wstring& folder);

/// Removes an empty folder. True if it is gone afterwards.
bool RemoveEmptyFolder(const std::wstring& folder);

} // namespace Platform
