#include "Utilities/EnumEngine.h"

#include "Utilities/Texts.h"
#include "Utilities/UIUtilities.h"

#include <Vantrel/RuleUnits.h>

#include <algorithm>
#include <cwchar>
#include <limits>
#include <span>

namespace
{

/// A unit and the number of the text that names it.
struct Unit
{
    std::uint32_t key;
    TextId name;
};

constexpr Unit NamedUnit(LinearUnit unit, TextId name)
{
    return { static_cast<std::uint32_t>(unit), name };
}

constexpr Unit NamedUnit(AngularUnit unit, TextId name)
{
    return { static_cast<std::uint32_t>(unit), name };
}

// From the smallest unit to the largest.
constexpr std::array LinearUnits = {
    NamedUnit(LinearUnit::Angstroms, TextId::UnitAngstroms),
    NamedUnit(LinearUnit::Nanometers, TextId::UnitNanometers),
    NamedUnit(LinearUnit::Microns, TextId::UnitMicrons),
    NamedUnit(LinearUnit::Millimeters, TextId::UnitMillimeters),
    NamedUnit(LinearUnit::Centimeters, TextId::UnitCentimeters),
    NamedUnit(LinearUnit::Meters, TextId::UnitMeters),
    NamedUnit(LinearUnit::Microinches, TextId::UnitMicroinches),
    NamedUnit(LinearUnit::Mils, TextId::UnitMils),
    NamedUnit(LinearUnit::Inches, TextId::UnitInches),
    NamedUnit(LinearUnit::Feet, TextId::UnitFeet),
    NamedUnit(LinearUnit::FeetAndInches, TextId::UnitFeetAndInches),
};

constexpr std::array AngularUnits = {
    NamedUnit(AngularUnit::Degrees, TextId::UnitDegrees),
    NamedUnit(AngularUnit::DegreesMinutes, TextId::UnitDegreesMinutes),
    NamedUnit(AngularUnit::DegreesMinutesSeconds, TextId::UnitDegreesMinutesSeconds),
    NamedUnit(AngularUnit::Radians, TextId::UnitRadians),
};

std::span<const Unit> UnitsOf(std::int32_t kind)
{
    switch (kind)
    {
    case CEnumEngine::LinearKind:
        return LinearUnits;
    case CEnumEngine::AngularKind:
        return AngularUnits;
    default:
        return {};
    }
}

} // namespace

// --- map -------------------------------------------------------------------------------

std::size_t CEnumEngine::Map::BucketOf(std::uint32_t key)
{
    // The constants are part of the search order.
    constexpr std::int64_t Divisor = 127'773;
    constexpr std::int64_t Multiplier = 16'807;
    constexpr std::int64_t Correction = 2'836;
    constexpr std::int64_t Modulus = 2'147'483'647;
    std::int64_t hash = Multiplier * (key % Divisor) - Correction * (key / Divisor);
    if (hash < 0)
    {
        hash += Modulus;
    }
    return static_cast<std::size_t>(hash) % BucketCount;
}

std::uint32_t& CEnumEngine::Map::operator[](std::uint32_t key)
{
    std::optional<std::size_t>& newest = m_buckets[BucketOf(key)];
    for (std::optional<std::size_t> place = newest; place; place = m_entries[*place].next)
    {
        if (m_entries[*place].key == key)
        {
            return m_entries[*place].resourceId;
        }
    }
    m_entries.push_back({ key, 0, newest });
    newest = m_entries.size() - 1;
    return m_entries.back().resourceId;
}

template <typename Visit>
bool CEnumEngine::Map::Walk(Visit&& visit) const
{
    for (const std::optional<std::size_t>& newest : m_buckets)
    {
        for (std::optional<std::size_t> place = newest; place; place = m_entries[*place].next)
        {
            if (visit(m_entries[*place]))
            {
                return true;
            }
        }
    }
    return false;
}

// --- engine ----------------------------------------------------------------------------

CEnumEngine::CEnumEngine()
{
    for (const Unit& unit : LinearUnits)
    {
        m_linear[unit.key] = static_cast<std::uint32_t>(unit.name);
    }
    for (const Unit& unit : AngularUnits)
    {
        m_angular[unit.key] = static_cast<std::uint32_t>(unit.name);
    }
}

CEnumEngine::~CEnumEngine() = default;

template <typename Engine>
auto* CEnumEngine::MapOf(Engine& engine, std::int32_t kind)
{
    switch (kind)
    {
    case LinearKind:
        return &engine.m_linear;
    case AngularKind:
        return &engine.m_angular;
    default:
        return static_cast<decltype(&engine.m_linear)>(nullptr);
    }
}

bool CEnumEngine::GetEnumFromText(std::int32_t kind, std::wstring text, std::uint32_t* key) const
{
    if (text.empty())
    {
        return true;
    }
    const Map* const map = MapOf(*this, kind);
    const bool found = map != nullptr && map->Walk(
                                             [&](const Map::Entry& entry)
                                             {
                                                 *key = entry.key;
                                                 return LoadText(entry.resourceId) == text;
                                             });
    if (!found)
    {
        *key = NotFound;
    }
    return found;
}

bool CEnumEngine::GetResourceId(std::int32_t kind, std::uint32_t key, std::uint32_t* resourceId)
{
    Map* const map = MapOf(*this, kind);
    if (map == nullptr)
    {
        return false;
    }
    *resourceId = (*map)[key];
    return true;
}

bool CEnumEngine::GetTextFromEnum(std::int32_t kind, std::uint32_t key, std::wstring& text)
{
    if (kind == 0)
    {
        return false;
    }
    std::uint32_t resourceId = 0;
    const bool known = GetResourceId(kind, key, &resourceId);
    text = LoadText(resourceId);
    return known;
}

bool CEnumEngine::FormatValue(std::int32_t kind, double value, std::uint32_t key, std::wstring& text) const
{
    constexpr std::int32_t KindWithUnit = 1;
    // The largest number, its sign, point, decimals and end.
    std::array<wchar_t, std::numeric_limits<double>::max_exponent10 + 16> buffer = {};
    const int length = std::swprintf(buffer.data(), buffer.size(), L"%.10lf", value);
    text.assign(buffer.data(), static_cast<std::size_t>(std::max(length, 0)));
    CUIUtilities::TrimTrailingZeros(text);
    return kind == KindWithUnit && key != NotFound;
}

std::vector<std::uint32_t> CEnumEngine::KeysBySize(std::int32_t kind)
{
    std::vector<std::uint32_t> keys;
    for (const Unit& unit : UnitsOf(kind))
    {
        keys.push_back(unit.key);
    }
    return keys;
}

std::vector<std::uint32_t> CEnumEngine::KeysInSearchOrder(std::int32_t kind) const
{
    std::vector<std::uint32_t> keys;
    if (const Map* const map = MapOf(*this, kind))
    {
        map->Walk(
            [&keys](const Map::Entry& entry)
            {
                keys.push_back(entry.key);
                return false;
            });
    }
    return keys;
}
