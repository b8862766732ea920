#include "Explorer/RuleRowTable.h"

#include "Explorer/RuleOrder.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace
{

class RuleRowTableTest : public testing::Test
{
protected:
    void Add(const std::wstring& name, const std::wstring& category, bool ticked = false)
    {
        ConcreteQOXRule& rule = *rules.emplace_back(std::make_unique<ConcreteQOXRule>());
        rule.m_strDisplayName = name;
        rule.m_strCategory = category;
        table.SetTicked(table.Insert(&rule, name), ticked);
    }
    void Sort(int key)
    {
        order.Choose(key);
        former = table.Sort(order);
    }
    std::wstring Names() const
    {
        std::wstring names;
        for (int row = 0; row < table.Count(); ++row)
        {
            names += table.Text(row, 0) + (table.IsTicked(row) ? L"+ " : L" ");
        }
        return names;
    }

    std::vector<std::unique_ptr<ConcreteQOXRule>> rules;
    RuleRowTable table;
    RuleOrder order;
    std::vector<int> former;
};

} // namespace

TEST_F(RuleRowTableTest, ARowKeepsItsRuleItsTextsAndItsBox)
{
    Add(L"a", L"");
    Add(L"b", L"", true);
    table.SetText(1, 3, L"High");
    EXPECT_EQ(table.RuleOf(1), rules[1].get());
    EXPECT_EQ(table.Text(1, 0), L"b");
    EXPECT_EQ(table.Text(1, 2), L"");
    EXPECT_EQ(table.Text(1, 3), L"High");
    EXPECT_TRUE(table.IsTicked(1));
    EXPECT_FALSE(table.IsTicked(0));
    table.Remove(0);
    EXPECT_EQ(Names(), L"b+ ");
    table.Clear();
    EXPECT_EQ(table.Count(), 0);
}

TEST_F(RuleRowTableTest, ARowThatIsNotThereIsRefused)
{
    Add(L"a", L"");
    EXPECT_THROW(table.RuleOf(1), std::out_of_range);
    EXPECT_THROW(table.RuleOf(-1), std::out_of_range);
    EXPECT_THROW(table.SetTicked(1, true), std::out_of_range);
    EXPECT_THROW((void)table.Text(0, 4), std::out_of_range);
}

TEST_F(RuleRowTableTest, SortingTakesTextsAndBoxesAlongAndTellsWhereRowsWere)
{
    Add(L"c", L"3");
    Add(L"a", L"1", true);
    Add(L"b", L"2");
    Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Names(), L"a+ b c ");
    EXPECT_EQ(former, (std::vector<int>{ 1, 2, 0 }));
    EXPECT_EQ(table.RuleOf(0), rules[1].get());
}

TEST_F(RuleRowTableTest, EqualRowsKeepTheirOrderBothWays)
{
    Add(L"1", L"x");
    Add(L"2", L"y");
    Add(L"3", L"x");
    Add(L"4", L"y");
    Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Names(), L"1 3 2 4 ");
    Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Names(), L"2 4 1 3 ");
}

TEST_F(RuleRowTableTest, RowsWithoutARuleStandLastBothWays)
{
    table.Insert(nullptr, L"none");
    Add(L"b", L"b");
    table.Insert(nullptr, L"nor here");
    Add(L"a", L"a");
    Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Names(), L"a b none nor here ");
    Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Names(), L"b a none nor here ");
}

TEST_F(RuleRowTableTest, BoxesAreWrittenIntoTheRulesWhenAsked)
{
    Add(L"a", L"", true);
    Add(L"b", L"");
    table.Insert(nullptr, L"none");
    rules[1]->m_nRuleState = 1;
    table.NoteTickedRules();
    EXPECT_EQ(rules[0]->m_nRuleState, 1);
    EXPECT_EQ(rules[1]->m_nRuleState, 0);
}
