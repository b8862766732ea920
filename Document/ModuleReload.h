#pragma once

#include <functional>
#include <string>
#include <vector>

class ModuleSet;
class RuleDocument;

/// An open document as far as a change of the configured modules concerns it.
struct OpenRuleDocument
{
    RuleDocument& rules;
    std::wstring path; ///< empty without a file
    bool isModified = false;
    std::function<void()> reloadViews;
};

/// Brings the loaded rule modules and the open documents in line with the configured
/// modules. A document that is modified or whose units were changed is not read again, only
/// its views are; its rules of a module that has left must not be used afterwards.
void ReloadRuleModules(ModuleSet& modules, const std::vector<OpenRuleDocument>& documents);
