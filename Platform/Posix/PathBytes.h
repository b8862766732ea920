#pragma once

#include <string>
#include <string_view>

/// Paths and other text that the system holds as bytes.
///
/// They are in the code page of the locale. In the locale "C", which has no characters
/// beyond ASCII, they are taken as UTF-8, because files with other names are there all the same.
namespace Platform::Posix
{

/// The bytes of a path. Empty, which no file has as its name, if the path can't be
/// written exactly: a path with replaced characters would be another file's.
std::string PathBytes(std::wstring_view path);

/// The text of a path that the system gave.
std::wstring PathText(std::string_view bytes);

} // namespace Platform::Posix
