#pragma once

#include <Vantrel/PointerArray.h>

#include <cstddef>
#include <cstdint>
#include <vector>

/// The rules of a record in the order of adding, and their look-up by index.
///
/// The results are those of a tree in which every level holds the newest rule and
/// everything older, and whose walk goes on to its end: of several rules with one index
/// the oldest is found. A rule can come to another index than its place says when a second
/// record takes it in, as saving does. The rules are not owned.
class RuleTable
{
public:
    RuleTable() = default;
    RuleTable(const RuleTable&) = delete;
    RuleTable& operator=(const RuleTable&) = delete;

    /// Appends the rule and gives it the next index, which is the result.
    std::int32_t Add(CQoxRule* rule);

    /// The rule with the index, or null. Costs what a table look-up costs, unless some rule
    /// was given a new index since the last look-up.
    CQoxRule* Find(std::int32_t index) const;

    /// Appends the rules with the indexes from 1 up to the number of rules ever added.
    void List(PointerArray& rules) const;

    /// Takes the rule out. False if it isn't there.
    bool Remove(const CQoxRule* rule);

    /// Rules added so far; removing doesn't lower it.
    std::int32_t AddedCount() const { return m_addedCount; }

    /// True if no rule stands in the table.
    bool IsEmpty() const { return m_liveCount == 0; }

    /// Calls `visit` with every rule, in the order of adding.
    template <typename Visit>
    void ForEach(Visit&& visit) const
    {
        for (CQoxRule* const rule : m_rules)
        {
            if (rule != nullptr)
            {
                visit(rule);
            }
        }
    }

private:
    void RebuildLookup() const;
    void EnterInLookup(CQoxRule* rule) const;

    std::vector<CQoxRule*> m_rules; // null where a rule was taken out
    std::size_t m_liveCount = 0;
    std::int32_t m_addedCount = 0;

    mutable std::vector<CQoxRule*> m_lookup; // by index less 1
    mutable std::uint64_t m_lookupStamp = 0;
    mutable bool m_lookupValid = false;

    /// Counts how often a rule of any table was given an index in place of another one, so
    /// that each table knows when its look-up may be out of date.
    static std::uint64_t s_reindexCount;
};
