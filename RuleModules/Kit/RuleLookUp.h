#pragma once

#include "RuleModules/Kit/RuleTable.h"

#include <algorithm>

/// The parameter of a rule with the number, or null.
inline const ParamDefinition* FindParameter(const RuleDefinition& rule, std::int32_t number)
{
    const auto found = std::find_if(rule.parameters.begin(), rule.parameters.end(),
                                    [number](const ParamDefinition& p) { return p.number == number; });
    return found != rule.parameters.end() ? &*found : nullptr;
}
