#include "Explorer/ValueNotation.h"

#include <Vantrel/ParamStorage.h>
#include <Vantrel/RuleUnits.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <string>

namespace
{

constexpr std::int32_t Millimeters = 0;
constexpr std::int32_t Centimeters = 1;
constexpr std::int32_t Meters = 2;
constexpr std::int32_t Inches = 3;
constexpr std::int32_t Feet = 4;
constexpr std::int32_t FeetAndInches = 5;
constexpr std::int32_t Angstroms = 6;
constexpr std::int32_t Nanometers = 7;
constexpr std::int32_t Microns = 8;
constexpr std::int32_t Mils = 9;
constexpr std::int32_t Microinches = 10;
constexpr std::int32_t LengthUnitCount = 11;

constexpr std::int32_t Degrees = 0;
constexpr std::int32_t DegreesMinutes = 1;
constexpr std::int32_t DegreesMinutesSeconds = 2;
constexpr std::int32_t Radians = 3;
constexpr std::int32_t AngleUnitCount = 4;

struct Shown
{
    std::int32_t unit;
    double value;
    const wchar_t* text;
};

struct Typed
{
    std::int32_t unit;
    const wchar_t* text;
    double value;
};

struct Wrong
{
    std::int32_t unit;
    const wchar_t* text;
    TypingError error;
};

std::string Name(const std::wstring& text, std::int32_t unit)
{
    return "\"" + testing::PrintToString(text) + "\" in unit " + std::to_string(unit);
}

/// The value of a text that must be one; the exactness is that of what is shown.
void ExpectLength(const Typed& typed)
{
    const TypedValue read = ParseLength(typed.text, typed.unit, L'.');
    EXPECT_EQ(read.error, TypingError::None) << Name(typed.text, typed.unit);
    EXPECT_EQ(FormatShownNumber(read.value), FormatShownNumber(typed.value)) << Name(typed.text, typed.unit);
}

void ExpectAngle(const Typed& typed)
{
    const TypedValue read = ParseAngle(typed.text, typed.unit, L'.');
    EXPECT_EQ(read.error, TypingError::None) << Name(typed.text, typed.unit);
    EXPECT_EQ(FormatShownNumber(read.value), FormatShownNumber(typed.value)) << Name(typed.text, typed.unit);
}

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
            ASSERT_EQ(read.error, TypingError::None) << Name(text, unit);
            ASSERT_EQ(FormatLength(read.value, unit), text);
            ASSERT_NEAR(read.value, value, std::abs(value) * 1e-11);
        }
        for (std::int32_t unit = 0; unit < AngleUnitCount; ++unit)
        {
            const std::wstring text = FormatAngle(value, unit);
            const TypedValue read = ParseAngle(text, unit, L'.');
            ASSERT_EQ(read.error, TypingError::None) << Name(text, unit);
            ASSERT_EQ(FormatAngle(read.value, unit), text);
            ASSERT_NEAR(read.value, value, std::abs(value) * 1e-11);
        }
    }
}

TEST(ValueNotationTest, APlainNumberIsInTheUnitOfTheField)
{
    for (std::int32_t unit = 0; unit < LengthUnitCount; ++unit)
    {
        ExpectLength({ unit, L"12.5", 12.5 });
        ExpectLength({ unit, L" -.5 ", -0.5 });
        ExpectLength({ unit, L"+2.", 2 });
        ExpectLength({ unit, L"1e-3", 0.001 });
        ExpectLength({ unit, L"2.5E+2", 250 });
    }
    for (std::int32_t unit = 0; unit < AngleUnitCount; ++unit)
    {
        ExpectAngle({ unit, L"12.5", 12.5 });
        ExpectAngle({ unit, L"-1e1", -10 });
    }
    EXPECT_EQ(ParseNumber(L"12.5", L'.').value, 12.5);
    EXPECT_EQ(ParseNumber(L"0.1", L'.').value, 0.1);
    EXPECT_FALSE(std::signbit(ParseNumber(L"-0", L'.').value));
}

