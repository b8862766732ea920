#include "Explorer/ValueNotation.h"

#include "tests/Explorer/UnitNumbers.h"

#include <Vantrel/ParamStorage.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

namespace
{

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

/// The value of a text that must be one; the exactness is that of what is shown.
void ExpectLength(const Typed& typed)
{
    const TypedValue read = ParseLength(typed.text, typed.unit, L'.');
    EXPECT_EQ(read.error, TypingError::None) << NameOfTyped(typed.text, typed.unit);
    EXPECT_EQ(FormatShownNumber(read.value), FormatShownNumber(typed.value)) << NameOfTyped(typed.text, typed.unit);
}

void ExpectAngle(const Typed& typed)
{
    const TypedValue read = ParseAngle(typed.text, typed.unit, L'.');
    EXPECT_EQ(read.error, TypingError::None) << NameOfTyped(typed.text, typed.unit);
    EXPECT_EQ(FormatShownNumber(read.value), FormatShownNumber(typed.value)) << NameOfTyped(typed.text, typed.unit);
}

} // namespace

TEST(ValueParserTest, APlainNumberIsInTheUnitOfTheField)
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

TEST(ValueParserTest, AUnitBehindALengthConvertsIt)
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

TEST(ValueParserTest, FeetAndInchesAreReadAsPeopleTypeThem)
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

TEST(ValueParserTest, FeetAndInchesAreRoundedOnce)
{
    EXPECT_EQ(ParseLength(L"5' 3.5\"", FeetAndInches, L'.').value, 63.5 / 12);
    EXPECT_EQ(ParseLength(L"5' 3.5\"", Inches, L'.').value, 63.5);
    EXPECT_EQ(ParseAngle(L"12\u00B0 30' 15.5\"", Degrees, L'.').value, 45015.5 / 3600);
}

TEST(ValueParserTest, DegreesMinutesAndSecondsAreReadAsPeopleTypeThem)
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

TEST(ValueParserTest, WhatIsNoLengthIsToldWithItsReason)
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
        EXPECT_EQ(ParseLength(row.text, row.unit, L'.').error, row.error) << NameOfTyped(row.text, row.unit);
    }
}

TEST(ValueParserTest, WhatIsNoAngleIsToldWithItsReason)
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
        EXPECT_EQ(ParseAngle(row.text, row.unit, L'.').error, row.error) << NameOfTyped(row.text, row.unit);
    }
}

TEST(ValueParserTest, PlainNumbersHaveNoUnits)
{
    EXPECT_EQ(ParseNumber(L"1/2", L'.').value, 0.5);
    for (const wchar_t* const text : { L"5 mm", L"5'", L"50%" })
    {
        EXPECT_EQ(ParseNumber(text, L'.').error, TypingError::UnknownUnit) << NameOfTyped(text, 0);
    }
    for (const wchar_t* const text : { L"5 3", L"5-3", L"5:3", L"five", L"()" })
    {
        EXPECT_EQ(ParseNumber(text, L'.').error, TypingError::NotUnderstood) << NameOfTyped(text, 0);
    }
    EXPECT_EQ(ParseNumber(L"", L'.').error, TypingError::Empty);
}

TEST(ValueParserTest, AnUnknownUnitIsNamed)
{
    EXPECT_EQ(ParseLength(L"5 Kg", Millimeters, L'.').unknownUnit, L"kg");
    EXPECT_EQ(ParseAngle(L"5 mm 3", Degrees, L'.').unknownUnit, L"mm");
}

TEST(ValueParserTest, TheCommaIsTakenWhereTheLocaleHasItBesideThePoint)
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
