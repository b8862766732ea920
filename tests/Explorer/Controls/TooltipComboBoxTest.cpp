#include "Explorer/Controls/TooltipComboBox.h"

#include "Explorer/Controls/TooltipListCtrl.h"
#include "tests/Explorer/Controls/ControlFixture.h"

#include <wx/button.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{

class TooltipComboBoxTest : public ControlFixture
{
protected:
    TooltipComboBoxTest()
    {
        combo = new CQOXRMTooltipComboBox(panel, 88, "Material", { 200, -1 }); // owned by the panel
        combo->Move(20, 20);
        other = new wxButton(panel, wxID_ANY, "Other", { 300, 20 }); // owned by the panel
        combo->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) { chosen.push_back(event.GetInt()); });
        Show();
        MoveTo(*frame, { 500, 300 });
        combo->SetFocus();
        EXPECT_TRUE(WaitFor([this] { return IsFocusIn(*combo); }));
    }

    static bool IsFocusIn(const wxWindow& window)
    {
        wxWindow* const focus = wxWindow::FindFocus();
        return focus != nullptr && (focus == &window || window.IsDescendant(focus));
    }

    void Add(int count)
    {
        for (int entry = 0; entry < count; ++entry)
        {
            combo->AddString(L"Entry " + std::to_wstring(entry), L"Tip " + std::to_wstring(entry));
        }
    }

    CQOXRMTooltipListCtrl& List() { return combo->List(); }

    void Drop()
    {
        combo->Popup();
        ASSERT_TRUE(WaitFor([this] { return combo->IsPopupShown() && List().IsShownOnScreen() && IsFocusIn(List()); }));
    }

    bool IsHidden()
    {
        return WaitFor([this] { return !combo->IsPopupShown() && IsFocusIn(*combo); });
    }

    wxPoint MiddleOf(int row)
    {
        wxRect rect;
        List().GetItemRect(row, rect);
        return { rect.GetLeft() + 20, rect.GetTop() + rect.GetHeight() / 2 };
    }

    bool Reaches(int row)
    {
        return WaitFor([&] { return List().SelectedRow() == row; });
    }

    int RowHeight()
    {
        wxRect rect;
        List().GetItemRect(0, rect);
        return rect.GetHeight();
    }

    CQOXRMTooltipComboBox* combo = nullptr;
    wxButton* other = nullptr;
    std::vector<int> chosen;
};

using Chosen = std::vector<int>;

} // namespace

TEST_F(TooltipComboBoxTest, TheCurrentEntryAndItsTipAreShown)
{
    Add(3);
    EXPECT_EQ(combo->GetValue(), "");
    combo->SetCurSel(1);
    EXPECT_EQ(combo->GetValue(), "Entry 1");
    EXPECT_EQ(combo->GetToolTipText(), "Tip 1");
    EXPECT_EQ(chosen, Chosen{}) << "what the program does is told nobody";
    combo->SetCurSel(TipEntries::None);
    EXPECT_EQ(combo->GetValue(), "");
    EXPECT_EQ(combo->GetToolTipText(), "");
}

TEST_F(TooltipComboBoxTest, ATipOf100CharactersShowsItsFirst80)
{
    combo->AddString(L"a", std::wstring(100, L'x'));
    combo->SetCurSel(0);
    EXPECT_EQ(combo->GetToolTipText(), wxString('x', 80));
}

TEST_F(TooltipComboBoxTest, AScreenReaderIsToldTheNameOfFieldAndList)
{
    EXPECT_EQ(combo->GetName(), "Material");
    EXPECT_EQ(List().GetName(), "Material");
}

TEST_F(TooltipComboBoxTest, AClickDropsTheListOrHidesIt)
{
    Add(3);
    MoveTo(*combo, { 100, 10 });
    user.MouseClick();
    EXPECT_TRUE(WaitFor([this] { return combo->IsPopupShown(); }));
    MoveTo(*combo, { 110, 10 });
    user.MouseClick();
    EXPECT_TRUE(IsHidden());
}

TEST_F(TooltipComboBoxTest, TheListIsBelowTheFieldAsWideAsItAndShowsAllRows)
{
    Add(5);
    Drop();
    const wxRect field = combo->GetScreenRect();
    const wxRect list = List().GetScreenRect();
    EXPECT_NEAR(list.GetTop(), field.GetBottom() + 1, 2);
    EXPECT_EQ(list.GetWidth(), field.GetWidth());
    EXPECT_EQ(list.GetHeight(), 5 * RowHeight() + 4);
    EXPECT_EQ(List().GetItemText(3), "Entry 3");
    EXPECT_EQ(List().GetCountPerPage(), 5);
}

TEST_F(TooltipComboBoxTest, OfMoreRowsAWholeNumberIsShownWithANarrowerColumn)
{
    Add(5);
    Drop();
    const int wholeWidth = List().GetColumnWidth(0);
    user.Char(WXK_ESCAPE);
    ASSERT_TRUE(IsHidden());
    Add(100);
    combo->SetPopupMaxHeight(10 * RowHeight() + 7);
    Drop();
    EXPECT_EQ(List().GetSize().GetHeight(), 10 * RowHeight() + 4);
    EXPECT_LT(List().GetColumnWidth(0), wholeWidth);
}

TEST_F(TooltipComboBoxTest, WithNoEntriesItShowsAnEmptyListOfHeight4)
{
    combo->Popup();
    ASSERT_TRUE(WaitFor([this] { return combo->IsPopupShown(); }));
    EXPECT_EQ(List().GetItemCount(), 0);
    EXPECT_EQ(List().GetSize().GetHeight(), 4);
}

