#pragma once

#include <Vantrel/Export.h>
#include <Vantrel/ModuleInterface.h>

#include <list>
#include <string>

/// Loads the first of the database modules that can be loaded, has both exports and gives
/// a database. Null if none does. Closed by `CloseRuleDatabase`.
VANTREL_API IRuleDatabase* OpenRuleDatabase(const std::list<std::wstring>& databaseModules);

/// Gives the database back to its module and releases the module. Null is allowed.
VANTREL_API void CloseRuleDatabase(IRuleDatabase* database);

/// Folder of the library that the function belongs to, without a separator at its end.
/// Empty if it can't be told.
VANTREL_API std::wstring ModuleFolder(void (*functionOfTheModule)());

/// Value of an environment variable, by name without regard to case. False if it isn't set.
VANTREL_API bool EnvironmentValue(const std::wstring& name, std::wstring& value);
