// Holds the tables of the database that the program comes with against what is known of them:
// rules of their standards, and orders that a slip of the pen would break.

#include "tests/RuleModules/LoadedModule.h"

#include <Vantrel/RuleDatabase.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace
{

struct DatabaseCloser
{
    void operator()(IRuleDatabase* database) const { CloseRuleDatabase(database); }
};

class ShippedDatabaseTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(m_database, nullptr); }

    std::vector<std::wstring> Names(const wchar_t* table, const wchar_t* group)
    {
        std::list<std::wstring> names;
        m_database->GetNames(table, group, names);
        return { names.begin(), names.end() };
    }

    /// NaN, which no expectation holds for, if the entry doesn't have it.
    double Property(const wchar_t* table, const std::wstring& name, const std::wstring& property)
    {
        double value = 0;
        return m_database->GetProperty(table, name, property, value) ? value : std::nan("");
    }

    void ExpectProperties(const wchar_t* group, std::initializer_list<const wchar_t*> properties)
    {
        const std::vector<std::wstring> names = Names(L"materials", group);
        EXPECT_GE(names.size(), 10U) << testing::PrintToString(std::wstring(group));
        for (const std::wstring& name : names)
        {
            for (const wchar_t* const property : properties)
            {
                EXPECT_GE(Property(L"materials", name, property), 0)
                    << testing::PrintToString(name) << ' ' << testing::PrintToString(std::wstring(property));
            }
        }
    }

    void ExpectAscending(const wchar_t* table, const wchar_t* group, const wchar_t* property, std::size_t fewest)
    {
        const std::vector<std::wstring> names = Names(table, group);
        EXPECT_GE(names.size(), fewest);
        double before = 0;
        for (const std::wstring& name : names)
        {
            const double value = Property(table, name, property);
            EXPECT_GT(value, before) << testing::PrintToString(name);
            before = value;
        }
    }

    std::unique_ptr<IRuleDatabase, DatabaseCloser> m_database{ OpenRuleDatabase(
        { StagedLibrary(L"QoxSqliteDatabaseu.dll") }) };
};

constexpr std::array Series = { L"metric-coarse", L"metric-fine", L"unified-coarse", L"unified-fine" };

TEST_F(ShippedDatabaseTest, MaterialsHaveThePropertiesOfTheirProcess)
{
    ExpectProperties(L"metal",
                     { L"tensile_strength", L"wall_thickness_min", L"pocket_depth_ratio", L"drill_depth_ratio" });
    ExpectProperties(L"sheet", { L"tensile_strength", L"min_bend_radius_factor", L"k_factor" });
    ExpectProperties(L"plastic", { L"wall_thickness_min", L"wall_thickness_max", L"shrinkage_min", L"shrinkage_max" });
    ExpectProperties(L"cast", { L"wall_thickness_min", L"wall_thickness_max", L"shrinkage_min", L"shrinkage_max",
                                L"draft_min", L"hole_diameter_min" });
    ExpectProperties(L"diecast", { L"wall_thickness_min", L"wall_thickness_max", L"shrinkage_min", L"shrinkage_max",
                                   L"draft_min", L"hole_diameter_min" });
    ExpectProperties(L"additive", { L"wall_thickness_min", L"overhang_angle", L"hole_diameter_min" });
    ExpectProperties(L"weld", { L"weld_thickness_min" });
    ExpectProperties(L"tube", { L"bend_ratio" });
    ExpectProperties(L"invest", { L"wall_thickness_min", L"wall_thickness_max", L"hole_diameter_min" });
}

TEST_F(ShippedDatabaseTest, MaterialsAreAsDenseAndStrongAsMaterialsAre)
{
    const std::vector<std::wstring> names = Names(L"materials", L"");
    EXPECT_GE(names.size(), 100U);
    for (const std::wstring& name : names)
    {
        SCOPED_TRACE(testing::PrintToString(name));
        const double density = Property(L"materials", name, L"density");
        EXPECT_TRUE(density > 0.5 && density < 20) << density;
        const double strength = Property(L"materials", name, L"tensile_strength");
        EXPECT_TRUE(strength > 5 && strength < 2500) << strength;
    }
}

