#pragma once

#include "Help/HelpTopics.h"

#include <string>

/// Path of the help file in the folder of a language. `programPath` is the full path of the
/// program's file, one level below the root of what is installed.
std::wstring HelpFilePath(const std::wstring& programPath, const std::wstring& languageFolder);

/// Shows a topic of a help file by the framework library that lies beside the program. False
/// if help could not be shown, as for a file that isn't there.
bool ShowHelpFile(const std::wstring& programPath, const std::wstring& helpFile, HelpTopic topic);
