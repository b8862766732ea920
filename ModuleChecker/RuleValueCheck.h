#pragma once

#include "ModuleChecker/ModuleExports.h"
#include "ModuleChecker/OfferedRule.h"

#include <Vantrel/ParamStorage.h>
#include <Vantrel/RuleUnits.h>

#include <string>
#include <vector>

namespace ModuleChecker
{

/// Checks what becomes of the values of rules: in other units, and when a rule takes over those
/// of another.
class RuleValueCheck
{
public:
    RuleValueCheck(const RuleModuleExports& exports, CheckReport& report) : m_exports(exports), m_report(report) {}

    /// The others are objects of the same rules. They have other values afterwards.
    void Run(const OfferedRules& rules, const OfferedRules& others);

private:
    using Parameters = std::vector<CQoxParamStorage>;

    void CheckUnits(const OfferedRule& offered);
    bool ConvertsTo(const OfferedRule& offered, const Parameters& before, const RuleUnitSystemStructure& units);
    bool ComesBack(const OfferedRule& offered, const Parameters& before, const RuleUnitSystemStructure& first,
                   const RuleUnitSystemStructure& second);
    void CheckTakingOver(const OfferedRule& offered, CQoxRule& other);
    void CheckCopies(const OfferedRule& offered, CQoxRule& other);
    std::wstring ElementOf(CQoxRule& rule, const std::wstring& place);

    const RuleModuleExports& m_exports;
    CheckReport& m_report;
};

} // namespace ModuleChecker
