// Items of menus drawn into a picture, looked at pixel by pixel.

#include "Explorer/Controls/MenuItems.h"

#include "tests/Explorer/Controls/ControlFixture.h"
#include "Utilities/BitmapColour.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/settings.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <utility>

namespace
{

constexpr MenuColour Cream = 0xD0FFFF;
constexpr MenuColour White = 0xFFFFFF;
constexpr MenuColour Red = 0x0000FF;
constexpr MenuColour Green = 0x00FF00;
constexpr MenuColour KeyColour = 0xC0C0C0;
constexpr MenuColour Untouched = 0x123456;

const wxSize PictureSize(200, 40);
const wxRect ItemRect(10, 5, 180, 24);
constexpr int TextStart = 10 + 20;

constexpr MenuDrawCause Whole = { true, false };
constexpr MenuDrawCause SelectionChanged = { false, true };

MenuColour System(wxSystemColour colour)
{
    return wxSystemSettings::GetColour(colour).GetRGB();
}

/// A picture of 16 by 16: its middle in a colour, around it what is seen through.
wxBitmapBundle Picture(MenuColour middle)
{
    wxImage image(16, 16);
    image.SetRGB(wxRect(0, 0, 16, 16), 0xC0, 0xC0, 0xC0);
    const wxColour colour(static_cast<unsigned long>(middle));
    image.SetRGB(wxRect(4, 4, 8, 8), colour.Red(), colour.Green(), colour.Blue());
    return wxBitmapBundle::FromBitmap(wxBitmap(image));
}

class MenuItemDrawingTest : public ControlFixture
{
protected:
    MenuItemDrawingTest()
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(wxBrush(wxColour(static_cast<unsigned long>(Untouched))));
        dc.Clear();
    }

    void Draw(CQOXRMMenuItems& item, const MenuDrawCause& cause, bool isSelected = false)
    {
        {
            wxMemoryDC dc(bitmap);
            dc.SetFont(frame->GetFont().Scale(fontScale));
            dc.SetTextForeground(*wxBLACK);
            item.DrawItem({ dc, ItemRect, cause, isSelected });
        }
        image = bitmap.ConvertToImage();
    }

    MenuColour At(int x, int y) const
    {
        return static_cast<MenuColour>(image.GetRed(x, y)) | static_cast<MenuColour>(image.GetGreen(x, y)) << 8U |
               static_cast<MenuColour>(image.GetBlue(x, y)) << 16U;
    }

    int Count(const wxRect& rect, const std::function<bool(MenuColour)>& fits) const
    {
        int count = 0;
        for (int y = rect.GetTop(); y <= rect.GetBottom(); ++y)
        {
            for (int x = rect.GetLeft(); x <= rect.GetRight(); ++x)
            {
                count += fits(At(x, y)) ? 1 : 0;
            }
        }
        return count;
    }

    int CountOf(const wxRect& rect, MenuColour colour) const
    {
        return Count(rect, [colour](MenuColour found) { return found == colour; });
    }

    bool IsAll(const wxRect& rect, MenuColour colour) const
    {
        return CountOf(rect, colour) == rect.GetWidth() * rect.GetHeight();
    }

    /// The first and last column of the rectangle in which something isn't of the colour.
    std::pair<int, int> ColumnsOtherThan(const wxRect& rect, MenuColour colour) const
    {
        std::pair<int, int> columns = { -1, -1 };
        for (int x = rect.GetLeft(); x <= rect.GetRight(); ++x)
        {
            if (!IsAll({ x, rect.GetTop(), 1, rect.GetHeight() }, colour))
            {
                columns = { columns.first < 0 ? x : columns.first, x };
            }
        }
        return columns;
    }

    /// The first row of the rectangle in which something isn't of the colour; -1 for none.
    int FirstRowOtherThan(const wxRect& rect, MenuColour colour) const
    {
        for (int y = rect.GetTop(); y <= rect.GetBottom(); ++y)
        {
            if (!IsAll({ rect.GetLeft(), y, rect.GetWidth(), 1 }, colour))
            {
                return y;
            }
        }
        return -1;
    }

    static constexpr const wchar_t* SaveCaption = L"&Save\tCtrl+S";

