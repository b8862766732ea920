// The rule list as a real control: its rows and their order.

#include "tests/Explorer/ListCtrlExFixture.h"

TEST_F(ListCtrlExTest, SortingTakesBoxesFromTheRowsAndCarriesThemAlong)
{
    Add(L"c", false);
    Add(L"b", true);
    Add(L"d", false);
    Add(L"a", true);
    list->Sort(RuleOrder::KeyTicked);
    EXPECT_EQ(Shown(), L"a+ b+ c d ");
    EXPECT_EQ(rules[1]->m_nRuleState, 1);
    EXPECT_EQ(list->GetSortIndicator(), 0);
    EXPECT_TRUE(list->IsAscendingSortIndicator());
    list->SetTicked(0, false);
    list->Sort(RuleOrder::KeyTicked);
    EXPECT_EQ(Shown(), L"a c d b+ ");
    EXPECT_EQ(rules[3]->m_nRuleState, 0);
    EXPECT_FALSE(list->IsAscendingSortIndicator());
    list->Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Shown(), L"a b+ c d ");
    EXPECT_EQ(list->GetSortIndicator(), 1);
}

TEST_F(ListCtrlExTest, TheRowWithTheFocusKeepsItWhereverItGoes)
{
    Add(L"b", false);
    Add(L"a", false);
    list->SetItemState(0, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    list->Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Shown(), L"a b ");
    EXPECT_EQ(list->FocusedRow(), 1);
}

TEST_F(ListCtrlExTest, WhatIsSelectedAndTheAnchorStayWithTheirRulesAndNothingIsReported)
{
    Add(L"c", false);
    Add(L"b", false);
    Add(L"a", false);
    list->SetSelected(0, true);
    list->SetSelected(1, true);
    list->SetAnchor(0);
    reports = 0;
    list->Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Selected(), (RowNumbers{ 1, 2 }));
    EXPECT_EQ(list->Anchor(), 2);
    EXPECT_EQ(reports, 0);
}

TEST_F(ListCtrlExTest, SortingAgainKeepsTheColumnAndTheDirection)
{
    Add(L"a", false);
    Add(L"b", false);
    list->Sort(RuleOrder::KeyCategory);
    list->Sort(RuleOrder::KeyCategory);
    Add(L"c", false);
    EXPECT_EQ(Shown(), L"b a c ");
    list->SortAgain();
    EXPECT_EQ(Shown(), L"c b a ");
    EXPECT_EQ(list->GetSortIndicator(), 1);
    EXPECT_FALSE(list->IsAscendingSortIndicator());
}

TEST_F(ListCtrlExTest, AClickOnAHeaderSortsByItsColumnAndTheNextOneTurnsTheOrderRound)
{
    Add(L"b", false);
    Add(L"a", false);
    list->SetFocus();
    WaitFor([this] { return frame->IsActive(); });
    Settle();
    wxRect first;
    list->GetItemRect(0, first);
    user.MouseMove(list->ClientToScreen({ 250, first.GetTop() / 2 }));
    user.MouseClick();
    Settle();
    EXPECT_EQ(Shown(), L"a b ");
    EXPECT_EQ(list->GetSortIndicator(), 1);
    EXPECT_TRUE(list->IsAscendingSortIndicator());
    user.MouseMove(list->ClientToScreen({ 350, first.GetTop() / 2 })); // no double click
    user.MouseClick();
    Settle();
    EXPECT_EQ(Shown(), L"b a ");
    EXPECT_FALSE(list->IsAscendingSortIndicator());
}

TEST_F(ListCtrlExTest, NothingIsReportedOfRowsThatGoWithTheList)
{
    Add(L"a", false);
    list->SetItemState(0, wxLIST_STATE_FOCUSED | wxLIST_STATE_SELECTED, wxLIST_STATE_FOCUSED | wxLIST_STATE_SELECTED);
    EXPECT_EQ(reported, (RowNumbers{ 0, 0 }));
    reported.clear();
    list->DeleteAllItems();
    Add(L"b", false);
    list->Destroy();
    EXPECT_EQ(reported, RowNumbers{});
}

TEST_F(ListCtrlExTest, AnAnchorBehindARowThatGoesMovesUpAndOneThatGoesItselfIsNone)
{
    for (const wchar_t* const name : { L"a", L"b", L"c" })
    {
        Add(name, false);
    }
    list->SetAnchor(2);
    list->RemoveRow(0);
    EXPECT_EQ(list->Anchor(), 1);
    list->RemoveRow(1);
    EXPECT_EQ(list->Anchor(), -1);
}

