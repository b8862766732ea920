#pragma once

#include <Vantrel/Export.h>

#include <string>

/// The log of the program and of its modules: one file, one line an entry, UTF-8.
class VANTREL_API CVantrelLog
{
public:
    /// Starts logging at the end of the file. A file that can't be opened leaves the log
    /// closed.
    static void OpenLogFile(std::wstring path);

    /// Ends logging. Harmless without a log.
    static void CloseLogFile();

    /// Writes one entry and flushes it. Harmless without a log. Line breaks in the text
    /// are written as blanks.
    static void PrintMessage(const std::wstring& text, const char* sourceFile, int line);
};
