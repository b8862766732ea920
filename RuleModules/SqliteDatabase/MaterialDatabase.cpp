#include "RuleModules/SqliteDatabase/MaterialDatabase.h"

#include "RuleModules/SqliteDatabase/SqliteHandles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
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

constexpr const char* MaterialQuery = "SELECT * FROM materials ORDER BY name COLLATE NOCASE LIMIT 10000";

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
    const std::filesystem::path file(path);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || size > MaximumFileSize)
    {
        return nullptr;
    }
    const std::u8string narrowPath = file.u8string();
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

} // namespace

MaterialDatabase::MaterialDatabase(std::vector<Material> materials) : m_materials(std::move(materials)) {}

std::unique_ptr<MaterialDatabase> MaterialDatabase::Open(const std::wstring& path)
{
    const SqliteDatabase database = OpenReadOnly(path);
    if (!database)
    {
        return nullptr;
    }
    int checksLeft = MaximumChecks;
    sqlite3_progress_handler(database.get(), InstructionsPerCheck, StopWhenUsedUp, &checksLeft);

    if (!IsSound(*database))
    {
        return nullptr;
    }
    const SqliteStatement statement = Prepare(*database, MaterialQuery);
    if (!statement)
    {
        return nullptr;
    }
    const std::vector<std::wstring> columns = ColumnNames(statement.get());

    std::vector<Material> materials;
    int result = sqlite3_step(statement.get());
    for (; result == SQLITE_ROW; result = sqlite3_step(statement.get()))
    {
        Material& material = materials.emplace_back();
        for (std::size_t index = 0; index < columns.size(); ++index)
        {
            const int column = static_cast<int>(index);
            if (columns[index] == L"name")
            {
                material.name = TextOfColumn(statement.get(), column);
            }
            else if (columns[index] == L"material_group")
            {
                material.group = TextOfColumn(statement.get(), column);
            }
            else if (IsNumber(sqlite3_column_type(statement.get(), column)))
            {
                const double value = sqlite3_column_double(statement.get(), column);
                if (std::isfinite(value))
                {
                    material.properties.emplace(columns[index], value);
                }
            }
        }
        if (material.name.empty())
        {
            materials.pop_back();
        }
    }
    if (result != SQLITE_DONE)
    {
        return nullptr; // half a list would look like a whole one
    }
    return std::unique_ptr<MaterialDatabase>(new MaterialDatabase(std::move(materials)));
}

void MaterialDatabase::GetMaterialNames(const std::wstring& group, std::list<std::wstring>& names)
{
    names.clear();
    for (const Material& material : m_materials)
    {
        if (group.empty() || material.group == group)
        {
            names.push_back(material.name);
        }
    }
}

bool MaterialDatabase::GetMaterialProperty(const std::wstring& material, const std::wstring& property, double& value)
{
    const auto found = std::find_if(m_materials.begin(), m_materials.end(),
                                    [&material](const Material& candidate) { return candidate.name == material; });
    if (found == m_materials.end())
    {
        return false;
    }
    const auto entry = found->properties.find(property);
    if (entry == found->properties.end())
    {
        return false;
    }
    value = entry->second;
    return true;
}
