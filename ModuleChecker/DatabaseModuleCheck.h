#pragma once

#include "ModuleChecker/CheckReport.h"
#include "Platform/Library.h"

namespace ModuleChecker
{

/// Checks a database module as rule modules use it.
void CheckDatabaseModule(Platform::LibraryHandle library, CheckReport& report);

} // namespace ModuleChecker
