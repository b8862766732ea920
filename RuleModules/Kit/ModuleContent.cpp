#include "RuleModules/Kit/ModuleContent.h"

#include "RuleModules/Kit/RuleLookUp.h"

#include <Vantrel/ModuleTexts.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

/// Marks a number that the element of a file has yet to give. Files never hold it.
constexpr double Unset = std::numeric_limits<double>::quiet_NaN();

std::wstring Text(const RuleText& text)
{
    return ModuleText(text.number, text.english);
}

/// Names of rules are ASCII, so the other letters need no folding to be told apart from them.
wchar_t FoldCase(wchar_t c)
{
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

CQoxParamStorage WithoutNumbers(CQoxParamStorage parameter)
{
    if (parameter.IsNumeric())
    {
        parameter.dDefault = Unset;
        parameter.dValue = Unset;
        // A file leaves an open end of a range out, so an open end is never missing.
        parameter.dMinimum = std::isfinite(parameter.dMinimum) ? Unset : parameter.dMinimum;
        parameter.dMaximum = std::isfinite(parameter.dMaximum) ? Unset : parameter.dMaximum;
    }
    return parameter;
}

} // namespace

std::size_t ModuleContent::NameHash::operator()(std::wstring_view name) const
{
    std::size_t hash = 14695981039346656037U;
    for (const wchar_t c : name)
    {
        hash = (hash ^ static_cast<std::size_t>(FoldCase(c))) * 1099511628211U;
    }
    return hash;
}

bool ModuleContent::NameEqual::operator()(std::wstring_view first, std::wstring_view second) const
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](wchar_t a, wchar_t b) { return FoldCase(a) == FoldCase(b); });
}

ModuleContent::ModuleContent(const ModuleDefinition& module, const std::list<std::wstring>& databaseModules)
    : m_module(module), m_textVersion(ModuleTextVersion()), m_choices(module, databaseModules)
{
    std::vector<std::wstring> names;
    std::transform(module.categories.begin(), module.categories.end(), std::back_inserter(names), Text);
    const SharedTextList categories(std::move(names));
    for (const RuleDefinition& rule : module.rules)
    {
        m_places.emplace(rule.name, m_rules.size());
        m_rules.push_back(MakeRule(rule, categories));
    }
}

const RuleContent* ModuleContent::FindRule(std::wstring_view name) const
{
    const auto found = m_places.find(name);
    return found != m_places.end() ? &m_rules[found->second] : nullptr;
}

RuleContent ModuleContent::MakeRule(const RuleDefinition& rule, const SharedTextList& categories) const
{
    RuleContent content;
    content.definition = &rule;
    content.displayName = Text(rule.texts.name);
    content.category = Text(rule.category);
    content.summary = Text(rule.texts.summary);
    content.detail = Text(rule.texts.detail);
    content.categories = categories;
    for (const ParamDefinition& parameter : rule.parameters)
    {
        content.parameters.push_back(MakeParameter(rule, parameter));
        content.withoutTheNumbers.push_back(WithoutNumbers(content.parameters.back()));
    }
    return content;
}

CQoxParamStorage ModuleContent::MakeParameter(const RuleDefinition& rule, const ParamDefinition& definition) const
{
    CQoxParamStorage parameter;
    parameter.nNumber = definition.number;
    parameter.eKind = definition.kind;
    parameter.strName = definition.name;
    parameter.strLabel = Text(definition.texts.label);
    parameter.strHelp = Text(definition.texts.help);
    if (parameter.eKind == ParamKind::Choice)
    {
        parameter.choices = ChoicesOf(definition).names;
        parameter.strDefault = InitialChoice(definition);
        parameter.strValue = parameter.strDefault.Get();
    }
    else if (parameter.IsNumeric())
    {
        const ParamDefinition* const governing = FindParameter(rule, definition.governingChoice);
        parameter.dDefault =
            DefaultOf(rule, definition, governing != nullptr ? InitialChoice(*governing) : std::wstring());
        parameter.dValue = parameter.dDefault;
        parameter.dMinimum = definition.minimum;
        parameter.dMaximum = definition.maximum;
    }
    return parameter;
}

std::wstring ModuleContent::InitialChoice(const ParamDefinition& choice) const
{
    const SharedTextList& names = ChoicesOf(choice).names;
    const bool known = std::find(names.begin(), names.end(), choice.defaultChoice) != names.end();
    // Whoever has a database of their own materials starts with one of those.
    return known ? std::wstring(choice.defaultChoice) : names.front();
}

double ModuleContent::DefaultOf(const RuleDefinition& rule, const ParamDefinition& parameter,
                                const std::wstring& chosen) const
{
    const ParamDefinition* const governing = FindParameter(rule, parameter.governingChoice);
    if (governing == nullptr || governing->choices == nullptr)
    {
        return parameter.defaultValue;
    }
    const std::optional<double> property = m_choices.Property(*governing->choices, chosen, parameter.governedProperty);
    return property ? std::clamp(*property * parameter.propertyFactor, parameter.minimum, parameter.maximum)
                    : parameter.defaultValue;
}
