#include "Framework/RuleXml.h"

#include "Framework/NumberText.h"
#include "Framework/ParameterXml.h"
#include "Framework/XmlState.h"
#include "Framework/XmlText.h"
#include "Platform/Files.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace
{

using VantrelXml::AppendListElement;
using VantrelXml::AssignWide;

/// The attributes of a `Rule` element in the order of writing. RuleModule comes first:
/// readers ask for it before anything else.
constexpr std::array AttributeNames = { "RuleModule", "RuleName", "DisplayName", "Category", "Criticality",
                                        "ModulePath", "HelpFile", "Summary",     "Summary2" };

/// Their texts in a rule; null for Criticality, which is a number.
constexpr std::array<std::wstring CQoxRule::*, AttributeNames.size()> AttributeTexts = {
    &CQoxRule::m_strRuleModule,
    &CQoxRule::m_strRuleName,
    &CQoxRule::m_strDisplayName,
    &CQoxRule::m_strCategory,
    nullptr,
    &CQoxRule::m_strModulePath,
    &CQoxRule::m_strHelpFile,
    &CQoxRule::m_strSummary,
    &CQoxRule::m_strSummary2,
};

/// Past this many parameters they are looked up by a table, so that a file with an absurd
/// number of them costs no more than its size.
constexpr std::size_t ManyParameters = 64;

/// Finds the parameters of a rule by number while a file is read. Files list them in the
/// rule's own order, so the next one is nearly always the right one.
class ParameterFinder
{
public:
    explicit ParameterFinder(std::vector<CQoxParamStorage>& parameters) : m_parameters(parameters) {}

    CQoxParamStorage& FindOrAdd(std::int32_t number)
    {
        if (m_next < m_parameters.size() && m_parameters[m_next].nNumber == number)
        {
            return m_parameters[m_next++];
        }
        const std::size_t index = Find(number);
        m_next = index + 1;
        if (index < m_parameters.size())
        {
            return m_parameters[index];
        }
        m_parameters.emplace_back().nNumber = number;
        if (!m_table.empty())
        {
            m_table.emplace(number, index);
        }
        return m_parameters.back();
    }

private:
    std::size_t Find(std::int32_t number)
    {
        if (m_parameters.size() < ManyParameters)
        {
            const auto found = std::find_if(m_parameters.begin(), m_parameters.end(),
                                            [number](const CQoxParamStorage& p) { return p.nNumber == number; });
            return static_cast<std::size_t>(found - m_parameters.begin());
        }
        if (m_table.empty())
        {
            for (std::size_t index = 0; index < m_parameters.size(); ++index)
            {
                m_table.emplace(m_parameters[index].nNumber, index);
            }
        }
        const auto found = m_table.find(number);
        return found != m_table.end() ? found->second : m_parameters.size();
    }

    std::vector<CQoxParamStorage>& m_parameters;
    std::size_t m_next = 0;
    std::unordered_map<std::int32_t, std::size_t> m_table;
};

/// The module's path as it goes into files. A file travels between machines on which the
/// same library lies elsewhere, and is matched by the library's name alone.
std::wstring_view PathForFile(const CQoxRule& rule)
{
    const std::wstring_view path = rule.m_strModulePath;
    if (rule.IsUserDefined())
    {
        return path;
    }
    const std::size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring_view::npos ? path : path.substr(separator + 1);
}

} // namespace

void RuleXml::Read(CQoxRule& rule, pugi::xml_node element)
{
    VantrelXml::UnknownParts unknown;
    ReadAttributes(rule, element, unknown);
    ReadChildren(rule, element, unknown);
    rule.m_unknownMarkup = unknown.Markup();
}

void RuleXml::ReadAttributes(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown)
{
    VantrelXml::ReadAttributes(
        element, AttributeNames,
        [&rule](std::size_t place, const char* value)
        {
            if (AttributeTexts[place] == nullptr)
            {
                rule.m_nCriticality = ParseInteger(value).value_or(rule.m_nCriticality);
            }
            else
            {
                AssignWide(rule.*AttributeTexts[place], value);
            }
        },
        unknown);
}

void RuleXml::ReadChildren(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown)
{
    ParameterFinder finder(rule.m_parameters);
    VantrelXml::ListReader categories(rule.m_categoryList);
    VantrelXml::ListReader references(rule.m_references);
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling())
    {
        const std::string_view name = child.name();
        if (name == "Parameter")
        {
            if (const auto identity = ParameterXml::IdentityOf(child))
            {
                ParameterXml::Read(finder.FindOrAdd(identity->number), identity->kind, child);
                continue;
            }
        }
        else if (name == "Category")
        {
            categories.Take(child);
            continue;
        }
        else if (name == "Reference")
        {
            references.Take(child);
            continue;
        }
        unknown.Keep(child);
    }
}

const VantrelXml::ElementTemplates& RuleXml::TemplatesOf(VantrelXml::DocumentState& state)
{
    VantrelXml::ElementTemplates& templates = state.templates;
    if (templates.rule)
    {
        return templates;
    }
    constexpr std::array listAttributes = { "Value" };
    const std::string markup =
        VantrelXml::EmptyElement("Rule", AttributeNames) + VantrelXml::EmptyElement("Category", listAttributes) +
        VantrelXml::EmptyElement("Reference", listAttributes) + VantrelXml::EmptyElement("Choice", listAttributes) +
        ParameterXml::NumericTemplate() + ParameterXml::TextTemplate();
    // Names are shared within a document only, and only those that were parsed.
    pugi::xml_node holder = state.document.append_child("templates");
    holder.append_buffer(markup.data(), markup.size());
    templates.rule = holder.child("Rule");
    templates.category = holder.child("Category");
    templates.reference = holder.child("Reference");
    templates.choice = holder.child("Choice");
    templates.numericParameter = holder.child("Parameter");
    templates.textParameter = templates.numericParameter.next_sibling();
    return templates;
}

pugi::xml_node RuleXml::Write(const CQoxRule& rule, VantrelXml::DocumentState& state)
{
    const VantrelXml::ElementTemplates& templates = TemplatesOf(state);
    const pugi::xml_node element = VantrelXml::NodeAccess::Workshop(state).append_copy(templates.rule);
    VantrelXml::AttributeFiller filler(element);
    for (const auto text : AttributeTexts)
    {
        if (text == nullptr)
        {
            filler.Integer(rule.m_nCriticality);
        }
        else
        {
            filler.Text(text == &CQoxRule::m_strModulePath ? PathForFile(rule) : rule.*text);
        }
    }
    for (const std::wstring& category : rule.m_categoryList)
    {
        AppendListElement(element, templates.category, category);
    }
    for (const std::wstring& reference : rule.m_references)
    {
        AppendListElement(element, templates.reference, reference);
    }
    for (const CQoxParamStorage& parameter : rule.m_parameters)
    {
        ParameterXml::Append(parameter, element, templates);
    }
    VantrelXml::AppendUnknown(element, rule.m_unknownMarkup);
    return element;
}
