#include "Utilities/UIUtilities.h"

#include "tests/Utilities/LanguageInUse.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

TEST(UIUtilitiesTest, ZerosAtTheEndOfDecimalsAreTrimmedAndThenThePoint)
{
    for (const auto& [text, trimmed] : { std::pair<const wchar_t*, const wchar_t*>{ L"1.500", L"1.5" },
                                         { L"2.000", L"2" },
                                         { L"2.", L"2" },
                                         { L"-0.50", L"-0.5" },
                                         { L"1.2.00", L"1.2" },
                                         { L"10.05", L"10.05" } })
    {
        std::wstring value = text;
        CUIUtilities::TrimTrailingZeros(value);
        EXPECT_EQ(value, trimmed) << text;
    }
}

TEST(UIUtilitiesTest, ATextWithoutAPointOrWithOneAtItsStartStays)
{
    for (const wchar_t* const text : { L"100", L"", L"0", L".500", L".", L"inf" })
    {
        std::wstring value = text;
        CUIUtilities::TrimTrailingZeros(value);
        EXPECT_EQ(value, text);
    }
}

TEST(UIUtilitiesTest, PixelsOfTheOldColourAndNoOthersGetTheNewOne)
{
    std::array<std::uint8_t, 9> pixels = { 0xC0, 0xC0, 0xC0, 0x30, 0x20, 0x10, 0xC0, 0xC0, 0xC1 };
    CUIUtilities::ReplaceColor(pixels, 0x010203, 0xC0C0C0);
    EXPECT_EQ(pixels, (std::array<std::uint8_t, 9>{ 0x03, 0x02, 0x01, 0x30, 0x20, 0x10, 0xC0, 0xC0, 0xC1 }));
    CUIUtilities::ReplaceColor(pixels, 0x0000FF, 0x102030);
    EXPECT_EQ(pixels, (std::array<std::uint8_t, 9>{ 0x03, 0x02, 0x01, 0xFF, 0x00, 0x00, 0xC0, 0xC0, 0xC1 }));
}

TEST(UIUtilitiesTest, APixelThatIsCutOffStays)
{
    std::array<std::uint8_t, 2> pixels = { 0, 0 };
    CUIUtilities::ReplaceColor(pixels, 0xFFFFFF, 0);
    EXPECT_EQ(pixels, (std::array<std::uint8_t, 2>{ 0, 0 }));
}

TEST(UIUtilitiesTest, TheCodesOfComparisonsHaveTheirSigns)
{
    for (const auto& [value, sign] : { std::pair<int, const wchar_t*>{ 1, L"RANGE" },
                                       { 3, L"=" },
                                       { 5, L"<" },
                                       { 6, L">" },
                                       { 7, L">=" },
                                       { 8, L"<=" } })
    {
        std::wstring text = L"before";
        CUIUtilities::OperatorText(value, text);
        EXPECT_EQ(text, sign) << value;
    }
}

TEST(UIUtilitiesTest, OtherCodesOfComparisonsLeaveTheText)
{
    for (const int value : { -1, 0, 2, 4, 9 })
    {
        std::wstring text = L"before";
        CUIUtilities::OperatorText(value, text);
        EXPECT_EQ(text, L"before") << value;
    }
}

TEST(UIUtilitiesTest, EachLinearUnitOfTheDialogHasAShortForm)
{
    for (const auto& [name, shortForm] : { std::pair<const wchar_t*, const wchar_t*>{ L"angstroms", L"\u00C5" },
                                           { L"nanometers", L"nm" },
                                           { L"microns", L"\u00B5m" },
                                           { L"millimeters", L"mm" },
                                           { L"centimeters", L"cm" },
                                           { L"meters", L"m" },
                                           { L"microinches", L"\u00B5in" },
                                           { L"mils", L"mil" },
                                           { L"inches", L"in" },
                                           { L"feet", L"ft" } })
    {
        std::wstring text = name;
        CUIUtilities::LinearUnitText(text);
        EXPECT_EQ(text, shortForm);
    }
}

TEST(UIUtilitiesTest, EachAngularUnitHasAShortForm)
{
    for (const auto& [name, shortForm] : { std::pair<const wchar_t*, const wchar_t*>{ L"degrees", L"deg" },
                                           { L"degrees/minutes", L"deg/min" },
                                           { L"degrees/minutes/seconds", L"deg/min/s" },
                                           { L"radians", L"rad" } })
    {
        std::wstring text = name;
        CUIUtilities::AngularUnitText(text);
        EXPECT_EQ(text, shortForm);
    }
}

TEST(UIUtilitiesTest, ATextThatNamesNoUnitWithAShortFormStays)
{
    for (const wchar_t* const name : { L"", L"Inches", L"in", L"pouces", L"degrees", L"feet & inches" })
    {
        std::wstring text = name;
        CUIUtilities::LinearUnitText(text);
        EXPECT_EQ(text, name);
    }
    std::wstring text = L"inches";
    CUIUtilities::AngularUnitText(text);
    EXPECT_EQ(text, L"inches");
}

TEST(UIUtilitiesTest, NamesAndShortFormsOfUnitsAreThoseOfTheLanguageInUse)
{
    const LanguageInUse french(FRENCH_LIBRARY);
    std::wstring text = L"pouces";
    CUIUtilities::LinearUnitText(text);
    EXPECT_EQ(text, L"po");
    text = L"inches";
    CUIUtilities::LinearUnitText(text);
    EXPECT_EQ(text, L"inches");
}
