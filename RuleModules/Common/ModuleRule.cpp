#include "RuleModules/Common/ModuleRule.h"

#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <limits>
#include <utility>

namespace
{

/// Marks a number that the element of a file has yet to give. Files never hold it.
constexpr double Unset = std::numeric_limits<double>::quiet_NaN();

std::int32_t UnitOf(const QoxXMLNode& root, const std::wstring& attribute)
{
    std::wstring text;
    if (!root.GetAttributeValue(attribute, text))
    {
        return 0;
    }
    // A number that no unit has counts as millimeters or degrees, like 0.
    const long unit = std::wcstol(text.c_str(), nullptr, 10);
    constexpr long HighestNumber = 1000;
    return unit >= 0 && unit <= HighestNumber ? static_cast<std::int32_t>(unit) : 0;
}

/// The units of the file that a rule's element stands in.
RuleUnitSystemStructure UnitsAround(const QoxXMLNode& element)
{
    const std::unique_ptr<QoxXMLNode> root(element.SelectSingleNode(L".."));
    if (!root)
    {
        return {};
    }
    return { UnitOf(*root, L"Unit"), UnitOf(*root, L"AngularUnit") };
}

bool HasUnsetNumber(const CQoxParamStorage& parameter)
{
    return std::isnan(parameter.dValue) || std::isnan(parameter.dDefault) || std::isnan(parameter.dMinimum) ||
           std::isnan(parameter.dMaximum);
}

void FillIfUnset(double& number, double defined)
{
    if (std::isnan(number))
    {
        number = defined;
    }
}

} // namespace

ModuleRule::ModuleRule(const ModuleDefinition& module, const RuleDefinition& rule,
                       std::shared_ptr<const MaterialList> materials)
    : m_module(module), m_definition(rule), m_materials(std::move(materials))
{
    m_strRuleName = m_definition.name;
    m_strDisplayName = m_definition.displayName;
    m_strSummary = m_definition.summary;
    m_strSummary2 = m_definition.detailedSummary;
    m_strCategory = m_definition.category;
    m_strRuleModule = m_module.displayName;
    m_nCriticality = m_definition.criticality;
    m_strHelpFile = m_definition.helpFile;
}

std::unique_ptr<ModuleRule> ModuleRule::MakeNew(const ModuleDefinition& module, const RuleDefinition& rule,
                                                std::shared_ptr<const MaterialList> materials)
{
    std::unique_ptr<ModuleRule> result(new ModuleRule(module, rule, std::move(materials)));
    result->m_categoryList = std::vector<std::wstring>(module.categories.begin(), module.categories.end());
    result->InitializeParamStorage();
    return result;
}

std::unique_ptr<ModuleRule> ModuleRule::MakeFromElement(const ModuleDefinition& module, const PreparedRule& rule,
                                                        std::shared_ptr<const MaterialList> materials,
                                                        QoxXMLNode& element)
{
    std::unique_ptr<ModuleRule> result(new ModuleRule(module, rule.definition, std::move(materials)));
    result->ReadElement(rule, element);
    return result;
}

PreparedRule ModuleRule::Prepare(const ModuleDefinition& module, const RuleDefinition& rule)
{
    PreparedRule prepared{ rule, {}, {} };
    prepared.categories = std::vector<std::wstring>(module.categories.begin(), module.categories.end());
    for (const ParamDefinition& definition : rule.parameters)
    {
        prepared.parameters.push_back(MakeParameter(definition, Numbers::Unset));
    }
    return prepared;
}

