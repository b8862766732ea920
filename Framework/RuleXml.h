#pragma once

#include <pugixml.hpp>

#include <string>

class CQoxRule;

namespace VantrelXml
{
class UnknownParts;
}

/// The `Rule` element of rule files, held against `CQoxRule`.
class RuleXml
{
public:
    /// Fills the rule from the element. What the element lacks stays as it was.
    static void Read(CQoxRule& rule, pugi::xml_node element);

    /// Fills an empty element from the rule.
    static void Write(const CQoxRule& rule, pugi::xml_node element);

private:
    static void ReadAttributes(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown);
    static void ReadChildren(CQoxRule& rule, pugi::xml_node element, VantrelXml::UnknownParts& unknown);
};
