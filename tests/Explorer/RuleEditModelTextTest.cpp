#include "tests/Explorer/RuleEditModelFixture.h"
#include "tests/Explorer/UnitNumbers.h"
#include "Utilities/Texts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace
{

/// What the user reads beside the fields.
class RuleEditModelTextTest : public RuleEditModelFixture
{
};

} // namespace

TEST_F(RuleEditModelTextTest, FieldsShowTheValuesOfTheRule)
{
    const RuleEditModel model = Model();
    ASSERT_EQ(model.Count(), ParameterCount);
    const std::array texts = { L"1.5", L"45", L"0.25", L"3", L"1", L"steel", L"none" };
    for (std::size_t index = 0; index < ParameterCount; ++index)
    {
        EXPECT_EQ(model.Text(index), texts[index]);
        EXPECT_EQ(model.Label(index), rule.Parameters()[index].strLabel.Get());
        EXPECT_TRUE(model.IsAcceptable(index));
        EXPECT_TRUE(model.IsDefault(index));
        EXPECT_TRUE(model.Message(index).empty());
    }
    EXPECT_FALSE(model.IsChanged());
    EXPECT_FALSE(model.FirstWrong());
}

TEST_F(RuleEditModelTextTest, AParameterWithoutALabelIsCalledByItsName)
{
    rule.Parameters()[Ratio].strLabel = L"";
    EXPECT_EQ(Model().Label(Ratio), L"RatioName");
}

TEST_F(RuleEditModelTextTest, EveryWrongTextIsToldWithItsReason)
{
    struct Row
    {
        std::size_t index;
        const wchar_t* text;
        std::wstring message;
    };
    const std::array rows = {
        Row{ Radius, L"", LoadText(TextId::EditorEmpty) },
        Row{ Radius, L"x", LoadText(TextId::EditorNotALength) },
        Row{ Radius, L"1,5", LoadText(TextId::EditorDecimalComma) },
        Row{ Radius, L"5 kg", FormatText(TextId::EditorNoUnitOfLength, { L"kg" }) },
        Row{ Radius, L"1' 12\"", LoadText(TextId::EditorInchesTooLarge) },
        Row{ Radius, L"0.09", FormatText(TextId::EditorBelowMinimum, { L"0.1 mm" }) },
        Row{ Radius, L"-1", FormatText(TextId::EditorBelowMinimum, { L"0.1 mm" }) },
        Row{ Radius, L"101", FormatText(TextId::EditorAboveMaximum, { L"100 mm" }) },
        Row{ Radius, L"1 m", FormatText(TextId::EditorAboveMaximum, { L"100 mm" }) },
        Row{ Angle, L"x", LoadText(TextId::EditorNotAnAngle) },
        Row{ Angle, L"5 mm", FormatText(TextId::EditorNoUnitOfAngle, { L"mm" }) },
        Row{ Angle, L"1:60", LoadText(TextId::EditorMinutesTooLarge) },
        Row{ Angle, L"90.5", FormatText(TextId::EditorAboveMaximum, { L"90 \u00B0" }) },
        Row{ Ratio, L"", LoadText(TextId::EditorEmpty) },
        Row{ Ratio, L"x", LoadText(TextId::EditorNotANumber) },
        Row{ Ratio, L"5 mm", LoadText(TextId::EditorNotANumber) },
        Row{ Ratio, L"-0.1", FormatText(TextId::EditorBelowMinimum, { L"0" }) },
        Row{ Directions, L"2.5", LoadText(TextId::EditorNotWhole) },
        Row{ Directions, L"0", FormatText(TextId::EditorBelowMinimum, { L"1" }) },
        Row{ Directions, L"7", FormatText(TextId::EditorAboveMaximum, { L"6" }) },
        Row{ Material, L"lead", FormatText(TextId::EditorNotOffered, { L"lead" }) },
    };
    for (const Row& row : rows)
    {
        RuleEditModel model = Model();
        model.SetText(row.index, row.text);
        EXPECT_FALSE(row.message.empty());
        EXPECT_EQ(model.Message(row.index), row.message) << testing::PrintToString(std::wstring(row.text));
        EXPECT_FALSE(model.IsAcceptable(row.index));
        EXPECT_EQ(model.FirstWrong(), row.index);
        EXPECT_FALSE(model.IsDefault(row.index));
        EXPECT_TRUE(model.IsChanged());
    }
}

TEST_F(RuleEditModelTextTest, RangesAreTold)
{
    AddNumber(ParamKind::Number, L"Free", 1, CQoxParamStorage::NoMinimum, CQoxParamStorage::NoMaximum);
    AddNumber(ParamKind::Number, L"UpTo", 1, CQoxParamStorage::NoMinimum, 10);
    AddNumber(ParamKind::Integer, L"Whole", 2, 0.5, 7.5);
    AddNumber(ParamKind::Number, L"Narrow", 1, 0.9999999, 1.0000001);
    const RuleEditModel model = Model();
    EXPECT_EQ(model.RangeText(Radius), FormatText(TextId::EditorRange, { L"0.1", L"100" }));
    EXPECT_EQ(model.RangeText(Ratio), FormatText(TextId::EditorRangeFrom, { L"0" }));
    EXPECT_EQ(model.RangeText(ParameterCount), L"");
    EXPECT_EQ(model.RangeText(ParameterCount + 1), FormatText(TextId::EditorRangeUpTo, { L"10" }));
    EXPECT_EQ(model.RangeText(ParameterCount + 2), FormatText(TextId::EditorRange, { L"1", L"7" }));
    EXPECT_EQ(model.RangeText(ParameterCount + 3), FormatText(TextId::EditorRange, { L"0.9999999", L"1.0000001" }));
    for (const std::size_t without : { Reliefs, Material, Remark })
    {
        EXPECT_EQ(model.RangeText(without), L"");
    }
}

