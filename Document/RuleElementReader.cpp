#include "Document/RuleElementReader.h"

#include "Modules/ModuleSet.h"

#include <Vantrel/QoxRule.h>

RuleElementReader::RuleElementReader(const ModuleSet* modules)
{
    if (modules == nullptr)
    {
        return;
    }
    for (const Platform::LibraryHandle library : modules->ConfigModules())
    {
        const RuleModule module(library);
        m_sources.push_back({ module, module.FindGetRule(), module.Path(), std::nullopt });
    }
}

CQoxRule* RuleElementReader::Read(QoxXMLNode* node)
{
    for (Source& source : m_sources)
    {
        if (CQoxRule* const rule = source.module.GetRule(source.getRule, node))
        {
            if (!source.displayName)
            {
                source.displayName = source.module.DisplayName();
            }
            rule->m_strRuleModule = *source.displayName;
            rule->m_strModulePath = source.path;
            return rule;
        }
    }
    return nullptr;
}