    float fontScale = 1; ///< Pixels of thin letters are mixtures of colours.
    wxBitmap bitmap{ PictureSize.GetWidth(), PictureSize.GetHeight(), 24 };
    wxImage image;
    const wxRect strip{ ItemRect.GetLeft(), ItemRect.GetTop(), 20, 20 };
    const wxRect text{ TextStart, ItemRect.GetTop(), 160, ItemRect.GetHeight() };
    const wxRect keyColumn{ ItemRect.GetRight() + 1 - 60, ItemRect.GetTop(), 60, ItemRect.GetHeight() };
};

} // namespace

TEST_F(MenuItemDrawingTest, AnItemHasItsIconInTheStripAndItsTextBehindIt)
{
    CQOXRMMenuItems item(L"&Save", Picture(Red), {}, Cream);
    Draw(item, Whole);
    EXPECT_TRUE(IsAll({ strip.GetLeft() + 6, strip.GetTop() + 6, 8, 8 }, Red)) << "2, 2 from the corner";
    EXPECT_EQ(CountOf(strip, Red), 64);
    EXPECT_EQ(ColumnsOtherThan(text, Cream).first >= TextStart + 8, true);
    EXPECT_GT(Count({ TextStart + 8, text.GetTop() + 4, 60, 20 }, [](MenuColour c) { return c == 0; }), 10);
}

TEST_F(MenuItemDrawingTest, TheTextStands4BelowTheTopOfTheItemAlsoIfItIsGrayed)
{
    // Where the letter begins in its line is the font's matter.
    {
        wxMemoryDC dc(bitmap);
        dc.SetFont(frame->GetFont());
        dc.SetTextForeground(*wxBLACK);
        dc.DrawText("H", 100, 0);
    }
    image = bitmap.ConvertToImage();
    const int inLine = FirstRowOtherThan({ 100, 0, 20, 40 }, Untouched);
    ASSERT_GE(inLine, 0);
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    for (const std::uint32_t flags : { 0U, MenuFlag::Grayed })
    {
        Draw(menu.AddItem(flags, 1, L"H", {}, 0, 0, {}), Whole);
        EXPECT_EQ(FirstRowOtherThan(text, Cream), text.GetTop() + 4 + inLine) << flags;
    }
}

TEST_F(MenuItemDrawingTest, AStripThatIsHigherThanItsItemIsFilledAfterTheMouseHasLeft)
{
    CQOXRMMenuItems item(L"", Picture(Red), {}, Cream);
    {
        wxMemoryDC dc(bitmap);
        item.DrawItem({ dc, wxRect(10, 5, 180, 12), SelectionChanged });
    }
    image = bitmap.ConvertToImage();
    EXPECT_EQ(CountOf(strip, Cream), 20 * 20 - 64);
    EXPECT_TRUE(IsAll({ TextStart, 5 + 12, 160, 8 }, Untouched));
}

TEST_F(MenuItemDrawingTest, NothingIsDrawnOutsideTheItem)
{
    for (const bool isSelected : { false, true })
    {
        CQOXRMMenuItems item(L"&Save a text that is far too long for such a narrow item\tCtrl+Alt+Shift+S",
                             Picture(Red), {}, Cream);
        item.SetCheckFlag(true);
        Draw(item, Whole, isSelected);
        EXPECT_EQ(CountOf({ wxPoint(0, 0), PictureSize }, Untouched),
                  PictureSize.GetWidth() * PictureSize.GetHeight() - ItemRect.GetWidth() * ItemRect.GetHeight());
    }
}

TEST_F(MenuItemDrawingTest, WhatIsSeenThroughInAnIconIsOfTheBackgroundsColour)
{
    CQOXRMMenuItems item(L"", Picture(Red), {}, Cream);
    Draw(item, Whole);
    EXPECT_EQ(CountOf(ItemRect, KeyColour), 0);
    EXPECT_EQ(CountOf(strip, Cream), 20 * 20 - 64);
}

TEST_F(MenuItemDrawingTest, WithoutAColourTheBackgroundIsTheDevicesAndIsKept)
{
    CQOXRMMenuItems item(L"", {}, {}, 0);
    {
        wxMemoryDC dc(bitmap);
        dc.SetTextBackground(wxColour(static_cast<unsigned long>(Green)));
        item.DrawItem({ dc, ItemRect, Whole });
    }
    EXPECT_EQ(item.Background(), Green);
    {
        wxMemoryDC dc(bitmap);
        dc.SetTextBackground(wxColour(static_cast<unsigned long>(Red)));
        item.DrawItem({ dc, ItemRect, Whole });
        EXPECT_EQ(dc.GetTextBackground().GetRGB(), Green) << "the device gets it";
    }
    image = bitmap.ConvertToImage();
    EXPECT_TRUE(IsAll(ItemRect, Green));
}

