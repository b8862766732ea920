#pragma once

#include <pugixml.hpp>

#include <string>

class CQoxRule;

namespace VantrelXml
{
class UnknownParts;
struct DocumentState;
struct ElementTemplates;
} // namespace VantrelXml

/// The `Rule` element of rule files, held against `CQoxRule`.
class RuleXml
{
public:
    /// Fills the rule from the element. What the element lacks stays as it was.
    static void Read(CQoxRule& rule, pugi::xml_node element);

    /// A new free element of the document with the whole rule.
    static pugi::xml_node Write(const CQoxRule& rule, VantrelXml::DocumentState& state);

private:
    static const VantrelXml::ElementTemplates& TemplatesOf(VantrelXml::DocumentState& state);
    static void ReadAttributes(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown);
    static void ReadChildren(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown);
};
