#pragma once

#include "Compound/Unzipper.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Finds entries by name, with the results of walking over all of them in order and
/// comparing without regard to case, but without the walk.
class ZipEntryIndex
{
public:
    /// The entries aren't owned, must outlive the index and stay as they are.
    explicit ZipEntryIndex(const std::vector<ZipEntry>& entries);

    /// The entries of that name, in their order.
    std::vector<const ZipEntry*> Named(std::wstring_view name) const;

    /// True if there is an entry of that name.
    bool HasName(std::wstring_view name) const;

    /// The entries whose names begin so, in their order.
    std::vector<const ZipEntry*> BeginningWith(std::wstring_view prefix) const;

    /// True if there is an entry whose name begins so.
    bool HasBeginning(std::wstring_view prefix) const;

private:
    /// A sorted list and no hash: names that someone made to collide would bring the walk back.
    struct Item
    {
        std::wstring name; // in lower case
        const ZipEntry* entry = nullptr;
    };

    using Items = std::vector<Item>;

    Items::const_iterator FirstNotBefore(std::wstring_view folded) const;

    Items m_items; // by name, then in the order of the entries
};
