// The rule list as a real control: mouse and keyboard.

#include "tests/Explorer/ListCtrlExFixture.h"

TEST_F(ListCtrlExTest, AClickSelectsAndFocusesItsRowAlone)
{
    AddRows(5);
    Click(1);
    EXPECT_EQ(Selected(), RowNumbers{ 1 });
    EXPECT_EQ(list->FocusedRow(), 1);
    Click(3);
    EXPECT_EQ(Selected(), RowNumbers{ 3 });
    EXPECT_EQ(list->FocusedRow(), 3);
    EXPECT_EQ(list->Anchor(), 3);
    EXPECT_EQ(Ticked(), RowNumbers{});
}

TEST_F(ListCtrlExTest, AClickOnABoxSetsItAndSelectsAndFocusesItsRow)
{
    AddRows(5);
    Click(1);
    Click(3, wxMOD_NONE, true);
    EXPECT_EQ(Ticked(), RowNumbers{ 3 });
    EXPECT_EQ(Selected(), RowNumbers{ 3 });
    EXPECT_EQ(list->FocusedRow(), 3);
}

TEST_F(ListCtrlExTest, AClickBesideAllRowsSelectsNone)
{
    AddRows(3);
    Click(1);
    wxRect last;
    list->GetItemRect(2, last);
    user.MouseMove(list->ClientToScreen({ 100, last.GetBottom() + 40 }));
    user.MouseClick();
    Settle();
    EXPECT_EQ(Selected(), RowNumbers{});
}

TEST_F(ListCtrlExTest, AClickWithCtrlSelectsOneRowMoreAndFocusesIt)
{
    AddRows(5);
    Click(1);
    Click(3, wxMOD_CONTROL);
    EXPECT_EQ(Selected(), (RowNumbers{ 1, 3 }));
    EXPECT_EQ(list->FocusedRow(), 3);
}

TEST_F(ListCtrlExTest, AClickWithCtrlOnASelectedRowTakesSelectionAndFocusFromIt)
{
    AddRows(5);
    Click(1);
    Click(3, wxMOD_CONTROL);
    Click(3, wxMOD_CONTROL);
    EXPECT_EQ(Selected(), RowNumbers{ 1 });
    EXPECT_EQ(list->FocusedRow(), -1);
}

TEST_F(ListCtrlExTest, ADoubleClickWithCtrlEditsNothing)
{
    RowNumbers edited;
    list->SetEditHandler([&](int row) { edited.push_back(row); });
    AddRows(3);
    Click(1, wxMOD_CONTROL);
    Click(1, wxMOD_CONTROL);
    Click(1, wxMOD_CONTROL);
    EXPECT_EQ(edited, RowNumbers{});
    EXPECT_EQ(Selected(), RowNumbers{ 1 });
}

TEST_F(ListCtrlExTest, KeysWorkAfterTheFocusWasTakenFromARow)
{
    AddRows(5);
    Click(3);
    Click(3, wxMOD_CONTROL);
    ASSERT_EQ(list->FocusedRow(), -1);
    Press(WXK_DOWN);
    EXPECT_EQ(list->FocusedRow(), 4);
    EXPECT_EQ(Selected(), RowNumbers{ 4 });
}

TEST_F(ListCtrlExTest, AClickWithShiftSelectsFromTheAnchorDownToTheRow)
{
    AddRows(6);
    Click(1);
    Click(4, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), (RowNumbers{ 1, 2, 3, 4 }));
    EXPECT_EQ(list->FocusedRow(), 4);
}

TEST_F(ListCtrlExTest, AClickWithShiftSelectsFromTheAnchorUpToTheRow)
{
    AddRows(6);
    Click(4);
    reported.clear();
    Click(1, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), (RowNumbers{ 1, 2, 3, 4 }));
    reported.erase(std::unique(reported.begin(), reported.end()), reported.end());
    EXPECT_EQ(reported, (RowNumbers{ 3, 2, 1 })) << "in the direction of the click";
}

TEST_F(ListCtrlExTest, TheAnchorStaysForTheNextClickWithShift)
{
    AddRows(8);
    Click(3);
    Click(6, wxMOD_SHIFT);
    Click(1, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), (RowNumbers{ 1, 2, 3 }));
    EXPECT_EQ(list->Anchor(), 3);
}

TEST_F(ListCtrlExTest, AClickWithShiftOnTheAnchorLeavesItAloneSelected)
{
    AddRows(6);
    Click(2);
    Click(5, wxMOD_SHIFT);
    Click(2, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
}

TEST_F(ListCtrlExTest, AClickWithShiftSetsNoBox)
{
    AddRows(6);
    Click(1);
    Click(4, wxMOD_SHIFT, true);
    EXPECT_EQ(Ticked(), RowNumbers{});
    EXPECT_EQ(Selected(), (RowNumbers{ 1, 2, 3, 4 }));
}

TEST_F(ListCtrlExTest, AClickWithShiftBeforeAnyOtherSelectsItsRow)
{
    AddRows(4);
    list->SetAnchor(-1);
    Click(2, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
}

TEST_F(ListCtrlExTest, CtrlAndShiftTogetherKeepWhatIsSelected)
{
    AddRows(8);
    Click(0);
    Click(3, wxMOD_CONTROL);
    Click(5, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_EQ(Selected(), (RowNumbers{ 0, 3, 4, 5 }));
}

TEST_F(ListCtrlExTest, ShiftAndArrowsGoOnFromTheClickedRow)
{
    AddRows(8);
    Click(2);
    Press(WXK_DOWN, wxMOD_SHIFT);
    Press(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), (RowNumbers{ 2, 3, 4 }));
}

TEST_F(ListCtrlExTest, WhatShiftAndAnArrowSelectIsReportedOnceItIsSelected)
{
    int selectedWhenReported = -1;
    list->SetRowsChangedHandler([&](const std::vector<int>&) { selectedWhenReported = list->SelectedCount(); });
    AddRows(8);
    Click(2);
    Press(WXK_END, wxMOD_SHIFT);
    EXPECT_EQ(list->SelectedCount(), 6);
    EXPECT_EQ(selectedWhenReported, 6);
}

TEST_F(ListCtrlExTest, CtrlAndASelectsAllRowsAndReportsThemTogether)
{
    AddRows(5);
    Click(2);
    reports = 0;
    Press('A', wxMOD_CONTROL);
    EXPECT_EQ(Selected(), (RowNumbers{ 0, 1, 2, 3, 4 }));
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(list->FocusedRow(), 2);
    EXPECT_EQ(list->Anchor(), 2);
}

TEST_F(ListCtrlExTest, SpaceSetsAndClearsTheBoxOfTheOneSelectedRow)
{
    AddRows(3);
    Click(1);
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{ 1 });
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{});
    EXPECT_EQ(Selected(), RowNumbers{ 1 });
}

