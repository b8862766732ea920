#include <Vantrel/ParamStorage.h>

#include <gtest/gtest.h>

namespace
{

CQoxParamStorage MakeLength(double value, double minimum, double maximum)
{
    CQoxParamStorage parameter;
    parameter.eKind = ParamKind::Length;
    parameter.dValue = value;
    parameter.dDefault = value;
    parameter.dMinimum = minimum;
    parameter.dMaximum = maximum;
    return parameter;
}

} // namespace

TEST(ParamStorageTest, AValueWithinTheRangeIsValidAndTheEndsBelongToIt)
{
    EXPECT_TRUE(MakeLength(1, 1, 2).IsValid());
    EXPECT_TRUE(MakeLength(2, 1, 2).IsValid());
    EXPECT_FALSE(MakeLength(2.1, 1, 2).IsValid());
    EXPECT_FALSE(MakeLength(0.9, 1, 2).IsValid());
    EXPECT_TRUE(MakeLength(1e30, 1, CQoxParamStorage::NoMaximum).IsValid());
    EXPECT_FALSE(MakeLength(std::numeric_limits<double>::quiet_NaN(), 0, 1).IsValid());
}

TEST(ParamStorageTest, AnIntegerMustBeWholeAndAYesNoZeroOrOne)
{
    CQoxParamStorage parameter;
    parameter.eKind = ParamKind::Integer;
    parameter.dValue = 3;
    EXPECT_TRUE(parameter.IsValid());
    parameter.dValue = 3.5;
    EXPECT_FALSE(parameter.IsValid());
    parameter.eKind = ParamKind::YesNo;
    parameter.dValue = 1;
    EXPECT_TRUE(parameter.IsValid());
    parameter.dValue = 2;
    EXPECT_FALSE(parameter.IsValid());
}

TEST(ParamStorageTest, AChoiceMustBeOneOfItsTexts)
{
    CQoxParamStorage parameter;
    parameter.eKind = ParamKind::Choice;
    parameter.choices = { L"Steel", L"Brass" };
    parameter.strValue = L"Brass";
    EXPECT_TRUE(parameter.IsValid());
    parameter.strValue = L"brass";
    EXPECT_FALSE(parameter.IsValid());
}

TEST(ParamStorageTest, UnitsConvertTheValueTheRangeAndTheDefaultOfLengths)
{
    CQoxParamStorage parameter = MakeLength(25.4, 0, CQoxParamStorage::NoMaximum);
    parameter.ConvertUnits({ 0, 0 }, { 3, 0 });
    EXPECT_DOUBLE_EQ(parameter.dValue, 1);
    EXPECT_DOUBLE_EQ(parameter.dDefault, 1);
    EXPECT_EQ(parameter.dMinimum, 0);
    EXPECT_EQ(parameter.dMaximum, CQoxParamStorage::NoMaximum);
}

TEST(ParamStorageTest, UnitsLeaveOtherKindsAlone)
{
    CQoxParamStorage parameter;
    parameter.eKind = ParamKind::Number;
    parameter.dValue = 7;
    parameter.ConvertUnits({ 0, 0 }, { 3, 3 });
    EXPECT_EQ(parameter.dValue, 7);
}

TEST(ParamStorageTest, AValueThatWasConvertedAndBackIsStillTheDefault)
{
    CQoxParamStorage parameter = MakeLength(0.1, 0, 10);
    parameter.dValue = ConvertLength(ConvertLength(0.1, 0, 9), 9, 0);
    EXPECT_TRUE(parameter.IsDefault());
    parameter.dValue = 0.2;
    EXPECT_FALSE(parameter.IsDefault());
}

TEST(ParamStorageTest, ShownNumbersHaveNoTrailingZerosNorNoise)
{
    EXPECT_EQ(FormatShownNumber(2.5), L"2.5");
    EXPECT_EQ(FormatShownNumber(100), L"100");
    EXPECT_EQ(FormatShownNumber(-0.0), L"0");
    EXPECT_EQ(FormatShownNumber(0.1 + 0.2), L"0.3");
}
