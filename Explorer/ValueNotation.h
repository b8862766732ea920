#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Lengths, angles and numbers as people read and type them. Units are given by their
/// numbers (`LinearUnit`, `AngularUnit`); one that no table knows counts as millimeters or
/// degrees. Values in feet & inches are in feet, those in degrees/minutes and
/// degrees/minutes/seconds in degrees; here they are split.

/// The text of a field: a number with up to 12 digits and a decimal point, in the three
/// split units its parts with their marks, such as `5' 3.5"` and `12° 30' 15.5"`. The last
/// part is always below that of which it is a part.
std::wstring FormatLength(double value, std::int32_t unit);
std::wstring FormatAngle(double value, std::int32_t unit);

/// The ends of a range, for which a few digits do. They are rounded into the range, so
/// that what is shown may be typed.
enum class LimitEnd : std::uint8_t
{
    Lower,
    Upper,
};
std::wstring FormatLengthLimit(double value, std::int32_t unit, LimitEnd end);
std::wstring FormatAngleLimit(double value, std::int32_t unit, LimitEnd end);
std::wstring FormatNumberLimit(double value, LimitEnd end);

/// What stands behind a field in the unit, such as `mm`.
std::wstring LengthSymbol(std::int32_t unit);
std::wstring AngleSymbol(std::int32_t unit);

/// True if the values of the unit carry their marks, so that nothing need follow them.
bool IsSplitLengthUnit(std::int32_t unit);
bool IsSplitAngleUnit(std::int32_t unit);

/// Why a typed text is no value.
enum class TypingError : std::uint8_t
{
    None,
    Empty,
    NotUnderstood,
    DecimalComma, ///< A comma, where decimals follow a point.
    UnknownUnit,
    PartTooLarge, ///< Inches from 12 after feet, minutes or seconds from 60 after a larger part.
};

/// What a typed text means.
struct TypedValue
{
    TypingError error = TypingError::None;
    double value = 0;         ///< In the unit of the field.
    std::wstring unknownUnit; ///< With `UnknownUnit`: how it was typed, in lower case.
};

/// Reads what was typed into a field of the unit.
///
/// A plain number is in that unit. A unit behind it converts: `5 mm`, `63"`, `0.2 rad`.
/// Feet and inches may be typed together in every unit (`5' 3 1/2"`, `5'-3"`, `5 ft 3 in`),
/// and degrees, minutes and seconds as well (`12° 30'`, `12d30m15.5s`, `12:30:15`). In a
/// split unit the marks may be left out: `5-3.5`, `12 30 15.5`. A sign stands before the
/// whole. Decimals follow a point or `decimalSeparator`; fractions are taken in all places.
TypedValue ParseLength(std::wstring_view text, std::int32_t unit, wchar_t decimalSeparator);
TypedValue ParseAngle(std::wstring_view text, std::int32_t unit, wchar_t decimalSeparator);

/// A number without a unit.
TypedValue ParseNumber(std::wstring_view text, wchar_t decimalSeparator);