CQoxParamStorage ModuleRule::MakeParameter(const ParamDefinition& definition, Numbers numbers)
{
    CQoxParamStorage parameter;
    parameter.nNumber = definition.number;
    parameter.eKind = definition.kind;
    parameter.strName = definition.name;
    parameter.strLabel = definition.label;
    parameter.strHelp = definition.help;
    parameter.strDefault = definition.defaultText;
    parameter.strValue = parameter.strDefault.Get();
    if (parameter.IsNumeric())
    {
        const bool unset = numbers == Numbers::Unset;
        parameter.dDefault = unset ? Unset : definition.defaultValue;
        parameter.dValue = parameter.dDefault;
        // A file leaves an open end of a range out, so an open end is never missing.
        parameter.dMinimum = unset && std::isfinite(definition.minimum) ? Unset : definition.minimum;
        parameter.dMaximum = unset && std::isfinite(definition.maximum) ? Unset : definition.maximum;
    }
    return parameter;
}

void ModuleRule::InitializeParamStorage()
{
    m_parameters.clear();
    m_parameters.reserve(m_definition.parameters.size());
    for (const ParamDefinition& definition : m_definition.parameters)
    {
        CQoxParamStorage& parameter = m_parameters.emplace_back(MakeParameter(definition, Numbers::AsDefined));
        if (parameter.eKind == ParamKind::Choice)
        {
            parameter.choices = m_materials->names;
            const bool known = std::find(parameter.choices.begin(), parameter.choices.end(),
                                         parameter.strDefault.Get()) != parameter.choices.end();
            if (!known && !parameter.choices.empty())
            {
                // Whoever has a database of their own materials starts with one of those.
                parameter.strDefault = parameter.choices.front();
                parameter.strValue = parameter.choices.front();
            }
        }
    }
}

void ModuleRule::ReadElement(const PreparedRule& prepared, QoxXMLNode& element)
{
    // What the element says too stays shared.
    m_categoryList = prepared.categories;
    m_parameters = prepared.parameters;
    for (CQoxParamStorage& parameter : m_parameters)
    {
        if (parameter.eKind == ParamKind::Choice)
        {
            parameter.choices = m_materials->names;
        }
    }

    PopulateParametersFromXML(&element);

    FillUnsetNumbers(element);
    OfferMaterials();
    // Rules of a file are matched with those on offer by name, second summary and library:
    // a wording that changed since the file was written must not part them.
    m_strSummary2 = m_definition.detailedSummary;
    if (m_strModulePath.empty())
    {
        m_strModulePath = m_module.libraryFile;
    }
    PostPopulate();
}

void ModuleRule::FillUnsetNumbers(const QoxXMLNode& element)
{
    if (std::none_of(m_parameters.begin(), m_parameters.end(), HasUnsetNumber))
    {
        return; // what the program wrote itself is complete
    }
    const RuleUnitSystemStructure definedUnits;
    const RuleUnitSystemStructure fileUnits = UnitsAround(element);
    // The element adds parameters at the end only, so both are in the same order.
    for (std::size_t index = 0; index < m_definition.parameters.size(); ++index)
    {
        CQoxParamStorage defined = MakeParameter(m_definition.parameters[index], Numbers::AsDefined);
        defined.ConvertUnits(definedUnits, fileUnits);
        CQoxParamStorage& parameter = m_parameters[index];
        FillIfUnset(parameter.dDefault, defined.dDefault);
        FillIfUnset(parameter.dValue, defined.dDefault);
        FillIfUnset(parameter.dMinimum, defined.dMinimum);
        FillIfUnset(parameter.dMaximum, defined.dMaximum);
    }
}

void ModuleRule::OfferMaterials()
{
    for (std::size_t index = 0; index < m_definition.parameters.size(); ++index)
    {
        CQoxParamStorage& parameter = m_parameters[index];
        if (m_definition.parameters[index].kind != ParamKind::Choice || parameter.eKind != ParamKind::Choice)
        {
            continue;
        }
        // The database knows today's materials. Without one, those that the file came with
        // are better than the built-in few. The chosen one stays in any case.
        if (parameter.choices.empty() || (m_materials->fromDatabase && parameter.choices != m_materials->names))
        {
            parameter.choices = m_materials->names;
        }
    }
}
