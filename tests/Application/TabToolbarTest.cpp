// The command strip and where the bars are.

#include "Application/TabToolbar.h"

#include "Application/CommandBars.h"
#include "Application/CommandButtons.h"
#include "Application/TabBarSizes.h"
#include "Application/TabCtrlEx.h"
#include "tests/Application/MainFrameFixture.h"

#include <wx/anybutton.h>
#include <wx/toolbar.h>

namespace
{

class TabToolbarTest : public MainFrameFixture
{
protected:
    CQOXRMTabToolbar& Strip() { return frame->Bars().Strip(); }
    wxAuiPaneInfo& Pane() { return frame->Bars().Manager().GetPane(&Strip()); }
    wxAuiPaneInfo& SecondPane() { return frame->Bars().Manager().GetPane(&frame->Bars().SecondToolBar()); }

    std::vector<int> ButtonIds()
    {
        std::vector<int> ids;
        for (const wxAnyButton* const button : Strip().Bar().Buttons())
        {
            ids.push_back(button->GetId());
        }
        return ids;
    }

    /// Least widths of the buttons, which are wider only for their labels.
    int LeastWidth() { return Strip().Bar().Buttons().back()->GetMinSize().GetWidth(); }

    static std::vector<int> OnlyCommands(std::span<const int> commands)
    {
        std::vector<int> ids;
        for (const int id : commands)
        {
            if (FindCommand(id) != nullptr)
            {
                ids.push_back(id);
            }
        }
        return ids;
    }

    bool IsWhole(const wxAnyButton& button)
    {
        return button.IsShownOnScreen() && Strip().GetScreenRect().Contains(button.GetScreenRect()) &&
               button.GetSize().GetWidth() >= button.GetBestSize().GetWidth() &&
               button.GetSize().GetHeight() >= button.GetBestSize().GetHeight();
    }

    /// All buttons come to lie in the strip, with nothing cut off.
    void ExpectAllVisible()
    {
        const auto& buttons = Strip().Bar().Buttons();
        WaitFor(
            [&]
            { return std::all_of(buttons.begin(), buttons.end(), [&](auto* button) { return IsWhole(*button); }); });
        for (const wxAnyButton* const button : buttons)
        {
            const wxRect place = button->GetScreenRect();
            EXPECT_TRUE(IsWhole(*button))
                << button->GetLabel() << " at " << place.x << ", " << place.y << ", " << place.width << " by "
                << place.height << " in " << Strip().GetScreenRect().width << " by " << Strip().GetScreenRect().height;
        }
    }

    void Dock(int direction)
    {
        Pane().Direction(direction);
        frame->Bars().Manager().Update();
        const bool side = direction == wxAUI_DOCK_LEFT || direction == wxAUI_DOCK_RIGHT;
        ASSERT_TRUE(WaitFor([&] { return Strip().IsVertical() == side; }));
        ASSERT_TRUE(WaitFor([&] { return Laidout(); }));
    }
    bool Laidout()
    {
        return Strip().GetSize().GetWidth() >= Pane().min_size.GetWidth() &&
               Strip().GetSize().GetHeight() >= Pane().min_size.GetHeight();
    }
};

} // namespace

TEST_F(TabToolbarTest, ThereAreFourTabsOfWhichTheFirstIsShown)
{
    ASSERT_EQ(Strip().Tabs().GetPageCount(), 4U);
    EXPECT_EQ(Strip().CurrentTab(), 0);
    for (std::size_t tab = 0; tab < 4; ++tab)
    {
        EXPECT_EQ(Strip().Tabs().GetPageText(tab), ""); // pictures alone
        EXPECT_EQ(Strip().Tabs().GetPageImage(tab), static_cast<int>(tab));
    }
}

