#pragma once

#include <string>
#include <string_view>

/// Loadable libraries.
///
/// Library paths are written with the suffix `.dll` on every system, in the configuration
/// and in memory; where libraries have another suffix it is put in when a file is looked
/// for. Paths of libraries are matched without regard to case on every system, because
/// the configuration keeps them in lower case.
namespace Platform
{

/// A loaded library. Null means none. Each successful load is released once.
using LibraryHandle = void*;

/// Address of an exported function. Cast to its type by the caller.
using LibrarySymbol = void (*)();

/// What the files of libraries end with on this system, the dot included.
extern const wchar_t* const LibrarySuffix;

/// True if a file lies at the path, under the name as it is written or with the system's own
/// suffix, whatever is in it. A folder is no file.
bool LibraryFileExists(const std::wstring& path);

/// Loads a library by path or bare name. Null if it can't be found or isn't one.
LibraryHandle OpenLibraryFile(const std::wstring& path);

/// Loads a library by full path so that its own dependencies are looked for in its
/// folder first. Null on failure.
LibraryHandle OpenLibraryFileWithItsFolder(const std::wstring& path);

/// A library (or the running program) that is already loaded, by full path or by file
/// name, without regard to case. No reference is taken; null if it isn't loaded.
LibraryHandle FindLoadedLibrary(const std::wstring& name);

/// Gives back one load. Null is allowed.
void ReleaseLibrary(LibraryHandle library);

/// An export of this very library, never one of a library that it depends on.
/// Null if it has none of that name.
LibrarySymbol FindLibrarySymbol(LibraryHandle library, const char* name);

/// Full path of the loaded file, with the suffix `.dll`. Empty for a null handle.
std::wstring LibraryPath(LibraryHandle library);

/// The library (or the program) that the function lies in. No reference is taken; null if
/// it can't be told.
LibraryHandle LibraryOfFunction(LibrarySymbol function);

/// A library path as it stands in the configuration: the system's own library suffix at
/// its end becomes `.dll`.
std::wstring ConfiguredLibraryName(std::wstring path);

} // namespace Platform
