#pragma once

#include "RuleModules/Kit/RuleTable.h"

#include <list>
#include <map>
#include <optional>
#include <string>
#include <utility>

/// The texts of one choice.
struct ChoiceList
{
    SharedTextList names;
    bool fromDatabase = false; ///< False for the short list that is built in.
};

/// All choices of a module, and the properties of the chosen that its defaults come from.
/// Read out of the database at once, so that the database is closed again when a rule file
/// with very many rules is read, and its module can leave the configuration at any time.
class ChoiceLists
{
public:
    /// The database modules in the order in which they are tried. The module's tables live
    /// as long as the module.
    ChoiceLists(const ModuleDefinition& module, const std::list<std::wstring>& databaseModules);

    /// The list of a source that a rule of the module names.
    const ChoiceList& Of(const ChoiceSource& source) const;

    /// A property of an entry of the source, if the database has it.
    std::optional<double> Property(const ChoiceSource& source, const std::wstring& name,
                                   std::wstring_view property) const;

private:
    struct Source
    {
        ChoiceList list;
        std::map<std::pair<std::wstring, std::wstring>, double> properties; // by property and name
    };

    std::map<const ChoiceSource*, Source> m_sources;
};
