#include "RuleModules/Kit/ModuleCatalogue.h"

#include <Vantrel/ModuleTexts.h>
#include <Vantrel/QoxXml.h>

#include <tuple>

ModuleCatalogue::ModuleCatalogue(const ModuleDefinition& module) : m_module(module) {}

void ModuleCatalogue::GetAllRules(PointerArray& rules)
{
    const std::shared_ptr<const ModuleContent>& content = Content();
    for (const RuleContent& rule : content->Rules())
    {
        std::unique_ptr<ModuleRule> made = ModuleRule::MakeNew(content, rule);
        rules.Add(made.get());
        std::ignore = made.release(); // handed out raw, by contract
    }
}

std::unique_ptr<CQoxRule> ModuleCatalogue::GetRule(QoxXMLNode& element)
{
    std::wstring text;
    if (!element.GetAttributeValue(m_moduleAttribute, text) || text != m_module.displayName ||
        !element.GetAttributeValue(m_nameAttribute, text))
    {
        return nullptr;
    }
    const std::shared_ptr<const ModuleContent>& content = Content();
    const RuleContent* const rule = content->FindRule(text);
    return rule != nullptr ? ModuleRule::MakeFromElement(content, *rule, element) : nullptr;
}

void ModuleCatalogue::DeleteRule(CQoxRule** rule)
{
    if (rule != nullptr)
    {
        delete *rule; // the other end of what `GetAllRules` and `GetRule` handed out
        *rule = nullptr;
    }
}

void ModuleCatalogue::SetDatabaseModules(const std::list<std::wstring>* modules)
{
    m_databaseModules = modules != nullptr ? *modules : std::list<std::wstring>();
    m_content.reset();
}

std::wstring ModuleCatalogue::Summary() const
{
    return ModuleText(m_module.summary.number, m_module.summary.english);
}

const std::shared_ptr<const ModuleContent>& ModuleCatalogue::Content()
{
    if (!m_content || m_content->TextVersion() != ModuleTextVersion())
    {
        // Not by make_shared: it leaves a symbol in the module that the loader holds to be
        // unique in the process, and such a library is never unloaded.
        m_content = std::make_unique<const ModuleContent>(m_module, m_databaseModules);
    }
    return m_content;
}
