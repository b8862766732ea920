#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

/// Files of the C library by wide path, with positions of 64 bits on every system.
namespace Platform
{

enum class StandardFileUse
{
    Read,    ///< an existing file
    Replace, ///< a new file, or an existing one without what it held
};

/// Opens a file in binary mode. Null if it can't be opened; a folder never can. The caller
/// closes it with `fclose`.
std::FILE* OpenStandardFile(const std::wstring& path, StandardFileUse use);

/// Moves the position; `origin` is that of `fseek`. False if it didn't move.
bool SeekStandardFile(std::FILE* file, std::int64_t offset, int origin);

/// The position, or -1.
std::int64_t StandardFilePosition(std::FILE* file);

} // namespace Platform
