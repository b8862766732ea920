#pragma once

#include <string>

/// The folder of user-defined rules and their scripts: the key `directory` of the section
/// `RULE_SCRIPT_LOCATION` in `ConfigModule.ini`. The default, `ScriptDir` beside that file,
/// is entered if the key is missing, and the folder is made if it doesn't exist (one level
/// only). False if there is no usable folder.
bool GetScriptDirectory(std::wstring& path);

/// Same with the configuration file given.
bool GetScriptDirectory(const std::wstring& configFile, std::wstring& path);

/// Makes another folder the script folder. It is stored as it is given and not made. False if
/// the configuration file can't be written.
bool SetScriptDirectory(const std::wstring& configFile, const std::wstring& path);
