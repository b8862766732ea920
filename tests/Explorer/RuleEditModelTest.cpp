#include "Explorer/RuleEditModel.h"

#include "Utilities/Texts.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace
{

constexpr std::int32_t Millimeters = 0;
constexpr std::int32_t Inches = 3;
constexpr std::int32_t FeetAndInches = 5;
constexpr std::int32_t Degrees = 0;
constexpr std::int32_t DegreesMinutesSeconds = 2;
constexpr std::int32_t Radians = 3;

// Places of the parameters that every rule here has.
constexpr std::size_t Radius = 0;
constexpr std::size_t Angle = 1;
constexpr std::size_t Ratio = 2;
constexpr std::size_t Directions = 3;
constexpr std::size_t Reliefs = 4;
constexpr std::size_t Material = 5;
constexpr std::size_t Remark = 6;
constexpr std::size_t ParameterCount = 7;

class RuleEditModelTest : public testing::Test
{
protected:
    RuleEditModelTest()
    {
        AddNumber(ParamKind::Length, L"Radius", 1.5, 0.1, 100);
        AddNumber(ParamKind::Angle, L"Angle", 45, 0, 90);
        AddNumber(ParamKind::Number, L"Ratio", 0.25, 0, CQoxParamStorage::NoMaximum);
        AddNumber(ParamKind::Integer, L"Directions", 3, 1, 6);
        AddNumber(ParamKind::YesNo, L"Reliefs", 1, 0, 1);
        AddText(ParamKind::Choice, L"Material", L"steel");
        AddText(ParamKind::Text, L"Remark", L"none");
        rule.Parameters()[Material].choices = { L"brass", L"steel" };
    }

    CQoxParamStorage& Add(ParamKind kind, const std::wstring& label)
    {
        CQoxParamStorage& parameter = rule.Parameters().emplace_back();
        parameter.nNumber = static_cast<std::int32_t>(rule.Parameters().size());
        parameter.eKind = kind;
        parameter.strName = label + L"Name";
        parameter.strLabel = label;
        return parameter;
    }
    void AddNumber(ParamKind kind, const std::wstring& label, double value, double minimum, double maximum)
    {
        CQoxParamStorage& parameter = Add(kind, label);
        parameter.dValue = value;
        parameter.dDefault = value;
        parameter.dMinimum = minimum;
        parameter.dMaximum = maximum;
    }
    void AddText(ParamKind kind, const std::wstring& label, const std::wstring& value)
    {
        CQoxParamStorage& parameter = Add(kind, label);
        parameter.strValue = value;
        parameter.strDefault = value;
    }

    /// As a document with these units does it.
    void UseUnits(std::int32_t linear, std::int32_t angular)
    {
        const RuleUnitSystemStructure units{ linear, angular };
        rule.UpdateRule(&rule.m_units, &units);
        rule.m_units = units;
    }

    RuleEditModel Model() const { return RuleEditModel(rule, L'.'); }

    ConcreteQOXRule rule;
};

std::vector<double> Numbers(const CQoxRule& rule)
{
    std::vector<double> numbers;
    for (const CQoxParamStorage& parameter : rule.Parameters())
    {
        numbers.push_back(parameter.dValue);
    }
    return numbers;
}

} // namespace

TEST_F(RuleEditModelTest, FieldsShowTheValuesOfTheRule)
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

TEST_F(RuleEditModelTest, ARuleWithoutParametersCanBeApplied)
{
    rule.Parameters().clear();
    RuleEditModel model = Model();
    EXPECT_EQ(model.Count(), 0u);
    EXPECT_FALSE(model.FirstWrong());
    model.SetCriticality(5);
    EXPECT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.m_nCriticality, 5);
}

TEST_F(RuleEditModelTest, AParameterWithoutALabelIsCalledByItsName)
{
    rule.Parameters()[Ratio].strLabel = L"";
    EXPECT_EQ(Model().Label(Ratio), L"RatioName");
}

TEST_F(RuleEditModelTest, WhatWasTypedIsAppliedAsAWhole)
{
    RuleEditModel model = Model();
    model.SetText(Radius, L"0.25 in");
    model.SetText(Angle, L"30");
    model.SetText(Ratio, L"1/8");
    model.SetText(Directions, L"6");
    model.SetYes(Reliefs, false);
    model.SetText(Material, L"brass");
    model.SetText(Remark, L"");
    model.SetCriticality(1);
    EXPECT_TRUE(model.IsChanged());
    EXPECT_EQ(Numbers(rule), (std::vector<double>{ 1.5, 45, 0.25, 3, 1, 0, 0 })) << "the rule waits";
    EXPECT_EQ(rule.m_nCriticality, 3);
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(Numbers(rule), (std::vector<double>{ 6.35, 30, 0.125, 6, 0, 0, 0 }));
    EXPECT_EQ(rule.Parameters()[Material].strValue, L"brass");
    EXPECT_EQ(rule.Parameters()[Remark].strValue, L"");
    EXPECT_EQ(rule.m_nCriticality, 1);
    EXPECT_TRUE(rule.ValidateInputData());
}

