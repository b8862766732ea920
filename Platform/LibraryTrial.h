#pragma once

#include "Platform/Library.h"

#include <string>

/// Loading of libraries that nothing is known about.
namespace Platform
{

/// Loads a library in a process of its own, where what it does as it is loaded can't harm the
/// running program. False if it can't be loaded, ends that process or takes longer than ten
/// seconds; true also if no process can be made. It runs no other code of the library.
bool LoadsWithoutHarm(const std::wstring& path);

/// Loads a library by path. Null if it can't be loaded; `problem` then gets the reason in the
/// system's words, and nothing for a file that isn't a library of this system or isn't there
/// in full.
LibraryHandle OpenLibraryFile(const std::wstring& path, std::wstring& problem);

} // namespace Platform
