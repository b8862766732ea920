#pragma once

#include <optional>
#include <string>

namespace Platform::Posix
{

/// The regular file that a path means without regard to case, as bytes and absolute. A
/// part of the path that exists as it is written goes before others. Nothing if there is none.
std::optional<std::string> FindLibraryFile(const std::wstring& path);

} // namespace Platform::Posix