TEST_F(RuleEditModelTest, OneWrongTextKeepsAllFromBeingApplied)
{
    RuleEditModel model = Model();
    model.SetText(Radius, L"2");
    model.SetCriticality(5);
    model.SetText(Directions, L"7");
    EXPECT_EQ(model.FirstWrong(), Directions);
    EXPECT_FALSE(model.ApplyTo(rule));
    EXPECT_EQ(Numbers(rule), (std::vector<double>{ 1.5, 45, 0.25, 3, 1, 0, 0 }));
    EXPECT_EQ(rule.m_nCriticality, 3);
    model.SetText(Directions, L"6");
    EXPECT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Radius].dValue, 2);
}

TEST_F(RuleEditModelTest, ARuleWhoseParametersAreOthersByNowIsLeftAlone)
{
    RuleEditModel model = Model();
    model.SetText(Radius, L"2");
    ConcreteQOXRule other;
    other = &rule;
    other.Parameters().pop_back();
    EXPECT_FALSE(model.ApplyTo(other));
    other = &rule;
    other.Parameters()[Angle].nNumber = 99;
    EXPECT_FALSE(model.ApplyTo(other));
    other = &rule;
    other.Parameters()[Angle].eKind = ParamKind::Number;
    EXPECT_FALSE(model.ApplyTo(other));
    EXPECT_EQ(other.Parameters()[Radius].dValue, 1.5);
}

TEST_F(RuleEditModelTest, EveryWrongTextIsToldWithItsReason)
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

TEST_F(RuleEditModelTest, WholeNumbersMayBeTypedInEveryWay)
{
    RuleEditModel model = Model();
    for (const wchar_t* const text : { L"4", L"4.0", L" +4 ", L"4e0", L"8/2" })
    {
        model.SetText(Directions, text);
        EXPECT_TRUE(model.IsAcceptable(Directions)) << testing::PrintToString(std::wstring(text));
    }
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Directions].dValue, 4);
}

TEST_F(RuleEditModelTest, TheLocalesDecimalCommaIsTaken)
{
    RuleEditModel model(rule, L',');
    model.SetText(Radius, L"2,5");
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Radius].dValue, 2.5);
}

TEST_F(RuleEditModelTest, RangesAreTold)
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

TEST_F(RuleEditModelTest, UnitsFollowTheFieldsOfLengthsAndAngles)
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

TEST_F(RuleEditModelTest, FeetAndInchesAndDegreesAreShownAndTypedInTheirParts)
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

TEST_F(RuleEditModelTest, AnUntouchedNumberStaysExactlyAsItIs)
{
    for (const std::int32_t linear : { Millimeters, Inches, FeetAndInches })
    {
        for (const std::int32_t angular : { Degrees, DegreesMinutesSeconds, Radians })
        {
            UseUnits(linear, angular);
            rule.Parameters()[Radius].dValue = 0.123456789012345678;
            rule.Parameters()[Angle].dValue = 1.0 / 3;
            const std::vector<double> before = Numbers(rule);
            RuleEditModel model = Model();
            EXPECT_FALSE(model.IsChanged());
            ASSERT_TRUE(model.ApplyTo(rule));
            EXPECT_EQ(Numbers(rule), before);
            // Typed and taken back.
            const std::wstring text = model.Text(Radius);
            model.SetText(Radius, text + L"0");
            model.SetText(Radius, text);
            EXPECT_FALSE(model.IsChanged());
            ASSERT_TRUE(model.ApplyTo(rule));
            EXPECT_EQ(Numbers(rule), before);
        }
    }
}

TEST_F(RuleEditModelTest, TheSameNumberInAnotherTextIsNoChange)
{
    RuleEditModel model = Model();
    model.SetText(Radius, L" 1.50 mm");
    EXPECT_FALSE(model.IsChanged());
    EXPECT_TRUE(model.IsDefault(Radius));
}

TEST_F(RuleEditModelTest, TheShownLimitsMayBeTypedInAllUnits)
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

TEST_F(RuleEditModelTest, TheNoiseOfAConversionIsNotOutsideTheRange)
{
    CQoxParamStorage& radius = rule.Parameters()[Radius];
    radius.dValue = std::nextafter(radius.dMaximum, 1000.0);
    ASSERT_FALSE(radius.IsValid());
    RuleEditModel model = Model();
    EXPECT_TRUE(model.IsAcceptable(Radius));
    EXPECT_FALSE(model.IsChanged());
    radius.dValue = 50;
    RuleEditModel typed = Model();
    typed.SetText(Radius, L"100");
    ASSERT_TRUE(typed.ApplyTo(rule));
    EXPECT_EQ(radius.dValue, radius.dMaximum);
}

