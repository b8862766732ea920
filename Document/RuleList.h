#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

class CQoxRule;

/// The rules of a document in their order. Finding and removing a rule costs the same
/// however many there are. The rules are not owned.
class RuleList
{
public:
    /// Adds a rule at the tail; one that is already there keeps its place.
    void Append(CQoxRule* rule);

    /// False if the rule isn't there.
    bool Remove(const CQoxRule* rule);

    bool Contains(const CQoxRule* rule) const { return m_places.contains(rule); }
    std::size_t Size() const { return m_places.size(); }
    bool IsEmpty() const { return m_places.empty(); }

    /// The rules in order. The result is a copy that changes of the list don't touch.
    std::vector<CQoxRule*> Rules() const;

private:
    void Compact();

    std::vector<CQoxRule*> m_rules; // null where a rule was removed
    std::unordered_map<const CQoxRule*, std::size_t> m_places;
};
