#include "Modules/ModuleKind.h"

#include "Modules/ModuleConfiguration.h"
#include "Modules/RuleModule.h"

#include <array>

namespace
{

// More than a first start configures, and in another order: all that the family has.
constexpr std::array RuleModuleFiles = {
    L"QoxMillRulesu.dll",    L"QoxTurnRulesu.dll",   L"QOXSMRulesu.dll",        L"QOXAssemblyRulesu.dll",
    L"QOXCastingRulesu.dll", L"QOXIMRulesu.dll",     L"QoxRPRulesu.dll",        L"QoxGenericRulesu.dll",
    L"QOXDieCastRulesu.dll", L"QOXTubingRulesu.dll", L"QoxToleranceRulesu.dll",
};
constexpr std::array DatabaseModuleFiles = { L"QoxSqliteDatabaseu.dll" };

} // namespace

const ModuleKind RuleModules = { RuleModuleSection, TextId::RuleModulesTitle, RuleModuleFiles, &IsValidRuleModule,
                                 HelpTopic::RuleModules };
const ModuleKind DatabaseModules = { DatabaseModuleSection, TextId::DatabaseModulesTitle, DatabaseModuleFiles,
                                     &IsValidDatabaseModule, HelpTopic::DatabaseModules };
