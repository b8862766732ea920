#include "Application/HelpFile.h"

#include "Modules/FrameworkLibrary.h"
#include "Platform/Files.h"

#include <Vantrel/FrameworkFunctions.h>

namespace
{

constexpr const wchar_t* FrameworkName = L"vantrelframeworku.dll";

std::wstring Joined(const std::wstring& folder, const std::wstring& name)
{
    return folder + Platform::PathSeparator + name;
}

} // namespace

std::wstring HelpFilePath(const std::wstring& programPath, const std::wstring& languageFolder)
{
    const std::wstring root = Platform::FolderPart(Platform::FolderPart(programPath));
    // In lower case, other than where the texts are loaded: the framework library gets this
    // path as it has always got it, and finds the file in `Lang` too.
    return Joined(Joined(Joined(root, L"lang"), languageFolder), L"vantrel.chm");
}

bool ShowHelpFile(const std::wstring& programPath, const std::wstring& helpFile, HelpTopic topic)
{
    // The help is that of this installation, so it is never shown by another one's library.
    const Platform::LibraryHandle framework =
        Platform::OpenLibraryFileWithItsFolder(Joined(Platform::FolderPart(programPath), FrameworkName));
    int shown = 0;
    if (const auto show = FindFrameworkFunction<ShowQOXHelpFunction>(framework, "ShowQOXHelp"))
    {
        show(helpFile, static_cast<unsigned int>(topic), &shown);
    }
    Platform::ReleaseLibrary(framework);
    return shown != 0;
}
