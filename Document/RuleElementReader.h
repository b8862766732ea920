#pragma once

#include "Modules/RuleModule.h"

#include <optional>
#include <string>
#include <vector>

class CQoxRule;
class ModuleSet;
class QoxXMLNode;

/// Offers `Rule` elements to the loaded rule modules, for the length of one file.
class RuleElementReader
{
public:
    /// `modules` may be null: then no module is asked.
    explicit RuleElementReader(const ModuleSet* modules);

    /// The rule of the first module, in load order, that knows the element; null if none
    /// does. The rule carries its module's display name and path.
    CQoxRule* Read(QoxXMLNode* node);

private:
    struct Source
    {
        RuleModule module;
        GetRuleFunction getRule;
        std::wstring path;
        std::optional<std::wstring> displayName; // asked for with the module's first rule
    };
    std::vector<Source> m_sources;
};