TEST_F(MenuItemDrawingTest, TheHighlightCoversTheTextRectangleBesideAnIcon)
{
    CQOXRMMenuItems item(L"", Picture(Red), {}, Cream);
    Draw(item, Whole, true);
    const MenuColour highlight = System(wxSYS_COLOUR_HIGHLIGHT);
    EXPECT_TRUE(IsAll({ TextStart + 1, text.GetTop(), 159, 24 }, highlight));
    EXPECT_TRUE(IsAll({ TextStart, text.GetTop(), 1, 24 }, Cream)) << "its left edge is moved in by one";
    EXPECT_EQ(CountOf(strip, Red), 64);
}

TEST_F(MenuItemDrawingTest, TheHighlightCoversTheWholeItemWithoutAnIcon)
{
    CQOXRMMenuItems item(L"", {}, {}, Cream);
    Draw(item, Whole, true);
    EXPECT_TRUE(IsAll({ 11, 5, 179, 24 }, System(wxSYS_COLOUR_HIGHLIGHT)));
    EXPECT_TRUE(IsAll({ 10, 5, 1, 24 }, Cream));
}

TEST_F(MenuItemDrawingTest, TheTextOfASelectedItemIsWhite)
{
    CQOXRMMenuItems item(L"SAVE\tCtrl+S", {}, {}, Cream);
    Draw(item, Whole, true);
    EXPECT_GT(CountOf({ TextStart + 8, text.GetTop(), 50, 24 }, White), 5);
    EXPECT_GT(CountOf(keyColumn, White), 5);
    EXPECT_EQ(CountOf(ItemRect, 0), 0);
}

TEST_F(MenuItemDrawingTest, AfterTheSelectionTheItemIsAsBefore)
{
    CQOXRMMenuItems item(SaveCaption, Picture(Red), {}, Cream);
    Draw(item, Whole);
    const wxImage before = image.Copy();
    Draw(item, SelectionChanged, true);
    EXPECT_NE(0, std::memcmp(before.GetData(), image.GetData(), 3U * 200 * 40));
    Draw(item, SelectionChanged, false);
    EXPECT_EQ(0, std::memcmp(before.GetData(), image.GetData(), 3U * 200 * 40));
}

TEST_F(MenuItemDrawingTest, AnIconHasARaisedEdgeWhileItsItemIsSelected)
{
    CQOXRMMenuItems item(L"", Picture(Red), {}, Cream);
    Draw(item, Whole, true);
    const MenuColour light = System(wxSYS_COLOUR_BTNHIGHLIGHT);
    const MenuColour dark = System(wxSYS_COLOUR_BTNSHADOW);
    EXPECT_EQ(At(strip.GetLeft(), strip.GetTop() + 5), light);
    EXPECT_EQ(At(strip.GetLeft() + 5, strip.GetTop()), light);
    EXPECT_EQ(At(strip.GetRight(), strip.GetTop() + 5), dark);
    EXPECT_EQ(At(strip.GetLeft() + 5, strip.GetBottom()), dark);
}

TEST_F(MenuItemDrawingTest, ACheckedItemHasNoRaisedEdge)
{
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    CQOXRMMenuItems& item = menu.AddItem(MenuFlag::Checked, 1, L"", Picture(Red), 0, 0, {});
    Draw(item, Whole, true);
    EXPECT_TRUE(IsAll({ strip.GetLeft(), strip.GetTop(), 20, 2 }, Cream));
    EXPECT_TRUE(IsAll({ strip.GetLeft(), strip.GetTop(), 2, 20 }, Cream));
}

