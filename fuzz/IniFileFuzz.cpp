// Reads any bytes as an ini file and checks what reading, grouping and writing promise.

#include "Modules/IniFileText.h"
#include "Modules/ModuleConfiguration.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using Records = CIniFile::Records;

void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

std::vector<const CIniFile::Record*> OfSection(const Records& records, const std::string& section)
{
    std::vector<const CIniFile::Record*> found;
    for (const CIniFile::Record& record : records)
    {
        if (record.Section == section)
        {
            found.push_back(&record);
        }
    }
    return found;
}

void CheckRecords(const Records& records, std::string_view text)
{
    Require(records.size() <= static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
    for (const CIniFile::Record& record : records)
    {
        Require(record.Commented == ' ' || record.Commented == '#' || record.Commented == ';');
        Require(record.Comments.empty() || record.Comments.back() == '\n');
        Require(record.Section.find('\n') == std::string::npos && record.Section.find(']') == std::string::npos);
        Require(record.Key.find('=') == std::string::npos && record.Key.find('\n') == std::string::npos);
        Require(record.Value.find('\n') == std::string::npos);
    }
}

void CheckGrouping(const Records& before, const Records& grouped)
{
    Require(before.size() == grouped.size());
    std::set<std::string> closed;
    for (std::size_t index = 1; index < grouped.size(); ++index)
    {
        if (grouped[index].Section != grouped[index - 1].Section)
        {
            closed.insert(grouped[index - 1].Section);
            Require(!closed.contains(grouped[index].Section));
        }
    }
    if (grouped.empty())
    {
        return;
    }
    // The order within a section stays; the first and the last stand for all.
    for (const std::string& section : { grouped.front().Section, grouped.back().Section })
    {
        const auto first = OfSection(before, section);
        const auto second = OfSection(grouped, section);
        Require(std::equal(first.begin(), first.end(), second.begin(), second.end(),
                           [](const auto* left, const auto* right) { return *left == *right; }));
    }
    Records again = grouped;
    IniFileText::GroupBySection(again);
    Require(again == grouped);
}

/// Values are expanded with variables that are set, unset, empty and without end.
void CheckExpansion(const Records& records)
{
    const auto environment = [](const std::wstring& name) -> std::optional<std::wstring>
    {
        if (name == L"A")
        {
            return L"%B%a%";
        }
        if (name == L"B")
        {
            return L"%A%%A%";
        }
        return name.size() % 2 == 0 ? std::nullopt : std::optional<std::wstring>(std::wstring());
    };
    const ModuleConfiguration configuration({}, {}, environment);
    // A few are enough: expanding one that has no end takes its time.
    for (std::size_t index = 0; index < std::min<std::size_t>(records.size(), 4); ++index)
    {
        const std::string& value = records[index].Value;
        const std::string expanded = configuration.Expand(value);
        Require(expanded.size() < 100'000 + 3 * value.size());
        Require(value.find('%') != std::string::npos || expanded == value);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::optional<Records> records = IniFileText::Parse(text);
    // What stands behind the last line end is never seen.
    const std::size_t seen = text.rfind('\n') + 1;
    Require(IniFileText::Parse(text.substr(0, seen)) == records);
    if (!records)
    {
        return 0;
    }
    CheckRecords(*records, text);

    Records grouped = *records;
    IniFileText::GroupBySection(grouped);
    CheckGrouping(*records, grouped);

    const std::string saved = IniFileText::FileText(grouped);
    Require(saved.empty() == grouped.empty());
    if (const std::optional<Records> reread = IniFileText::Parse(saved))
    {
        CheckRecords(*reread, saved);
    }
    const std::string plain = IniFileText::PlainText(*records);
    Require(plain.empty() == records->empty());
    CheckExpansion(*records);
    return 0;
}
