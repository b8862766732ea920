#pragma once

#include <cstdint>
#include <memory>
#include <string>

/// Writes a line to the log, with `%s` in the format replaced by the argument. Harmless
/// while no log is open.
void LogMessage(const std::wstring& format, const std::wstring& argument = {});

/// Same with every `%s` of the template replaced by the text.
void LogWithText(const std::wstring& format, const std::wstring& text);

/// Same with every `%d` of the template replaced by the number.
void LogWithNumber(const std::wstring& format, std::int32_t number);

/// Wide text in the system code page, for the byte forms of paths and attributes.
/// Characters that the code page lacks are replaced.
std::string ToNarrow(const std::wstring& text);

/// Same as bytes that end in a zero; null for an empty text.
std::unique_ptr<char[]> ToMultiByte(const std::wstring& text);
