#pragma once

#include <cstdint>

/// What a language library exports: the text of a number, or null. The text lives as long
/// as the library is loaded.
extern "C" __attribute__((visibility("default"))) const wchar_t* VantrelResourceText(std::uint32_t number);

namespace Platform::Posix
{

using ResourceTextFunction = decltype(&VantrelResourceText);
inline constexpr const char* ResourceTextExport = "VantrelResourceText";

} // namespace Platform::Posix