TEST_F(ListCtrlExTest, AColumnIsWidenedToTheTextAndAFifthCutToAWholeNumber)
{
    const std::wstring text = L"A text that needs more than the column has, by a good deal";
    const int width = static_cast<int>(list->GetTextExtent(text).GetWidth() * 1.2);
    ASSERT_GT(width, 200);
    list->WidenColumnFor(0, text);
    EXPECT_EQ(list->GetColumnWidth(0), width);
    list->WidenColumnFor(0, L"short");
    EXPECT_EQ(list->GetColumnWidth(0), width);
    EXPECT_EQ(list->GetColumnWidth(1), 200);
    list->SetColumnWidth(1, width - 1); // one less than it takes
    list->WidenColumnFor(1, text);
    EXPECT_EQ(list->GetColumnWidth(1), width);
}

TEST_F(ListCtrlExTest, WhileWidthsAreKeptNoTextWidensItsColumn)
{
    const std::wstring text = L"A text that needs more than the column has, by a good deal";
    list->SetKeepsWidths(true);
    list->WidenColumnFor(0, text);
    EXPECT_EQ(list->GetColumnWidth(0), 200);
    list->SetKeepsWidths(false);
    list->WidenColumnFor(0, text);
    EXPECT_GT(list->GetColumnWidth(0), 200);
}

TEST_F(ListCtrlExTest, AColumnThatTheUserFitsToItsTextsHasRoomForTheLongest)
{
    const std::wstring text = L"A text that needs more than the column has, by a good deal";
    Add(text, false);
    list->SetColumnWidth(0, wxLIST_AUTOSIZE);
    EXPECT_GT(list->GetColumnWidth(0), list->GetTextExtent(text).GetWidth());
}

TEST_F(ListCtrlExTest, AColumnThatIsFittedAgainHasRoomForTextsThatCameSince)
{
    const std::wstring text = L"A text that needs more than the column has, by a good deal";
    Add(L"short", false);
    list->SetColumnWidth(0, wxLIST_AUTOSIZE);
    EXPECT_LT(list->GetColumnWidth(0), 200);
    Add(text, false);
    list->SetColumnWidth(0, wxLIST_AUTOSIZE);
    EXPECT_GT(list->GetColumnWidth(0), list->GetTextExtent(text).GetWidth());
    list->SetText(0, 1, text);
    list->SetColumnWidth(1, wxLIST_AUTOSIZE);
    EXPECT_GT(list->GetColumnWidth(1), list->GetTextExtent(text).GetWidth());
}

TEST_F(ListCtrlExTest, ARowThatGoesTakesItsSelectionAndBoxAlongAndLeavesThoseOfTheOthers)
{
    Add(L"a", true);
    Add(L"b", false);
    Add(L"c", true);
    list->SetSelected(0, true);
    list->SetSelected(2, true);
    list->SetItemState(2, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    list->RemoveRow(0);
    EXPECT_EQ(Shown(), L"b c+ ");
    EXPECT_EQ(Selected(), RowNumbers{ 1 });
    EXPECT_EQ(list->SelectedCount(), 1);
    EXPECT_EQ(list->FocusedRow(), 1);
    list->DeleteAllItems();
    EXPECT_EQ(list->RowCount(), 0);
    EXPECT_EQ(list->SelectedCount(), 0);
    Add(L"d", false);
    EXPECT_EQ(Shown(), L"d ");
    EXPECT_EQ(Selected(), RowNumbers{});
}

TEST_F(ListCtrlExTest, AllRowsStaySelectedWhenTheyAreSorted)
{
    for (const wchar_t* const name : { L"c", L"a", L"b" })
    {
        Add(name, false);
    }
    list->SelectAll();
    list->Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Selected(), (RowNumbers{ 0, 1, 2 }));
    list->DeselectAll();
    EXPECT_EQ(Selected(), RowNumbers{});
}

TEST_F(ListCtrlExTest, ABoxThatIsSetIsReportedAndOneThatIsSetAlreadyIsNot)
{
    Add(L"a", false);
    list->SetTicked(0, true);
    EXPECT_EQ(reported, RowNumbers{ 0 });
    list->SetTicked(0, true);
    EXPECT_EQ(reports, 1);
    list->CheckItem(0, false); // as a click on the box does
    EXPECT_FALSE(list->IsTicked(0));
    EXPECT_FALSE(list->IsItemChecked(0));
    EXPECT_EQ(reports, 2);
}

TEST_F(ListCtrlExTest, TenThousandRowsAreSorted)
{
    constexpr int Count = 10'000;
    for (int number = 0; number < Count; ++number)
    {
        Add(std::to_wstring(10 * Count + (number * 7919) % Count), number % 3 == 0);
    }
    list->Sort(RuleOrder::KeyCategory);
    for (int row = 1; row < Count; ++row)
    {
        ASSERT_LT(list->RuleOfRow(row - 1)->m_strCategory, list->RuleOfRow(row)->m_strCategory);
    }
}
