#include <Vantrel/ParamStorage.h>
#include <Vantrel/RuleUnits.h>

#include <gtest/gtest.h>

#include <numbers>
#include <vector>

namespace
{

const std::vector<double> SampleValues = { 0.0,  1.0,   0.1,      0.5,   3.0,        12.7,      0.0254,        1e-7,
                                           25.4, 100.0, 0.333333, 6.35,  -4.75,      999999.99, 123456.789012, 89.9999,
                                           1e9,  45.0,  17.25,    0.001, 3.14159265, 2.0 / 3.0 };

} // namespace

TEST(RuleUnitsTest, LengthsHaveTheirPublishedSizes)
{
    EXPECT_DOUBLE_EQ(ConvertLength(1, 3, 0), 25.4);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 4, 0), 304.8);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 4, 3), 12);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 2, 0), 1000);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 1, 0), 10);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 3, 9), 1000);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 3, 10), 1000000);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 0, 8), 1000);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 0, 7), 1000000);
    EXPECT_DOUBLE_EQ(ConvertLength(1, 0, 6), 10000000);
    EXPECT_DOUBLE_EQ(ConvertLength(3, 4, 5), 3);
}

TEST(RuleUnitsTest, AnglesHaveTheirPublishedSizes)
{
    EXPECT_DOUBLE_EQ(ConvertAngle(180, 0, 3), std::numbers::pi);
    EXPECT_DOUBLE_EQ(ConvertAngle(std::numbers::pi / 2, 3, 1), 90);
    EXPECT_DOUBLE_EQ(ConvertAngle(1.5, 0, 2), 1.5);
}

TEST(RuleUnitsTest, ConvertingLengthsThereAndBackChangesNoShownDigit)
{
    for (std::int32_t from = 0; from <= 10; ++from)
    {
        for (std::int32_t to = 0; to <= 10; ++to)
        {
            for (const double value : SampleValues)
            {
                const double back = ConvertLength(ConvertLength(value, from, to), to, from);
                EXPECT_EQ(FormatShownNumber(back), FormatShownNumber(value)) << from << " to " << to;
            }
        }
    }
}

TEST(RuleUnitsTest, ConvertingAnglesThereAndBackChangesNoShownDigit)
{
    for (std::int32_t from = 0; from <= 3; ++from)
    {
        for (std::int32_t to = 0; to <= 3; ++to)
        {
            for (const double value : SampleValues)
            {
                const double back = ConvertAngle(ConvertAngle(value, from, to), to, from);
                EXPECT_EQ(FormatShownNumber(back), FormatShownNumber(value)) << from << " to " << to;
            }
        }
    }
}

TEST(RuleUnitsTest, AHundredChangesOfUnitsChangeNoShownDigit)
{
    double value = 6.35;
    for (int count = 0; count < 100; ++count)
    {
        value = ConvertLength(ConvertLength(ConvertLength(value, 0, 4), 4, 10), 10, 0);
    }
    EXPECT_EQ(FormatShownNumber(value), L"6.35");
}

TEST(RuleUnitsTest, UnknownUnitNumbersCountAsMillimetersAndDegrees)
{
    EXPECT_DOUBLE_EQ(ConvertLength(1, 3, 4711), 25.4);
    EXPECT_DOUBLE_EQ(ConvertLength(25.4, -1, 3), 1);
    EXPECT_DOUBLE_EQ(ConvertAngle(180, 77, 3), std::numbers::pi);
}