TEST_F(ShippedDatabaseTest, MaterialsOfAGroupAddUpToAllOfThem)
{
    std::size_t sum = 0;
    for (const wchar_t* const group :
         { L"metal", L"sheet", L"plastic", L"cast", L"diecast", L"additive", L"weld", L"tube", L"invest" })
    {
        sum += Names(L"materials", group).size();
    }
    EXPECT_EQ(sum, Names(L"materials", L"").size());
}

TEST_F(ShippedDatabaseTest, ToolSizesAscend)
{
    ExpectAscending(L"drills", L"metric", L"diameter", 100);
    ExpectAscending(L"drills", L"inch", L"diameter", 40);
    ExpectAscending(L"end_mills", L"metric", L"diameter", 15);
    ExpectAscending(L"end_mills", L"inch", L"diameter", 8);
}

TEST_F(ShippedDatabaseTest, LongerDrillsAreNotThinner)
{
    double flute = 0;
    double stub = 0;
    for (const std::wstring& name : Names(L"drills", L"metric"))
    {
        SCOPED_TRACE(testing::PrintToString(name));
        const double newFlute = Property(L"drills", name, L"flute_length");
        EXPECT_GE(newFlute, flute);
        flute = newFlute;
        double newStub = 0;
        if (m_database->GetProperty(L"drills", name, L"flute_length_stub", newStub))
        {
            EXPECT_GE(newStub, stub);
            EXPECT_LT(newStub, newFlute);
            stub = newStub;
        }
    }
    EXPECT_GT(stub, 0);
}

TEST_F(ShippedDatabaseTest, ThreadsAscendAndAreCutInADrilledHoleOfTheirCore)
{
    for (const wchar_t* const series : Series)
    {
        double before = 0;
        EXPECT_GE(Names(L"threads", series).size(), 15U);
        for (const std::wstring& name : Names(L"threads", series))
        {
            SCOPED_TRACE(testing::PrintToString(name));
            const double diameter = Property(L"threads", name, L"diameter");
            const double pitch = Property(L"threads", name, L"pitch");
            EXPECT_GE(diameter, before);
            before = diameter;
            EXPECT_LT(pitch, diameter / 3);
            EXPECT_GT(pitch, diameter / 40);
            // The usual hole leaves about three quarters of the full thread.
            EXPECT_NEAR(Property(L"threads", name, L"tap_drill"), diameter - pitch, 0.17 * pitch);
        }
    }
}

TEST_F(ShippedDatabaseTest, MetricThreadsAreNamedAfterTheirDiameter)
{
    for (const wchar_t* const series : { L"metric-coarse", L"metric-fine" })
    {
        for (const std::wstring& name : Names(L"threads", series))
        {
            ASSERT_EQ(name.front(), L'M');
            EXPECT_EQ(std::stod(name.substr(1)), Property(L"threads", name, L"diameter"));
            if (const std::size_t cross = name.find(L'x'); cross != std::wstring::npos)
            {
                EXPECT_EQ(std::stod(name.substr(cross + 1)), Property(L"threads", name, L"pitch"));
            }
        }
    }
}

TEST_F(ShippedDatabaseTest, HigherGaugesAreThinner)
{
    ExpectAscending(L"gauges", L"metric", L"thickness", 15);
    for (const wchar_t* const series : { L"steel", L"galvanized", L"stainless", L"aluminium" })
    {
        double gauge = 0;
        double thickness = 25.4;
        EXPECT_GE(Names(L"gauges", series).size(), 10U);
        for (const std::wstring& name : Names(L"gauges", series))
        {
            SCOPED_TRACE(testing::PrintToString(name));
            EXPECT_GT(Property(L"gauges", name, L"gauge"), gauge);
            EXPECT_LT(Property(L"gauges", name, L"thickness"), thickness);
            gauge = Property(L"gauges", name, L"gauge");
            thickness = Property(L"gauges", name, L"thickness");
        }
    }
}

