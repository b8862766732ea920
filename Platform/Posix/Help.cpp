#include "Platform/Help.h"

#include "Platform/Posix/HelpPages.h"
#include "Platform/Posix/LibraryFile.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Process.h"

namespace Platform
{

bool ShowHelpTopic(const std::wstring& helpFile, unsigned int topic)
{
    const std::optional<std::string> file = Posix::FindLibraryFile(helpFile);
    if (!file)
    {
        return false;
    }
    const std::optional<std::string> page = Posix::HelpPageUrl(*file, topic);
    return OpenWithDesktop(Posix::PathText(page ? *page : *file));
}

} // namespace Platform
