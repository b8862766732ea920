#pragma once

#include <string>

/// Hashes a file's bytes as they stand on disk: `digest` becomes the MD5 as 32 lower-case
/// hexadecimal digits. 0 if the file can't be read to its end, with `digest` untouched;
/// else another value.
int MD5OfFile(const std::wstring& path, std::wstring& digest);
