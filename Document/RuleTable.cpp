#include "Document/RuleTable.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>

std::uint64_t RuleTable::s_reindexCount = 0;

std::int32_t RuleTable::Add(CQoxRule* rule)
{
    const bool hadIndex = rule->m_nTreeIndex != 0;
    m_rules.push_back(rule);
    ++m_liveCount;
    rule->m_nTreeIndex = ++m_addedCount;
    if (hadIndex)
    {
        ++s_reindexCount;
    }
    m_lookupValid = false;
    return m_addedCount;
}

CQoxRule* RuleTable::Find(std::int32_t index) const
{
    if (index < 1 || index > m_addedCount)
    {
        return nullptr;
    }
    if (!m_lookupValid || m_lookupStamp != s_reindexCount)
    {
        RebuildLookup();
    }
    return m_lookup[static_cast<std::size_t>(index - 1)];
}

void RuleTable::List(PointerArray& rules) const
{
    RebuildLookup();
    for (CQoxRule* const rule : m_lookup)
    {
        if (rule != nullptr)
        {
            rules.Add(rule);
        }
    }
}

bool RuleTable::Remove(const CQoxRule* rule)
{
    if (rule == nullptr)
    {
        return false;
    }
    // Its index nearly always tells its place.
    const std::size_t guess = static_cast<std::size_t>(std::max(rule->m_nTreeIndex, 1) - 1);
    auto found = guess < m_rules.size() && m_rules[guess] == rule ? m_rules.begin() + static_cast<std::ptrdiff_t>(guess)
                                                                  : std::find(m_rules.begin(), m_rules.end(), rule);
    if (found == m_rules.end())
    {
        return false;
    }
    *found = nullptr;
    --m_liveCount;
    m_lookupValid = false;
    return true;
}

void RuleTable::RebuildLookup() const
{
    m_lookup.assign(static_cast<std::size_t>(m_addedCount), nullptr);
    // Newest first, so that the oldest of several rules with one index is what stays.
    for (auto rule = m_rules.rbegin(); rule != m_rules.rend(); ++rule)
    {
        if (*rule != nullptr)
        {
            EnterInLookup(*rule);
        }
    }
    m_lookupStamp = s_reindexCount;
    m_lookupValid = true;
}

void RuleTable::EnterInLookup(CQoxRule* rule) const
{
    const std::int32_t index = rule->m_nTreeIndex;
    if (index >= 1 && index <= m_addedCount)
    {
        m_lookup[static_cast<std::size_t>(index - 1)] = rule;
    }
}
