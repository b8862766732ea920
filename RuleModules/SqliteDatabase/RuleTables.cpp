#include "RuleModules/SqliteDatabase/RuleTables.h"

#include "RuleModules/SqliteDatabase/SqliteHandles.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

namespace
{

// The file may be anyone's, so what it can cost is bounded: a view may stand in the place
// of the table and never come to an end.
constexpr std::uintmax_t MaximumFileSize = 16 * 1024 * 1024;
constexpr int MaximumTextLength = 1 << 20;
constexpr int MaximumColumns = 100;
constexpr int InstructionsPerCheck = 1000;
constexpr int MaximumChecks = 20'000;
constexpr int MillisecondsToWaitForLock = 200;

/// A table of the file with the column that parts it into groups.
struct TableSource
{
    const wchar_t* name;
    const char* query;
    const wchar_t* groupColumn;
};

constexpr const wchar_t* MaterialTable = L"materials";
constexpr std::array Sources = {
    TableSource{ MaterialTable, "SELECT * FROM materials ORDER BY name COLLATE NOCASE LIMIT 10000", L"material_group" },
    TableSource{ L"drills", "SELECT * FROM drills LIMIT 10000", L"series" },
    TableSource{ L"end_mills", "SELECT * FROM end_mills LIMIT 10000", L"series" },
    TableSource{ L"threads", "SELECT * FROM threads LIMIT 10000", L"series" },
    TableSource{ L"gauges", "SELECT * FROM gauges LIMIT 10000", L"series" },
    TableSource{ L"tubes", "SELECT * FROM tubes LIMIT 10000", L"series" },
    TableSource{ L"tolerance_grades", "SELECT * FROM tolerance_grades LIMIT 10000", L"series" },
};

int StopWhenUsedUp(void* checksLeft)
{
    return --*static_cast<int*>(checksLeft) < 0 ? 1 : 0;
}

/// Wide text out of the UTF-16 that SQLite gives.
std::wstring Wide(std::u16string_view text)
{
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        const char16_t unit = text[index];
        const bool isPair = sizeof(wchar_t) > sizeof(char16_t) && unit >= 0xd800 && unit < 0xdc00 &&
                            index + 1 < text.size() && text[index + 1] >= 0xdc00 && text[index + 1] < 0xe000;
        if (isPair)
        {
            const char32_t high = unit - 0xd800U;
            const char32_t low = text[++index] - 0xdc00U;
            result += static_cast<wchar_t>(0x10000U + (high << 10U) + low);
        }
        else
        {
            result += static_cast<wchar_t>(unit);
        }
    }
    return result;
}

std::wstring TextOfColumn(sqlite3_stmt* row, int column)
{
    const auto* const text = static_cast<const char16_t*>(sqlite3_column_text16(row, column));
    if (text == nullptr)
    {
        return {};
    }
    return Wide({ text, static_cast<std::size_t>(sqlite3_column_bytes16(row, column)) / sizeof(char16_t) });
}

std::vector<std::wstring> ColumnNames(sqlite3_stmt* statement)
{
    std::vector<std::wstring> names;
    for (int column = 0; column < sqlite3_column_count(statement); ++column)
    {
        const auto* const name = static_cast<const char16_t*>(sqlite3_column_name16(statement, column));
        names.push_back(name != nullptr ? Wide(name) : std::wstring());
    }
    return names;
}

bool IsNumber(int columnType)
{
    return columnType == SQLITE_INTEGER || columnType == SQLITE_FLOAT;
}

SqliteStatement Prepare(sqlite3& database, const char* query)
{
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(&database, query, -1, &prepared, nullptr);
    return SqliteStatement(prepared);
}

/// SQLite reads a file that was cut short as if zeros followed, so it has to be asked.
bool IsSound(sqlite3& database)
{
    const SqliteStatement check = Prepare(database, "PRAGMA quick_check(1)");
    return check && sqlite3_step(check.get()) == SQLITE_ROW && TextOfColumn(check.get(), 0) == L"ok";
}