TEST_F(MenuItemDrawingTest, APressedItemIsHalftoneInsideASunkenEdgeAndAFrame)
{
    CQOXRMMenuItems item(L"", {}, {}, Cream);
    item.SetCheckFlag(true);
    Draw(item, Whole);
    const MenuColour light = System(wxSYS_COLOUR_BTNHIGHLIGHT);
    const MenuColour dark = System(wxSYS_COLOUR_BTNSHADOW);
    const MenuColour face = System(wxSYS_COLOUR_BTNFACE);
    EXPECT_EQ(At(text.GetLeft(), text.GetTop() + 5), dark);
    EXPECT_EQ(At(text.GetLeft() + 5, text.GetTop()), dark);
    EXPECT_EQ(At(text.GetRight(), text.GetTop() + 5), light);
    EXPECT_EQ(At(text.GetLeft() + 5, text.GetBottom()), light);
    for (const wxPoint place :
         { wxPoint{ text.GetLeft() + 1, text.GetTop() + 5 }, wxPoint{ text.GetLeft() + 5, text.GetTop() + 1 },
           wxPoint{ text.GetRight() - 1, text.GetTop() + 5 }, wxPoint{ text.GetLeft() + 5, text.GetBottom() - 1 } })
    {
        EXPECT_EQ(At(place.x, place.y), face);
    }
    const wxRect inside = wxRect(text).Deflate(2);
    EXPECT_EQ(CountOf(inside, White), inside.GetWidth() * inside.GetHeight() / 2);
    EXPECT_EQ(CountOf(inside, Cream), inside.GetWidth() * inside.GetHeight() / 2);
    EXPECT_NE(At(inside.GetLeft(), inside.GetTop()), At(inside.GetLeft() + 1, inside.GetTop()));
    EXPECT_NE(At(inside.GetLeft(), inside.GetTop()), At(inside.GetLeft(), inside.GetTop() + 1));
    EXPECT_TRUE(IsAll(strip, Cream));
}

TEST_F(MenuItemDrawingTest, AMenuWithPureWhiteAsItsBackgroundDrawsTheHalftoneOnTheButtonFaceColour)
{
    const MenuColour face = System(wxSYS_COLOUR_BTNFACE);
    ASSERT_NE(face, White);
    CQOXRMMenuItems item(L"", {}, {}, White);
    item.SetCheckFlag(true);
    Draw(item, Whole);
    const wxRect inside = wxRect(text).Deflate(2);
    EXPECT_EQ(CountOf(inside, face), inside.GetWidth() * inside.GetHeight() / 2);
    EXPECT_TRUE(IsAll(strip, White));
}

TEST_F(MenuItemDrawingTest, ASelectedPressedItemHasItsEdgeBelowTheHighlight)
{
    CQOXRMMenuItems item(L"", Picture(Red), {}, Cream);
    item.SetCheckFlag(true);
    Draw(item, Whole, true);
    EXPECT_EQ(At(text.GetLeft(), text.GetTop() + 5), System(wxSYS_COLOUR_BTNSHADOW));
    EXPECT_EQ(At(text.GetLeft() + 5, text.GetTop() + 5), System(wxSYS_COLOUR_HIGHLIGHT));
}

TEST_F(MenuItemDrawingTest, AGrayedItemDoesntChangeItsLookWhenTheMousePassesOverIt)
{
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    CQOXRMMenuItems& item = menu.AddItem(MenuFlag::Grayed, 1, SaveCaption, Picture(Red), 0, 0, Picture(Green));
    item.SetCheckFlag(true);
    Draw(item, Whole);
    const wxImage before = image.Copy();
    Draw(item, SelectionChanged, true);
    EXPECT_EQ(0, std::memcmp(before.GetData(), image.GetData(), 3U * 200 * 40));
}

TEST_F(MenuItemDrawingTest, ADisabledItemLooksLikeAGrayedOne)
{
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    Draw(menu.AddItem(MenuFlag::Grayed, 1, SaveCaption, Picture(Red), 0, 0, {}), Whole);
    const wxImage grayed = image.Copy();
    Draw(menu.AddItem(MenuFlag::Disabled, 1, SaveCaption, Picture(Red), 0, 0, {}), Whole);
    EXPECT_EQ(0, std::memcmp(grayed.GetData(), image.GetData(), 3U * 200 * 40));
}

TEST_F(MenuItemDrawingTest, TheTextOfAGrayedItemIsGrayWithALightEdge)
{
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    fontScale = 3;
    Draw(menu.AddItem(MenuFlag::Grayed, 1, L"HHHH", Picture(Red), 0, 0, Picture(Green)), Whole);
    EXPECT_GT(CountOf(text, 0x808080), 10);
    // The edge is bluer than the background; gray is mixed into most of it.
    ASSERT_GT(System(wxSYS_COLOUR_BTNHIGHLIGHT) >> 16U, 0xE8U);
    EXPECT_GT(Count(text, [](MenuColour colour) { return colour >> 16U > 0xD8U; }), 10);
    EXPECT_EQ(CountOf(text, 0), 0);
    EXPECT_GE(ColumnsOtherThan(text, Cream).first, TextStart + 8);
    EXPECT_TRUE(IsAll(strip, Cream)) << "its icon comes only after the mouse was there";
}

