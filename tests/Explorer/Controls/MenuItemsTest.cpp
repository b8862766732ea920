// The menus as the toolkit shows them, and what stands behind.

#include "Explorer/Controls/MenuItems.h"

#include "tests/Explorer/Controls/ControlFixture.h"

#include <wx/bitmap.h>
#include <wx/menu.h>

#include <gtest/gtest.h>

namespace
{

constexpr MenuColour Cream = 0xD0FFFF;

class MenuItemsTest : public ControlFixture
{
protected:
    static wxBitmapBundle Picture() { return wxBitmapBundle::FromBitmap(wxBitmap(16, 16)); }

    wxMenu menu;
    CQOXRMMenuItems items{ L"", {}, {}, Cream };
};

} // namespace

TEST_F(MenuItemsTest, AnItemMadeFromNothingHasNoTextsBitmapsOrCheckFlag)
{
    const CQOXRMMenuItems item;
    EXPECT_EQ(item.Text(), L"");
    EXPECT_EQ(item.KeyText(), L"");
    EXPECT_EQ(item.KeyCode(), -1);
    EXPECT_FALSE(item.NormalBitmap().IsOk());
    EXPECT_FALSE(item.DisabledBitmap().IsOk());
    EXPECT_FALSE(item.CheckFlag());
    EXPECT_EQ(item.Background(), 0U);
    EXPECT_TRUE(item.Children().empty());
}

TEST_F(MenuItemsTest, AnAddedItemHasItsPartsAndTheBackgroundOfItsMenu)
{
    const CQOXRMMenuItems& item = items.AddItem(0, 4711, L"&Save\tCtrl+S", Picture(), 11, 12, Picture());
    EXPECT_EQ(item.Text(), L"&Save");
    EXPECT_EQ(item.KeyText(), L"Ctrl+S");
    EXPECT_EQ(item.KeyCode(), 19);
    EXPECT_EQ(item.Id(), 4711);
    EXPECT_EQ(item.Flags(), MenuFlag::OwnerDrawn);
    EXPECT_EQ(item.FirstCommand(), 11);
    EXPECT_EQ(item.SecondCommand(), 12);
    EXPECT_TRUE(item.NormalBitmap().IsOk());
    EXPECT_TRUE(item.DisabledBitmap().IsOk());
    EXPECT_EQ(item.Background(), Cream);
    ASSERT_EQ(items.Children().size(), 1U);
    EXPECT_EQ(items.Children()[0].get(), &item);
}

TEST_F(MenuItemsTest, TheToolkitsMenuShowsTheItemWithItsIconAndKey)
{
    items.ShowIn(menu);
    const CQOXRMMenuItems& item = items.AddItem(0, 4711, L"&Save\tCtrl+S", Picture(), 0, 0, {});
    ASSERT_EQ(menu.GetMenuItemCount(), 1U);
    const wxMenuItem& shown = *menu.FindItemByPosition(0);
    EXPECT_EQ(item.ShownItem(), &shown);
    EXPECT_EQ(shown.GetId(), 4711);
    EXPECT_EQ(shown.GetItemLabelText(), "Save");
    EXPECT_EQ(shown.GetItemLabel(), "&Save\tCtrl+S") << "a screen reader reads the key too";
    EXPECT_TRUE(shown.GetBitmap().IsOk());
    EXPECT_TRUE(shown.IsEnabled());
}

TEST_F(MenuItemsTest, FlagsBecomeTheStateOfTheShownItem)
{
    items.ShowIn(menu);
    items.AddItem(MenuFlag::Grayed, 1, L"Grayed", {}, 0, 0, {});
    items.AddItem(MenuFlag::Disabled, 2, L"Disabled", {}, 0, 0, {});
    items.AddItem(MenuFlag::Separator, wxID_SEPARATOR, L"", {}, 0, 0, {});
    items.AddItem(MenuFlag::Checkable | MenuFlag::Checked, 4, L"Checked", Picture(), 0, 0, {});
    EXPECT_FALSE(menu.IsEnabled(1));
    EXPECT_FALSE(menu.IsEnabled(2));
    EXPECT_TRUE(menu.FindItemByPosition(2)->IsSeparator());
    EXPECT_TRUE(menu.IsChecked(4));
    EXPECT_FALSE(menu.FindItem(4)->GetBitmap().IsOk()) << "the check mark stands there";
}