SqliteDatabase OpenReadOnly(const std::wstring& path)
{
    const std::u8string narrowPath = std::filesystem::path(path).u8string();
    SqliteDatabase database = OpenSqlite(reinterpret_cast<const char*>(narrowPath.c_str()), SQLITE_OPEN_READONLY);
    if (database)
    {
        sqlite3_busy_timeout(database.get(), MillisecondsToWaitForLock);
        sqlite3_limit(database.get(), SQLITE_LIMIT_LENGTH, MaximumTextLength);
        sqlite3_limit(database.get(), SQLITE_LIMIT_COLUMN, MaximumColumns);
        sqlite3_db_config(database.get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(database.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    }
    return database;
}

RuleTableEntry EntryOfRow(sqlite3_stmt* row, const std::vector<std::wstring>& columns, const TableSource& source)
{
    RuleTableEntry entry;
    entry.numbers.resize(columns.size(), std::numeric_limits<double>::quiet_NaN());
    for (std::size_t index = 0; index < columns.size(); ++index)
    {
        const int column = static_cast<int>(index);
        if (columns[index] == L"name")
        {
            entry.name = TextOfColumn(row, column);
        }
        else if (columns[index] == source.groupColumn)
        {
            entry.group = TextOfColumn(row, column);
        }
        else if (IsNumber(sqlite3_column_type(row, column)))
        {
            entry.numbers[index] = sqlite3_column_double(row, column);
        }
    }
    return entry;
}

/// Reads all rows of the statement; false if it doesn't come to its end.
bool ReadTable(sqlite3_stmt* statement, const std::vector<std::wstring>& columns, const TableSource& source,
               RuleTable& table)
{
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement))
    {
        table.Add(EntryOfRow(statement, columns, source));
    }
    return result == SQLITE_DONE;
}

} // namespace

void RuleTable::Add(RuleTableEntry entry)
{
    if (!entry.name.empty() && m_places.emplace(entry.name, m_entries.size()).second)
    {
        m_entries.push_back(std::move(entry));
    }
}

std::optional<double> RuleTable::Number(const std::wstring& name, std::wstring_view column) const
{
    const auto found = m_places.find(name);
    if (found == m_places.end())
    {
        return std::nullopt;
    }
    const std::vector<double>& numbers = m_entries[found->second].numbers;
    for (std::size_t index = 0; index < m_columns.size(); ++index)
    {
        if (m_columns[index] == column && std::isfinite(numbers[index]))
        {
            return numbers[index];
        }
    }
    return std::nullopt;
}

std::wstring_view ProblemText(RuleTableProblem problem)
{
    switch (problem)
    {
    case RuleTableProblem::None:
        break;
    case RuleTableProblem::Missing:
        return L"is not there, or it can't be opened";
    case RuleTableProblem::TooLarge:
        return L"is too large";
    case RuleTableProblem::Damaged:
        return L"is damaged, or it is no database";
    case RuleTableProblem::NoMaterials:
        return L"has no table of materials";
    }
    return L"is in order";
}

std::unique_ptr<const RuleTables> ReadRuleTables(const std::wstring& path, RuleTableProblem& problem)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(std::filesystem::path(path), error);
    if (error || size > MaximumFileSize)
    {
        problem = error ? RuleTableProblem::Missing : RuleTableProblem::TooLarge;
        return nullptr;
    }
    const SqliteDatabase database = OpenReadOnly(path);
    if (!database)
    {
        problem = RuleTableProblem::Missing;
        return nullptr;
    }
    int checksLeft = MaximumChecks;
    sqlite3_progress_handler(database.get(), InstructionsPerCheck, StopWhenUsedUp, &checksLeft);

    problem = RuleTableProblem::Damaged;
    if (!IsSound(*database))
    {
        return nullptr;
    }
    auto tables = std::make_unique<RuleTables>();
    for (const TableSource& source : Sources)
    {
        // Whoever has a database of their own needs no table beyond the materials.
        const SqliteStatement statement = Prepare(*database, source.query);
        if (!statement)
        {
            continue;
        }
        // Neither by [] nor by try_emplace: they leave a symbol in the module that the loader
        // holds to be unique in the process, and such a library is never unloaded.
        const std::vector<std::wstring> columns = ColumnNames(statement.get());
        RuleTable& table = tables->emplace(source.name, RuleTable(columns)).first->second;
        if (!ReadTable(statement.get(), columns, source, table))
        {
            return nullptr;
        }
    }
    if (!tables->contains(MaterialTable))
    {
        problem = RuleTableProblem::NoMaterials;
        return nullptr;
    }
    problem = RuleTableProblem::None;
    return tables;
}
