#include "Document/RuleTable.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <deque>
#include <vector>

namespace
{

std::vector<CQoxRule*> Listed(const RuleTable& table)
{
    PointerArray rules;
    table.List(rules);
    return { rules.begin(), rules.end() };
}

} // namespace

TEST(RuleTableTest, IndexesFollowTheOrderOfAdding)
{
    std::deque<ConcreteQOXRule> rules(3);
    RuleTable table;
    EXPECT_TRUE(table.IsEmpty());
    EXPECT_EQ(table.Add(&rules[0]), 1);
    EXPECT_EQ(table.Add(&rules[1]), 2);
    EXPECT_EQ(table.Add(&rules[2]), 3);
    EXPECT_EQ(rules[2].m_nTreeIndex, 3);
    EXPECT_EQ(table.Find(2), &rules[1]);
    EXPECT_EQ(table.Find(0), nullptr);
    EXPECT_EQ(table.Find(4), nullptr);
    EXPECT_EQ(table.Find(-1), nullptr);
    EXPECT_EQ(Listed(table), (std::vector<CQoxRule*>{ &rules[0], &rules[1], &rules[2] }));
}

TEST(RuleTableTest, OfTwoRulesWithOneIndexTheOldestIsFound)
{
    // Saving gives the rules that are still selected new indexes in a second table.
    std::deque<ConcreteQOXRule> rules(5);
    RuleTable document;
    for (std::size_t index : { 0u, 1u, 2u })
    {
        document.Add(&rules[index]);
    }
    EXPECT_EQ(document.Find(3), &rules[2]);
    RuleTable saved;
    saved.Add(&rules[3]);
    saved.Add(&rules[4]);
    saved.Add(&rules[0]); // takes the index 3, which rule 2 has in the document
    EXPECT_EQ(document.Find(3), &rules[0]);
    EXPECT_EQ(document.Find(1), nullptr);
    EXPECT_EQ(document.Find(2), &rules[1]);
    EXPECT_EQ(Listed(document), (std::vector<CQoxRule*>{ &rules[1], &rules[0] }));
}

TEST(RuleTableTest, RemovingKeepsTheIndexesOfTheOthers)
{
    std::deque<ConcreteQOXRule> rules(4);
    RuleTable table;
    for (std::size_t index : { 0u, 1u, 2u })
    {
        table.Add(&rules[index]);
    }
    EXPECT_TRUE(table.Remove(&rules[1]));
    EXPECT_FALSE(table.Remove(&rules[1]));
    EXPECT_FALSE(table.Remove(nullptr));
    EXPECT_EQ(table.Find(2), nullptr);
    EXPECT_EQ(table.Find(3), &rules[2]);
    EXPECT_EQ(table.Add(&rules[3]), 4);
    EXPECT_EQ(Listed(table), (std::vector<CQoxRule*>{ &rules[0], &rules[2], &rules[3] }));
}

TEST(RuleTableTest, ARuleThatWasReindexedElsewhereIsStillRemoved)
{
    std::deque<ConcreteQOXRule> rules(3);
    RuleTable document;
    RuleTable saved;
    for (ConcreteQOXRule& rule : rules)
    {
        document.Add(&rule);
    }
    saved.Add(&rules[2]);
    EXPECT_TRUE(document.Remove(&rules[2]));
    EXPECT_TRUE(document.Remove(&rules[0]));
    EXPECT_TRUE(document.Remove(&rules[1]));
    EXPECT_TRUE(document.IsEmpty());
}