TEST(ValueNotationTest, AUnitBehindALengthConvertsIt)
{
    const std::array rows = {
        Typed{ Inches, L"5 mm", 5 / 25.4 },
        Typed{ Inches, L"5mm", 5 / 25.4 },
        Typed{ Inches, L"5 MM", 5 / 25.4 },
        Typed{ Inches, L"-5 millimetres", -5 / 25.4 },
        Typed{ Millimeters, L"2.54 cm", 25.4 },
        Typed{ Millimeters, L"0.1 m", 100 },
        Typed{ Millimeters, L"1 in", 25.4 },
        Typed{ Millimeters, L"1 in.", 25.4 },
        Typed{ Millimeters, L"1\"", 25.4 },
        Typed{ Millimeters, L"1 inch", 25.4 },
        Typed{ Millimeters, L"1 ft", 304.8 },
        Typed{ Millimeters, L"1'", 304.8 },
        Typed{ Millimeters, L"1 foot", 304.8 },
        Typed{ Nanometers, L"5 \u00C5", 0.5 },
        Typed{ Nanometers, L"5 \u212B", 0.5 },
        Typed{ Angstroms, L"5 nm", 50 },
        Typed{ Millimeters, L"5 \u00B5m", 0.005 },
        Typed{ Millimeters, L"5 \u03BCm", 0.005 },
        Typed{ Millimeters, L"5 um", 0.005 },
        Typed{ Microns, L"0.01 mm", 10 },
        Typed{ Inches, L"12 mil", 0.012 },
        Typed{ Inches, L"12 thou", 0.012 },
        Typed{ Mils, L"1/8 in", 125 },
        Typed{ Microinches, L"1 mil", 1000 },
        Typed{ Mils, L"500 \u00B5in", 0.5 },
        Typed{ Centimeters, L"3 1/2 in", 8.89 },
        Typed{ Feet, L"6\"", 0.5 },
        Typed{ 77, L"1 cm", 10 },
        Typed{ Millimeters, L"1e1mm", 10 },
    };
    for (const Typed& row : rows)
    {
        ExpectLength(row);
    }
}

TEST(ValueNotationTest, FeetAndInchesAreReadAsPeopleTypeThem)
{
    const double fiveThreeAndAHalf = 63.5 / 12;
    const std::array rows = {
        Typed{ FeetAndInches, L"5' 3.5\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5'3.5\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5'3.5", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5'3 1/2\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5' 3 1/2", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5'-3 1/2\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5' - 3 1/2\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5' 3\u00BD\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5-3.5", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5-3 1/2\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5 3.5", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5 3 1/2", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5 3.5\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5 ft 3.5 in", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5ft3.5in", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5 Feet 3.5 Inches", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5 ft. 3.5 in.", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5\u2032 3.5\u2033", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5\u2019 3.5\u201D", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"5' 3.5''", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"\uFF15\u2019\u3000\uFF13\uFF0E\uFF15\u201D", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"-5' 3.5\"", -fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"\u22125' 3.5\"", -fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"- 5-3.5", -fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"-0' 6\"", -0.5 },
        Typed{ FeetAndInches, L"63.5\"", fiveThreeAndAHalf },
        Typed{ FeetAndInches, L"63\"", 5.25 },
        Typed{ FeetAndInches, L"5.25'", 5.25 },
        Typed{ FeetAndInches, L"5.25", 5.25 },
        Typed{ FeetAndInches, L"5 1/4", 5.25 },
        Typed{ FeetAndInches, L"1/4", 0.25 },
        Typed{ FeetAndInches, L"5' 1/2\"", 60.5 / 12 },
        Typed{ FeetAndInches, L"5'-1/2\"", 60.5 / 12 },
        Typed{ FeetAndInches, L"1600 mm", 1600 / 304.8 },
        Typed{ Feet, L"5' 3.5\"", fiveThreeAndAHalf },
        Typed{ Inches, L"5' 3.5\"", 63.5 },
        Typed{ Millimeters, L"5' 3 1/2\"", 1612.9 },
        Typed{ Millimeters, L"5'-3\"", 1600.2 },
    };
    for (const Typed& row : rows)
    {
        ExpectLength(row);
    }
}

TEST(ValueNotationTest, FeetAndInchesAreRoundedOnce)
{
    EXPECT_EQ(ParseLength(L"5' 3.5\"", FeetAndInches, L'.').value, 63.5 / 12);
    EXPECT_EQ(ParseLength(L"5' 3.5\"", Inches, L'.').value, 63.5);
    EXPECT_EQ(ParseAngle(L"12\u00B0 30' 15.5\"", Degrees, L'.').value, 45015.5 / 3600);
}

