#include "Document/UnitChoice.h"

#include "Document/UnitSettings.h"
#include "Utilities/EnumEngine.h"

#include <algorithm>

namespace
{

bool IsOffered(std::int32_t kind, std::int32_t unit)
{
    return kind != CEnumEngine::LinearKind || unit != static_cast<std::int32_t>(LinearUnit::FeetAndInches);
}

} // namespace

UnitList::UnitList(std::int32_t kind) : m_kind(kind)
{
    CEnumEngine engine;
    for (const std::uint32_t key : CEnumEngine::KeysBySize(kind))
    {
        const auto unit = static_cast<std::int32_t>(key);
        if (IsOffered(kind, unit))
        {
            m_units.push_back(unit);
            engine.GetTextFromEnum(kind, key, m_texts.emplace_back());
        }
    }
}

std::optional<std::size_t> UnitList::PlaceOf(std::int32_t unit) const
{
    const auto found = std::find(m_units.begin(), m_units.end(), unit);
    return found != m_units.end() ? std::optional(static_cast<std::size_t>(found - m_units.begin())) : std::nullopt;
}

std::int32_t UnitList::UnitOf(const std::wstring& text) const
{
    std::uint32_t key = 0;
    const bool found = CEnumEngine().GetEnumFromText(m_kind, text, &key);
    return found ? static_cast<std::int32_t>(key) : 0;
}

UnitList OfferedLinearUnits()
{
    return UnitList(CEnumEngine::LinearKind);
}

UnitList OfferedAngularUnits()
{
    return UnitList(CEnumEngine::AngularKind);
}

void TakeUnitChoice(const std::optional<std::wstring>& linearText, const std::optional<std::wstring>& angularText,
                    structRulesUnit& units)
{
    if (linearText)
    {
        units.linear = OfferedLinearUnits().UnitOf(*linearText);
    }
    if (angularText)
    {
        units.angular = OfferedAngularUnits().UnitOf(*angularText);
    }
    UnitSettings(units.linear, units.angular, false);
}
