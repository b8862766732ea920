// Places of the main window and its bars, whatever the settings file says of them.

#include "Application/CommandButtons.h"
#include "Application/TabToolbar.h"
#include "Application/WindowPlace.h"
#include "tests/Application/MainFrameFixture.h"

#include <wx/anybutton.h>
#include <wx/display.h>
#include <wx/stopwatch.h>
#include <wx/toolbar.h>

#include <cstdlib>

namespace
{

/// What the settings file says of the main window.
struct Stored
{
    const char* x;
    const char* y;
    const char* width;
    const char* height;
    const char* minimised = "0";
};

class SavedPlacesTest : public MainFrameFixture
{
protected:
    CQOXRMTabToolbar& Strip() { return frame->Bars().Strip(); }
    wxAuiPaneInfo& Pane() { return frame->Bars().Manager().GetPane(&Strip()); }

    /// Starts with other settings.
    void StartWith(const Stored& stored)
    {
        DestroyFrame();
        wxConfigBase& settings = *wxConfigBase::Get();
        const wxString window = "/Persistent_Options/Window/MainFrame/";
        settings.Write(window + "x", stored.x);
        settings.Write(window + "y", stored.y);
        settings.Write(window + "w", stored.width);
        settings.Write(window + "h", stored.height);
        settings.Write(window + "Iconized", stored.minimised);
        MakeFrame();
    }

    /// The layout with another number behind a key of the strip.
    wxString LayoutWith(const wxString& key, const wxString& number)
    {
        const wxString layout = frame->Bars().Layout();
        const std::size_t from = layout.find(key, key.StartsWith("dock_size") ? 0 : layout.find("name=Commands;"));
        EXPECT_NE(from, wxString::npos) << key;
        const std::size_t to = layout.find_first_of(";|", from);
        return layout.Mid(0, from) + key + number + layout.Mid(to);
    }

    /// The strip comes to lie whole in the window and leaves most of it to the documents.
    bool IsUsable()
    {
        const wxRect window(frame->GetClientSize());
        return Strip().IsShownOnScreen() && window.Contains(wxRect(Strip().GetPosition(), Strip().GetSize())) &&
               Strip().GetSize().GetHeight() > 50 &&
               frame->GetClientWindow()->GetSize().GetHeight() > window.GetHeight() / 2;
    }
};

} // namespace

TEST_F(SavedPlacesTest, AWindowWithoutAPlaceOrOfNoUsefulSizeStartsWithTheUsualOne)
{
    const wxSize usual(1150, 720);
    EXPECT_TRUE(WaitFor([&] { return frame->GetSize() == usual; }));
    for (const Stored& stored : { Stored{ "100", "100", "1", "1" }, Stored{ "100", "100", "-5", "-2000000000" },
                                  Stored{ "100", "100", "900", "10" }, Stored{ "", "x", "y", "99999999999999999999" } })
    {
        StartWith(stored);
        EXPECT_TRUE(WaitFor([&] { return frame->GetSize() == usual; })) << stored.width << " " << stored.height;
    }
}

TEST_F(SavedPlacesTest, AWindowThatIsLargerThanTheScreensStartsWithTheirSize)
{
    for (const char* const length : { "40000", "2000000000" })
    {
        StartWith({ "0", "0", length, length });
        const wxSize screen = wxDisplay().GetClientArea().GetSize();
        EXPECT_TRUE(WaitFor([&] { return frame->GetSize() == screen; }))
            << frame->GetSize().GetWidth() << " by " << frame->GetSize().GetHeight();
    }
}

TEST_F(SavedPlacesTest, AWindowThatNoScreenShowsStartsInTheMiddle)
{
    for (const Stored& stored : { Stored{ "100000", "100000", "900", "600" }, Stored{ "-5000", "100", "900", "600" },
                                  Stored{ "100", "-590", "900", "600" }, Stored{ "1275", "1019", "900", "600" } })
    {
        StartWith(stored);
        EXPECT_TRUE(WaitFor([&] { return IsTitleOnAScreen(frame->GetRect()); })) << stored.x << " " << stored.y;
        EXPECT_TRUE(WaitFor([&] { return wxDisplay().GetClientArea().Contains(frame->GetRect()); }))
            << stored.x << " " << stored.y;
        EXPECT_EQ(frame->GetSize(), wxSize(900, 600));
    }
}

TEST_F(SavedPlacesTest, AWindowThatWasMinimisedIsSeenAtTheNextStart)
{
    StartWith({ "100", "100", "900", "600", "1" });
    EXPECT_FALSE(frame->IsIconized());
    EXPECT_EQ(frame->GetSize(), wxSize(900, 600));
}

