#include "tests/RuleModules/LoadedModule.h"

#include "Platform/Files.h"
#include "Platform/Text.h"

std::wstring StagedLibrary(const std::wstring& name)
{
    return Platform::Utf8ToWide(VANTREL_STAGE_DIR) + Platform::PathSeparator + L"bin" + Platform::PathSeparator + name;
}

OfferedRules::OfferedRules(const LoadedModule& module) : m_module(module)
{
    m_module.Export<GetAllRulesFunction>("GetAllRules")(rules);
}

OfferedRules::~OfferedRules()
{
    const auto deleteRule = m_module.Export<DeleteRuleFunction>("DeleteRule");
    for (CQoxRule*& rule : rules)
    {
        deleteRule(&rule);
    }
}
