// The rule explorer with its windows: what the user does to the headings of the list, and how a
// search in it is shown.

#include "tests/Explorer/ConfigModuleViewFixture.h"

TEST_F(ConfigModuleViewTest, AColumnThatTheUserSizedStaysSoInThisListAndTheNext)
{
    New();
    TakeKeys();
    const int before = list->GetColumnWidth(0);
    DragBorder(0, 60);
    const int width = list->GetColumnWidth(0);
    EXPECT_NEAR(width, before + 60, 8);
    wxWindow& form = *list->GetParent();
    const wxSize size = form.GetSize();
    const int listWidth = ListWidth();
    form.SetSize(size + wxSize(300, 0));
    EXPECT_NEAR(list->GetColumnWidth(0), 1.0 * width * ListWidth() / listWidth, 1) << "in proportion";
    form.SetSize(size);
    EXPECT_EQ(list->GetColumnWidth(0), width);
    const int category = list->GetColumnWidth(1);
    New();
    list->GetParent()->SetSize(size);
    EXPECT_EQ(list->GetColumnWidth(0), width);
    EXPECT_EQ(list->GetColumnWidth(1), category);
}

TEST_F(ConfigModuleViewTest, AColumnThatTheUserFitsToItsTextsStaysSoToo)
{
    New();
    TakeKeys();
    list->SetColumnWidth(1, 300);
    list->Update();
    DoubleClickBorder(1);
    const int width = list->GetColumnWidth(1);
    ASSERT_LT(width, 300);
    wxWindow& form = *list->GetParent();
    const wxSize size = form.GetSize();
    form.SetSize(size + wxSize(50, 0));
    form.SetSize(size);
    EXPECT_EQ(list->GetColumnWidth(1), width);
    const std::wstring text = L"A category with a name that is longer than most";
    list->SetText(2, 1, text);
    DoubleClickBorder(1);
    EXPECT_GT(list->GetColumnWidth(1), list->GetTextExtent(text).GetWidth()) << "to those that came since too";
}

TEST_F(ConfigModuleViewTest, TheWidthsOfTheColumnsAreResetFromTheMenuOfTheHeadings)
{
    New();
    TakeKeys();
    EXPECT_FALSE(view->MakeHeadingsMenu()->GetMenuItems()[0]->IsEnabled());
    DragBorder(0, 60);
    const auto own = [this] { return static_cast<int>(ListWidth() * 0.395); };
    ASSERT_NE(list->GetColumnWidth(0), own());
    const std::unique_ptr<wxMenu> menu = view->MakeHeadingsMenu();
    ASSERT_TRUE(menu->GetMenuItems()[0]->IsEnabled());
    wxCommandEvent reset(wxEVT_MENU, menu->GetMenuItems()[0]->GetId());
    menu->ProcessEvent(reset);
    EXPECT_EQ(list->GetColumnWidth(0), own());
    New();
    EXPECT_EQ(list->GetColumnWidth(0), own());
}

TEST_F(ConfigModuleViewTest, ARightClickOnAHeadingOpensTheMenuOfTheHeadingsAlone)
{
    New();
    TakeKeys();
    const MenuWatch menus(*frame);
    user.MouseMove(BorderOf(0) - wxPoint(30, 0));
    user.MouseClick(wxMOUSE_BTN_RIGHT);
    EXPECT_TRUE(WaitFor([&] { return menus.Closed() > 0; }));
    EXPECT_EQ(menus.Items(), std::vector<int>{ 1 });
}

TEST_F(ConfigModuleViewTest, WhatIsTypedToFindARuleIsShownInTheStatusAndThenTheCountsAgain)
{
    New();
    TakeKeys();
    const wxString counts = frames.status;
    const std::wstring name = list->RuleOfRow(3)->m_strDisplayName;
    user.Text(wxString(name));
    EXPECT_TRUE(WaitFor([&] { return frames.status == FormatText(TextId::FindTyping, { name }); }));
    EXPECT_EQ(list->FirstSelected(), 3);
    EXPECT_EQ(application.docOpenState, 1);
    EXPECT_NE(Summary(), L"");
    user.Text("zz");
    EXPECT_TRUE(WaitFor([&] { return frames.status == FormatText(TextId::FindTypingNothing, { name + L"zz" }); }));
    user.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return frames.status == counts; }));
}

TEST_F(ConfigModuleViewTest, ASearchEndsWhenItsViewIsLeft)
{
    New();
    TakeKeys();
    user.Char('T');
    ASSERT_TRUE(WaitFor([&] { return frames.status == FormatText(TextId::FindTyping, { L"t" }); }));
    view->Activate(false);
    EXPECT_EQ(frames.status, FormatText(TextId::RuleCount, { L"0", L"4" }));
}
