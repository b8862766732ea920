#include "RuleModules/SqliteDatabase/RuleTableDatabase.h"

#include <utility>

RuleTableDatabase::RuleTableDatabase(std::shared_ptr<const RuleTables> tables) : m_tables(std::move(tables)) {}

void RuleTableDatabase::GetNames(const std::wstring& table, const std::wstring& group, std::list<std::wstring>& names)
{
    names.clear();
    const auto found = m_tables->find(table);
    if (found == m_tables->end())
    {
        return;
    }
    for (const RuleTableEntry& entry : found->second.Entries())
    {
        if (group.empty() || entry.group == group)
        {
            names.push_back(entry.name);
        }
    }
}

bool RuleTableDatabase::GetProperty(const std::wstring& table, const std::wstring& name, const std::wstring& property,
                                    double& value)
{
    const auto found = m_tables->find(table);
    if (found == m_tables->end())
    {
        return false;
    }
    const std::optional<double> number = found->second.Number(name, property);
    value = number.value_or(value);
    return number.has_value();
}
