#pragma once

#include <string>
#include <string_view>

/// The patterns of file names that the system's file dialog takes.
namespace Platform
{

/// A pattern such as `*.vrf` in the form by which the system's file dialog lists files without
/// regard to case. Several patterns are separated by `;`, here and in the result. No one but the
/// dialog can read the result: it may name no extension any more.
std::wstring FilePattern(std::wstring_view pattern);

} // namespace Platform
