#pragma once

#include <string>

/// Writes a line to the log, with `%s` in the format replaced by the argument. Harmless
/// while no log is open.
void LogMessage(const std::wstring& format, const std::wstring& argument = {});

/// Wide text in the system code page, for the byte forms of paths and attributes.
/// Characters that the code page lacks are replaced.
std::string ToNarrow(const std::wstring& text);
