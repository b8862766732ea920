#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Platform::Posix
{

/// What the file of a loadable library tells about itself.
struct ElfLibrary
{
    /// Names of the libraries that it depends on.
    std::vector<std::string> needed;
};

/// Looks into a file that is about to be loaded. Nothing if it isn't a library for this
/// machine or isn't there in full. The system's loader takes the file's word for the size
/// of its parts, and a truncated one would end the process.
std::optional<ElfLibrary> ReadElfLibrary(const std::string& path);

} // namespace Platform::Posix
