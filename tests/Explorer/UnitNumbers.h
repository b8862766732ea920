#pragma once

#include <Vantrel/RuleUnits.h>

#include <cstdint>
#include <string>

#include <gtest/gtest.h>

/// The numbers of the units, as the functions for values take them.

inline constexpr auto Millimeters = static_cast<std::int32_t>(LinearUnit::Millimeters);
inline constexpr auto Centimeters = static_cast<std::int32_t>(LinearUnit::Centimeters);
inline constexpr auto Meters = static_cast<std::int32_t>(LinearUnit::Meters);
inline constexpr auto Inches = static_cast<std::int32_t>(LinearUnit::Inches);
inline constexpr auto Feet = static_cast<std::int32_t>(LinearUnit::Feet);
inline constexpr auto FeetAndInches = static_cast<std::int32_t>(LinearUnit::FeetAndInches);
inline constexpr auto Angstroms = static_cast<std::int32_t>(LinearUnit::Angstroms);
inline constexpr auto Nanometers = static_cast<std::int32_t>(LinearUnit::Nanometers);
inline constexpr auto Microns = static_cast<std::int32_t>(LinearUnit::Microns);
inline constexpr auto Mils = static_cast<std::int32_t>(LinearUnit::Mils);
inline constexpr auto Microinches = static_cast<std::int32_t>(LinearUnit::Microinches);
inline constexpr std::int32_t LengthUnitCount = 11;

inline constexpr auto Degrees = static_cast<std::int32_t>(AngularUnit::Degrees);
inline constexpr auto DegreesMinutes = static_cast<std::int32_t>(AngularUnit::DegreesMinutes);
inline constexpr auto DegreesMinutesSeconds = static_cast<std::int32_t>(AngularUnit::DegreesMinutesSeconds);
inline constexpr auto Radians = static_cast<std::int32_t>(AngularUnit::Radians);
inline constexpr std::int32_t AngleUnitCount = 4;

/// A typed text for messages of tests.
inline std::string NameOfTyped(const std::wstring& text, std::int32_t unit)
{
    return "\"" + testing::PrintToString(text) + "\" in unit " + std::to_string(unit);
}
