#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace Platform::Posix::CompoundFile
{

/// A name in the form that entries are found and ordered by: the shorter one first, names
/// of one length by the values of their upper-case units. Two names are the same to a
/// storage if their keys are equal.
class EntryKey
{
public:
    explicit EntryKey(std::u16string_view name);

    bool operator==(const EntryKey& other) const = default;
    std::strong_ordering operator<=>(const EntryKey& other) const;

private:
    std::u16string m_units;
};

/// A name that is wanted, as UTF-16; nothing if no entry may have it.
std::optional<std::u16string> EntryName(std::wstring_view name);

} // namespace Platform::Posix::CompoundFile