TEST_F(ShippedDatabaseTest, WireGaugesFollowTheirGeometricProgression)
{
    for (const std::wstring& name : Names(L"gauges", L"aluminium"))
    {
        const double gauge = Property(L"gauges", name, L"gauge");
        const double expected = 0.127 * std::pow(92.0, (36 - gauge) / 39);
        EXPECT_NEAR(Property(L"gauges", name, L"thickness"), expected, 0.0015) << testing::PrintToString(name);
    }
}

TEST_F(ShippedDatabaseTest, TubesAreHollow)
{
    for (const wchar_t* const series : { L"metric", L"inch" })
    {
        double before = 0;
        EXPECT_GE(Names(L"tubes", series).size(), 10U);
        for (const std::wstring& name : Names(L"tubes", series))
        {
            SCOPED_TRACE(testing::PrintToString(name));
            const double diameter = Property(L"tubes", name, L"diameter");
            EXPECT_GE(diameter, before);
            before = diameter;
            EXPECT_LT(Property(L"tubes", name, L"wall_thickness"), diameter / 4);
        }
    }
}

TEST_F(ShippedDatabaseTest, ToleranceGradesFollowTheFormulaOfTheToleranceUnit)
{
    constexpr std::array Limits = { 3, 6, 10, 18, 30, 50, 80, 120, 180, 250, 315, 400, 500 };
    constexpr std::array Multiples = { 10, 16, 25, 40, 64, 100, 160, 250, 400, 640, 1000, 1600, 2500 };
    const std::vector<std::wstring> names = Names(L"tolerance_grades", L"standard");
    ASSERT_EQ(names.size(), 18U);
    std::array<double, Limits.size()> before{};
    for (std::size_t row = 0; row < names.size(); ++row)
    {
        EXPECT_EQ(names[row], L"IT" + std::to_wstring(row + 1));
        double smaller = 0;
        double from = 1;
        for (std::size_t step = 0; step < Limits.size(); ++step)
        {
            SCOPED_TRACE(testing::PrintToString(names[row]) + " to " + std::to_string(Limits[step]));
            const double value = Property(L"tolerance_grades", names[row], L"to_" + std::to_wstring(Limits[step]));
            EXPECT_GE(value, smaller) << "larger sizes have larger tolerances";
            EXPECT_GT(value, before[step]) << "higher grades too";
            smaller = value;
            before[step] = value;
            if (row >= 5)
            {
                // From grade 6 on: a multiple of i = 0.45 D^(1/3) + 0.001 D, rounded.
                const double size = std::sqrt(from * Limits[step]);
                const double unit = 0.45 * std::cbrt(size) + 0.001 * size;
                // The standard rounds small values most.
                const double rounding = step == 0 ? 0.16 : row == 5 ? 0.1 : 0.05;
                EXPECT_NEAR(value / (unit * Multiples[row - 5]), 1, rounding);
            }
            from = Limits[step];
        }
    }
}

TEST_F(ShippedDatabaseTest, EveryDesignationStandsOnceInItsTable)
{
    for (const wchar_t* const table :
         { L"materials", L"drills", L"end_mills", L"threads", L"gauges", L"tubes", L"tolerance_grades" })
    {
        std::vector<std::wstring> names = Names(table, L"");
        EXPECT_FALSE(names.empty());
        const std::size_t count = names.size();
        std::sort(names.begin(), names.end());
        names.erase(std::unique(names.begin(), names.end()), names.end());
        EXPECT_EQ(names.size(), count);
    }
}

} // namespace
