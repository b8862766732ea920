#pragma once

#include <cstdint>
#include <string>

class IUserPrompt;

/// What a folder that a user or a setting names is good for.
enum DirectoryState : std::uint32_t
{
    DirectoryOk = 0,
    DirectoryMissing = 1, ///< A full path at which there is no folder.
    DirectoryNotWritable = 2,
    DirectoryInvalid = 3, ///< Empty, or no full path.
};

/// Tells what a folder is good for. Separators of either kind and a `.` at the end are fine.
DirectoryState CheckDirectoryPath(const std::wstring& path);

/// Before a command works in the script folder: asks whether a missing one is to be made (one
/// level only), and tells of every other trouble. The command goes on only with `DirectoryOk`.
DirectoryState ConfirmScriptLocation(const std::wstring& folder, IUserPrompt& prompt);

/// Same for a folder that the user has just named. One that can't be written to is only warned
/// of, so that `DirectoryNotWritable` is no reason against it.
DirectoryState ValidateDirectory(const std::wstring& path, IUserPrompt& prompt);
