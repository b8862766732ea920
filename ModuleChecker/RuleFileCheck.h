#pragma once

#include "ModuleChecker/ModuleExports.h"
#include "ModuleChecker/OfferedRule.h"

#include <Vantrel/RuleUnits.h>

#include <string>
#include <vector>

class QoxXMLNode;

namespace ModuleChecker
{

/// Checks that rules come back from a rule file as they went into it.
class RuleFileCheck
{
public:
    RuleFileCheck(const RuleModuleExports& exports, std::wstring file, CheckReport& report);

    /// The rules are afterwards as they were.
    void Run(const OfferedRules& rules);

private:
    /// Of each rule of the file its element as text; empty if there is none.
    using Elements = std::vector<std::wstring>;

    void WriteReadAndCompare(const OfferedRules& rules, const RuleUnitSystemStructure& units,
                             const std::wstring& state);
    Elements Write(const OfferedRules& rules, const RuleUnitSystemStructure& units);
    std::wstring ElementOf(const OfferedRule& offered, QoxXMLNode& root);
    OfferedRules Read(const OfferedRules& written, const Elements& elements);
    void ReadOne(QoxXMLNode* element, const OfferedRule& written, OfferedRules& read);
    void Compare(const OfferedRule& rule, const std::wstring& before, const std::wstring& after,
                 const std::wstring& state);
    void CheckForeignElements(const OfferedRules& rules);
    void GiveBack(const OfferedRules& rules);

    const RuleModuleExports& m_exports;
    std::wstring m_file;
    CheckReport& m_report;
};

} // namespace ModuleChecker
