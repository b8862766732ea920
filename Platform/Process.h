#pragma once

#include <string>
#include <vector>

/// The running program and its user's folders.
namespace Platform
{

/// Full path of the program's file.
std::wstring ProgramPath();

/// Folder of the program's file, without a separator at its end.
std::wstring ProgramFolder();

/// Folder for the data of this user that every program of the family shares, with a
/// separator at its end. Not made here.
std::wstring UserDataFolder();

/// The variable of the environment that names the folder in which `UserDataFolder` lies.
extern const char* const UserDataVariable;

/// Folder for this user's settings of this program, without a separator at its end.
/// Not made here.
std::wstring UserConfigurationFolder();

/// Name under which the user is known to the system. Empty if it has none.
std::wstring UserName();

/// Takes over the user's locale for text conversion, case and collation; numbers keep
/// the form of the C locale. Called once, first thing in the program.
void UseUserLocale();

/// Opens a file or page with the program that the user's desktop has for it.
/// False if none could be started.
bool OpenWithDesktop(const std::wstring& fileOrUrl);

} // namespace Platform
