// The states of controls that are too small for a file each.

#include "Explorer/Controls/FloatingFrameMark.h"
#include "Explorer/Controls/HyperLinkState.h"
#include "Explorer/Controls/YesNoAllAnswer.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

/// What a loop allows of four things, and how often it asks, if every question gets this answer.
struct Loop
{
    explicit Loop(YesNoAllAnswer answer)
    {
        YesNoAllLoop loop;
        for (int thing = 0; thing < 4; ++thing)
        {
            allowed.push_back(loop.Allows(
                [this, answer]
                {
                    ++questions;
                    return answer;
                }));
        }
    }

    std::vector<bool> allowed;
    int questions = 0;
};

} // namespace

TEST(HyperLinkStateTest, TheColourFollowsTheMouseUntilTheLinkWasVisited)
{
    HyperLinkState state;
    EXPECT_EQ(state.Colour(), MakeLinkColour(0, 0, 255));
    state.mouseIsOver = true;
    EXPECT_EQ(state.Colour(), MakeLinkColour(255, 0, 0));
    state.mouseIsOver = false;
    state.visited = true;
    EXPECT_EQ(state.Colour(), MakeLinkColour(5, 34, 143));
}

TEST(HyperLinkStateTest, AClickedLinkStaysInTheVisitedColourEvenUnderTheMouse)
{
    HyperLinkState state;
    state.visited = true;
    state.mouseIsOver = true;
    EXPECT_EQ(state.Colour(), MakeLinkColour(5, 34, 143));
}

TEST(YesNoAllLoopTest, YesAndNoAnswerForOneThing)
{
    const Loop yes(YesNoAllAnswer::Yes);
    EXPECT_EQ(yes.allowed, (std::vector<bool>{ true, true, true, true }));
    EXPECT_EQ(yes.questions, 4);
    const Loop no(YesNoAllAnswer::No);
    EXPECT_EQ(no.allowed, (std::vector<bool>{ false, false, false, false }));
    EXPECT_EQ(no.questions, 4);
}

TEST(YesNoAllLoopTest, YesToAllAndNoToAllAnswerForTheRest)
{
    const Loop yes(YesNoAllAnswer::YesToAll);
    EXPECT_EQ(yes.allowed, (std::vector<bool>{ true, true, true, true }));
    EXPECT_EQ(yes.questions, 1);
    const Loop no(YesNoAllAnswer::NoToAll);
    EXPECT_EQ(no.allowed, (std::vector<bool>{ false, false, false, false }));
    EXPECT_EQ(no.questions, 1);
}

TEST(FloatingFrameMarkTest, TheCloseBoxGoesTheFirstTimeThatTheBarFloats)
{
    FloatingFrameMark mark;
    EXPECT_FALSE(mark.OnMoved(false, false));
    EXPECT_TRUE(mark.OnMoved(true, true));
    EXPECT_FALSE(mark.OnMoved(true, true)) << "once is enough";
}

TEST(FloatingFrameMarkTest, AfterTheBarWasDockedItGoesAgain)
{
    FloatingFrameMark mark;
    EXPECT_TRUE(mark.OnMoved(true, true));
    EXPECT_FALSE(mark.OnMoved(false, false));
    EXPECT_TRUE(mark.OnMoved(true, true));
}

TEST(FloatingFrameMarkTest, AFrameThatIsNoMiniFrameKeepsItsBox)
{
    FloatingFrameMark mark;
    EXPECT_FALSE(mark.OnMoved(true, false));
    EXPECT_TRUE(mark.OnMoved(true, true)) << "the bar has come into its own frame since";
}
