#include "Explorer/Controls/HyperLink.h"

#include "tests/Explorer/Controls/ControlFixture.h"
#include "tests/Support/FakeDesktop.h"

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr LinkColour Blue = MakeLinkColour(0, 0, 255);
constexpr LinkColour Red = MakeLinkColour(255, 0, 0);
constexpr LinkColour Visited = MakeLinkColour(5, 34, 143);

class HyperLinkTest : public ControlFixture
{
protected:
    HyperLinkTest()
    {
        link = new CHyperLink(panel, 77, "Read more", "https://example.invalid/page"); // owned by the panel
        link->Move(20, 20);
        other = new wxButton(panel, wxID_ANY, "Other", { 20, 100 }); // owned by the panel
        panel->Bind(EVT_HYPERLINK_CLICKED, [this](wxCommandEvent& event) { told.push_back(event); });
    }

    void ShowAndTellParent()
    {
        link->SetNotifyParent(true);
        Show();
        MoveTo(*frame, { 400, 300 });
    }

    bool Enter()
    {
        MoveTo(*link, { 10, 5 });
        return WaitFor([this] { return link->IsMouseOver(); });
    }

    bool Leave()
    {
        MoveTo(*link, { 10, 60 });
        return WaitFor([this] { return !link->IsMouseOver(); });
    }

    /// The link's pixels on the screen that are of the colour.
    int PixelsOf(LinkColour colour)
    {
        link->Refresh();
        link->Update();
        wxYield();
        const wxSize size = link->GetClientSize();
        wxBitmap bitmap(size.GetWidth(), size.GetHeight(), 24);
        wxClientDC window(link);
        wxMemoryDC(bitmap).Blit({ 0, 0 }, size, &window, { 0, 0 });
        const wxImage image = bitmap.ConvertToImage();
        int count = 0;
        for (int y = 0; y < size.GetHeight(); ++y)
        {
            for (int x = 0; x < size.GetWidth(); ++x)
            {
                count +=
                    MakeLinkColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)) == colour ? 1 : 0;
            }
        }
        return count;
    }

    CHyperLink* link = nullptr;
    wxButton* other = nullptr;
    std::vector<wxCommandEvent> told;
};

} // namespace

TEST_F(HyperLinkTest, WithoutATextTheTargetIsShown)
{
    const auto* const bare = new CHyperLink(panel, wxID_ANY, "", "https://example.invalid/"); // owned by the panel
    EXPECT_EQ(bare->GetLabelText(), "https://example.invalid/");
    EXPECT_EQ(link->GetLabelText(), "Read more");
}

TEST_F(HyperLinkTest, ATargetIsShownWithItsAmpersands)
{
    const auto* const bare = new CHyperLink(panel, wxID_ANY, "", "https://example.invalid/?a=1&b=2"); // the panel's
    EXPECT_EQ(bare->GetLabelText(), "https://example.invalid/?a=1&b=2");
    EXPECT_EQ(bare->GetName(), "https://example.invalid/?a=1&b=2");
    EXPECT_EQ(bare->Target(), "https://example.invalid/?a=1&b=2");
}

TEST_F(HyperLinkTest, ItsFontIsTheParentsUnderlined)
{
    EXPECT_TRUE(link->GetFont().GetUnderlined());
    EXPECT_EQ(link->GetFont().GetPointSize(), panel->GetFont().GetPointSize());
    EXPECT_FALSE(panel->GetFont().GetUnderlined());
}

TEST_F(HyperLinkTest, AScreenReaderIsToldItsText)
{
    EXPECT_EQ(link->GetName(), "Read more");
    link->SetLabel("Read less");
    EXPECT_EQ(link->GetName(), "Read less");
}

TEST_F(HyperLinkTest, ItHasNoTipUntilItIsAskedForOne)
{
    EXPECT_EQ(link->GetToolTipText(), "");
    link->SetTip("Opens the page");
    EXPECT_EQ(link->GetToolTipText(), "Opens the page");
}

TEST_F(HyperLinkTest, TheMouseGivesTheHoverColourUntilItLeaves)
{
    ShowAndTellParent();
    EXPECT_EQ(link->ShownColour(), Blue);
    ASSERT_TRUE(Enter());
    EXPECT_EQ(link->ShownColour(), Red);
    EXPECT_TRUE(link->HasCapture());
    ASSERT_TRUE(Leave());
    EXPECT_EQ(link->ShownColour(), Blue);
    EXPECT_FALSE(link->HasCapture());
}

TEST_F(HyperLinkTest, ItIsPaintedInTheColourOfItsState)
{
    ShowAndTellParent();
    EXPECT_TRUE(WaitFor([this] { return PixelsOf(Blue) > 5; }));
    EXPECT_EQ(PixelsOf(Red), 0);
    ASSERT_TRUE(Enter());
    EXPECT_TRUE(WaitFor([this] { return PixelsOf(Red) > 5; }));
    EXPECT_EQ(PixelsOf(Blue), 0);
}

TEST_F(HyperLinkTest, AClickTellsTheParentByTheNumber1125AndTheIdOfTheLink)
{
    ShowAndTellParent();
    ASSERT_TRUE(Enter());
    user.MouseClick();
    ASSERT_TRUE(WaitFor([this] { return !told.empty(); }));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].GetInt(), 1125);
    EXPECT_EQ(told[0].GetId(), 77);
    EXPECT_EQ(told[0].GetEventObject(), link);
    EXPECT_TRUE(link->IsVisited());
}

