#include "Explorer/RowChanges.h"

#include <gtest/gtest.h>

namespace
{

using Rows = std::vector<int>;

class RowChangesTest : public testing::Test
{
protected:
    RowChangesTest()
    {
        changes.SetHandler([this](const Rows& rows) { told.push_back(rows); });
    }

    RowChanges changes;
    std::vector<Rows> told;
};

} // namespace

TEST_F(RowChangesTest, WithoutACommandARowIsToldAtOnce)
{
    changes.Add(3);
    EXPECT_EQ(told, std::vector<Rows>{ { 3 } });
}

TEST_F(RowChangesTest, TheRowsOfACommandAreToldTogetherAtItsEndInTheirOrder)
{
    {
        const RowChanges::Command command(changes);
        changes.Add(3);
        changes.Add(1);
        EXPECT_TRUE(told.empty());
    }
    EXPECT_EQ(told, (std::vector<Rows>{ { 3, 1 } }));
}

TEST_F(RowChangesTest, ACommandWithinAnotherTellsWithIt)
{
    {
        const RowChanges::Command outer(changes);
        {
            const RowChanges::Command inner(changes);
            changes.Add(1);
        }
        EXPECT_TRUE(told.empty());
        changes.Add(2);
    }
    EXPECT_EQ(told, (std::vector<Rows>{ { 1, 2 } }));
}

TEST_F(RowChangesTest, ACommandThatChangesNothingTellsNothing)
{
    {
        const RowChanges::Command command(changes);
    }
    EXPECT_TRUE(told.empty());
}

TEST_F(RowChangesTest, WhoIsToldMayChangeRowsItself)
{
    changes.SetHandler(
        [this](const Rows& rows)
        {
            told.push_back(rows);
            if (told.size() == 1)
            {
                changes.Add(9);
            }
        });
    changes.Add(1);
    EXPECT_EQ(told, (std::vector<Rows>{ { 1 }, { 9 } }));
}

TEST_F(RowChangesTest, WithoutAHandlerNothingHappens)
{
    RowChanges alone;
    alone.Add(1);
    EXPECT_TRUE(told.empty());
}