TEST_F(MenuItemsTest, APopupMakesItsMenuWhichStandsForTheId)
{
    items.ShowIn(menu);
    CQOXRMMenuItems& popup = items.AddItem(MenuFlag::Popup, 4711, L"&Recent", {}, 0, 0, {});
    ASSERT_NE(popup.Menu(), nullptr);
    EXPECT_EQ(popup.ShownItem()->GetSubMenu(), popup.Menu());
    EXPECT_NE(popup.Id(), 4711);
    popup.AddItem(0, 5, L"&File", {}, 0, 0, {});
    EXPECT_EQ(popup.Menu()->GetMenuItemCount(), 1U);
    EXPECT_EQ(popup.Children().size(), 1U);
}

TEST_F(MenuItemsTest, PopupsOfABarAreItsMenus)
{
    auto* const bar = new wxMenuBar; // owned by the frame
    frame->SetMenuBar(bar);
    items.ShowIn(*bar);
    CQOXRMMenuItems& file = items.AddItem(MenuFlag::Popup, wxID_ANY, L"&File", {}, 0, 0, {});
    file.AddItem(0, wxID_SAVE, L"&Save\tCtrl+S", {}, 0, 0, {});
    ASSERT_EQ(bar->GetMenuCount(), 1U);
    EXPECT_EQ(bar->GetMenu(0), file.Menu());
    EXPECT_EQ(bar->GetMenuLabel(0), "&File");
    EXPECT_NE(bar->FindItem(wxID_SAVE), nullptr);
}

TEST_F(MenuItemsTest, ATypedLetterFindsAChildOfTheMenu)
{
    items.AddItem(0, 1, L"&Open", {}, 0, 0, {});
    items.AddItem(0, 2, L"&Save\tCtrl+S", {}, 0, 0, {});
    EXPECT_EQ(CQOXRMMenuItems::FindMenuChar(L'S', MenuFlag::Popup, &items), MenuCharExecutes << 16U | 1U);
    EXPECT_EQ(CQOXRMMenuItems::FindMenuChar(L'S' - 64, MenuFlag::Popup, &items), MenuCharExecutes << 16U | 1U);
    EXPECT_EQ(CQOXRMMenuItems::FindMenuChar(L'x', MenuFlag::Popup, &items), 0U);
    EXPECT_EQ(CQOXRMMenuItems::FindMenuChar(L'S', 0, &items), 0U);
}

TEST_F(MenuItemsTest, WithoutAMenuNoTypedLetterFindsAnything)
{
    EXPECT_EQ(CQOXRMMenuItems::FindMenuChar(L'S', MenuFlag::Popup, nullptr), 0U);
}

TEST_F(MenuItemsTest, AnItemIsAsWideAsItsTextsInTheFontOfTheMainWindowWithRoomForStripAndKey)
{
    wxTheApp->SetTopWindow(frame);
    frame->SetFont(frame->GetFont().Scale(2));
    wxSize size(0, 200);
    items.AddItem(0, 1, L"&Open", {}, 0, 0, {}).MeasureItem(size);
    EXPECT_EQ(size, wxSize(frame->GetTextExtent("&Open").GetWidth() + 20, 200)) << "the height stays";
    items.AddItem(0, 1, L"&Save\tCtrl+S", {}, 0, 0, {}).MeasureItem(size);
    EXPECT_EQ(size, wxSize(frame->GetTextExtent("&SaveCtrl+S").GetWidth() + 50, 200));
}
