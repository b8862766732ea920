#include "Explorer/ValueNotation.h"

#include "tests/Explorer/UnitNumbers.h"

#include <Vantrel/ParamStorage.h>
#include <Vantrel/RuleUnits.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <random>
#include <string>

namespace
{

struct Shown
{
    std::int32_t unit;
    double value;
    const wchar_t* text;
};

} // namespace

TEST(ValueNotationTest, LengthsAreShownAsNumbersAndFeetAndInchesInParts)
{
    const std::array rows = {
        Shown{ Millimeters, 1.5, L"1.5" },
        Shown{ Millimeters, -0.25, L"-0.25" },
        Shown{ Millimeters, 0, L"0" },
        Shown{ Inches, 1.0 / 3, L"0.333333333333" },
        Shown{ Feet, 5.25, L"5.25" },
        Shown{ Meters, 1e-7, L"1e-07" },
        Shown{ 77, 2.5, L"2.5" },
        Shown{ FeetAndInches, 0, L"0' 0\"" },
        Shown{ FeetAndInches, -0.0, L"0' 0\"" },
        Shown{ FeetAndInches, 5, L"5' 0\"" },
        Shown{ FeetAndInches, 5.25, L"5' 3\"" },
        Shown{ FeetAndInches, 63.5 / 12, L"5' 3.5\"" },
        Shown{ FeetAndInches, -63.5 / 12, L"-5' 3.5\"" },
        Shown{ FeetAndInches, -0.5 / 12, L"-0' 0.5\"" },
        Shown{ FeetAndInches, 1.0 / 36, L"0' 0.333333333333\"" },
        Shown{ FeetAndInches, 1000 + 1.0 / 3, L"1000' 4\"" },
        Shown{ FeetAndInches, 1e-3 / 12, L"0' 0.001\"" },
        Shown{ FeetAndInches, 123456, L"123456' 0\"" },
        Shown{ FeetAndInches, 1e15, L"1e+15'" },
        Shown{ FeetAndInches, 1e-9, L"1e-09'" },
    };
    for (const Shown& row : rows)
    {
        EXPECT_EQ(FormatLength(row.value, row.unit), row.text) << row.value << " in unit " << row.unit;
    }
}

TEST(ValueNotationTest, AnglesAreShownAsNumbersOrInTheirParts)
{
    const std::array rows = {
        Shown{ Degrees, 12.5, L"12.5" },
        Shown{ Radians, std::numbers::pi / 4, L"0.785398163397" },
        Shown{ -3, 12.5, L"12.5" },
        Shown{ DegreesMinutes, 12.5, L"12\u00B0 30'" },
        Shown{ DegreesMinutes, 12.5041666666667, L"12\u00B0 30.25'" },
        Shown{ DegreesMinutes, -0.5, L"-0\u00B0 30'" },
        Shown{ DegreesMinutes, 118, L"118\u00B0 0'" },
        Shown{ DegreesMinutesSeconds, 0, L"0\u00B0 0' 0\"" },
        Shown{ DegreesMinutesSeconds, 12.5, L"12\u00B0 30' 0\"" },
        Shown{ DegreesMinutesSeconds, 12 + 30.0 / 60 + 15.5 / 3600, L"12\u00B0 30' 15.5\"" },
        Shown{ DegreesMinutesSeconds, -(12 + 30.0 / 60 + 15.5 / 3600), L"-12\u00B0 30' 15.5\"" },
        Shown{ DegreesMinutesSeconds, 45.1, L"45\u00B0 6' 0\"" },
        Shown{ DegreesMinutesSeconds, 1e13, L"1e+13\u00B0" },
    };
    for (const Shown& row : rows)
    {
        EXPECT_EQ(FormatAngle(row.value, row.unit), row.text) << row.value << " in unit " << row.unit;
    }
}

TEST(ValueNotationTest, NoPartIsEverShownAsAWholeOneOfThePartBefore)
{
    EXPECT_EQ(FormatAngle(12 + 59.0 / 60 + 59.99999999999 / 3600, DegreesMinutesSeconds), L"13\u00B0 0' 0\"");
    EXPECT_EQ(FormatAngle(12 + 59.99999999999 / 60, DegreesMinutes), L"13\u00B0 0'");
    EXPECT_EQ(FormatAngle(-(12 + 59.99999999999 / 60), DegreesMinutes), L"-13\u00B0 0'");
    EXPECT_EQ(FormatLength(5 + 11.99999999999999 / 12, FeetAndInches), L"6' 0\"");
    EXPECT_EQ(FormatAngle(12 + 59.0 / 60 + 59.9999 / 3600, DegreesMinutesSeconds), L"12\u00B0 59' 59.9999\"");
    // Halves of a second through a whole turn: about a third of them is no exact number.
    for (int half = 0; half <= 360 * 7200; half += 7)
    {
        const std::wstring text = FormatAngle(half / 7200.0, DegreesMinutesSeconds);
        const int seconds = half / 2;
        const std::wstring expected = std::to_wstring(seconds / 3600) + L"\u00B0 " +
                                      std::to_wstring(seconds / 60 % 60) + L"' " + std::to_wstring(seconds % 60) +
                                      (half % 2 != 0 ? L".5\"" : L"\"");
        ASSERT_EQ(text, expected);
    }
}

TEST(ValueNotationTest, NumbersThatAreNoneAreShownAsSuch)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(FormatLength(infinity, FeetAndInches), L"inf'");
    EXPECT_EQ(FormatAngle(-infinity, DegreesMinutesSeconds), L"-inf\u00B0");
    EXPECT_EQ(FormatLength(std::nan(""), Millimeters), L"nan");
    EXPECT_EQ(ParseLength(L"inf", Millimeters, L'.').error, TypingError::NotUnderstood);
    EXPECT_EQ(ParseNumber(L"nan", L'.').error, TypingError::NotUnderstood);
}