TEST_F(MenuItemDrawingTest, AGrayedItemThatTheMouseHasLeftShowsItsDisabledIcon)
{
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    CQOXRMMenuItems& item = menu.AddItem(MenuFlag::Grayed, 1, SaveCaption, Picture(Red), 0, 0, Picture(Green));
    Draw(item, SelectionChanged, false);
    EXPECT_EQ(CountOf(strip, Green), 64);
    EXPECT_EQ(CountOf(strip, Red), 0);
}

TEST_F(MenuItemDrawingTest, TheKeyOfAGrayedItemStarts56FromTheRightAnd57AfterTheMouseHasLeft)
{
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    CQOXRMMenuItems& item = menu.AddItem(MenuFlag::Grayed, 1, L"\tHHH", {}, 0, 0, {});
    Draw(item, Whole);
    const int first = ColumnsOtherThan(ItemRect, Cream).first;
    Draw(item, SelectionChanged, false);
    EXPECT_EQ(ColumnsOtherThan(ItemRect, Cream).first, first - 1);
    EXPECT_GE(first, ItemRect.GetRight() + 1 - 56);
    EXPECT_LE(first, ItemRect.GetRight() + 1 - 56 + 3) << "where the letter begins";
}

TEST_F(MenuItemDrawingTest, TheKeyColumnIs60WideAndALongerKeyTextIsClipped)
{
    CQOXRMMenuItems item(L"\tWWWWWWWWWWWWWWWW", {}, {}, Cream);
    Draw(item, Whole);
    const auto [first, last] = ColumnsOtherThan(ItemRect, Cream);
    EXPECT_GE(first, ItemRect.GetRight() + 1 - 56);
    EXPECT_LE(first, ItemRect.GetRight() + 1 - 53);
    EXPECT_EQ(last, ItemRect.GetRight()) << "up to the end of the item, and not beyond";
    EXPECT_EQ(
        Count({ wxPoint(0, 0), PictureSize }, [](MenuColour colour) { return colour != Untouched && colour != Cream; }),
        Count(keyColumn, [](MenuColour colour) { return colour != Cream; }));
}

TEST_F(MenuItemDrawingTest, TheStateOfAShownItemIsThatOfItsMenu)
{
    wxMenu shownMenu;
    CQOXRMMenuItems menu(L"", {}, {}, Cream);
    menu.ShowIn(shownMenu);
    CQOXRMMenuItems& item = menu.AddItem(0, 1, L"HHHH", {}, 0, 0, {});
    Draw(item, Whole);
    EXPECT_GT(CountOf(text, 0), 10);
    shownMenu.Enable(1, false);
    Draw(item, Whole);
    EXPECT_EQ(CountOf(text, 0), 0);
    EXPECT_GT(CountOf(text, 0x808080), 10);
}

TEST_F(MenuItemDrawingTest, TheAmpersandIsALineBelowItsLetter)
{
    CQOXRMMenuItems plain(L"HHH", {}, {}, Cream);
    Draw(plain, Whole);
    const int letters = Count(text, [](MenuColour colour) { return colour != Cream; });
    const auto columns = ColumnsOtherThan(text, Cream);
    CQOXRMMenuItems withLetter(L"H&HH", {}, {}, Cream);
    Draw(withLetter, Whole);
    EXPECT_EQ(ColumnsOtherThan(text, Cream), columns) << "no room of its own";
    EXPECT_GT(Count(text, [](MenuColour colour) { return colour != Cream; }), letters);
}

TEST_F(MenuItemDrawingTest, OnePixelColourOfABitmapIsReplaced)
{
    wxBitmap picture = Picture(Red).GetBitmap({ 16, 16 });
    ReplaceColor(picture, Cream, KeyColour);
    const wxImage replaced = picture.ConvertToImage();
    EXPECT_EQ(replaced.GetRed(0, 0), 0xFF);
    EXPECT_EQ(replaced.GetBlue(0, 0), 0xD0);
    EXPECT_EQ(replaced.GetRed(8, 8), 0xFF);
    EXPECT_EQ(replaced.GetBlue(8, 8), 0x00);
    wxBitmap none;
    ReplaceColor(none, Cream, KeyColour);
    EXPECT_FALSE(none.IsOk());
}