TEST_F(TabToolbarTest, EachTabHasItsCommandsInTheirOrder)
{
    const std::vector<std::vector<int>> expected = {
        { wxID_NEW, wxID_OPEN, wxID_SAVE, wxID_SAVEAS, wxID_PAGE_SETUP, wxID_HELP },
        { CommandEditRuleButton, CommandUnitSettings, CommandSetPassword, wxID_HELP },
        OnlyCommands(
            std::vector<int>{ CommandRuleModules, CommandDatabaseModules, CommandScriptRules, CommandScriptLocation }),
        { CommandToggleLog },
    };
    for (int tab = 0; tab < 4; ++tab)
    {
        Strip().Tabs().SetSelection(static_cast<std::size_t>(tab)); // as a click on the tab does
        EXPECT_EQ(ButtonIds(), expected[static_cast<std::size_t>(tab)]) << tab;
        EXPECT_EQ(Strip().Bar().GetParent(), Strip().Tabs().GetPage(static_cast<std::size_t>(tab)));
    }
}

TEST_F(TabToolbarTest, ButtonsHaveLabelsPicturesAndTheTipsOfTheirCommands)
{
    for (int tab = 0; tab < 4; ++tab)
    {
        Strip().ShowTab(tab);
        for (const wxAnyButton* const button : Strip().Bar().Buttons())
        {
            const Command& command = *FindCommand(button->GetId());
            EXPECT_EQ(button->GetLabelText(), ButtonLabelOf(command));
            EXPECT_TRUE(button->GetBitmap().IsOk());
            EXPECT_EQ(button->GetBitmap().GetLogicalSize(), wxSize(16, 16));
            EXPECT_EQ(button->GetToolTipText(), ToolTipOf(command.id));
            EXPECT_EQ(button->GetFont().GetWeight(), wxFONTWEIGHT_NORMAL);
        }
    }
}

TEST_F(TabToolbarTest, TheFontOfTheButtonsKeepsAllButItsFaceAndWeight)
{
    const wxFont theme(wxFontInfo(20).Family(wxFONTFAMILY_ROMAN).Italic().Bold());
    const wxFont buttons = CQOXRMTabToolbar::ButtonFont(theme);
    ASSERT_TRUE(buttons.IsOk());
    EXPECT_EQ(buttons.GetPointSize(), 20);
    EXPECT_EQ(buttons.GetStyle(), wxFONTSTYLE_ITALIC);
    EXPECT_EQ(buttons.GetWeight(), wxFONTWEIGHT_NORMAL);
    wxFont named = theme;
    EXPECT_EQ(buttons.GetFaceName(), named.SetFaceName("Tahoma") ? "Tahoma" : theme.GetFaceName());
}

TEST_F(TabToolbarTest, AChangeOfTheThemeLeavesAButtonThatIsCarryingOutItsCommand)
{
    New();
    Strip().ShowTab(1);
    wxAnyButton* const button = Strip().Bar().Buttons()[1];
    ASSERT_EQ(button->GetId(), CommandUnitSettings);
    const wxWeakRef<wxWindow> watched(button);
    const int width = LeastWidth();
    frame->Bind(
        wxEVT_MENU,
        [&](wxCommandEvent&)
        {
            wxSysColourChangedEvent change;
            change.SetEventObject(&Strip());
            Strip().ProcessWindowEvent(change);
            EXPECT_NE(watched.get(), nullptr);
            host.Note("theme");
        },
        CommandUnitSettings);
    wxCommandEvent click(wxEVT_BUTTON, button->GetId());
    click.SetEventObject(button);
    button->GetParent()->ProcessWindowEvent(click);
    EXPECT_EQ(Calls(), Strings{ "theme" });
    EXPECT_TRUE(button->GetBitmap().IsOk());
    EXPECT_EQ(LeastWidth(), width);
}

TEST_F(TabToolbarTest, EachTabSaysWhatItIsInATip)
{
    const std::array tips = { TextId::TabFile, TextId::TabRules, TextId::TabModules, TextId::TabLog };
    std::vector<wxString> seen;
    ASSERT_TRUE(WaitFor(
        [&]
        {
            seen.clear();
            const wxSize size = Strip().Tabs().GetSize();
            for (int x = 0; x < size.GetWidth(); ++x)
            {
                const wxString tip = Strip().Tabs().TipAt({ x, 18 });
                if (!tip.empty() && (seen.empty() || seen.back() != tip))
                {
                    seen.push_back(tip);
                }
            }
            return seen.size() == tips.size();
        }));
    for (std::size_t tab = 0; tab < tips.size(); ++tab)
    {
        EXPECT_EQ(seen[tab], LoadText(tips[tab]));
    }
    EXPECT_EQ(Strip().Tabs().TipAt({ -5, -5 }), "");
}

