#include "Document/UnitChoice.h"

#include "tests/Support/OwnSettings.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

namespace
{

using Texts = std::vector<std::wstring>;

class UnitChoiceTest : public testing::Test
{
protected:
    std::string UserFile() const { return ReadBytes(settings.UnitsFile()); }

    bool Stored(const std::string& element) const { return UserFile().find(element) != std::string::npos; }

    OwnSettings settings;
    structRulesUnit units{ 5, 2 };
};

} // namespace

TEST_F(UnitChoiceTest, LengthsAreOfferedFromTheSmallestToTheLargestWithoutFeetAndInches)
{
    EXPECT_EQ(OfferedLinearUnits().Texts(),
              (Texts{ L"angstroms", L"nanometers", L"microns", L"millimeters", L"centimeters", L"meters",
                      L"microinches", L"mils", L"inches", L"feet" }));
}

TEST_F(UnitChoiceTest, AnglesAreOfferedInTheOrderOfTheirNumbers)
{
    EXPECT_EQ(OfferedAngularUnits().Texts(),
              (Texts{ L"degrees", L"degrees/minutes", L"degrees/minutes/seconds", L"radians" }));
}

TEST_F(UnitChoiceTest, EachUnitStandsAtItsPlaceAndIsFoundByItsText)
{
    constexpr std::int32_t Linear[] = { 6, 7, 8, 0, 1, 2, 10, 9, 3, 4 };
    const UnitList linear = OfferedLinearUnits();
    for (std::size_t place = 0; place < linear.Texts().size(); ++place)
    {
        EXPECT_EQ(linear.PlaceOf(Linear[place]), place);
        EXPECT_EQ(linear.UnitOf(linear.Texts()[place]), Linear[place]);
    }
    const UnitList angular = OfferedAngularUnits();
    for (std::int32_t unit = 0; unit < 4; ++unit)
    {
        const auto place = static_cast<std::size_t>(unit);
        EXPECT_EQ(angular.PlaceOf(unit), place);
        EXPECT_EQ(angular.UnitOf(angular.Texts()[place]), unit);
    }
}

TEST_F(UnitChoiceTest, UnitsThatAreNotOfferedHaveNoPlace)
{
    for (const std::int32_t unit : { 5, 11, -1 })
    {
        EXPECT_EQ(OfferedLinearUnits().PlaceOf(unit), std::nullopt) << unit;
    }
    EXPECT_EQ(OfferedAngularUnits().PlaceOf(4), std::nullopt);
}

TEST_F(UnitChoiceTest, ATextThatMatchesNothingGivesZero)
{
    EXPECT_EQ(OfferedLinearUnits().UnitOf(L"Inches"), 0);
    EXPECT_EQ(OfferedLinearUnits().UnitOf(L"radians"), 0);
    EXPECT_EQ(OfferedAngularUnits().UnitOf(L"inches"), 0);
    EXPECT_EQ(OfferedAngularUnits().UnitOf(L""), 0);
}

TEST_F(UnitChoiceTest, ChosenTextsAreTakenAndStored)
{
    TakeUnitChoice(L"inches", L"radians", units);
    EXPECT_EQ(units, (structRulesUnit{ 3, 3 }));
    EXPECT_TRUE(Stored("<Linear>inches</Linear>")) << UserFile();
    EXPECT_TRUE(Stored("<Angular>radians</Angular>")) << UserFile();
}

TEST_F(UnitChoiceTest, FeetAndInchesSurviveAndAreStoredIfNoLengthIsChosen)
{
    TakeUnitChoice(std::nullopt, L"degrees", units);
    EXPECT_EQ(units, (structRulesUnit{ 5, 0 }));
    EXPECT_TRUE(Stored("<Linear>feet &amp; inches</Linear>")) << UserFile();
    TakeUnitChoice(L"mils", std::nullopt, units);
    EXPECT_EQ(units, (structRulesUnit{ 9, 0 }));
}

TEST_F(UnitChoiceTest, AnUnknownUnitSurvivesInTheDocumentAndIsStoredAsMillimeters)
{
    units.linear = 42;
    TakeUnitChoice(std::nullopt, std::nullopt, units);
    EXPECT_EQ(units, (structRulesUnit{ 42, 2 }));
    EXPECT_TRUE(Stored("<Linear>millimeters</Linear>")) << UserFile();
}
