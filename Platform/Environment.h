#pragma once

#include <optional>
#include <string>

/// Environment variables, by name without regard to case.
namespace Platform
{

/// Value of a variable; nothing if it isn't set. `appdata` and `TEMP` always have a value
/// on systems that lack them: the user's configuration folder and the temporary folder.
std::optional<std::wstring> EnvironmentVariable(const std::wstring& name);

/// Takes over the variables that are stored in the registry, the machine's and before them
/// the user's, unless the process has them already. Called once, at the start of the
/// program. Nothing is left to do where the system gives them to every process.
void TakeOverStoredEnvironment();

/// Sets a variable of the running process, or removes it if there is no value. False if
/// the name can't be one. Not for other processes; those started later inherit it.
bool SetProcessVariable(const std::wstring& name, const std::optional<std::wstring>& value);

/// Tells the running programs that stored variables have changed, where programs listen to
/// that. Waits no longer than a few seconds for each.
void AnnounceEnvironmentChange();

} // namespace Platform
