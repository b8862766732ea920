#include "Framework/RuleXml.h"

#include "Framework/NumberText.h"
#include "Framework/ParameterXml.h"
#include "Framework/XmlState.h"
#include "Framework/XmlText.h"
#include "Platform/Files.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace
{

using VantrelXml::AppendAttribute;
using VantrelXml::AppendListElement;
using VantrelXml::AssignWide;

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
    for (const pugi::xml_attribute attribute : element.attributes())
    {
        const std::string_view name = attribute.name();
        const char* const value = attribute.value();
        if (name == "RuleModule")
        {
            AssignWide(rule.m_strRuleModule, value);
        }
        else if (name == "RuleName")
        {
            AssignWide(rule.m_strRuleName, value);
        }
        else if (name == "DisplayName")
        {
            AssignWide(rule.m_strDisplayName, value);
        }
        else if (name == "Category")
        {
            AssignWide(rule.m_strCategory, value);
        }
        else if (name == "Criticality")
        {
            rule.m_nCriticality = ParseInteger(value).value_or(rule.m_nCriticality);
        }
        else if (name == "ModulePath")
        {
            AssignWide(rule.m_strModulePath, value);
        }
        else if (name == "HelpFile")
        {
            AssignWide(rule.m_strHelpFile, value);
        }
        else if (name == "Summary")
        {
            AssignWide(rule.m_strSummary, value);
        }
        else if (name == "Summary2")
        {
            AssignWide(rule.m_strSummary2, value);
        }
        else
        {
            unknown.Keep(attribute);
        }
    }
}

void RuleXml::ReadChildren(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown)
{
    ParameterFinder finder(rule.m_parameters);
    bool categoriesSeen = false;
    bool referencesSeen = false;
    for (const pugi::xml_node child : element.children())
    {
        const std::string_view name = child.name();
        if (name == "Parameter")
        {
            const std::optional<std::int32_t> number = ParameterXml::NumberOf(child);
            if (number)
            {
                ParameterXml::Read(finder.FindOrAdd(*number), child);
                continue;
            }
        }
        else if (name == "Category")
        {
            VantrelXml::ReadListElement(rule.m_categoryList, child, categoriesSeen);
            continue;
        }
        else if (name == "Reference")
        {
            VantrelXml::ReadListElement(rule.m_references, child, referencesSeen);
            continue;
        }
        unknown.Keep(child);
    }
}

void RuleXml::Write(const CQoxRule& rule, pugi::xml_node element)
{
    // RuleModule comes first: readers ask for it before anything else.
    AppendAttribute(element, "RuleModule", rule.m_strRuleModule);
    AppendAttribute(element, "RuleName", rule.m_strRuleName);
    AppendAttribute(element, "DisplayName", rule.m_strDisplayName);
    AppendAttribute(element, "Category", rule.m_strCategory);
    element.append_attribute("Criticality").set_value(rule.m_nCriticality);
    AppendAttribute(element, "ModulePath", PathForFile(rule));
    AppendAttribute(element, "HelpFile", rule.m_strHelpFile);
    AppendAttribute(element, "Summary", rule.m_strSummary);
    AppendAttribute(element, "Summary2", rule.m_strSummary2);
    for (const std::wstring& category : rule.m_categoryList)
    {
        AppendListElement(element, "Category", category);
    }
    for (const std::wstring& reference : rule.m_references)
    {
        AppendListElement(element, "Reference", reference);
    }
    for (const CQoxParamStorage& parameter : rule.m_parameters)
    {
        ParameterXml::Write(parameter, element.append_child("Parameter"));
    }
    VantrelXml::AppendUnknown(element, rule.m_unknownMarkup);
}
