#include "Document/RuleList.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <deque>

TEST(RuleListTest, KeepsTheOrderOfAppendingThroughRemovals)
{
    std::deque<ConcreteQOXRule> rules(100);
    RuleList list;
    for (ConcreteQOXRule& rule : rules)
    {
        list.Append(&rule);
    }
    std::vector<CQoxRule*> expected;
    for (std::size_t index = 0; index < rules.size(); ++index)
    {
        if (index % 3 == 0)
        {
            expected.push_back(&rules[index]);
        }
        else
        {
            EXPECT_TRUE(list.Remove(&rules[index]));
        }
    }
    EXPECT_EQ(list.Rules(), expected);
    EXPECT_EQ(list.Size(), expected.size());
    list.Append(&rules[1]);
    EXPECT_EQ(list.Rules().back(), &rules[1]);
    EXPECT_TRUE(list.Remove(&rules[3]));
    EXPECT_FALSE(list.Contains(&rules[3]));
}

TEST(RuleListTest, ARuleStandsInItOnce)
{
    ConcreteQOXRule rule;
    RuleList list;
    EXPECT_TRUE(list.IsEmpty());
    list.Append(&rule);
    list.Append(&rule);
    list.Append(nullptr);
    EXPECT_EQ(list.Size(), 1u);
    EXPECT_TRUE(list.Remove(&rule));
    EXPECT_FALSE(list.Remove(&rule));
    EXPECT_TRUE(list.Rules().empty());
}
