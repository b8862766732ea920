#include <Vantrel/RuleUnits.h>

#include <array>
#include <numbers>

namespace
{

/// A unit as a fraction of the base unit. Both parts are exact, so that a conversion is
/// one multiplication and one division of exact numbers, rounded once at its end.
struct Ratio
{
    long double numerator;
    long double denominator;
};

// Millimeters per unit, by unit number.
constexpr std::array<Ratio, 11> LengthRatios = { {
    { 1.0L, 1.0L },          // millimeters
    { 10.0L, 1.0L },         // centimeters
    { 1000.0L, 1.0L },       // meters
    { 254.0L, 10.0L },       // inches
    { 3048.0L, 10.0L },      // feet
    { 3048.0L, 10.0L },      // feet & inches
    { 1.0L, 10000000.0L },   // angstroms
    { 1.0L, 1000000.0L },    // nanometers
    { 1.0L, 1000.0L },       // microns
    { 254.0L, 10000.0L },    // mils
    { 254.0L, 10000000.0L }, // microinches
} };

// Degrees per unit, by unit number.
constexpr std::array<Ratio, 4> AngleRatios = { {
    { 1.0L, 1.0L },                              // degrees
    { 1.0L, 1.0L },                              // degrees/minutes
    { 1.0L, 1.0L },                              // degrees/minutes/seconds
    { 180.0L, std::numbers::pi_v<long double> }, // radians
} };

template <std::size_t Count>
double Convert(const std::array<Ratio, Count>& ratios, double value, std::int32_t fromUnit, std::int32_t toUnit)
{
    const auto ratioOf = [&ratios](std::int32_t unit) -> const Ratio& {
        return unit >= 0 && static_cast<std::size_t>(unit) < Count ? ratios[static_cast<std::size_t>(unit)] : ratios[0];
    };
    const Ratio& from = ratioOf(fromUnit);
    const Ratio& to = ratioOf(toUnit);
    if (from.numerator == to.numerator && from.denominator == to.denominator)
    {
        return value;
    }
    const long double scaled = static_cast<long double>(value) * (from.numerator * to.denominator);
    return static_cast<double>(scaled / (from.denominator * to.numerator));
}

} // namespace

double ConvertLength(double value, std::int32_t fromUnit, std::int32_t toUnit)
{
    return Convert(LengthRatios, value, fromUnit, toUnit);
}

double ConvertAngle(double value, std::int32_t fromUnit, std::int32_t toUnit)
{
    return Convert(AngleRatios, value, fromUnit, toUnit);
}
