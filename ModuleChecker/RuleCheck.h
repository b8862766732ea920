#pragma once

#include "ModuleChecker/CheckReport.h"

namespace ModuleChecker
{

/// Checks what a rule that the module has just made says about itself and its parameters.
void CheckRule(CQoxRule& rule, const std::wstring& place, CheckReport& report);

} // namespace ModuleChecker
