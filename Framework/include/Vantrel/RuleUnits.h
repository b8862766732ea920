#pragma once

#include <Vantrel/Export.h>

#include <cstdint>

/// Numbers of the length units, as they stand in rule files.
enum class LinearUnit : std::int32_t
{
    Millimeters = 0,
    Centimeters = 1,
    Meters = 2,
    Inches = 3,
    Feet = 4,
    FeetAndInches = 5, ///< Values are in feet; only their display splits off the inches.
    Angstroms = 6,
    Nanometers = 7,
    Microns = 8,
    Mils = 9,
    Microinches = 10,
};

/// Numbers of the angle units, as they stand in rule files.
enum class AngularUnit : std::int32_t
{
    Degrees = 0,
    DegreesMinutes = 1,        ///< Values are in degrees; only their display splits them.
    DegreesMinutesSeconds = 2, ///< Same.
    Radians = 3,
};

/// The pair of units in which a rule's values stand. The numbers are kept as they were
/// read: one that no table knows survives, and counts as millimeters or degrees.
struct RuleUnitSystemStructure
{
    std::int32_t linear = 0;
    std::int32_t angular = 0;

    friend bool operator==(const RuleUnitSystemStructure&, const RuleUnitSystemStructure&) = default;
};

using structRulesUnit = RuleUnitSystemStructure;

/// Converts a length between two units, given by their numbers. Converting there and back
/// gives the same value to at least 14 significant digits.
VANTREL_API double ConvertLength(double value, std::int32_t fromUnit, std::int32_t toUnit);

/// Converts an angle between two units, with the same exactness.
VANTREL_API double ConvertAngle(double value, std::int32_t fromUnit, std::int32_t toUnit);
