#include "RuleModules/Common/MaterialList.h"

#include <Vantrel/RuleDatabase.h>

#include <iterator>
#include <utility>
#include <vector>

namespace
{

struct DatabaseCloser
{
    void operator()(IRuleDatabase* database) const { CloseRuleDatabase(database); }
};

MaterialList ReadDatabase(const std::list<std::wstring>& databaseModules, std::wstring_view group)
{
    // Open only while it is read, so that the database module can leave the configuration
    // at any time.
    const std::unique_ptr<IRuleDatabase, DatabaseCloser> database(OpenRuleDatabase(databaseModules));
    if (!database)
    {
        return {};
    }
    std::list<std::wstring> names;
    database->GetMaterialNames(std::wstring(group), names);
    MaterialList list;
    list.names =
        std::vector<std::wstring>(std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
    list.fromDatabase = !list.names.empty();
    return list;
}

} // namespace

MaterialSource::MaterialSource(std::wstring_view group, std::span<const std::wstring_view> builtIn)
    : m_group(group), m_builtIn(builtIn)
{
}

void MaterialSource::SetDatabaseModules(std::list<std::wstring> modules)
{
    m_databaseModules = std::move(modules);
    m_materials.reset();
}

std::shared_ptr<const MaterialList> MaterialSource::Materials()
{
    if (!m_materials)
    {
        MaterialList list = ReadDatabase(m_databaseModules, m_group);
        if (list.names.empty())
        {
            list.names = std::vector<std::wstring>(m_builtIn.begin(), m_builtIn.end());
        }
        // Not by make_shared: it leaves a symbol in the module that the loader holds to be
        // unique in the process, and such a library is never unloaded.
        m_materials = std::make_unique<const MaterialList>(std::move(list));
    }
    return m_materials;
}