TEST_F(ListCtrlExTest, WithTheAnchorSelectedAndFocusedSpaceGivesAllSelectedRowsItsBox)
{
    AddRows(6);
    list->SetTicked(2, true);
    Click(1);
    Click(3, wxMOD_SHIFT); // the focus is on 3 now
    reports = 0;
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), (RowNumbers{ 1, 2, 3 }));
    EXPECT_EQ(reports, 1);
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{});
    list->SetTicked(3, true);
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{}) << "the row with the focus was ticked, so all are cleared";
}

TEST_F(ListCtrlExTest, WithTheFocusBesideTheSelectionSpaceTurnsTheBoxOfEachSelectedRow)
{
    AddRows(6);
    list->SetTicked(1, true);
    Click(0);
    Click(2, wxMOD_SHIFT);
    for (int step = 0; step < 2; ++step)
    {
        Press(WXK_DOWN, wxMOD_CONTROL);
    }
    ASSERT_EQ(list->FocusedRow(), 4);
    ASSERT_EQ(Selected(), (RowNumbers{ 0, 1, 2 }));
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), (RowNumbers{ 0, 2, 4 })) << "and that of the row with the focus";
}

TEST_F(ListCtrlExTest, AfterCtrlAAndSpaceAllRowsFollowTheOneWithTheFocus)
{
    AddRows(4);
    list->SetTicked(0, true);
    list->SetTicked(3, true);
    Click(1);
    Press('A', wxMOD_CONTROL);
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), (RowNumbers{ 0, 1, 2, 3 }));
}

TEST_F(ListCtrlExTest, TheFocusMovingAwayFromTheSelectionMovesTheAnchor)
{
    AddRows(4);
    Click(0);
    Press(WXK_DOWN, wxMOD_CONTROL);
    EXPECT_EQ(list->Anchor(), 1);
    EXPECT_EQ(Selected(), RowNumbers{ 0 });
}

TEST_F(ListCtrlExTest, ADoubleClickBesideTheBoxEditsItsRow)
{
    RowNumbers edited;
    list->SetEditHandler([&](int row) { edited.push_back(row); });
    AddRows(4);
    DoubleClick(2);
    EXPECT_EQ(edited, RowNumbers{ 2 });
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
}

TEST_F(ListCtrlExTest, ADoubleClickOnTheBoxEditsNothing)
{
    RowNumbers edited;
    list->SetEditHandler([&](int row) { edited.push_back(row); });
    AddRows(4);
    DoubleClick(2, true);
    EXPECT_EQ(edited, RowNumbers{});
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
}

TEST_F(ListCtrlExTest, EnterEditsTheRowWithTheFocusUnlessSeveralAreSelected)
{
    RowNumbers edited;
    list->SetEditHandler([&](int row) { edited.push_back(row); });
    AddRows(4);
    Click(1);
    Press(WXK_RETURN);
    EXPECT_EQ(edited, RowNumbers{ 1 });
    Click(3, wxMOD_SHIFT);
    Press(WXK_RETURN);
    EXPECT_EQ(edited, RowNumbers{ 1 });
}

TEST_F(ListCtrlExTest, ARightClickSelectsItsRowAndLeavesASelectionThatItIsIn)
{
    AddRows(5);
    Click(0);
    Click(2, wxMOD_SHIFT);
    user.MouseMove(PlaceOf(1));
    user.MouseClick(wxMOUSE_BTN_RIGHT);
    Settle();
    EXPECT_EQ(Selected(), (RowNumbers{ 0, 1, 2 }));
    user.MouseMove(PlaceOf(4));
    user.MouseClick(wxMOUSE_BTN_RIGHT);
    Settle();
    EXPECT_EQ(Selected(), RowNumbers{ 4 });
}

TEST_F(ListCtrlExTest, AClickedRowIsScrolledIntoViewAsAWhole)
{
    AddRows(200);
    wxRect rect;
    int row = 0;
    const int bottom = list->GetClientSize().GetHeight();
    do
    {
        list->GetItemRect(++row, rect);
    } while (rect.GetBottom() < bottom);
    ASSERT_LT(rect.GetTop() + 2, bottom) << "a row that is there in part";
    user.MouseMove(list->ClientToScreen({ 100, rect.GetTop() + 1 }));
    user.MouseClick();
    Settle();
    EXPECT_EQ(Selected(), RowNumbers{ row });
    list->GetItemRect(row, rect);
    EXPECT_LE(rect.GetBottom(), bottom);
}
