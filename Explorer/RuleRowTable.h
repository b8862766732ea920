#pragma once

#include "Explorer/RuleText.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

class CQoxRule;
class RuleOrder;

/// The rows of the rule list: each with its rule, its texts and its box. The control asks for
/// what it shows and keeps nothing itself; given each text, it would measure each, which takes
/// seconds for ten thousand rows.
class RuleRowTable
{
public:
    int Count() const { return static_cast<int>(m_rows.size()); }

    /// Adds a row at the end, without a tick, and returns its number. The rule isn't owned and
    /// may be null.
    int Insert(CQoxRule* rule, const std::wstring& text);
    /// The row must be there, as for all that follows.
    void Remove(int row);
    void Clear() { m_rows.clear(); }

    CQoxRule* RuleOf(int row) const { return At(row).rule; }
    const std::wstring& Text(int row, int column) const { return At(row).texts.at(static_cast<std::size_t>(column)); }
    void SetText(int row, int column, const std::wstring& text);
    bool IsTicked(int row) const { return At(row).ticked; }
    void SetTicked(int row, bool ticked) { At(row).ticked = ticked; }

    /// Writes into each rule whether its row is ticked.
    void NoteTickedRules() const;

    /// Sorts the rows. Equal ones keep their order, and those without a rule stand last, as
    /// they were. Returns for each row the number that it had.
    std::vector<int> Sort(const RuleOrder& order);

private:
    struct Row
    {
        CQoxRule* rule = nullptr;
        std::array<std::wstring, RuleColumnCount> texts;
        bool ticked = false;
    };

    Row& At(int row) { return m_rows.at(static_cast<std::size_t>(row)); }
    const Row& At(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    std::vector<Row> m_rows;
};
