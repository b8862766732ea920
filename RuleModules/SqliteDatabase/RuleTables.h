#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// One entry of a table.
struct RuleTableEntry
{
    std::wstring name;
    std::wstring group;
    std::vector<double> numbers; ///< One for each column of the table; not a number where the row has none.
};

/// A table in the order in which it is offered.
class RuleTable
{
public:
    explicit RuleTable(std::vector<std::wstring> columns) : m_columns(std::move(columns)) {}

    /// An entry without a name, or with one that is there already, is left out.
    void Add(RuleTableEntry entry);

    const std::vector<RuleTableEntry>& Entries() const { return m_entries; }

    /// The number that the entry of the name has in a column, if it has one.
    std::optional<double> Number(const std::wstring& name, std::wstring_view column) const;

private:
    std::vector<std::wstring> m_columns;
    std::vector<RuleTableEntry> m_entries;
    std::unordered_map<std::wstring, std::size_t> m_places;
};

/// All tables by name.
using RuleTables = std::map<std::wstring, RuleTable>;

/// Why tables could not be read.
enum class RuleTableProblem
{
    None,
    Missing,     ///< There is no file, or it can't be opened.
    TooLarge,    ///< Larger than any database of materials and sizes.
    Damaged,     ///< No database, or one that is broken, locked or never comes to an end.
    NoMaterials, ///< A database without the table of materials.
};

/// The problem as the end of a sentence for the log.
std::wstring_view ProblemText(RuleTableProblem problem);

/// Reads an SQLite file whole. It is free again afterwards: it can be replaced while the
/// program runs. Null and a problem if it can't be read to its end: half a list would look
/// like a whole one.
std::unique_ptr<const RuleTables> ReadRuleTables(const std::wstring& path, RuleTableProblem& problem);
