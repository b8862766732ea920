#pragma once

#include <string>

namespace Platform::Posix
{

/// Full path of the program's file of a process, given by its number or "self". Empty if it
/// can't be told, as for another user's process.
std::string ProgramFileOf(const std::string& process);

} // namespace Platform::Posix
