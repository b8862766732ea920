#include "Explorer/RuleOrder.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

class RuleOrderTest : public testing::Test
{
protected:
    void Add(const std::wstring& name, bool ticked)
    {
        auto& rule = *rules.emplace_back(std::make_unique<ConcreteQOXRule>());
        rule.m_strDisplayName = name;
        rule.m_nRuleState = ticked ? 1 : 0;
    }

    std::vector<std::wstring> Sorted() const
    {
        std::vector<const CQoxRule*> sorted;
        for (const auto& rule : rules)
        {
            sorted.push_back(rule.get());
        }
        std::stable_sort(sorted.begin(), sorted.end(),
                         [this](const CQoxRule* first, const CQoxRule* second)
                         { return order.Compare(*first, *second) < 0; });
        std::vector<std::wstring> names;
        names.reserve(sorted.size());
        for (const CQoxRule* const rule : sorted)
        {
            names.push_back(rule->m_strDisplayName);
        }
        return names;
    }

    std::vector<std::unique_ptr<ConcreteQOXRule>> rules;
    RuleOrder order;
};

using Names = std::vector<std::wstring>;

} // namespace

TEST_F(RuleOrderTest, TheFirstChoiceOfTheFirstColumnIsAscending)
{
    EXPECT_EQ(order.State(), -1);
    order.Choose(RuleOrder::KeyTicked);
    EXPECT_EQ(order.State(), 1);
    EXPECT_EQ(order.Column(), 0);
    EXPECT_TRUE(order.IsAscending());
}

TEST_F(RuleOrderTest, ChoosingAColumnAgainTurnsTheOrderRoundAndAnotherOneStartsAscending)
{
    order.Choose(RuleOrder::KeyModule);
    EXPECT_EQ(order.State(), 3);
    order.Choose(RuleOrder::KeyModule);
    EXPECT_EQ(order.State(), -3);
    EXPECT_FALSE(order.IsAscending());
    order.Choose(RuleOrder::KeyModule);
    EXPECT_EQ(order.State(), 3);
    order.Choose(RuleOrder::KeyCategory);
    EXPECT_EQ(order.State(), 2);
    order.Choose(0);
    order.Choose(5);
    EXPECT_EQ(order.State(), 2);
}

TEST_F(RuleOrderTest, TickedRulesStandFirstByNameWithCapitalsAheadAndOthersInNoOrderOfNames)
{
    Add(L"Z unticked", false);
    Add(L"b ticked", true);
    Add(L"A unticked", false);
    Add(L"B ticked", true);
    order.Choose(RuleOrder::KeyTicked);
    EXPECT_EQ(Sorted(), (Names{ L"B ticked", L"b ticked", L"Z unticked", L"A unticked" }));
    order.Choose(RuleOrder::KeyTicked);
    EXPECT_EQ(Sorted(), (Names{ L"Z unticked", L"A unticked", L"b ticked", L"B ticked" }));
}

TEST_F(RuleOrderTest, WithNoRowTickedTheFirstColumnLeavesTheRowsAsTheyAre)
{
    Add(L"C", false);
    Add(L"A", false);
    Add(L"B", false);
    order.Choose(RuleOrder::KeyTicked);
    EXPECT_EQ(Sorted(), (Names{ L"C", L"A", L"B" }));
}

TEST_F(RuleOrderTest, OtherColumnsGoByTheirTextAndCriticalityByItsNumber)
{
    Add(L"1", false);
    Add(L"2", true);
    Add(L"3", false);
    rules[0]->m_strCategory = L"Holes";
    rules[1]->m_strCategory = L"Walls";
    rules[2]->m_strCategory = L"Bends";
    rules[0]->m_strRuleModule = L"b";
    rules[1]->m_strRuleModule = L"a";
    rules[2]->m_strRuleModule = L"B";
    rules[0]->m_nCriticality = 5;
    rules[1]->m_nCriticality = 10;
    rules[2]->m_nCriticality = 1;
    order.Choose(RuleOrder::KeyCategory);
    EXPECT_EQ(Sorted(), (Names{ L"3", L"1", L"2" }));
    order.Choose(RuleOrder::KeyModule);
    EXPECT_EQ(Sorted(), (Names{ L"3", L"2", L"1" }));
    order.Choose(RuleOrder::KeyCriticality);
    EXPECT_EQ(Sorted(), (Names{ L"3", L"1", L"2" }));
    order.Choose(RuleOrder::KeyCriticality);
    EXPECT_EQ(Sorted(), (Names{ L"2", L"1", L"3" }));
}