TEST_F(SavedPlacesTest, ATitleIsOnAScreenIfTheMouseCanTakeHoldOfIt)
{
    const wxRect screen = wxDisplay().GetClientArea();
    const wxSize size(300, 200);
    const auto isOnAScreen = [&](int x, int y) { return IsTitleOnAScreen(wxRect(wxPoint(x, y), size)); };
    EXPECT_TRUE(isOnAScreen(screen.x, screen.y));
    EXPECT_TRUE(isOnAScreen(screen.x - 200, screen.y - 5));
    EXPECT_TRUE(isOnAScreen(screen.GetRight() - 60, screen.GetBottom() - 20));
    EXPECT_FALSE(isOnAScreen(screen.GetRight() - 20, screen.y));
    EXPECT_FALSE(isOnAScreen(screen.x, screen.GetBottom() - 5));
    EXPECT_FALSE(isOnAScreen(screen.x, screen.y - 20));
    EXPECT_FALSE(isOnAScreen(screen.x - 280, screen.y));
    EXPECT_FALSE(isOnAScreen(-32000, -32000));
}

TEST_F(SavedPlacesTest, BarsOfADamagedLayoutNeitherCoverTheWindowNorLeaveIt)
{
    ASSERT_TRUE(WaitFor([&] { return IsUsable(); }));
    const wxString before = frame->Bars().Layout();
    for (const auto& [key, number] :
         { std::pair{ "dir=", "77" }, std::pair{ "dir=", "5" }, std::pair{ "minh=", "99999" },
           std::pair{ "bestw=", "99999" }, std::pair{ "pos=", "2000000000" }, std::pair{ "dock_size(1,1,0)=", "99999" },
           std::pair{ "state=", "0" }, std::pair{ "bestw=", "1;unknown=1" } })
    {
        const wxString damaged = LayoutWith(key, number);
        frame->Bars().SetLayout(damaged);
        EXPECT_TRUE(WaitFor([&] { return IsUsable(); })) << damaged;
        frame->Bars().SetLayout(before);
    }
}

TEST_F(SavedPlacesTest, ALayoutWithALayerFarOutsideIsSetAtOnce)
{
    const wxStopWatch time;
    frame->Bars().SetLayout(LayoutWith("layer=", "100000000"));
    EXPECT_LT(time.Time(), 2000); // the layers would be gone through one by one
    EXPECT_TRUE(WaitFor([&] { return IsUsable(); }));
}

TEST_F(SavedPlacesTest, AStripInAWindowOfItsOwnIsThereAgainAtTheNextStart)
{
    Pane().Float().FloatingPosition(200, 300);
    frame->Bars().Manager().Update();
    ASSERT_TRUE(WaitFor([&] { return Strip().GetScreenPosition().y >= 300; }));
    const wxSize size = Pane().floating_size;
    DestroyFrame();
    MakeFrame();
    EXPECT_TRUE(Pane().IsFloating());
    EXPECT_TRUE(WaitFor([&] { return Strip().IsShownOnScreen() && Strip().GetScreenPosition().y >= 300; }));
    // Not to the pixel: window managers differ in whether the frame counts.
    EXPECT_TRUE(WaitFor([&] { return std::abs(Strip().GetScreenPosition().x - 200) < 50; }));
    EXPECT_LT(Strip().GetScreenPosition().y, 350);
    EXPECT_EQ(Pane().floating_size, size);
}

TEST_F(SavedPlacesTest, AStripWhoseOwnWindowIsClosedDocksAgain)
{
    Pane().Float().FloatingPosition(200, 300);
    frame->Bars().Manager().Update();
    ASSERT_TRUE(WaitFor([&] { return Strip().GetScreenPosition().y >= 300; }));
    wxGetTopLevelParent(&Strip())->Close();
    EXPECT_TRUE(WaitFor([&] { return Pane().IsDocked() && Strip().GetParent() == frame && IsUsable(); }));
}

TEST_F(SavedPlacesTest, AQuickToolBarWhoseOwnWindowIsClosedIsHiddenUntilItsCommandShowsIt)
{
    wxToolBar& bar = frame->Bars().SecondToolBar();
    wxAuiPaneInfo& pane = frame->Bars().Manager().GetPane(&bar);
    pane.Float().FloatingPosition(200, 300);
    frame->Bars().Manager().Update();
    ASSERT_TRUE(WaitFor([&] { return wxGetTopLevelParent(&bar) != frame && bar.IsShownOnScreen(); }));
    wxGetTopLevelParent(&bar)->Close();
    EXPECT_TRUE(WaitFor([&] { return !bar.IsShownOnScreen(); }));
    EXPECT_FALSE(OpenedItem(CommandSecondToolBar).IsChecked());
    ChooseItem(CommandSecondToolBar);
    EXPECT_TRUE(WaitFor([&] { return bar.IsShownOnScreen(); }));
    EXPECT_TRUE(OpenedItem(CommandSecondToolBar).IsChecked());
}
