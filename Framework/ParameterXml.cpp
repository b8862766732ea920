#include "Framework/ParameterXml.h"

#include "Framework/NumberText.h"
#include "Framework/XmlState.h"
#include "Framework/XmlText.h"

#include <array>
#include <string_view>
#include <vector>

namespace
{

using VantrelXml::AssignShared;
using VantrelXml::AssignWide;

constexpr std::array AllKinds = { ParamKind::Length, ParamKind::Angle,  ParamKind::Number, ParamKind::Integer,
                                  ParamKind::YesNo,  ParamKind::Choice, ParamKind::Text };

/// The attributes of a `Parameter` element in the order of writing, and their names.
enum class Attribute : std::size_t
{
    Number,
    Name,
    Label,
    Kind,
    Value,
    Minimum,
    Maximum,
    Default,
    Help,
};
constexpr std::array AttributeNames = { "Number",  "Name",    "Label",   "Kind", "Value",
                                        "Minimum", "Maximum", "Default", "Help" };

std::optional<ParamKind> KindOf(std::string_view name)
{
    for (const ParamKind kind : AllKinds)
    {
        if (ParamKindName(kind) == name)
        {
            return kind;
        }
    }
    return std::nullopt;
}

void ReadNumber(double& number, const char* text)
{
    number = ParseNumberText(text).value_or(number);
}

void ReadAttribute(CQoxParamStorage& parameter, Attribute attribute, const char* value)
{
    const bool numeric = parameter.IsNumeric();
    switch (attribute)
    {
    case Attribute::Number:
    case Attribute::Kind:
        return; // the parameter was found by them
    case Attribute::Name:
        return AssignShared(parameter.strName, value);
    case Attribute::Label:
        return AssignShared(parameter.strLabel, value);
    case Attribute::Value:
        return numeric ? ReadNumber(parameter.dValue, value) : AssignWide(parameter.strValue, value);
    case Attribute::Minimum:
        return ReadNumber(parameter.dMinimum, value);
    case Attribute::Maximum:
        return ReadNumber(parameter.dMaximum, value);
    case Attribute::Default:
        return numeric ? ReadNumber(parameter.dDefault, value) : AssignShared(parameter.strDefault, value);
    case Attribute::Help:
        return AssignShared(parameter.strHelp, value);
    }
}

} // namespace

std::optional<ParameterXml::Identity> ParameterXml::IdentityOf(pugi::xml_node element)
{
    const std::optional<ParamKind> kind = KindOf(element.attribute("Kind").value());
    const std::optional<std::int32_t> number = ParseInteger(element.attribute("Number").value());
    if (!kind || !number)
    {
        return std::nullopt;
    }
    return Identity{ *number, *kind };
}

void ParameterXml::Read(CQoxParamStorage& parameter, ParamKind kind, pugi::xml_node element)
{
    parameter.eKind = kind;
    VantrelXml::UnknownParts unknown;
    VantrelXml::ReadAttributes(
        element, AttributeNames,
        [&parameter](std::size_t place, const char* value)
        { ReadAttribute(parameter, static_cast<Attribute>(place), value); },
        unknown);

    VantrelXml::ListReader choices(parameter.choices);
    for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling())
    {
        if (std::string_view(child.name()) == "Choice")
        {
            choices.Take(child);
        }
        else
        {
            unknown.Keep(child);
        }
    }
    parameter.strUnknownMarkup = unknown.Markup();
}

void ParameterXml::Append(const CQoxParamStorage& parameter, pugi::xml_node rule,
                          const VantrelXml::ElementTemplates& templates)
{
    const bool numeric = parameter.IsNumeric();
    const pugi::xml_node element = rule.append_copy(numeric ? templates.numericParameter : templates.textParameter);
    VantrelXml::AttributeFiller filler(element);
    filler.Integer(parameter.nNumber);
    filler.Text(parameter.strName.Get());
    filler.Text(parameter.strLabel.Get());
    filler.Ascii(ParamKindName(parameter.eKind).data());
    if (numeric)
    {
        filler.Number(parameter.dValue);
        filler.Number(parameter.dMinimum);
        filler.Number(parameter.dMaximum);
        filler.Number(parameter.dDefault);
    }
    else
    {
        filler.Text(parameter.strValue);
        filler.Text(parameter.strDefault.Get());
    }
    filler.Text(parameter.strHelp.Get());
    for (const std::wstring& choice : parameter.choices)
    {
        VantrelXml::AppendListElement(element, templates.choice, choice);
    }
    VantrelXml::AppendUnknown(element, parameter.strUnknownMarkup);
}

std::string ParameterXml::NumericTemplate()
{
    return VantrelXml::EmptyElement("Parameter", AttributeNames);
}

std::string ParameterXml::TextTemplate()
{
    std::vector<const char*> names(AttributeNames.begin(), AttributeNames.end());
    std::erase(names, AttributeNames[static_cast<std::size_t>(Attribute::Minimum)]);
    std::erase(names, AttributeNames[static_cast<std::size_t>(Attribute::Maximum)]);
    return VantrelXml::EmptyElement("Parameter", names);
}
