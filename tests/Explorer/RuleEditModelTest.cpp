#include "tests/Explorer/RuleEditModelFixture.h"
#include "tests/Explorer/UnitNumbers.h"
#include "Utilities/Texts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace
{

class RuleEditModelTest : public RuleEditModelFixture
{
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