TEST_F(TooltipComboBoxTest, TheCurrentEntryIsSelectedFocusedAndInSight)
{
    Add(100);
    combo->SetCurSel(80);
    Drop();
    EXPECT_EQ(List().SelectedRow(), 80);
    EXPECT_EQ(List().GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED), 80);
    EXPECT_GT(List().GetTopItem(), 40);
}

TEST_F(TooltipComboBoxTest, RowsAreSelectedUnderTheMouseWithTheirTip)
{
    Add(5);
    Drop();
    MoveTo(List(), MiddleOf(3));
    EXPECT_TRUE(Reaches(3));
    EXPECT_EQ(List().TipTool(), 4);
    EXPECT_EQ(List().GetToolTipText(), "Tip 3");
    MoveTo(List(), MiddleOf(1));
    EXPECT_TRUE(Reaches(1));
    EXPECT_EQ(List().GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED), 1);
    EXPECT_EQ(List().TipTool(), 2);
    EXPECT_EQ(List().GetSelectedItemCount(), 1);
    EXPECT_EQ(chosen, Chosen{}) << "nothing is chosen yet";
}

TEST_F(TooltipComboBoxTest, AClickOnARowTakesItAndGivesTheFocusBack)
{
    Add(5);
    Drop();
    MoveTo(List(), MiddleOf(2));
    ASSERT_TRUE(Reaches(2));
    user.MouseClick();
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(combo->GetCurSel(), 2);
    EXPECT_EQ(combo->GetValue(), "Entry 2");
    EXPECT_EQ(chosen, Chosen{ 2 });
}

TEST_F(TooltipComboBoxTest, ArrowKeysMoveAndReturnTakesTheRow)
{
    Add(5);
    combo->SetCurSel(1);
    Drop();
    user.Char(WXK_DOWN);
    EXPECT_TRUE(Reaches(2));
    user.Char(WXK_UP);
    EXPECT_TRUE(Reaches(1));
    user.Char(WXK_DOWN);
    EXPECT_TRUE(Reaches(2));
    user.Char(WXK_RETURN);
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(combo->GetCurSel(), 2);
    EXPECT_EQ(chosen, Chosen{ 2 });
}

TEST_F(TooltipComboBoxTest, LeftAndRightArrowKeysActAsUpAndDown)
{
    Add(3);
    combo->SetCurSel(0);
    Drop();
    user.Char(WXK_RIGHT);
    EXPECT_TRUE(Reaches(1));
    user.Char(WXK_LEFT);
    EXPECT_TRUE(Reaches(0));
}

TEST_F(TooltipComboBoxTest, TheEscapeKeyHidesTheListAndLeavesTheChoice)
{
    Add(5);
    combo->SetCurSel(1);
    Drop();
    user.Char(WXK_DOWN);
    ASSERT_TRUE(Reaches(2));
    user.Char(WXK_ESCAPE);
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(combo->GetCurSel(), 1);
    EXPECT_EQ(chosen, Chosen{});
}

TEST_F(TooltipComboBoxTest, AListThatIsLeftHidesAndItsRowIsTaken)
{
    Add(5);
    combo->SetCurSel(1);
    Drop();
    user.Char(WXK_DOWN);
    ASSERT_TRUE(Reaches(2));
    MoveTo(*frame, { 500, 300 });
    user.MouseClick();
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(combo->GetCurSel(), 2);
    EXPECT_EQ(chosen, Chosen{ 2 });
}

TEST_F(TooltipComboBoxTest, WhoeverChoosesTheSameAgainTellsNobody)
{
    Add(5);
    combo->SetCurSel(1);
    Drop();
    user.Char(WXK_RETURN);
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(chosen, Chosen{});
}

TEST_F(TooltipComboBoxTest, KeysChooseWhileTheListIsHidden)
{
    Add(3);
    combo->SetCurSel(0);
    user.Char(WXK_RIGHT);
    EXPECT_TRUE(WaitFor([this] { return combo->GetCurSel() == 1; }));
    user.Char(WXK_END);
    EXPECT_TRUE(WaitFor([this] { return combo->GetCurSel() == 2; }));
    user.Char(WXK_LEFT);
    EXPECT_TRUE(WaitFor([this] { return combo->GetCurSel() == 1; }));
    user.Char(WXK_HOME);
    EXPECT_TRUE(WaitFor([this] { return combo->GetCurSel() == 0; }));
    EXPECT_EQ(chosen, (Chosen{ 1, 2, 1, 0 }));
    EXPECT_FALSE(combo->IsPopupShown());
}

TEST_F(TooltipComboBoxTest, TabReachesTheFieldAndLeavesIt)
{
    Add(3);
    user.Char(WXK_TAB);
    ASSERT_TRUE(WaitFor([this] { return other->HasFocus(); }));
    user.Char(WXK_TAB, wxMOD_SHIFT);
    ASSERT_TRUE(WaitFor([this] { return combo->HasFocus(); }));
    user.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([this] { return combo->GetCurSel() == 0; })) << "the keyboard is really there";
}

TEST_F(TooltipComboBoxTest, EntriesComeAndGo)
{
    Add(3);
    EXPECT_EQ(combo->GetCount(), 3);
    combo->SetCurSel(2);
    combo->DeleteString(2);
    EXPECT_EQ(combo->GetValue(), "");
    EXPECT_EQ(combo->FindStringExact(L"Entry 1"), 1);
    combo->SetCurSel(0);
    combo->ResetContent();
    EXPECT_EQ(combo->GetCount(), 0);
    EXPECT_EQ(combo->GetCurSel(), TipEntries::None);
    EXPECT_EQ(combo->GetValue(), "");
}
