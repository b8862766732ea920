#pragma once

#include "Platform/PathStyle.h"

#include <cstdint>
#include <string>
#include <string_view>

// Folders as users and settings name them.

/// What `CheckFolderPath` comes to.
enum FolderCheck : std::uint32_t
{
    FolderUsable = 0,
    FolderMissing = 1, ///< A full path at which there is no folder.
    FolderNotWritable = 2,
    FolderPathInvalid = 3, ///< Empty, or no full path.
};

/// Tells whether a text names a folder in which files can be made, by making one.
std::uint32_t CheckFolderPath(const std::wstring& path);

/// The folder that `CheckFolderPath` looks at: with the system's separators, without a `.` at
/// the very end, with a separator at its end. Empty if nothing is left of the text.
std::wstring FolderToCheck(std::wstring path, const Platform::PathStyle& style = Platform::SystemPaths);

/// True for what `FolderToCheck` gives if it begins with a drive and its root, with a network
/// share, or, in the style without drives, with the root.
bool IsWellFormedFolder(std::wstring_view path, const Platform::PathStyle& style = Platform::SystemPaths);

/// Removes a folder with everything in it. What can't be deleted stays, and with it the
/// folders that it is in. Links in it are removed, what they lead to isn't. An empty path, a
/// root and a link in the folder's place are left alone: no caller can mean them.
void RemoveFolderTree(const std::wstring& folder);