TEST_F(TabToolbarTest, EachTabIsLargeEnoughToBeHit)
{
    const CQOXRMTabCtrlEx& tabs = Strip().Tabs();
    for (int tab = 0; tab < static_cast<int>(tabs.GetPageCount()); ++tab)
    {
        wxRect place;
        const auto measure = [&]
        {
            place = {};
            for (int x = 0; x < tabs.GetSize().GetWidth(); ++x)
            {
                for (int y = 0; y < tabs.GetSize().GetHeight(); ++y)
                {
                    if (tabs.HitTest({ x, y }) == tab)
                    {
                        place.Union({ x, y, 1, 1 });
                    }
                }
            }
            return !place.IsEmpty();
        };
        ASSERT_TRUE(WaitFor(measure)) << tab;
        EXPECT_GE(place.GetWidth(), frame->FromDIP(24)) << tab;
        EXPECT_GE(place.GetHeight(), frame->FromDIP(25)) << tab;
    }
}

TEST_F(TabToolbarTest, TheMouseOverATabShowsItsTip)
{
    wxPoint place;
    ASSERT_TRUE(WaitFor(
        [&]
        {
            for (int x = 0; x < Strip().Tabs().GetSize().GetWidth(); ++x)
            {
                if (Strip().Tabs().TipAt({ x, 18 }) == LoadText(TextId::TabModules))
                {
                    place = { x + 4, 18 };
                    return true;
                }
            }
            return false;
        }));
    user.MouseMove(Strip().Tabs().ClientToScreen(place));
    EXPECT_TRUE(WaitFor([&] { return Strip().Tabs().GetToolTipText() == LoadText(TextId::TabModules); }));
    user.MouseClick();
    EXPECT_TRUE(WaitFor([&] { return Strip().CurrentTab() == 2; }));
    EXPECT_EQ(ButtonIds().front(), CommandRuleModules);
}

TEST_F(TabToolbarTest, PickingTheTabAlreadyShownShowsItAnew)
{
    Strip().ShowTab(1);
    const std::vector<int> before = ButtonIds();
    Strip().ShowTab(1);
    EXPECT_EQ(ButtonIds(), before);
    EXPECT_EQ(Strip().CurrentTab(), 1);
    ExpectAllVisible();
}

TEST_F(TabToolbarTest, ATabThatIsNotThereShowsNothingElse)
{
    Strip().ShowTab(2);
    Strip().ShowTab(4);
    Strip().ShowTab(-1);
    EXPECT_EQ(Strip().CurrentTab(), 2);
}

TEST_F(TabToolbarTest, TheFirstResizeAfterATabWasShownWidensTheButtons)
{
    const int shown = Strip().FromDIP(ButtonSizeOfShownTab(Strip().ButtonWidth()).width);
    const int laidOut = Strip().FromDIP(ButtonSizeOfLayout(Strip().ButtonWidth()).width);
    const auto best = [&] { return Strip().Bar().Buttons().back()->GetBestSize().GetWidth(); };
    ExpectAllVisible();
    Strip().ShowTab(0);
    EXPECT_EQ(LeastWidth(), std::max(shown, best()));
    frame->SetSize(frame->GetSize() + wxSize(30, 0));
    EXPECT_TRUE(WaitFor([&] { return LeastWidth() == laidOut; }));
    ExpectAllVisible();
    Strip().ShowTab(1);
    EXPECT_EQ(LeastWidth(), std::max(shown, best()));
}

TEST_F(TabToolbarTest, ResizingTheFrameLeavesTheTabAndItsButtons)
{
    Strip().ShowTab(2);
    const std::vector<int> before = ButtonIds();
    for (const wxSize& size : { wxSize(700, 500), wxSize(1200, 800), wxSize(400, 300) })
    {
        frame->SetSize(size);
        ASSERT_TRUE(WaitFor([&] { return frame->GetSize() == size; }));
        EXPECT_EQ(Strip().CurrentTab(), 2);
        EXPECT_EQ(ButtonIds(), before);
    }
}

