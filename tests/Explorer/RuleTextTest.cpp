#include "Explorer/RuleText.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <set>

namespace
{

using Rows = std::vector<std::wstring>;

} // namespace

TEST(RuleTextTest, CriticalitiesOutsideOneToFiveShowTheTextOfThree)
{
    std::set<std::wstring> texts;
    for (int criticality = 1; criticality <= 5; ++criticality)
    {
        texts.insert(CriticalityText(criticality));
    }
    EXPECT_EQ(texts.size(), 5u);
    for (const int criticality : { 0, 6, -1, 1000 })
    {
        EXPECT_EQ(CriticalityText(criticality), CriticalityText(3));
    }
}

TEST(RuleTextTest, ColumnsShowDisplayNameCategoryModuleAndCriticality)
{
    ConcreteQOXRule rule;
    rule.m_strRuleName = L"name";
    rule.m_strDisplayName = L"shown";
    rule.m_strCategory = L"category";
    rule.m_strRuleModule = L"module";
    rule.m_nCriticality = 1;
    EXPECT_EQ(RuleColumnText(rule, RuleColumn::Name), L"shown");
    EXPECT_EQ(RuleColumnText(rule, RuleColumn::Category), L"category");
    EXPECT_EQ(RuleColumnText(rule, RuleColumn::Module), L"module");
    EXPECT_EQ(RuleColumnText(rule, RuleColumn::Criticality), CriticalityText(1));
}

TEST(RuleTextTest, ARuleIsHiddenOnlyUnderTheVSTAMark)
{
    ConcreteQOXRule rule;
    rule.m_strRuleName = L"minimum flange size";
    rule.m_strRuleModule = L"vsta rule";
    EXPECT_TRUE(IsHiddenRule(rule));
    rule.m_strRuleModule = L"Sheet Metal Rules";
    EXPECT_FALSE(IsHiddenRule(rule));
    rule.m_strRuleModule = L"VSTA Rule";
    rule.m_strRuleName = L"My Rule";
    EXPECT_FALSE(IsHiddenRule(rule));
}

TEST(RuleTextTest, AnEmptySummaryGivesOneEmptyRow)
{
    EXPECT_EQ(WrapSummary(L"", 100, 0), Rows{ L"" });
}

TEST(RuleTextTest, TextIsCutAtTheLastBlankWhichStartsTheNextRow)
{
    // 10 characters a line.
    EXPECT_EQ(WrapSummary(L"aaaa bbbb cccc", 100, 140), (Rows{ L"aaaa bbbb", L" cccc" }));
}

TEST(RuleTextTest, AWordWiderThanThePaneIsCutAtTheLineLengthWithoutAHyphen)
{
    EXPECT_EQ(WrapSummary(L"aaaaaaaaaaaaaaa", 100, 150), (Rows{ L"aaaaaaaaaa", L"aaaaa" }));
}

TEST(RuleTextTest, ABlankAtTheStartOfARowIsNoPlaceToCut)
{
    EXPECT_EQ(WrapSummary(L"aaaa bbbbbbbbbb", 50, 150), (Rows{ L"aaaa", L" bbbb", L"bbbbb", L"b" }));
}

TEST(RuleTextTest, APaneTooNarrowForACharacterComesToAnEnd)
{
    EXPECT_EQ(WrapSummary(L"some text", 0, 100), Rows{ L"some text" });
    EXPECT_EQ(WrapSummary(L"some text", -20, 100), Rows{ L"some text" });
    EXPECT_EQ(WrapSummary(L"some text", 1, 100000), Rows{ L"some text" });
}

TEST(RuleTextTest, NothingOfTheTextIsLost)
{
    const std::wstring text = L"Holes that are deeper than four times their diameter need special tools.";
    for (int width = 1; width < 200; ++width)
    {
        std::wstring joined;
        for (const std::wstring& row : WrapSummary(text, width, 400))
        {
            joined += row;
        }
        EXPECT_EQ(joined, text) << width;
    }
}