TEST(ValueNotationTest, DegreesMinutesAndSecondsAreReadAsPeopleTypeThem)
{
    const double angle = 12 + 30.0 / 60 + 15.5 / 3600;
    const std::array rows = {
        Typed{ DegreesMinutesSeconds, L"12\u00B0 30' 15.5\"", angle },
        Typed{ DegreesMinutesSeconds, L"12\u00B030'15.5\"", angle },
        Typed{ DegreesMinutesSeconds, L"12\u00BA30\u203215.5\u2033", angle },
        Typed{ DegreesMinutesSeconds, L"12d30m15.5s", angle },
        Typed{ DegreesMinutesSeconds, L"12d 30m 15.5", angle },
        Typed{ DegreesMinutesSeconds, L"12 D 30 M 15.5 S", angle },
        Typed{ DegreesMinutesSeconds, L"12 deg 30 min 15.5 sec", angle },
        Typed{ DegreesMinutesSeconds, L"12 30 15.5", angle },
        Typed{ DegreesMinutesSeconds, L"12 30 15 1/2", angle },
        Typed{ DegreesMinutesSeconds, L"12:30:15.5", angle },
        Typed{ DegreesMinutesSeconds, L"-12:30:15.5", -angle },
        Typed{ DegreesMinutesSeconds, L"\u201312\u00B0 30' 15.5''", -angle },
        Typed{ DegreesMinutesSeconds, L"+12 30 15.5", angle },
        Typed{ DegreesMinutesSeconds, L"-0 30", -0.5 },
        Typed{ DegreesMinutesSeconds, L"12 30", 12.5 },
        Typed{ DegreesMinutesSeconds, L"12.5", 12.5 },
        Typed{ DegreesMinutesSeconds, L"12.5\u00B0", 12.5 },
        Typed{ DegreesMinutesSeconds, L"12\u00B0 36\"", 12.01 },
        Typed{ DegreesMinutesSeconds, L"30'", 0.5 },
        Typed{ DegreesMinutesSeconds, L"750'", 12.5 },
        Typed{ DegreesMinutesSeconds, L"36\"", 0.01 },
        Typed{ DegreesMinutesSeconds, L"30' 36\"", 0.51 },
        Typed{ DegreesMinutes, L"12\u00B0 30.25'", 12 + 30.25 / 60 },
        Typed{ DegreesMinutes, L"12 30.25", 12 + 30.25 / 60 },
        Typed{ DegreesMinutes, L"12:30:15.5", angle },
        Typed{ Degrees, L"12:30", 12.5 },
        Typed{ Degrees, L"12\u00B0 30'", 12.5 },
        Typed{ Degrees, L"12 1/2", 12.5 },
        Typed{ Radians, L"45\u00B0", std::numbers::pi / 4 },
        Typed{ Radians, L"22d30m", std::numbers::pi / 8 },
        Typed{ Radians, L"22:30", std::numbers::pi / 8 },
        Typed{ Radians, L"0.5 rad", 0.5 },
        Typed{ Degrees, L"1 rad", 180 / std::numbers::pi },
        Typed{ DegreesMinutesSeconds, L"1 radian", 180 / std::numbers::pi },
        Typed{ 99, L"12.5 degrees", 12.5 },
    };
    for (const Typed& row : rows)
    {
        ExpectAngle(row);
    }
}

