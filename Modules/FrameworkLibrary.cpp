#include "Modules/FrameworkLibrary.h"

#include "Platform/Files.h"

#include <string>

namespace
{

// The library is spelled in several ways in the field; all mean one file.
constexpr const wchar_t* FrameworkName = L"VantrelFrameworku.dll";
constexpr const wchar_t* ProgramName = L"VantrelRuleBuilderu.exe";

} // namespace

Platform::LibraryHandle LoadFrameworkLibrary()
{
    if (const Platform::LibraryHandle loaded = Platform::FindLoadedLibrary(FrameworkName))
    {
        return loaded;
    }
    const Platform::LibraryHandle program = Platform::FindLoadedLibrary(ProgramName);
    if (program == nullptr)
    {
        return nullptr;
    }
    const std::wstring folder = Platform::FolderPart(Platform::LibraryPath(program));
    if (const Platform::LibraryHandle beside =
            Platform::OpenLibraryFileWithItsFolder(folder + Platform::PathSeparator + FrameworkName))
    {
        return beside;
    }
    return Platform::OpenLibraryFile(FrameworkName);
}
