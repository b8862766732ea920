#include "Explorer/RuleRowTable.h"

#include "Explorer/RuleOrder.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <numeric>
#include <utility>

int RuleRowTable::Insert(CQoxRule* rule, const std::wstring& text)
{
    Row& row = m_rows.emplace_back();
    row.rule = rule;
    row.texts[0] = text;
    return Count() - 1;
}

void RuleRowTable::Remove(int row)
{
    m_rows.erase(m_rows.begin() + row);
}

void RuleRowTable::SetText(int row, int column, const std::wstring& text)
{
    At(row).texts.at(static_cast<std::size_t>(column)) = text;
}

void RuleRowTable::NoteTickedRules() const
{
    for (const Row& row : m_rows)
    {
        if (row.rule != nullptr)
        {
            row.rule->m_nRuleState = row.ticked ? 1 : 0;
        }
    }
}

std::vector<int> RuleRowTable::Sort(const RuleOrder& order)
{
    std::vector<int> formerRows(m_rows.size());
    std::iota(formerRows.begin(), formerRows.end(), 0);
    std::stable_sort(formerRows.begin(), formerRows.end(),
                     [&](int first, int second)
                     {
                         const CQoxRule* const firstRule = At(first).rule;
                         const CQoxRule* const secondRule = At(second).rule;
                         if (firstRule == nullptr || secondRule == nullptr)
                         {
                             return firstRule != nullptr && secondRule == nullptr;
                         }
                         return order.Compare(*firstRule, *secondRule) < 0;
                     });
    std::vector<Row> sorted;
    sorted.reserve(m_rows.size());
    for (const int row : formerRows)
    {
        sorted.push_back(std::move(At(row)));
    }
    m_rows = std::move(sorted);
    return formerRows;
}
