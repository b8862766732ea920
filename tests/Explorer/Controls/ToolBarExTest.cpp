#include "Explorer/Controls/ToolBarEx.h"

#include "tests/Explorer/Controls/ControlFixture.h"

#include <wx/artprov.h>
#include <wx/aui/framemanager.h>
#include <wx/minifram.h>

#include <gtest/gtest.h>

namespace
{

class ToolBarExTest : public ControlFixture
{
protected:
    ToolBarExTest()
    {
        manager.SetManagedWindow(frame);
        bar = new CQOXToolBarEx(frame, wxID_ANY, "Rules"); // owned by its parent
        bar->AddTool(wxID_NEW, "New", wxArtProvider::GetBitmap(wxART_NEW, wxART_TOOLBAR));
        bar->Realize();
        manager.AddPane(bar, bar->Pane().Top());
        manager.AddPane(panel, wxAuiPaneInfo().CenterPane());
        manager.Update();
        Show();
    }
    ~ToolBarExTest() override { manager.UnInit(); }

    wxMiniFrame* FrameAround() const { return dynamic_cast<wxMiniFrame*>(wxGetTopLevelParent(bar)); }

    static bool HasCloseBox(const wxWindow& window)
    {
        return (window.GetWindowStyleFlag() & (wxSYSTEM_MENU | wxCLOSE_BOX)) != 0;
    }

    void Float()
    {
        manager.GetPane(bar).Float().FloatingPosition(100, 200);
        manager.Update();
        ASSERT_TRUE(WaitFor([this] { return FrameAround() != nullptr && !HasCloseBox(*FrameAround()); }));
    }

    void Dock()
    {
        manager.GetPane(bar).Dock().Top();
        manager.Update();
        ASSERT_TRUE(WaitFor([this] { return wxGetTopLevelParent(bar) == frame; }));
    }

    wxAuiManager manager;
    CQOXToolBarEx* bar = nullptr;
};

} // namespace

TEST_F(ToolBarExTest, AFloatingBarHasNoCloseBox)
{
    Float();
    EXPECT_FALSE(manager.GetPane(bar).HasCloseButton());
    EXPECT_TRUE(FrameAround()->IsShown());
    EXPECT_EQ(FrameAround()->GetTitle(), "Rules");
}

TEST_F(ToolBarExTest, ABarThatAnotherHasGivenACloseBoxLosesItWhenItFloats)
{
    manager.GetPane(bar).CloseButton(true);
    Float();
    EXPECT_FALSE(HasCloseBox(*FrameAround()));
}

TEST_F(ToolBarExTest, ABarThatFloatsAgainAfterItWasDockedHasNoCloseBoxEither)
{
    Float();
    Dock();
    Float();
}

TEST_F(ToolBarExTest, TheWindowOfADockedBarKeepsItsCloseBox)
{
    Float();
    Dock();
    EXPECT_TRUE(HasCloseBox(*frame));
}

TEST_F(ToolBarExTest, ItHasANameForScreenReaders)
{
    EXPECT_EQ(bar->GetName(), "Rules");
}
