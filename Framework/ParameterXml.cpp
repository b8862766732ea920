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
using VantrelXml::AssignWide;

constexpr std::array AllKinds = { ParamKind::Length, ParamKind::Angle,  ParamKind::Number, ParamKind::Integer,
                                  ParamKind::YesNo,  ParamKind::Choice, ParamKind::Text };

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

std::optional<std::int32_t> ParameterXml::NumberOf(pugi::xml_node element)
{
    if (!KindOf(element.attribute("Kind").value()))
    {
        return std::nullopt;
    }
    return ParseInteger(element.attribute("Number").value());
}

void ParameterXml::Read(CQoxParamStorage& parameter, pugi::xml_node element)
{
    parameter.eKind = *KindOf(element.attribute("Kind").value());
    const bool numeric = parameter.IsNumeric();
    VantrelXml::UnknownParts unknown;
    for (const pugi::xml_attribute attribute : element.attributes())
    {
        const std::string_view name = attribute.name();
        const char* const value = attribute.value();
        if (name == "Name")
        {
            AssignWide(parameter.strName, value);
        }
        else if (name == "Label")
        {
            AssignWide(parameter.strLabel, value);
        }
        else if (name == "Value" && numeric)
        {
            ReadNumber(parameter.dValue, value);
        }
        else if (name == "Value")
        {
            AssignWide(parameter.strValue, value);
        }
        else if (name == "Minimum")
        {
            ReadNumber(parameter.dMinimum, value);
        }
        else if (name == "Maximum")
        {
            ReadNumber(parameter.dMaximum, value);
        }
        else if (name == "Default" && numeric)
        {
            ReadNumber(parameter.dDefault, value);
        }
        else if (name == "Default")
        {
            AssignWide(parameter.strDefault, value);
        }
        else if (name == "Help")
        {
            AssignWide(parameter.strHelp, value);
        }
        else if (name != "Number" && name != "Kind")
        {
            unknown.Keep(attribute);
        }
    }

    bool choicesSeen = false;
    for (const pugi::xml_node child : element.children())
    {
        if (std::string_view(child.name()) == "Choice")
        {
            VantrelXml::ReadListElement(parameter.choices, child, choicesSeen);
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
    AppendAttribute(element, "Name", parameter.strName);
    AppendAttribute(element, "Label", parameter.strLabel);
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
        AppendAttribute(element, "Default", parameter.strDefault);
    }
    AppendAttribute(element, "Help", parameter.strHelp);
    for (const std::wstring& choice : parameter.choices)
    {
        VantrelXml::AppendListElement(element, "Choice", choice);
    }
    VantrelXml::AppendUnknown(element, parameter.strUnknownMarkup);
}