TEST_F(RuleEditModelTest, AResetGivesTheExactDefaultInEveryUnit)
{
    UseUnits(FeetAndInches, Radians);
    RuleEditModel model = Model();
    model.SetText(Radius, L"2\"");
    model.SetText(Angle, L"junk");
    model.SetYes(Reliefs, false);
    model.SetText(Material, L"brass");
    model.SetText(Remark, L"much");
    for (const std::size_t index : { Radius, Angle, Reliefs, Material, Remark })
    {
        EXPECT_FALSE(model.IsDefault(index));
    }
    model.Reset(Radius);
    EXPECT_TRUE(model.IsDefault(Radius));
    EXPECT_FALSE(model.IsDefault(Angle));
    model.ResetAll();
    for (std::size_t index = 0; index < model.Count(); ++index)
    {
        EXPECT_TRUE(model.IsDefault(index));
        EXPECT_TRUE(model.IsAcceptable(index));
    }
    EXPECT_FALSE(model.IsChanged());

    rule.Parameters()[Radius].dValue = 0.2;
    RuleEditModel other = Model();
    EXPECT_FALSE(other.IsDefault(Radius));
    other.Reset(Radius);
    EXPECT_TRUE(other.IsChanged());
    ASSERT_TRUE(other.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Radius].dValue, rule.Parameters()[Radius].dDefault);
}

TEST_F(RuleEditModelTest, AResetLeavesTheCriticality)
{
    RuleEditModel model = Model();
    model.SetCriticality(5);
    model.ResetAll();
    EXPECT_EQ(model.Criticality(), 5);
}

TEST_F(RuleEditModelTest, DefaultsAreToldWithTheirUnits)
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

TEST_F(RuleEditModelTest, AValueOutsideTheRangeIsToldFromTheStart)
{
    rule.Parameters()[Radius].dValue = 0;
    RuleEditModel model = Model();
    EXPECT_EQ(model.FirstWrong(), Radius);
    EXPECT_FALSE(model.IsChanged());
    EXPECT_FALSE(model.ApplyTo(rule));
    model.Reset(Radius);
    EXPECT_TRUE(model.ApplyTo(rule));
}

TEST_F(RuleEditModelTest, ANumberThatIsNoneMustBeReplaced)
{
    rule.Parameters()[Ratio].dValue = std::numeric_limits<double>::quiet_NaN();
    rule.Parameters()[Radius].dValue = std::numeric_limits<double>::infinity();
    RuleEditModel model = Model();
    EXPECT_FALSE(model.IsAcceptable(Ratio));
    EXPECT_FALSE(model.IsAcceptable(Radius));
    EXPECT_FALSE(model.ApplyTo(rule));
}

TEST_F(RuleEditModelTest, AChoiceThatIsNotOfferedHereStaysWithANote)
{
    rule.Parameters()[Material].strValue = L"unobtainium";
    RuleEditModel model = Model();
    EXPECT_EQ(model.Options(Material), (std::vector<std::wstring>{ L"brass", L"steel", L"unobtainium" }));
    EXPECT_TRUE(model.IsAcceptable(Material));
    EXPECT_EQ(model.Message(Material), FormatText(TextId::EditorKeptChoice, { L"unobtainium" }));
    model.SetText(Radius, L"2");
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Material].strValue, L"unobtainium");
    model.SetText(Material, L"brass");
    EXPECT_TRUE(model.Message(Material).empty());
}

TEST_F(RuleEditModelTest, ADefaultThatIsNotOfferedHereCanBeChosen)
{
    rule.Parameters()[Material].strDefault = L"wood";
    RuleEditModel model = Model();
    EXPECT_EQ(model.Options(Material), (std::vector<std::wstring>{ L"brass", L"steel", L"wood" }));
    model.Reset(Material);
    EXPECT_TRUE(model.IsAcceptable(Material));
    EXPECT_FALSE(model.Message(Material).empty());
}

TEST_F(RuleEditModelTest, AYesNoThatIsNeitherStaysSoUntilItIsClicked)
{
    rule.Parameters()[Reliefs].dValue = 7;
    RuleEditModel model = Model();
    EXPECT_TRUE(model.IsYes(Reliefs));
    EXPECT_FALSE(model.IsChanged());
    model.SetYes(Reliefs, false);
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[Reliefs].dValue, 0);
}

TEST_F(RuleEditModelTest, ACriticalityOutsideOneToFiveIsShownAsThreeAndKeptUntilItIsSet)
{
    rule.m_nCriticality = 9;
    RuleEditModel model = Model();
    EXPECT_EQ(model.Criticality(), 3);
    model.SetCriticality(3);
    EXPECT_FALSE(model.IsChanged());
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.m_nCriticality, 9);
    model.SetCriticality(4);
    EXPECT_TRUE(model.IsChanged());
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.m_nCriticality, 4);
}

TEST_F(RuleEditModelTest, SixtyParametersWithOneNumberAreKeptApart)
{
    rule.Parameters().clear();
    for (int count = 0; count < 60; ++count)
    {
        AddNumber(ParamKind::Number, L"p", count, 0, 1000);
        rule.Parameters().back().nNumber = 1; // as a file may have it
    }
    RuleEditModel model = Model();
    model.SetText(59, L"7");
    ASSERT_TRUE(model.ApplyTo(rule));
    EXPECT_EQ(rule.Parameters()[0].dValue, 0);
    EXPECT_EQ(rule.Parameters()[59].dValue, 7);
}
