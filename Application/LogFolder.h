#pragma once

#include <string>

/// Folder in which the log is written: `VANTREL_TEMPFOLDER`, else `TEMP`, else nothing.
std::wstring LogFolder();

/// Path of the log file in the folder.
std::wstring LogFilePath(const std::wstring& folder);
