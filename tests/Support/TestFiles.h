#pragma once

#include <string>
#include <string_view>

/// Writes a file. Throws if it can't be written.
void WriteBytes(const std::wstring& path, std::string_view bytes);

/// Reads a file. Throws if it can't be read.
std::string ReadBytes(const std::wstring& path);
