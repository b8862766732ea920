#pragma once

#include <Vantrel/ParamStorage.h>

#include <pugixml.hpp>

#include <cstdint>
#include <optional>
#include <string>

namespace VantrelXml
{
struct ElementTemplates;
}

/// The `Parameter` element of rule files, held against `CQoxParamStorage`.
class ParameterXml
{
public:
    /// What a parameter is found by.
    struct Identity
    {
        std::int32_t number;
        ParamKind kind;
    };

    /// The parameter that the element tells of. Nothing if it has no number or is of a kind
    /// that this version doesn't know; it is then kept unread.
    static std::optional<Identity> IdentityOf(pugi::xml_node element);

    /// Fills the parameter from the element, which is of the kind. What the element lacks
    /// stays as it was, and so does a number that can't be read.
    static void Read(CQoxParamStorage& parameter, ParamKind kind, pugi::xml_node element);

    /// Appends an element for the parameter. The templates are those of the document.
    static void Append(const CQoxParamStorage& parameter, pugi::xml_node rule,
                       const VantrelXml::ElementTemplates& templates);

    /// Markup of the templates for parameters: with a number, and with a text.
    static std::string NumericTemplate();
    static std::string TextTemplate();
};
