#include "RuleModules/Kit/ModuleRule.h"

#include "RuleModules/Kit/RuleLookUp.h"

#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <utility>

namespace
{

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

double InUnits(ParamKind kind, double value, const RuleUnitSystemStructure& units)
{
    switch (kind)
    {
    case ParamKind::Length:
        return ConvertLength(value, 0, units.linear);
    case ParamKind::Angle:
        return ConvertAngle(value, 0, units.angular);
    default:
        return value;
    }
}

} // namespace

ModuleRule::ModuleRule(std::shared_ptr<const ModuleContent> content, const RuleContent& rule)
    : m_content(std::move(content)), m_rule(rule)
{
    m_strRuleName = m_rule.definition->name;
    m_strRuleModule = m_content->Definition().displayName;
    m_nCriticality = m_rule.definition->criticality;
    m_strHelpFile = m_rule.definition->helpFile;
}

std::unique_ptr<ModuleRule> ModuleRule::MakeNew(std::shared_ptr<const ModuleContent> content, const RuleContent& rule)
{
    std::unique_ptr<ModuleRule> result(new ModuleRule(std::move(content), rule));
    result->InitializeParamStorage();
    result->TakeTexts();
    return result;
}

std::unique_ptr<ModuleRule> ModuleRule::MakeFromElement(std::shared_ptr<const ModuleContent> content,
                                                        const RuleContent& rule, QoxXMLNode& element)
{
    std::unique_ptr<ModuleRule> result(new ModuleRule(std::move(content), rule));
    result->ReadElement(element);
    return result;
}

void ModuleRule::InitializeParamStorage()
{
    m_parameters = m_rule.parameters;
    m_valueUnits = {};
}

void ModuleRule::ReadElement(QoxXMLNode& element)
{
    // What the element says too stays shared.
    m_categoryList = m_rule.categories;
    m_parameters = m_rule.withoutTheNumbers;
    PopulateParametersFromXML(&element);
    m_valueUnits = UnitsAround(element);
    FillUnsetNumbers();
    OfferChoices();
    TakeTexts();
    if (m_strModulePath.empty())
    {
        m_strModulePath = m_content->Definition().libraryFile;
    }
    PostPopulate();
}

void ModuleRule::FillUnsetNumbers()
{
    if (std::none_of(m_parameters.begin(), m_parameters.end(), HasUnsetNumber))
    {
        return; // what the program wrote itself is complete
    }
    // The element adds parameters at the end only, so both are in the same order.
    for (std::size_t index = 0; index < m_rule.parameters.size(); ++index)
    {
        const ParamDefinition& definition = m_rule.definition->parameters[index];
        CQoxParamStorage& parameter = m_parameters[index];
        FillIfUnset(parameter.dDefault, DefaultInUnits(definition));
        FillIfUnset(parameter.dValue, parameter.dDefault);
        FillIfUnset(parameter.dMinimum, InUnits(definition.kind, definition.minimum, m_valueUnits));
        FillIfUnset(parameter.dMaximum, InUnits(definition.kind, definition.maximum, m_valueUnits));
    }
}

void ModuleRule::OfferChoices()
{
    for (std::size_t index = 0; index < m_rule.parameters.size(); ++index)
    {
        CQoxParamStorage& parameter = m_parameters[index];
        const ParamDefinition& definition = m_rule.definition->parameters[index];
        if (definition.kind != ParamKind::Choice || parameter.eKind != ParamKind::Choice)
        {
            continue;
        }
        // The database knows today's materials and sizes. Without one, those that the file
        // came with are better than the built-in few. The chosen one stays in any case.
        const ChoiceList& known = m_content->ChoicesOf(definition);
        if (parameter.choices.empty() || (known.fromDatabase && parameter.choices != known.names))
        {
            parameter.choices = known.names;
        }
    }
}

void ModuleRule::TakeTexts()
{
    m_strDisplayName = m_rule.displayName;
    m_strCategory = m_rule.category;
    m_strSummary = m_rule.summary;
    m_strSummary2 = m_rule.detail;
    m_categoryList = m_rule.categories;
    for (std::size_t index = 0; index < m_rule.parameters.size(); ++index)
    {
        m_parameters[index].strName = m_rule.parameters[index].strName;
        m_parameters[index].strLabel = m_rule.parameters[index].strLabel;
        m_parameters[index].strHelp = m_rule.parameters[index].strHelp;
    }
}

std::wstring ModuleRule::ChosenFor(const ParamDefinition& parameter) const
{
    const auto governing = std::find_if(m_parameters.begin(), m_parameters.end(),
                                        [&parameter](const CQoxParamStorage& candidate)
                                        { return candidate.nNumber == parameter.governingChoice; });
    return governing != m_parameters.end() ? governing->strValue : std::wstring();
}

double ModuleRule::DefaultInUnits(const ParamDefinition& parameter) const
{
    return InUnits(parameter.kind, m_content->DefaultOf(*m_rule.definition, parameter, ChosenFor(parameter)),
                   m_valueUnits);
}

void ModuleRule::UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits)
{
    CQoxRule::UpdateRule(oldUnits, newUnits);
    if (oldUnits != nullptr && newUnits != nullptr)
    {
        m_valueUnits = *newUnits;
    }
}

void ModuleRule::EditRule()
{
    const std::vector<CQoxParamStorage> before = m_parameters;
    CQoxRule::EditRule();
    for (const ParamDefinition& definition : m_rule.definition->parameters)
    {
        if (definition.governingChoice == 0)
        {
            continue;
        }
        const auto choice = std::find_if(before.begin(), before.end(),
                                         [&definition](const CQoxParamStorage& candidate)
                                         { return candidate.nNumber == definition.governingChoice; });
        CQoxParamStorage* const governed = FindParameterInArray(definition.number);
        if (choice == before.end() || governed == nullptr || governed->eKind != definition.kind ||
            choice->strValue == ChosenFor(definition))
        {
            continue;
        }
        const bool wasDefault = governed->IsDefault();
        governed->dDefault = DefaultInUnits(definition);
        if (wasDefault)
        {
            governed->dValue = governed->dDefault;
        }
    }
}

CQoxRule& ModuleRule::operator=(CQoxRule* rule)
{
    CQoxRule::operator=(rule);
    if (const auto* const other = dynamic_cast<const ModuleRule*>(rule))
    {
        m_valueUnits = other->m_valueUnits;
    }
    return *this;
}
