#include "Document/RuleList.h"

#include <algorithm>
#include <iterator>

void RuleList::Append(CQoxRule* rule)
{
    if (rule != nullptr && m_places.try_emplace(rule, m_rules.size()).second)
    {
        m_rules.push_back(rule);
    }
}

bool RuleList::Remove(const CQoxRule* rule)
{
    const auto found = m_places.find(rule);
    if (found == m_places.end())
    {
        return false;
    }
    m_rules[found->second] = nullptr;
    m_places.erase(found);
    if (m_rules.size() > 2 * m_places.size() + 16)
    {
        Compact();
    }
    return true;
}

std::vector<CQoxRule*> RuleList::Rules() const
{
    std::vector<CQoxRule*> rules;
    rules.reserve(Size());
    std::copy_if(m_rules.begin(), m_rules.end(), std::back_inserter(rules),
                 [](const CQoxRule* rule) { return rule != nullptr; });
    return rules;
}

void RuleList::Compact()
{
    m_rules.erase(std::remove(m_rules.begin(), m_rules.end(), nullptr), m_rules.end());
    for (std::size_t place = 0; place < m_rules.size(); ++place)
    {
        m_places[m_rules[place]] = place;
    }
}
