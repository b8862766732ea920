#pragma once

#include "Platform/Library.h"

#include <cstdint>
#include <string>

// Processes and their modules.

/// What `KillProcessByName` comes to.
enum KillProcessResult : std::uint32_t
{
    ProcessEnded = 0,
    ProcessNotEnded = 602,
    ProcessNotFound = 603,
    ProcessNotOpened = 604,     ///< It is gone again, or the user may not end it.
    ProcessNameInvalid = 632,   ///< Not 1 to 259 characters.
    ProcessListingFailed = 701, ///< The system can't list its processes.
};

/// Ends the first process whose program has this file name, without regard to case. The name
/// is in the system code page.
std::uint32_t KillProcessByName(const std::string& fileName);

/// File name of a loaded library with its extension. Empty for a null handle.
std::wstring GetModuleName(Platform::LibraryHandle module);

/// Folder of a loaded library, without a separator at its end. A null handle means the program.
std::wstring GetModuleFolder(Platform::LibraryHandle module);

/// Full path of a loaded library. A null handle means the program.
std::wstring GetModulePath(Platform::LibraryHandle module);