TEST(ValueNotationTest, WhatIsNoLengthIsToldWithItsReason)
{
    const std::array rows = {
        Wrong{ Millimeters, L"", TypingError::Empty },
        Wrong{ Millimeters, L" \u00A0 ", TypingError::Empty },
        Wrong{ Millimeters, L"abc", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"mm", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"-", TypingError::NotUnderstood },
        Wrong{ Millimeters, L".", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"--5", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"+-5", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5-", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5.3.1", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5..3", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5 3", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5-3", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5 mm 3", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5 mm mm", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5 m 3 cm", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1e999", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1e308 m", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"0x10", TypingError::UnknownUnit },
        Wrong{ Millimeters, L"5e", TypingError::UnknownUnit },
        Wrong{ Millimeters, L"5 kg", TypingError::UnknownUnit },
        Wrong{ Millimeters, L"45\u00B0", TypingError::UnknownUnit },
        Wrong{ Millimeters, L"5%", TypingError::UnknownUnit },
        Wrong{ Millimeters, L"1/0", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1/", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"/2", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1.5/2", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1 3/2", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1.5 1/2", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1/2/3", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"5:3", TypingError::NotUnderstood },
        Wrong{ Millimeters, L"1,5", TypingError::DecimalComma },
        Wrong{ Millimeters, L"1,234.5", TypingError::DecimalComma },
        Wrong{ FeetAndInches, L"5'-", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5' -", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"'", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5' 3\" 2", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5' 3'", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"3\" 5'", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5.5' 3\"", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5 1/2' 3\"", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5-1/2", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5--3", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5 3 2", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5' 3 mm", TypingError::NotUnderstood },
        Wrong{ FeetAndInches, L"5' 12\"", TypingError::PartTooLarge },
        Wrong{ FeetAndInches, L"5-35", TypingError::PartTooLarge },
    };
    for (const Wrong& row : rows)
    {
        EXPECT_EQ(ParseLength(row.text, row.unit, L'.').error, row.error) << Name(row.text, row.unit);
    }
}

TEST(ValueNotationTest, WhatIsNoAngleIsToldWithItsReason)
{
    const std::array rows = {
        Wrong{ Degrees, L"", TypingError::Empty },
        Wrong{ Degrees, L"12 30", TypingError::NotUnderstood },
        Wrong{ Degrees, L"12-30", TypingError::NotUnderstood },
        Wrong{ Degrees, L"5 mm", TypingError::UnknownUnit },
        Wrong{ Degrees, L"12\u00B0 60'", TypingError::PartTooLarge },
        Wrong{ Degrees, L"12:30:60", TypingError::PartTooLarge },
        Wrong{ Degrees, L"12:", TypingError::NotUnderstood },
        Wrong{ Degrees, L":30", TypingError::NotUnderstood },
        Wrong{ Degrees, L"1:2:3:4", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"12 30 15 1", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"12.5 30", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"12 30.5 15", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"30' 12\u00B0", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"12\u00B0 rad", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"12\u00B0 1 rad", TypingError::NotUnderstood },
        Wrong{ DegreesMinutesSeconds, L"12 -30", TypingError::NotUnderstood },
    };
    for (const Wrong& row : rows)
    {
        EXPECT_EQ(ParseAngle(row.text, row.unit, L'.').error, row.error) << Name(row.text, row.unit);
    }
}

TEST(ValueNotationTest, PlainNumbersHaveNoUnits)
{
    EXPECT_EQ(ParseNumber(L"1/2", L'.').value, 0.5);
    for (const wchar_t* const text : { L"5 mm", L"5'", L"50%" })
    {
        EXPECT_EQ(ParseNumber(text, L'.').error, TypingError::UnknownUnit) << Name(text, 0);
    }
    for (const wchar_t* const text : { L"5 3", L"5-3", L"5:3", L"five", L"()" })
    {
        EXPECT_EQ(ParseNumber(text, L'.').error, TypingError::NotUnderstood) << Name(text, 0);
    }
    EXPECT_EQ(ParseNumber(L"", L'.').error, TypingError::Empty);
}

TEST(ValueNotationTest, AnUnknownUnitIsNamed)
{
    EXPECT_EQ(ParseLength(L"5 Kg", Millimeters, L'.').unknownUnit, L"kg");
    EXPECT_EQ(ParseAngle(L"5 mm 3", Degrees, L'.').unknownUnit, L"mm");
}

TEST(ValueNotationTest, TheCommaIsTakenWhereTheLocaleHasItBesideThePoint)
{
    EXPECT_EQ(ParseLength(L"1,5", Millimeters, L',').value, 1.5);
    EXPECT_EQ(ParseLength(L"1.5", Millimeters, L',').value, 1.5);
    EXPECT_EQ(ParseLength(L"5' 3,5\"", FeetAndInches, L',').value, 63.5 / 12);
    EXPECT_EQ(ParseLength(L",5 cm", Millimeters, L',').value, 5);
    EXPECT_EQ(ParseNumber(L"1\u066B5", L'\u066B').value, 1.5);
    EXPECT_EQ(ParseAngle(L"12:30:15,5", Degrees, L',').value, 45015.5 / 3600);
    // What would be a thousand somewhere else is not guessed at.
    EXPECT_EQ(ParseNumber(L"1.234,5", L',').error, TypingError::NotUnderstood);
    EXPECT_EQ(ParseNumber(L"1,234.5", L',').error, TypingError::NotUnderstood);
    EXPECT_EQ(ParseNumber(L"1 234", L',').error, TypingError::NotUnderstood);
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
