#pragma once

#include <cstdint>
#include <string>

// Environment variables that are stored for programs to come.

/// Where the registry keeps environment variables.
struct EnvironmentKeys
{
    std::wstring machine = L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";
    std::wstring user = L"Environment";
};

/// For whom a variable is stored; every other value means the user.
inline constexpr std::uint32_t MachineScope = 0;
inline constexpr std::uint32_t UserScope = 1;

/// 1 if the user may change settings of the machine, else 0.
int CanWriteSoftwareKey();

/// Stores a variable. 1 if the store was opened and the value not taken; 0 if it was taken,
/// and also if the store could not be opened. Callers rely on neither.
int SetEnvironmentValue(const std::wstring& name, const std::wstring& value, std::uint32_t scope);

/// Tells the running programs that stored variables have changed.
void BroadcastEnvironmentChange();
