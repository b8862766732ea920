#include "RuleModules/Common/ModuleCatalogue.h"

#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace
{

/// Names of rules are ASCII, so the other letters need no folding to be told apart from them.
wchar_t FoldCase(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

} // namespace

std::size_t ModuleCatalogue::NameHash::operator()(std::wstring_view name) const
{
    std::size_t hash = 14695981039346656037U;
    for (const wchar_t c : name)
    {
        hash = (hash ^ static_cast<std::size_t>(FoldCase(c))) * 1099511628211U;
    }
    return hash;
}

bool ModuleCatalogue::NameEqual::operator()(std::wstring_view first, std::wstring_view second) const
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](wchar_t a, wchar_t b) { return FoldCase(a) == FoldCase(b); });
}

ModuleCatalogue::ModuleCatalogue(const ModuleDefinition& module)
    : m_module(module), m_materials(module.materialGroup, module.builtInMaterials)
{
    m_rulesByName.reserve(module.rules.size());
    for (const RuleDefinition& rule : module.rules)
    {
        m_rulesByName.emplace(rule.name, ModuleRule::Prepare(module, rule));
    }
}

void ModuleCatalogue::GetAllRules(PointerArray& rules)
{
    for (const RuleDefinition& definition : m_module.rules)
    {
        std::unique_ptr<ModuleRule> rule = ModuleRule::MakeNew(m_module, definition, m_materials.Materials());
        rules.Add(rule.get());
        std::ignore = rule.release(); // handed out raw, by contract
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
    const PreparedRule* const rule = FindRule(text);
    if (rule == nullptr)
    {
        return nullptr;
    }
    return ModuleRule::MakeFromElement(m_module, *rule, m_materials.Materials(), element);
}

void ModuleCatalogue::DeleteRule(CQoxRule** rule)
{
    if (rule != nullptr)
    {
        delete *rule; // the other end of what `GetAllRules` and `GetRule` handed out
        *rule = nullptr;
    }
}

const PreparedRule* ModuleCatalogue::FindRule(std::wstring_view name) const
{
    const auto found = m_rulesByName.find(name);
    return found != m_rulesByName.end() ? &found->second : nullptr;
}

void ModuleCatalogue::SetDatabaseModules(const std::list<std::wstring>* modules)
{
    m_materials.SetDatabaseModules(modules != nullptr ? *modules : std::list<std::wstring>());
}
