#include "Explorer/ValueNotation.h"

#include <Vantrel/ParamStorage.h>
#include <Vantrel/RuleUnits.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

namespace
{

constexpr int FieldDigits = 12;
constexpr int LimitDigits = 6;

enum class Rounding : std::uint8_t
{
    Nearest,
    Up,
    Down,
};

/// How a value falls into parts.
struct Split
{
    std::int64_t factor;                      ///< How many of each part make one of the part before.
    std::span<const std::wstring_view> marks; ///< Of the parts, largest first.
};

using namespace std::string_view_literals;

constexpr std::array FeetMarks = { L"'"sv, L"\""sv };
constexpr std::array MinuteMarks = { L"\u00B0"sv, L"'"sv };
constexpr std::array SecondMarks = { L"\u00B0"sv, L"'"sv, L"\""sv };

constexpr std::array<std::wstring_view, 11> LengthSymbols = { L"mm",      L"cm",    L"m",       L"in",
                                                              L"ft",      L"ft in", L"\u00C5",  L"nm",
                                                              L"\u00B5m", L"mil",   L"\u00B5in" };
constexpr std::array<std::wstring_view, 4> AngleSymbols = { L"\u00B0", L"\u00B0 '", L"\u00B0 ' \"", L"rad" };

std::optional<Split> SplitOfLength(std::int32_t unit)
{
    constexpr std::int64_t InchesPerFoot = 12;
    return IsSplitLengthUnit(unit) ? std::optional<Split>({ InchesPerFoot, FeetMarks }) : std::nullopt;
}

std::optional<Split> SplitOfAngle(std::int32_t unit)
{
    constexpr std::int64_t PartsPerPart = 60;
    switch (static_cast<AngularUnit>(unit))
    {
    case AngularUnit::DegreesMinutes:
        return Split{ PartsPerPart, MinuteMarks };
    case AngularUnit::DegreesMinutesSeconds:
        return Split{ PartsPerPart, SecondMarks };
    default:
        return std::nullopt;
    }
}

std::int64_t PowerOfTen(int exponent)
{
    std::int64_t power = 1;
    for (; exponent > 0; --exponent)
    {
        power *= 10;
    }
    return power;
}

/// Digits before the point; 0 and less for the zeros after it that digits follow.
int DigitsBeforePoint(double magnitude)
{
    return magnitude == 0 ? 1 : static_cast<int>(std::floor(std::log10(magnitude))) + 1;
}

double RoundWhole(double value, Rounding rounding)
{
    const double nearest = std::round(value);
    if (rounding == Rounding::Nearest)
    {
        return nearest;
    }
    // The noise of a conversion of units is no reason to go to the next digit.
    constexpr double Noise = 1e-12;
    if (std::abs(value - nearest) <= Noise * std::max(1.0, std::abs(value)))
    {
        return nearest;
    }
    return rounding == Rounding::Up ? std::ceil(value) : std::floor(value);
}

std::wstring Padded(std::int64_t number, int digits)
{
    const std::wstring text = std::to_wstring(number);
    const auto length = static_cast<std::size_t>(digits);
    return text.size() < length ? std::wstring(length - text.size(), L'0') + text : text;
}

/// `number` with the point put before its last `decimals` digits, without zeros at the end.
std::wstring WithPoint(std::int64_t number, int decimals)
{
    const std::int64_t power = PowerOfTen(decimals);
    std::wstring text = std::to_wstring(number / power);
    std::wstring behind = decimals > 0 ? Padded(number % power, decimals) : L"";
    behind.erase(behind.find_last_not_of(L'0') + 1);
    return behind.empty() ? text : text + L"." + behind;
}

/// The value in parts. It is rounded once, to a whole number of the last decimal, so that
/// no part is ever shown as a whole one of the part before. Nothing for values that don't
/// fit into so many digits.
std::optional<std::wstring> FormatSplit(double value, const Split& split, int digits, Rounding rounding)
{
    std::int64_t smallestPerLargest = 1;
    for (std::size_t part = 1; part < split.marks.size(); ++part)
    {
        smallestPerLargest *= split.factor;
    }
    const double total = std::abs(value) * static_cast<double>(smallestPerLargest);
    constexpr double SmallestPlain = 1e-4;
    if (!std::isfinite(total) || (total != 0 && total < SmallestPlain) || DigitsBeforePoint(total) > FieldDigits)
    {
        return std::nullopt;
    }
    const int decimals = std::max(digits - DigitsBeforePoint(total), 0);
    if (value < 0 && rounding != Rounding::Nearest)
    {
        rounding = rounding == Rounding::Up ? Rounding::Down : Rounding::Up;
    }
    const std::int64_t power = PowerOfTen(decimals);
    const auto scaled = static_cast<std::int64_t>(RoundWhole(total * static_cast<double>(power), rounding));

    std::wstring text = value < 0 && scaled != 0 ? L"-" : L"";
    std::int64_t rest = scaled;
    std::int64_t unitOfPart = smallestPerLargest * power;
    for (std::size_t part = 0; part < split.marks.size(); ++part, unitOfPart /= split.factor)
    {
        const bool last = part + 1 == split.marks.size();
        text += part == 0 ? L"" : L" ";
        text += last ? WithPoint(rest, decimals) : std::to_wstring(rest / unitOfPart);
        text += split.marks[part];
        rest %= unitOfPart;
    }
    return text;
}

/// Values that are too large or too small for their parts are shown in the largest alone.
std::wstring FormatValue(double value, const std::optional<Split>& split)
{
    if (!split)
    {
        return FormatShownNumber(value);
    }
    const std::optional<std::wstring> parts = FormatSplit(value, *split, FieldDigits, Rounding::Nearest);
    return parts ? *parts : FormatShownNumber(value) + std::wstring(split->marks.front());
}

double RoundToDigits(double value, Rounding rounding)
{
    if (value == 0 || !std::isfinite(value))
    {
        return value;
    }
    const int exponent = LimitDigits - 1 - static_cast<int>(std::floor(std::log10(std::abs(value))));
    const double power = std::pow(10.0, std::abs(exponent));
    const double rounded =
        exponent >= 0 ? RoundWhole(value * power, rounding) / power : RoundWhole(value / power, rounding) * power;
    return std::isfinite(rounded) ? rounded : value;
}

std::wstring FormatLimit(double value, const std::optional<Split>& split, LimitEnd end)
{
    const Rounding rounding = end == LimitEnd::Lower ? Rounding::Up : Rounding::Down;
    if (split)
    {
        const std::optional<std::wstring> parts = FormatSplit(value, *split, LimitDigits, rounding);
        if (parts)
        {
            return *parts;
        }
    }
    return FormatValue(RoundToDigits(value, rounding), split);
}

template <std::size_t Count>
std::wstring SymbolOf(const std::array<std::wstring_view, Count>& symbols, std::int32_t unit)
{
    const bool known = unit >= 0 && static_cast<std::size_t>(unit) < Count;
    return std::wstring(symbols[known ? static_cast<std::size_t>(unit) : 0]);
}

} // namespace

bool IsSplitLengthUnit(std::int32_t unit)
{
    return static_cast<LinearUnit>(unit) == LinearUnit::FeetAndInches;
}

bool IsSplitAngleUnit(std::int32_t unit)
{
    return SplitOfAngle(unit).has_value();
}

std::wstring FormatLength(double value, std::int32_t unit)
{
    return FormatValue(value, SplitOfLength(unit));
}

std::wstring FormatAngle(double value, std::int32_t unit)
{
    return FormatValue(value, SplitOfAngle(unit));
}

std::wstring FormatLengthLimit(double value, std::int32_t unit, LimitEnd end)
{
    return FormatLimit(value, SplitOfLength(unit), end);
}

std::wstring FormatAngleLimit(double value, std::int32_t unit, LimitEnd end)
{
    return FormatLimit(value, SplitOfAngle(unit), end);
}

std::wstring FormatNumberLimit(double value, LimitEnd end)
{
    return FormatLimit(value, std::nullopt, end);
}

std::wstring LengthSymbol(std::int32_t unit)
{
    return SymbolOf(LengthSymbols, unit);
}

std::wstring AngleSymbol(std::int32_t unit)
{
    return SymbolOf(AngleSymbols, unit);
}
