#pragma once

#include <cstdint>
#include <span>
#include <string>

/// Helpers for what is shown of values. It has no state.
class CUIUtilities
{
public:
    /// Sets each pixel of the old colour to the new one. `pixels` has three bytes for each:
    /// red, green, blue. Colours are 0x00BBGGRR.
    static void ReplaceColor(std::span<std::uint8_t> pixels, std::uint32_t newColour, std::uint32_t oldColour);

    /// The text of a comparison's code. For a code that there isn't the text stays.
    static void OperatorText(std::int32_t value, std::wstring& text);

    /// Turns the name of a unit, in the language in use, into its short form. What names no
    /// unit, or one without a short form, stays.
    static void LinearUnitText(std::wstring& text);
    static void AngularUnitText(std::wstring& text);

    /// Drops the zeros at the end of a number with decimals, and then a point at its end. A
    /// text without a point or with one at its start stays.
    static void TrimTrailingZeros(std::wstring& text);
};
