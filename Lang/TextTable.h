#pragma once

#include <cstdint>
#include <span>

/// One text of a language.
struct TextTableEntry
{
    std::uint32_t number;
    const wchar_t* text;
};

/// The texts of the language that the source is linked for, in the order of their numbers.
std::span<const TextTableEntry> TextTable();

/// The entry with the number, or null.
inline const TextTableEntry* FindTextEntry(std::span<const TextTableEntry> entries, std::uint32_t number)
{
    std::size_t first = 0;
    std::size_t count = entries.size();
    while (count > 0)
    {
        const std::size_t half = count / 2;
        if (entries[first + half].number < number)
        {
            first += half + 1;
            count -= half + 1;
        }
        else
        {
            count = half;
        }
    }
    return first < entries.size() && entries[first].number == number ? &entries[first] : nullptr;
}
