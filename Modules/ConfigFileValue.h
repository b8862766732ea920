#pragma once

#include <string>

/// True if a path reads back the same once it stands as a value in `ConfigModule.ini`. It
/// doesn't if it has a `[`, which would even take the lines behind it for another section,
/// line ends, blanks at its end, or characters that the system code page lacks.
bool CanStandInConfigFile(const std::wstring& path);

/// Same for the path of a module, in which a `%` begins the name of an environment variable.
bool CanBeConfiguredModule(const std::wstring& path);
