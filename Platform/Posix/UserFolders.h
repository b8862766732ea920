#pragma once

#include <string>

/// The folders that programs of all kinds share, without a separator at their end.
namespace Platform::Posix
{

/// Where users keep settings.
std::wstring ConfigurationRoot();

/// Where programs keep data of the user.
std::wstring DataRoot();

} // namespace Platform::Posix