TEST_F(HyperLinkTest, AClickedLinkStaysInTheVisitedColourEvenUnderTheMouse)
{
    ShowAndTellParent();
    ASSERT_TRUE(Enter());
    user.MouseClick();
    ASSERT_TRUE(WaitFor([this] { return link->IsVisited(); }));
    MoveTo(*link, { 12, 6 });
    ASSERT_TRUE(WaitFor([this] { return link->IsMouseOver(); }));
    EXPECT_EQ(link->ShownColour(), Visited);
    EXPECT_TRUE(WaitFor([this] { return PixelsOf(Visited) > 5; }));
    ASSERT_TRUE(Leave());
    EXPECT_EQ(link->ShownColour(), Visited);
}

TEST_F(HyperLinkTest, AClickThatEndsBesideTheLinkIsNone)
{
    ShowAndTellParent();
    ASSERT_TRUE(Enter());
    user.MouseDown();
    ASSERT_TRUE(WaitFor([] { return wxGetMouseState().LeftIsDown(); }));
    MoveTo(*link, { 10, 60 });
    user.MouseUp();
    ASSERT_TRUE(WaitFor([this] { return !wxGetMouseState().LeftIsDown() && !link->IsMouseOver(); }));
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(link->IsVisited());
}

TEST_F(HyperLinkTest, ADragThatBeginsElsewhereAndEndsOnTheLinkIsNoClick)
{
    link->SetNotifyParent(true);
    const auto send = [this](wxEventType type)
    {
        wxMouseEvent event(type);
        event.SetEventObject(link);
        event.SetPosition({ 10, 5 });
        link->ProcessWindowEvent(event);
    };
    send(wxEVT_LEFT_DOWN);
    send(wxEVT_LEAVE_WINDOW); // the button comes up where the link isn't told
    send(wxEVT_LEFT_UP);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(link->IsVisited());
    send(wxEVT_LEFT_DOWN);
    send(wxEVT_LEFT_UP);
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(HyperLinkTest, TheKeyboardReachesItByTabAndClicksItWithReturnAndTheSpaceBar)
{
    ShowAndTellParent();
    other->SetFocus();
    ASSERT_TRUE(WaitFor([this] { return other->HasFocus(); }));
    user.Char(WXK_TAB, wxMOD_SHIFT);
    ASSERT_TRUE(WaitFor([this] { return link->HasFocus(); }));
    user.Char(WXK_RETURN);
    ASSERT_TRUE(WaitFor([this] { return told.size() == 1; }));
    user.Char(WXK_SPACE);
    ASSERT_TRUE(WaitFor([this] { return told.size() == 2; }));
    user.Char(WXK_TAB);
    EXPECT_TRUE(WaitFor([this] { return other->HasFocus(); }));
}

TEST_F(HyperLinkTest, OtherwiseAClickOpensTheTargetAndTellsNobody)
{
    const FakeDesktop desktop;
    EXPECT_TRUE(link->Click());
    EXPECT_EQ(desktop.WaitForTarget(), "https://example.invalid/page");
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(link->IsVisited());
}

TEST_F(HyperLinkTest, ATargetThatCantBeOpenedCountsAsVisitedToo)
{
    const ScopedEnvironment path("PATH", L"/nowhere");
    EXPECT_FALSE(link->Click());
    EXPECT_TRUE(link->IsVisited());
}

TEST_F(HyperLinkTest, TheThreeColoursCanBeSet)
{
    link->SetNotifyParent(true);
    link->SetNormalColour(1);
    link->SetHoverColour(2);
    link->SetVisitedColour(3);
    EXPECT_EQ(link->NormalColour(), 1U);
    EXPECT_EQ(link->HoverColour(), 2U);
    EXPECT_EQ(link->VisitedColour(), 3U);
    EXPECT_EQ(link->ShownColour(), 1U);
    link->Click();
    EXPECT_EQ(link->ShownColour(), 3U);
}

TEST_F(HyperLinkTest, OnADarkWindowItsColoursAreLightIfItIsToAdaptThem)
{
    panel->SetBackgroundColour({ 240, 240, 240 });
    link->AdaptColoursToWindow();
    EXPECT_EQ(link->NormalColour(), Blue);
    panel->SetBackgroundColour({ 30, 30, 30 });
    link->AdaptColoursToWindow();
    for (const LinkColour colour : { link->NormalColour(), link->HoverColour(), link->VisitedColour() })
    {
        EXPECT_GT(wxColour(static_cast<unsigned long>(colour)).GetLuminance(), 0.5);
    }
}

TEST_F(HyperLinkTest, ADialogThatTheParentShowsGetsTheMouse)
{
    ShowAndTellParent();
    bool hadCapture = true;
    panel->Bind(EVT_HYPERLINK_CLICKED,
                [&](wxCommandEvent& event)
                {
                    hadCapture = link->HasCapture();
                    event.Skip();
                });
    ASSERT_TRUE(Enter());
    user.MouseClick();
    ASSERT_TRUE(WaitFor([this] { return !told.empty(); }));
    EXPECT_FALSE(hadCapture);
}