TEST_F(RuleEditModelTextTest, UnitsFollowTheFieldsOfLengthsAndAngles)
{
    UseUnits(Inches, Radians);
    const RuleEditModel model = Model();
    EXPECT_EQ(model.UnitSymbol(Radius), L"in");
    EXPECT_EQ(model.UnitSymbol(Angle), L"rad");
    for (const std::size_t without : { Ratio, Directions, Reliefs, Material, Remark })
    {
        EXPECT_EQ(model.UnitSymbol(without), L"");
    }
    EXPECT_EQ(model.Text(Radius), L"0.0590551181102");
    EXPECT_EQ(model.RangeText(Radius), FormatText(TextId::EditorRange, { L"0.00393701", L"3.937" }));
}

TEST_F(RuleEditModelTextTest, FeetAndInchesAndDegreesAreShownAndTypedInTheirParts)
{
    UseUnits(FeetAndInches, DegreesMinutesSeconds);
    RuleEditModel model = Model();
    EXPECT_EQ(model.Text(Radius), L"0' 0.0590551181102\"");
    EXPECT_EQ(model.Text(Angle), L"45\u00B0 0' 0\"");
    EXPECT_EQ(model.RangeText(Radius), FormatText(TextId::EditorRange, { L"0' 0.00393701\"", L"0' 3.937\"" }));
    EXPECT_EQ(model.RangeText(Angle), FormatText(TextId::EditorRange, { L"0\u00B0 0' 0\"", L"90\u00B0 0' 0\"" }));
    EXPECT_EQ(model.DefaultText(Angle), L"45\u00B0 0' 0\"");
    model.SetText(Radius, L"0' 1 1/2\"");
    model.SetText(Angle, L"12 30 15.5");
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Radius].dValue, 0.125);
    EXPECT_EQ(rule.Parameters()[Angle].dValue, 45015.5 / 3600);
    RuleEditModel again = Model();
    EXPECT_EQ(again.Text(Radius), L"0' 1.5\"");
    EXPECT_EQ(again.Text(Angle), L"12\u00B0 30' 15.5\"");
    again.SetText(Radius, L"5' 0\"");
    EXPECT_EQ(again.Message(Radius), FormatText(TextId::EditorAboveMaximum, { L"0' 3.937\"" }));
}

TEST_F(RuleEditModelTextTest, TheShownLimitsMayBeTypedInAllUnits)
{
    for (std::int32_t linear = 0; linear <= 10; ++linear)
    {
        for (std::int32_t angular = 0; angular <= 3; ++angular)
        {
            UseUnits(linear, angular);
            for (const double minimum : { 0.1, 0.3, 1.0 / 3 })
            {
                CQoxParamStorage& radius = rule.Parameters()[Radius];
                radius.dMinimum = ConvertLength(minimum, Millimeters, linear);
                RuleEditModel model = Model();
                for (const std::size_t index : { Radius, Angle })
                {
                    const std::wstring range = model.RangeText(index);
                    const std::wstring between = FormatText(TextId::EditorRange, { L"", L"" });
                    const std::size_t cut = range.find(between);
                    ASSERT_NE(cut, std::wstring::npos);
                    model.SetText(index, range.substr(0, cut));
                    EXPECT_TRUE(model.IsAcceptable(index)) << testing::PrintToString(range);
                    model.SetText(index, range.substr(cut + between.size()));
                    EXPECT_TRUE(model.IsAcceptable(index)) << testing::PrintToString(range);
                }
            }
        }
    }
}

TEST_F(RuleEditModelTextTest, DefaultsAreToldWithTheirUnits)
{
    const RuleEditModel model = Model();
    EXPECT_EQ(model.DefaultText(Radius), L"1.5 mm");
    EXPECT_EQ(model.DefaultText(Angle), L"45 \u00B0");
    EXPECT_EQ(model.DefaultText(Ratio), L"0.25");
    EXPECT_EQ(model.DefaultText(Reliefs), LoadText(TextId::EditorYes));
    EXPECT_EQ(model.DefaultText(Material), L"steel");
    rule.Parameters()[Reliefs].dDefault = 0;
    EXPECT_EQ(Model().DefaultText(Reliefs), LoadText(TextId::EditorNo));
}

TEST_F(RuleEditModelTextTest, AValueOutsideTheRangeIsToldFromTheStart)
{
    rule.Parameters()[Radius].dValue = 0;
    RuleEditModel model = Model();
    EXPECT_EQ(model.FirstWrong(), Radius);
    EXPECT_FALSE(model.IsChanged());
    EXPECT_FALSE(model.ApplyTo(rule));
    model.Reset(Radius);
    EXPECT_TRUE(model.ApplyTo(rule));
}