TEST(ValueNotationTest, WhatIsShownReadsBackAsWhatIsShown)
{
    std::mt19937 random(20); // the same values in every run
    std::uniform_real_distribution<double> exponents(-6, 7);
    std::uniform_real_distribution<double> digits(-10, 10);
    for (int round = 0; round < 5000; ++round)
    {
        const double value = digits(random) * std::pow(10, std::round(exponents(random)));
        for (std::int32_t unit = 0; unit < LengthUnitCount; ++unit)
        {
            const std::wstring text = FormatLength(value, unit);
            const TypedValue read = ParseLength(text, unit, L'.');
            ASSERT_EQ(read.error, TypingError::None) << NameOfTyped(text, unit);
            ASSERT_EQ(FormatLength(read.value, unit), text);
            ASSERT_NEAR(read.value, value, std::abs(value) * 1e-11);
        }
        for (std::int32_t unit = 0; unit < AngleUnitCount; ++unit)
        {
            const std::wstring text = FormatAngle(value, unit);
            const TypedValue read = ParseAngle(text, unit, L'.');
            ASSERT_EQ(read.error, TypingError::None) << NameOfTyped(text, unit);
            ASSERT_EQ(FormatAngle(read.value, unit), text);
            ASSERT_NEAR(read.value, value, std::abs(value) * 1e-11);
        }
    }
}

TEST(ValueNotationTest, LimitsAreRoundedIntoTheRange)
{
    const double millimeter = 1 / 25.4;
    EXPECT_EQ(FormatLengthLimit(0.1 * millimeter, Inches, LimitEnd::Lower), L"0.00393701");
    EXPECT_EQ(FormatLengthLimit(100 * millimeter, Inches, LimitEnd::Upper), L"3.937");
    EXPECT_EQ(FormatLengthLimit(-100 * millimeter, Inches, LimitEnd::Lower), L"-3.937");
    EXPECT_EQ(FormatLengthLimit(0.1 * millimeter / 12, FeetAndInches, LimitEnd::Lower), L"0' 0.00393701\"");
    EXPECT_EQ(FormatLengthLimit(100 * millimeter / 12, FeetAndInches, LimitEnd::Upper), L"0' 3.937\"");
    EXPECT_EQ(FormatLengthLimit(-100 * millimeter / 12, FeetAndInches, LimitEnd::Lower), L"-0' 3.937\"");
    EXPECT_EQ(FormatAngleLimit(std::numbers::pi / 4, Radians, LimitEnd::Upper), L"0.785398");
    EXPECT_EQ(FormatAngleLimit(45, DegreesMinutesSeconds, LimitEnd::Upper), L"45\u00B0 0' 0\"");
    EXPECT_EQ(FormatNumberLimit(1.0 / 3, LimitEnd::Lower), L"0.333334");
    EXPECT_EQ(FormatNumberLimit(2.0 / 3, LimitEnd::Upper), L"0.666666");
    EXPECT_EQ(FormatNumberLimit(1234567.5, LimitEnd::Upper), L"1234560");
    EXPECT_EQ(FormatNumberLimit(0, LimitEnd::Lower), L"0");
}

TEST(ValueNotationTest, LimitsThatNeedFewDigitsAreShownAsTheyAre)
{
    for (const double limit : { 0.05, 0.1, 0.3, 1.1, 25.0, 75.0, 1000.0, -0.7 })
    {
        EXPECT_EQ(FormatNumberLimit(limit, LimitEnd::Lower), FormatShownNumber(limit));
        EXPECT_EQ(FormatNumberLimit(limit, LimitEnd::Upper), FormatShownNumber(limit));
        // The noise that a conversion of units leaves changes nothing.
        const double converted = ConvertLength(ConvertLength(limit, Millimeters, Feet), Feet, Millimeters);
        EXPECT_EQ(FormatNumberLimit(converted, LimitEnd::Lower), FormatShownNumber(limit));
        EXPECT_EQ(FormatNumberLimit(converted, LimitEnd::Upper), FormatShownNumber(limit));
    }
}

TEST(ValueNotationTest, EveryUnitHasASymbolAndUnknownOnesThatOfTheFirst)
{
    const std::array<const wchar_t*, LengthUnitCount> lengths = { L"mm",      L"cm",    L"m",       L"in",
                                                                  L"ft",      L"ft in", L"\u00C5",  L"nm",
                                                                  L"\u00B5m", L"mil",   L"\u00B5in" };
    for (std::int32_t unit = 0; unit < LengthUnitCount; ++unit)
    {
        EXPECT_EQ(LengthSymbol(unit), lengths[static_cast<std::size_t>(unit)]);
        EXPECT_EQ(IsSplitLengthUnit(unit), unit == FeetAndInches);
        // What is shown behind a field may be typed into it.
        if (unit != FeetAndInches)
        {
            EXPECT_EQ(ParseLength(L"2 " + LengthSymbol(unit), unit, L'.').value, 2);
        }
    }
    EXPECT_EQ(LengthSymbol(11), L"mm");
    EXPECT_EQ(LengthSymbol(-1), L"mm");
    EXPECT_EQ(AngleSymbol(Degrees), L"\u00B0");
    EXPECT_EQ(AngleSymbol(DegreesMinutes), L"\u00B0 '");
    EXPECT_EQ(AngleSymbol(DegreesMinutesSeconds), L"\u00B0 ' \"");
    EXPECT_EQ(AngleSymbol(Radians), L"rad");
    EXPECT_EQ(AngleSymbol(4), L"\u00B0");
}
