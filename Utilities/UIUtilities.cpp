#include "Utilities/UIUtilities.h"

#include "Utilities/EnumEngine.h"
#include "Utilities/Texts.h"
#include "Utilities/ValueText.h"

#include <Vantrel/RuleUnits.h>

#include <array>
#include <cstddef>

namespace
{

/// The short form of the unit with a number.
struct ShortForm
{
    std::uint32_t key;
    TextId text;
};

template <typename Unit>
constexpr ShortForm ShortFormOf(Unit unit, TextId text)
{
    return { static_cast<std::uint32_t>(unit), text };
}

constexpr std::array LinearShortForms = {
    ShortFormOf(LinearUnit::Angstroms, TextId::UnitShortAngstroms),
    ShortFormOf(LinearUnit::Nanometers, TextId::UnitShortNanometers),
    ShortFormOf(LinearUnit::Microns, TextId::UnitShortMicrons),
    ShortFormOf(LinearUnit::Millimeters, TextId::UnitShortMillimeters),
    ShortFormOf(LinearUnit::Centimeters, TextId::UnitShortCentimeters),
    ShortFormOf(LinearUnit::Meters, TextId::UnitShortMeters),
    ShortFormOf(LinearUnit::Microinches, TextId::UnitShortMicroinches),
    ShortFormOf(LinearUnit::Mils, TextId::UnitShortMils),
    ShortFormOf(LinearUnit::Inches, TextId::UnitShortInches),
    ShortFormOf(LinearUnit::Feet, TextId::UnitShortFeet),
};

constexpr std::array AngularShortForms = {
    ShortFormOf(AngularUnit::Degrees, TextId::UnitShortDegrees),
    ShortFormOf(AngularUnit::DegreesMinutes, TextId::UnitShortDegreesMinutes),
    ShortFormOf(AngularUnit::DegreesMinutesSeconds, TextId::UnitShortDegreesMinutesSeconds),
    ShortFormOf(AngularUnit::Radians, TextId::UnitShortRadians),
};

void ReplaceByShortForm(std::int32_t kind, std::span<const ShortForm> shortForms, std::wstring& text)
{
    std::uint32_t key = CEnumEngine::NotFound; // stays so for an empty text
    if (!CEnumEngine().GetEnumFromText(kind, text, &key))
    {
        return;
    }
    for (const ShortForm& shortForm : shortForms)
    {
        if (shortForm.key == key)
        {
            text = LoadText(shortForm.text);
            return;
        }
    }
}

} // namespace

void CUIUtilities::ReplaceColor(std::span<std::uint8_t> pixels, std::uint32_t newColour, std::uint32_t oldColour)
{
    constexpr std::size_t BytesOfPixel = 3;
    constexpr std::uint32_t Byte = 0xFF;
    for (std::size_t place = 0; place + BytesOfPixel <= pixels.size(); place += BytesOfPixel)
    {
        const std::span<std::uint8_t> pixel = pixels.subspan(place, BytesOfPixel);
        const std::uint32_t colour =
            pixel[0] | static_cast<std::uint32_t>(pixel[1]) << 8U | static_cast<std::uint32_t>(pixel[2]) << 16U;
        if (colour == oldColour)
        {
            pixel[0] = static_cast<std::uint8_t>(newColour & Byte);
            pixel[1] = static_cast<std::uint8_t>(newColour >> 8U & Byte);
            pixel[2] = static_cast<std::uint8_t>(newColour >> 16U & Byte);
        }
    }
}

void CUIUtilities::OperatorText(std::int32_t value, std::wstring& text)
{
    if (const std::wstring known = GetOperatorText(value); !known.empty())
    {
        text = known;
    }
}

void CUIUtilities::LinearUnitText(std::wstring& text)
{
    ReplaceByShortForm(CEnumEngine::LinearKind, LinearShortForms, text);
}

void CUIUtilities::AngularUnitText(std::wstring& text)
{
    ReplaceByShortForm(CEnumEngine::AngularKind, AngularShortForms, text);
}

void CUIUtilities::TrimTrailingZeros(std::wstring& text)
{
    const std::size_t point = text.find(L'.');
    if (point == std::wstring::npos || point == 0)
    {
        return;
    }
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.ends_with(L'.'))
    {
        text.pop_back();
    }
}
