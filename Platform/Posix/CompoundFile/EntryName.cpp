#include "Platform/Posix/CompoundFile/EntryName.h"

#include "Platform/Posix/CompoundFile/Format.h"
#include "Platform/Text.h"

#include <algorithm>
#include <clocale>
#include <cwctype>

namespace Platform::Posix::CompoundFile
{
namespace
{

constexpr std::wstring_view ForbiddenCharacters = L"/\\:!";

bool IsSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// Upper-case form of one unit. A pair stays as it is: the order is defined by single units.
char16_t UpperUnit(char16_t unit)
{
    if (unit < 0x80)
    {
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - (u'a' - u'A')) : unit;
    }
    if (IsSurrogate(unit))
    {
        return unit;
    }
    // A file's order must not depend on the locale of the user who wrote it.
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const std::wint_t upper = locale != nullptr ? towupper_l(unit, locale) : std::towupper(unit);
    return upper <= 0xFFFF ? static_cast<char16_t>(upper) : unit;
}

} // namespace

EntryKey::EntryKey(std::u16string_view name) : m_units(name)
{
    std::transform(m_units.begin(), m_units.end(), m_units.begin(), UpperUnit);
}

std::strong_ordering EntryKey::operator<=>(const EntryKey& other) const
{
    if (const auto order = m_units.size() <=> other.m_units.size(); std::is_neq(order))
    {
        return order;
    }
    return m_units.compare(other.m_units) <=> 0;
}

std::optional<std::u16string> EntryName(std::wstring_view name)
{
    // Before anything of the length that the caller gave is copied.
    if (name.empty() || name.size() > MostNameUnits ||
        name.find_first_of(ForbiddenCharacters) != std::wstring_view::npos ||
        name.find(L'\0') != std::wstring_view::npos)
    {
        return std::nullopt;
    }
    std::u16string units = WideToUtf16(name);
    // What is no text would become the same replacement character, and so another name.
    if (units.size() > MostNameUnits || Utf16ToWide(units) != name)
    {
        return std::nullopt;
    }
    return units;
}

} // namespace Platform::Posix::CompoundFile
