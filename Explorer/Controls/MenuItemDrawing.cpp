#include "Explorer/Controls/MenuItems.h"
#include "Utilities/BitmapColour.h"

#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/colour.h>
#include <wx/control.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/pen.h>
#include <wx/settings.h>

namespace
{

constexpr int StripWidth = 20;
constexpr int BitmapSize = 16;
constexpr int BitmapInset = 2;
constexpr int KeyColumnWidth = 60;
constexpr int GrayedKeyInNormal = 56;
constexpr int GrayedKeyInDeselected = 57;
constexpr MenuColour KeyColourOfBitmaps = 0xC0C0C0;
constexpr MenuColour GrayedText = 0x808080;
constexpr MenuColour White = 0xFFFFFF;

// Where the text stands in its rectangle.
constexpr int TextLeft = 8;
constexpr int TextTop = 4;

wxColour Colour(MenuColour colour)
{
    return wxColour(static_cast<unsigned long>(colour));
}

wxRect IconRectOf(const wxRect& item)
{
    return { item.GetLeft(), item.GetTop(), StripWidth, StripWidth };
}

wxRect TextRectOf(const wxRect& item)
{
    return { item.GetLeft() + StripWidth, item.GetTop(), item.GetWidth() - StripWidth, item.GetHeight() };
}

void Fill(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colour));
    dc.DrawRectangle(rect);
}

void Frame(wxDC& dc, const wxRect& rect, const wxColour& topLeft, const wxColour& bottomRight)
{
    Fill(dc, { rect.GetLeft(), rect.GetTop(), rect.GetWidth(), 1 }, topLeft);
    Fill(dc, { rect.GetLeft(), rect.GetTop(), 1, rect.GetHeight() }, topLeft);
    Fill(dc, { rect.GetLeft(), rect.GetBottom(), rect.GetWidth(), 1 }, bottomRight);
    Fill(dc, { rect.GetRight(), rect.GetTop(), 1, rect.GetHeight() }, bottomRight);
}

wxColour System(wxSystemColour colour)
{
    return wxSystemSettings::GetColour(colour);
}

void DrawSunkenEdge(wxDC& dc, const wxRect& rect)
{
    Frame(dc, rect, System(wxSYS_COLOUR_BTNSHADOW), System(wxSYS_COLOUR_BTNHIGHLIGHT));
}

void DrawRaisedEdge(wxDC& dc, const wxRect& rect)
{
    Frame(dc, rect, System(wxSYS_COLOUR_BTNHIGHLIGHT), System(wxSYS_COLOUR_BTNSHADOW));
}

/// White on every other pixel, on a colour that isn't white.
void FillHalftone(wxDC& dc, const wxRect& rect, MenuColour background)
{
    if (rect.GetWidth() <= 0 || rect.GetHeight() <= 0)
    {
        return;
    }
    const wxColour ground = background == White ? System(wxSYS_COLOUR_BTNFACE) : Colour(background);
    wxImage pattern(rect.GetSize());
    pattern.SetRGB(wxRect(rect.GetSize()), ground.Red(), ground.Green(), ground.Blue());
    for (int y = 0; y < rect.GetHeight(); ++y)
    {
        for (int x = y % 2; x < rect.GetWidth(); x += 2)
        {
            pattern.SetRGB(x, y, 0xFF, 0xFF, 0xFF);
        }
    }
    dc.DrawBitmap(wxBitmap(pattern), rect.GetTopLeft());
}

/// One line of text, its `&` turned into a line below the letter behind it.
void DrawLine(wxDC& dc, const wxString& text, const wxRect& rect, const wxColour& colour)
{
    const wxDCClipper clipper(dc, rect);
    wxString label;
    const int letter = wxControl::FindAccelIndex(text, &label);
    const wxDCTextColourChanger colourChanger(dc, colour);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    dc.DrawLabel(label, rect, wxALIGN_LEFT | wxALIGN_TOP, letter);
}

/// The disabled look: a light edge below and to the right of the text.
void DrawGrayed(wxDC& dc, const wxString& text, const wxRect& rect, const wxColour& colour)
{
    wxRect edge = rect;
    edge.Offset(1, 1);
    DrawLine(dc, text, edge, System(wxSYS_COLOUR_BTNHIGHLIGHT));
    DrawLine(dc, text, rect, colour);
}

} // namespace

