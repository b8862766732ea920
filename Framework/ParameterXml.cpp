#include "Framework/ParameterXml.h"

#include "Framework/NumberText.h"
#include "Framework/XmlState.h"
#include "Framework/XmlText.h"

#include <array>
#include <cmath>
#include <string_view>

namespace
{

using VantrelXml::AppendAttribute;
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

void AppendNumber(pugi::xml_node element, const char* name, double number)
{
    if (!std::isfinite(number))
    {
        return; // an open end of the range
    }
    std::string text;
    AppendNumberText(text, number);
    element.append_attribute(name).set_value(text.c_str());
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
    VantrelXml::NameFinder finder(AttributeNames);
    for (pugi::xml_attribute attribute = element.first_attribute(); attribute; attribute = attribute.next_attribute())
    {
        if (const std::optional<std::size_t> place = finder.Find(attribute.name()))
        {
            ReadAttribute(parameter, static_cast<Attribute>(*place), attribute.value());
        }
        else
        {
            unknown.Keep(attribute);
        }
    }

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

void ParameterXml::Write(const CQoxParamStorage& parameter, pugi::xml_node element)
{
    element.append_attribute("Number").set_value(parameter.nNumber);
    AppendAttribute(element, "Name", parameter.strName.Get());
    AppendAttribute(element, "Label", parameter.strLabel.Get());
    element.append_attribute("Kind").set_value(ParamKindName(parameter.eKind).data());
    if (parameter.IsNumeric())
    {
        AppendNumber(element, "Value", parameter.dValue);
        AppendNumber(element, "Minimum", parameter.dMinimum);
        AppendNumber(element, "Maximum", parameter.dMaximum);
        AppendNumber(element, "Default", parameter.dDefault);
    }
    else
    {
        AppendAttribute(element, "Value", parameter.strValue);
        AppendAttribute(element, "Default", parameter.strDefault.Get());
    }
    AppendAttribute(element, "Help", parameter.strHelp.Get());
    for (const std::wstring& choice : parameter.choices)
    {
        VantrelXml::AppendListElement(element, "Choice", choice);
    }
    VantrelXml::AppendUnknown(element, parameter.strUnknownMarkup);
}
