#pragma once

#include "RuleModules/Kit/RuleTable.h"
#include "RuleModules/Kit/RuleTableCheck.h"

/// The definition of the module that a library is. Each module defines it once; the
/// exports, which every module has alike, are made from it.
const ModuleDefinition& ThisModule();
