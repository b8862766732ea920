#include "Document/Lumeq.h"
#include "tests/Support/OwnSettings.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <vector>

namespace
{

std::vector<CQoxRule*> RulesOf(const CQOXRMLumeq& record)
{
    PointerArray rules;
    record.GetRules(rules);
    return { rules.begin(), rules.end() };
}

std::vector<CQoxRule*> LiveRulesOf(const CQOXRMLumeq& record)
{
    PointerArray rules;
    record.GetLiveRules(rules);
    return { rules.begin(), rules.end() };
}

class LumeqTest : public testing::Test
{
protected:
    OwnSettings settings;
};

} // namespace

TEST_F(LumeqTest, AFreshRecordListsNoRules)
{
    const CQOXRMLumeq record;
    EXPECT_TRUE(RulesOf(record).empty());
    EXPECT_TRUE(LiveRulesOf(record).empty());
    EXPECT_EQ(record.GetCount(), 0);
    EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 0, 0 }));
    EXPECT_FALSE(record.IsPasswordProtected());
}

TEST_F(LumeqTest, AFreshRecordHasTheUnitsOfTheUsersSettingsAndNoneBefore)
{
    const CQOXRMLumeq maker; // of the folders
    WriteBytes(settings.UnitsFile(),
               "<Settings><Units><Linear>inches</Linear><Angular>radians</Angular></Units></Settings>");
    const CQOXRMLumeq record;
    EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 3, 3 }));
    EXPECT_EQ(record.oldRuleUnits, (structRulesUnit{ 0, 0 }));
}

TEST_F(LumeqTest, AnIndexAboveTheCountLeavesTheOutArgumentUntouched)
{
    std::deque<ConcreteQOXRule> rules(2);
    CQOXRMLumeq record;
    std::int32_t index = 0;
    record.AddRule(&rules[0], index);
    CQoxRule* out = &rules[1];
    record.FindRule(record.TreeRoot(), 2, out);
    EXPECT_EQ(out, &rules[1]);
    record.FindRule(nullptr, 1, out);
    EXPECT_EQ(out, &rules[1]);
    record.FindRule(record.TreeRoot(), 1, out);
    EXPECT_EQ(out, &rules[0]);
}

TEST_F(LumeqTest, TheTreeRootHasTheIndexZero)
{
    CQOXRMLumeq record;
    CQoxRule* out = nullptr;
    record.FindRule(record.TreeRoot(), 0, out);
    EXPECT_EQ(out, record.TreeRoot());
    EXPECT_TRUE(out->m_bIsRoot);
}

TEST_F(LumeqTest, ASearchBelowOneRuleWalksItsFirstTwoChildrenToTheEnd)
{
    std::deque<ConcreteQOXRule> rules(3);
    rules[0].m_children.Add(&rules[1]);
    rules[0].m_children.Add(&rules[2]);
    rules[1].m_nTreeIndex = 5;
    rules[2].m_nTreeIndex = 5;
    const CQOXRMLumeq record;
    CQoxRule* out = nullptr;
    record.FindRule(&rules[0], 5, out);
    EXPECT_EQ(out, &rules[2]) << "the last match stays";
}

TEST_F(LumeqTest, RulesAreListedInTheOrderOfAddingAndAddingToAFileSetsTheState)
{
    std::deque<ConcreteQOXRule> rules(3);
    CQOXRMLumeq record;
    std::int32_t index = 0;
    record.AddRule(&rules[1], index);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(rules[1].m_nRuleState, 0);
    record.AddRuleInFile(&rules[0], index);
    EXPECT_EQ(index, 2);
    EXPECT_EQ(rules[0].m_nRuleState, 1);
    record.AddRule(&rules[2], index);
    EXPECT_EQ(RulesOf(record), (std::vector<CQoxRule*>{ &rules[1], &rules[0], &rules[2] }));
}

TEST_F(LumeqTest, RulesMarkedAsDeletedAreNoLiveRules)
{
    std::deque<ConcreteQOXRule> rules(2);
    CQOXRMLumeq record;
    std::int32_t index = 0;
    record.AddRule(&rules[0], index);
    record.AddRule(&rules[1], index);
    record.MarkDeleted(1);
    record.MarkDeleted(99);
    EXPECT_EQ(rules[0].m_nRuleState, 2);
    EXPECT_EQ(LiveRulesOf(record), std::vector<CQoxRule*>{ &rules[1] });
    EXPECT_EQ(RulesOf(record).size(), 2u);
}

TEST_F(LumeqTest, DestroyingARuleDeletesItAndKeepsTheOthersInOrder)
{
    class Counted : public ConcreteQOXRule
    {
    public:
        using ConcreteQOXRule::operator=;

        explicit Counted(int& alive) : m_alive(alive) { ++m_alive; }
        ~Counted() override { --m_alive; }

    private:
        int& m_alive;
    };
    int alive = 0;
    CQOXRMLumeq record;
    std::vector<CQoxRule*> rules;
    for (int count = 0; count < 3; ++count)
    {
        std::int32_t index = 0;
        rules.push_back(std::make_unique<Counted>(alive).release());
        record.AddRule(rules.back(), index);
    }
    record.DestroyRule(2);
    record.DestroyRule(77);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(RulesOf(record), (std::vector<CQoxRule*>{ rules[0], rules[2] }));
    EXPECT_EQ(record.GetCount(), 3);
    record.DestroyRule(3);
    record.DestroyRule(1);
    EXPECT_EQ(alive, 0);
    EXPECT_TRUE(RulesOf(record).empty());
}

TEST_F(LumeqTest, TheRulesAreNotDeletedWithTheRecord)
{
    ConcreteQOXRule rule;
    {
        CQOXRMLumeq record;
        std::int32_t index = 0;
        record.AddRule(&rule, index);
    }
    EXPECT_EQ(rule.m_nTreeIndex, 1);
}

TEST_F(LumeqTest, AMillionRulesAreAddedListedAndFoundWithoutRecursion)
{
    constexpr std::int32_t Count = 1000000;
    std::deque<ConcreteQOXRule> few(1000);
    CQOXRMLumeq record;
    std::int32_t index = 0;
    for (std::int32_t count = 0; count < Count; ++count)
    {
        record.AddRule(&few[static_cast<std::size_t>(count) % few.size()], index);
    }
    EXPECT_EQ(index, Count);
    EXPECT_EQ(RulesOf(record).size(), few.size()) << "each rule is listed under its last index";
    CQoxRule* out = nullptr;
    record.FindRule(record.TreeRoot(), Count, out);
    EXPECT_EQ(out, &few.back());
}
