#include "Modules/ModuleSet.h"

#include "Modules/RuleModule.h"
#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <unordered_set>

void ModuleSet::LoadConfigModules(Handles& toFree)
{
    LoadModules(m_configModules, toFree, m_configModulePaths);
}

void ModuleSet::LoadDBModules(Handles& toFree)
{
    LoadModules(m_dbModules, toFree, m_dbModulePaths);
}

void ModuleSet::LoadModules(Handles& modules, Handles& toFree, const Paths& paths)
{
    std::unordered_set<std::wstring> alreadyLoaded;
    for (std::size_t index = modules.size(); index-- > 0;)
    {
        const Platform::LibraryHandle module = modules[index];
        std::wstring path = Platform::ToLower(Platform::LibraryPath(module));
        if (module == nullptr || path.empty())
        {
            continue;
        }
        if (std::find(paths.begin(), paths.end(), path) != paths.end())
        {
            alreadyLoaded.insert(std::move(path));
        }
        else
        {
            // Not released here: rules of open documents may still point into it.
            toFree.push_back(module);
            modules.erase(modules.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
    for (const std::wstring& path : paths)
    {
        if (alreadyLoaded.contains(path))
        {
            continue;
        }
        if (const Platform::LibraryHandle module = Platform::OpenLibraryFile(path))
        {
            modules.push_back(module);
        }
    }
}

void ModuleSet::FreeModules(Handles& toFree)
{
    while (!toFree.empty())
    {
        Platform::ReleaseLibrary(toFree.back());
        toFree.pop_back();
    }
}

void ModuleSet::UpdateDBModuleList() const
{
    for (const Platform::LibraryHandle module : m_configModules)
    {
        RuleModule(module).SetDBModuleList(m_dbModulePaths);
    }
}

void ModuleSet::SetXMLDoc(QoxXMLDocument* document) const
{
    for (const Platform::LibraryHandle module : m_configModules)
    {
        RuleModule(module).SetXMLDoc(document);
    }
}

bool ModuleSet::IsConfigured(const std::wstring& modulePath) const
{
    const std::wstring lowered = Platform::ToLower(modulePath);
    return std::find(m_configModulePaths.begin(), m_configModulePaths.end(), lowered) != m_configModulePaths.end();
}

void GatherRules(const ModuleSet& modules, std::list<std::wstring>& askedModules, PointerArray& rules,
                 const std::function<void()>& onNoDatabaseModule)
{
    askedModules.remove_if([&modules](const std::wstring& path) { return !modules.IsConfigured(path); });
    const ModuleSet::Handles& loaded = modules.ConfigModules();
    for (auto handle = loaded.rbegin(); handle != loaded.rend(); ++handle)
    {
        if (modules.DBModules().empty())
        {
            onNoDatabaseModule();
            return;
        }
        const RuleModule module(*handle);
        const std::wstring path = module.Path();
        if (std::find(askedModules.begin(), askedModules.end(), path) != askedModules.end())
        {
            continue;
        }
        PointerArray moduleRules;
        if (!module.GetAllRules(moduleRules))
        {
            continue;
        }
        askedModules.push_back(path);
        const std::wstring displayName = module.DisplayName();
        for (CQoxRule* const rule : moduleRules)
        {
            if (rule != nullptr)
            {
                rule->m_strRuleModule = displayName;
                rule->m_strModulePath = path;
            }
            rules.Add(rule);
        }
    }
}
