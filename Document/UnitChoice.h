#pragma once

#include <Vantrel/RuleUnits.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The units of one kind that a user chooses from, in the order of a list.
class UnitList
{
public:
    /// `kind` is one of the engine of unit names.
    explicit UnitList(std::int32_t kind);

    /// What the list shows, top to bottom.
    const std::vector<std::wstring>& Texts() const { return m_texts; }

    /// Where a unit stands in the list. Nothing for one that isn't offered.
    std::optional<std::size_t> PlaceOf(std::int32_t unit) const;

    /// The unit that a text of the list names; 0 for any other text.
    std::int32_t UnitOf(const std::wstring& text) const;

private:
    std::int32_t m_kind;
    std::vector<std::int32_t> m_units;
    std::vector<std::wstring> m_texts;
};

/// The lengths that are offered. Feet & inches aren't: files may have them all the same.
UnitList OfferedLinearUnits();

/// The angles that are offered.
UnitList OfferedAngularUnits();

/// Takes the texts that were chosen into the units and stores these for new documents.
/// Nothing chosen leaves a unit as it is.
void TakeUnitChoice(const std::optional<std::wstring>& linearText, const std::optional<std::wstring>& angularText,
                    structRulesUnit& units);
