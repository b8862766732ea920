#include "bench/BenchApplication.h"

#include "Modules/RuleModule.h"
#include "Platform/Files.h"
#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>

#include <map>
#include <stdexcept>

namespace
{

std::wstring StagedLibrary(const wchar_t* name)
{
    const std::wstring separator(1, Platform::PathSeparator);
    return Platform::ToLower(Platform::Utf8ToWide(VANTREL_STAGE_DIR) + separator + L"bin" + separator + name);
}

} // namespace

BenchApplication::BenchApplication()
{
    g_pApp = this;
    ModuleSet::Handles toFree;
    m_modules.ConfigModulePaths() = { StagedLibrary(L"QoxMillRulesu.dll"), StagedLibrary(L"QoxSMRulesu.dll"),
                                      StagedLibrary(L"QOXIMRulesu.dll") };
    m_modules.DBModulePaths() = { StagedLibrary(L"QoxSqliteDatabaseu.dll") };
    m_modules.LoadConfigModules(toFree);
    m_modules.LoadDBModules(toFree);
    m_modules.UpdateDBModuleList();
    if (m_modules.ConfigModules().size() != 3 || m_modules.DBModules().size() != 1)
    {
        throw std::runtime_error("a rule module is missing in " VANTREL_STAGE_DIR "/bin");
    }
}

BenchApplication::~BenchApplication()
{
    g_pApp = nullptr;
}

void BenchApplication::MakeRules(PointerArray& rules, int count)
{
    while (rules.GetSize() < count)
    {
        std::list<std::wstring> asked;
        PointerArray round;
        GatherRules(m_modules, asked, round, [] {});
        PointerArray tooMany;
        for (CQoxRule* const rule : round)
        {
            (rules.GetSize() < count ? rules : tooMany).Add(rule);
        }
        GiveBack(tooMany);
    }
}

void BenchApplication::GiveBack(PointerArray& rules) const
{
    std::map<std::wstring, RuleModule> modules;
    for (const Platform::LibraryHandle library : m_modules.ConfigModules())
    {
        const RuleModule module(library);
        modules.emplace(module.Path(), module);
    }
    for (CQoxRule*& rule : rules)
    {
        modules.at(rule->m_strModulePath).DeleteRule(rule);
    }
    rules.RemoveAll();
}