void CQOXRMMenuItems::DrawItem(const MenuDrawData& data)
{
    if (m_background == 0)
    {
        m_background = data.dc.GetTextBackground().GetRGB();
    }
    else
    {
        data.dc.SetTextBackground(Colour(m_background));
    }
    const MenuLooks looks = LooksToDraw(data.cause, data.isSelected);
    if (looks.normal)
    {
        DrawNormal(data);
    }
    if (looks.selected)
    {
        DrawSelected(data);
    }
    if (looks.deselected)
    {
        DrawDeselected(data);
    }
}

void CQOXRMMenuItems::DrawNormal(const MenuDrawData& data) const
{
    DrawUnselected(data, GrayedKeyInNormal);
    if (!IsGrayed())
    {
        DrawBitmap(data.dc, IconRectOf(data.rect), m_normalBitmap);
    }
}

void CQOXRMMenuItems::DrawDeselected(const MenuDrawData& data) const
{
    DrawUnselected(data, GrayedKeyInDeselected);
    const wxRect iconRect = IconRectOf(data.rect);
    Fill(data.dc, iconRect, Colour(m_background)); // it may be higher than the item
    DrawBitmap(data.dc, iconRect, IsGrayed() ? m_disabledBitmap : m_normalBitmap);
}

void CQOXRMMenuItems::DrawUnselected(const MenuDrawData& data, int keyFromRight) const
{
    const wxRect textRect = TextRectOf(data.rect);
    Fill(data.dc, data.rect, Colour(m_background));
    if (m_checkFlag)
    {
        FillHalftone(data.dc, textRect, m_background);
        DrawSunkenEdge(data.dc, textRect);
        const wxColour face = System(wxSYS_COLOUR_BTNFACE);
        wxRect inner = textRect;
        Frame(data.dc, inner.Deflate(1), face, face);
    }
    if (!IsGrayed())
    {
        DrawItemText(data.dc, textRect, data.dc.GetTextForeground());
        return;
    }
    wxRect place(textRect.GetLeft() + TextLeft, textRect.GetTop() + TextTop, textRect.GetWidth() - TextLeft,
                 textRect.GetHeight() - TextTop);
    DrawGrayed(data.dc, m_caption.text, place, Colour(GrayedText));
    if (!m_caption.keyText.empty())
    {
        const int left = textRect.GetRight() + 1 - keyFromRight;
        place.SetWidth(place.GetRight() + 1 - left);
        place.SetX(left);
        DrawGrayed(data.dc, m_caption.keyText, place, System(wxSYS_COLOUR_BTNFACE));
    }
}

void CQOXRMMenuItems::DrawSelected(const MenuDrawData& data) const
{
    if (IsGrayed())
    {
        return;
    }
    const wxRect iconRect = IconRectOf(data.rect);
    const wxRect textRect = TextRectOf(data.rect);
    const bool hasBitmap = m_normalBitmap.IsOk();
    if (!IsChecked() && hasBitmap)
    {
        DrawRaisedEdge(data.dc, iconRect);
    }
    if (m_checkFlag)
    {
        DrawSunkenEdge(data.dc, textRect);
    }
    wxRect highlight = hasBitmap ? textRect : data.rect;
    highlight.SetX(highlight.GetX() + 1);
    highlight.SetWidth(highlight.GetWidth() - 1);
    Fill(data.dc, highlight, System(wxSYS_COLOUR_HIGHLIGHT));
    DrawItemText(data.dc, textRect, Colour(White));
}

void CQOXRMMenuItems::DrawItemText(wxDC& dc, const wxRect& textRect, const wxColour& colour) const
{
    constexpr int Inset = 2;
    wxRect moved = textRect;
    moved.Deflate(Inset);
    moved.Offset(TextLeft - Inset, TextTop - Inset);
    const wxRect place = moved;
    DrawLine(dc, m_caption.text, place.Intersect(textRect), colour);
    if (!m_caption.keyText.empty())
    {
        const wxRect column(place.GetRight() + 1 - KeyColumnWidth, place.GetTop(), KeyColumnWidth, place.GetHeight());
        DrawLine(dc, m_caption.keyText, column.Intersect(textRect), colour);
    }
}

void CQOXRMMenuItems::DrawBitmap(wxDC& dc, const wxRect& iconRect, const wxBitmapBundle& bitmap) const
{
    if (!bitmap.IsOk())
    {
        return;
    }
    wxBitmap picture = bitmap.GetBitmap({ BitmapSize, BitmapSize });
    ReplaceColor(picture, m_background, KeyColourOfBitmaps);
    dc.DrawBitmap(picture, iconRect.GetLeft() + BitmapInset, iconRect.GetTop() + BitmapInset, true);
}