TEST_F(TabToolbarTest, AllButtonsAreSeenInAFrameThatIsTooNarrowForOneRow)
{
    frame->SetSize(500, 500);
    ASSERT_TRUE(WaitFor([&] { return frame->GetSize().GetWidth() == 500; }));
    Strip().ShowTab(0);
    ASSERT_TRUE(WaitFor([&] { return Laidout() && Strip().Bar().GetSize().GetHeight() > 50; }));
    ExpectAllVisible();
}

TEST_F(TabToolbarTest, TheStripStartsAtTheTopAndTheQuickToolBarToTheLeftOfIt)
{
    EXPECT_EQ(Pane().dock_direction, wxAUI_DOCK_TOP);
    ASSERT_TRUE(WaitFor([&] { return Laidout() && frame->Bars().SecondToolBar().GetSize().GetHeight() > 50; }));
    EXPECT_LE(frame->Bars().SecondToolBar().GetScreenRect().GetRight(), Strip().GetScreenRect().GetLeft());
    ExpectAllVisible();
}

TEST_F(TabToolbarTest, BothBarsDockOnEachSide)
{
    for (const int direction : { wxAUI_DOCK_LEFT, wxAUI_DOCK_RIGHT, wxAUI_DOCK_BOTTOM, wxAUI_DOCK_TOP })
    {
        Dock(direction);
        EXPECT_TRUE(WaitFor([&] { return Strip().Bar().GetSize().GetHeight() > 0; }));
        ExpectAllVisible();
        const bool side = direction == wxAUI_DOCK_LEFT || direction == wxAUI_DOCK_RIGHT;
        SecondPane().Direction(direction);
        frame->Bars().Manager().Update();
        wxToolBar& second = frame->Bars().SecondToolBar();
        EXPECT_TRUE(WaitFor([&] { return second.IsVertical() == side; })) << direction;
        EXPECT_TRUE(WaitFor([&] { return (second.GetSize().GetHeight() > second.GetSize().GetWidth()) == side; }))
            << direction;
    }
}

TEST_F(TabToolbarTest, AStripInAWindowOfItsOwnWorksAsBefore)
{
    Pane().Float().FloatingPosition(200, 300);
    frame->Bars().Manager().Update();
    ASSERT_TRUE(WaitFor([&] { return Pane().IsFloating() && Strip().IsVertical(); }));
    ASSERT_TRUE(WaitFor([&] { return Strip().GetScreenPosition().y >= 300; }));
    Strip().ShowTab(1);
    wxAnyButton* const button = Strip().Bar().Buttons()[1];
    ASSERT_EQ(button->GetId(), CommandUnitSettings);
    wxCommandEvent click(wxEVT_BUTTON, button->GetId());
    click.SetEventObject(button);
    button->ProcessWindowEvent(click);
    EXPECT_EQ(Calls(), Strings{ "units" });
    ExpectAllVisible();
    Pane().Dock();
    frame->Bars().Manager().Update();
}

TEST_F(TabToolbarTest, AClickLeavesTheKeyboardWhereItWas)
{
    const auto& list = ListOf(New());
    ASSERT_TRUE(WaitFor([&] { return list.IsDescendant(wxWindow::FindFocus()); }));
    ExpectAllVisible();
    wxWindow* const before = wxWindow::FindFocus();
    Strip().ShowTab(1);
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == before; }));
    wxAnyButton* const button = Strip().Bar().Buttons()[1];
    // What a click makes the toolkit send, which gives the button the keyboard in between.
    wxMouseEvent down(wxEVT_LEFT_DOWN);
    down.SetEventObject(button);
    button->ProcessWindowEvent(down);
    button->SetFocus();
    ASSERT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == button; }));
    wxCommandEvent click(wxEVT_BUTTON, button->GetId());
    click.SetEventObject(button);
    button->ProcessWindowEvent(click);
    EXPECT_TRUE(WaitFor([&] { return host.calls == Strings{ "units" }; }));
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == before; }));
}

