#include "RuleModules/Kit/ChoiceLists.h"

#include "RuleModules/Kit/RuleLookUp.h"

#include <Vantrel/RuleDatabase.h>

#include <cmath>
#include <iterator>
#include <memory>
#include <vector>

namespace
{

struct DatabaseCloser
{
    void operator()(IRuleDatabase* database) const { CloseRuleDatabase(database); }
};

ChoiceList ReadList(IRuleDatabase* database, const ChoiceSource& source)
{
    ChoiceList list;
    if (database != nullptr && !source.table.empty())
    {
        std::list<std::wstring> names;
        database->GetNames(std::wstring(source.table), std::wstring(source.group), names);
        list.names =
            std::vector<std::wstring>(std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
        list.fromDatabase = !list.names.empty();
    }
    if (list.names.empty())
    {
        list.names = std::vector<std::wstring>(source.builtIn.begin(), source.builtIn.end());
    }
    return list;
}

} // namespace

ChoiceLists::ChoiceLists(const ModuleDefinition& module, const std::list<std::wstring>& databaseModules)
{
    const std::unique_ptr<IRuleDatabase, DatabaseCloser> database(OpenRuleDatabase(databaseModules));
    for (const RuleDefinition& rule : module.rules)
    {
        for (const ParamDefinition& parameter : rule.parameters)
        {
            if (parameter.choices != nullptr && !m_sources.contains(parameter.choices))
            {
                // Neither by [] nor by try_emplace: they leave a symbol in the module that the
                // loader holds to be unique in the process, and such a library is never unloaded.
                m_sources.emplace(parameter.choices, Source{ ReadList(database.get(), *parameter.choices), {} });
            }
        }
        for (const ParamDefinition& parameter : rule.parameters)
        {
            const ParamDefinition* const governing = FindParameter(rule, parameter.governingChoice);
            if (governing == nullptr || governing->choices == nullptr || database == nullptr)
            {
                continue;
            }
            Source& source = m_sources.at(governing->choices);
            const std::wstring property(parameter.governedProperty);
            for (const std::wstring& name : source.list.names)
            {
                double value = 0;
                if (database->GetProperty(std::wstring(governing->choices->table), name, property, value) &&
                    std::isfinite(value))
                {
                    source.properties.emplace(std::pair(property, name), value);
                }
            }
        }
    }
}

const ChoiceList& ChoiceLists::Of(const ChoiceSource& source) const
{
    return m_sources.at(&source).list;
}

std::optional<double> ChoiceLists::Property(const ChoiceSource& source, const std::wstring& name,
                                            std::wstring_view property) const
{
    const Source& found = m_sources.at(&source);
    const auto value = found.properties.find({ std::wstring(property), name });
    return value != found.properties.end() ? std::optional(value->second) : std::nullopt;
}
