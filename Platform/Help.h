#pragma once

#include <string>

/// The user's help.
namespace Platform
{

/// Shows a topic of a help file (`.chm`). The path is matched without regard to case.
///
/// Where the system has no viewer for such files, the same topics lie as pages in the folder
/// `help` beside the file, with a list of their numbers, `topics.txt`; then the topic's page is
/// opened in the user's browser, or the first page of the list if the topic has none there. A
/// help file without such a folder is opened with what the user's desktop has for it.
///
/// False if the file doesn't exist or nothing could be started to show it.
bool ShowHelpTopic(const std::wstring& helpFile, unsigned int topic);

} // namespace Platform