TEST_F(TabToolbarTest, KeysReachTheButtonsAndLeadBack)
{
    New();
    const auto inStrip = [&] { return Strip().IsDescendant(wxWindow::FindFocus()); };
    wxWindow* const rules = wxWindow::FindFocus();
    user.Char('2', wxMOD_CONTROL);
    ASSERT_TRUE(WaitFor(inStrip));
    ASSERT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == Strip().Bar().Buttons()[1]; })); // the first enabled one
    user.Char(WXK_TAB);
    ASSERT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == Strip().Bar().Buttons()[2]; }));
    user.Char(WXK_SPACE);
    ASSERT_TRUE(WaitFor([&] { return application.prompt.passwordPurposes.size() == 1; }));
    user.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == rules; }));
}

TEST_F(TabToolbarTest, F6GoesFromTheRulesToTheStripToTheQuickToolBarAndBack)
{
    New();
    wxWindow* const rules = wxWindow::FindFocus();
    ASSERT_NE(rules, nullptr);
    user.Char(WXK_F6);
    ASSERT_TRUE(WaitFor([&] { return Strip().IsDescendant(wxWindow::FindFocus()); }));
    user.Char(WXK_F6);
    ASSERT_TRUE(
        WaitFor([&] { return !Strip().IsDescendant(wxWindow::FindFocus()) && wxWindow::FindFocus() != rules; }));
    user.Char(WXK_F6);
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == rules; }));

    frame->Bars().ShowSecondToolBar(false);
    user.Char(WXK_F6);
    ASSERT_TRUE(WaitFor([&] { return Strip().IsDescendant(wxWindow::FindFocus()); }));
    user.Char(WXK_F6);
    EXPECT_TRUE(WaitFor([&] { return wxWindow::FindFocus() == rules; }));
}

TEST_F(TabToolbarTest, PlacesTabAndTheQuickToolBarAreRememberedForTheNextStart)
{
    Dock(wxAUI_DOCK_LEFT);
    Strip().ShowTab(2);
    frame->Bars().ShowSecondToolBar(false);
    DestroyFrame();
    MakeFrame();
    EXPECT_EQ(Pane().dock_direction, wxAUI_DOCK_LEFT);
    EXPECT_TRUE(WaitFor([&] { return Strip().IsVertical(); }));
    EXPECT_EQ(Strip().CurrentTab(), 2);
    EXPECT_EQ(ButtonIds().front(), CommandRuleModules);
    EXPECT_FALSE(frame->Bars().IsSecondToolBarShown());
    EXPECT_FALSE(OpenedItem(CommandSecondToolBar).IsChecked());
    EXPECT_TRUE(WaitFor([&] { return Laidout(); }));
    ExpectAllVisible();
}

TEST_F(TabToolbarTest, ALayoutThatNoBarsMadeLeavesThemAsTheyAre)
{
    const wxString before = frame->Bars().Layout();
    for (const wxString& damaged : { wxString(), wxString("layout2|"), wxString("nonsense"),
                                     before.Mid(0, before.length() / 2), "layout1" + before.Mid(7) })
    {
        frame->Bars().SetLayout(damaged);
        EXPECT_TRUE(Strip().IsShown()) << damaged;
        EXPECT_TRUE(frame->GetClientWindow()->IsShown()) << damaged;
        EXPECT_EQ(Pane().dock_direction, wxAUI_DOCK_TOP) << damaged;
    }
}

TEST_F(TabToolbarTest, AStripThatALayoutHidesOrPutsOffTheScreenIsShown)
{
    Pane().Hide();
    const wxString hidden = frame->Bars().Layout();
    frame->Bars().SetLayout(hidden);
    EXPECT_TRUE(Strip().IsShown());

    Pane().Float().FloatingPosition(30000, 30000);
    const wxString away = frame->Bars().Layout();
    frame->Bars().SetLayout(away);
    EXPECT_TRUE(Pane().IsDocked());
    EXPECT_TRUE(WaitFor([&] { return Strip().IsShownOnScreen(); }));
}
