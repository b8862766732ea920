#include "Compound/ZipEntryIndex.h"

#include "Platform/Text.h"

#include <algorithm>
#include <functional>

ZipEntryIndex::ZipEntryIndex(const std::vector<ZipEntry>& entries)
{
    m_items.reserve(entries.size());
    for (const ZipEntry& entry : entries)
    {
        m_items.push_back({ Platform::ToLower(entry.name), &entry });
    }
    std::stable_sort(m_items.begin(), m_items.end(),
                     [](const Item& first, const Item& second) { return first.name < second.name; });
}

std::vector<const ZipEntry*> ZipEntryIndex::Named(std::wstring_view name) const
{
    const std::wstring folded = Platform::ToLower(name);
    std::vector<const ZipEntry*> found;
    for (auto item = FirstNotBefore(folded); item != m_items.end() && item->name == folded; ++item)
    {
        found.push_back(item->entry);
    }
    return found;
}

bool ZipEntryIndex::HasName(std::wstring_view name) const
{
    const std::wstring folded = Platform::ToLower(name);
    const auto item = FirstNotBefore(folded);
    return item != m_items.end() && item->name == folded;
}

std::vector<const ZipEntry*> ZipEntryIndex::BeginningWith(std::wstring_view prefix) const
{
    const std::wstring folded = Platform::ToLower(prefix);
    std::vector<const ZipEntry*> found;
    for (auto item = FirstNotBefore(folded); item != m_items.end() && item->name.starts_with(folded); ++item)
    {
        found.push_back(item->entry);
    }
    // They lie in one array, so their addresses tell their order.
    std::sort(found.begin(), found.end(), std::less<>());
    return found;
}

bool ZipEntryIndex::HasBeginning(std::wstring_view prefix) const
{
    const std::wstring folded = Platform::ToLower(prefix);
    const auto item = FirstNotBefore(folded);
    return item != m_items.end() && item->name.starts_with(folded);
}

ZipEntryIndex::Items::const_iterator ZipEntryIndex::FirstNotBefore(std::wstring_view folded) const
{
    return std::lower_bound(m_items.begin(), m_items.end(), folded,
                            [](const Item& item, std::wstring_view name) { return item.name < name; });
}
