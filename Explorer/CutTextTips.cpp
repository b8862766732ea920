#include "Explorer/CutTextTips.h"

#include <wx/renderer.h>

namespace
{

// What a cell has around its text.
constexpr int CellPadding = 8;
constexpr int MarginOfBox = 5; // on either side

} // namespace

CutTextTips::CutTextTips(wxListCtrl& list) : m_list(list)
{
    list.Bind(wxEVT_MOTION, &CutTextTips::OnMotion, this);
    list.Bind(wxEVT_LEAVE_WINDOW,
              [this](wxMouseEvent& event)
              {
                  event.Skip();
                  Show({});
              });
}

wxString CutTextTips::CutTextAt(const wxPoint& place) const
{
    int flags = 0;
    const long row = m_list.HitTest(place, flags);
    wxRect cell;
    if (row == wxNOT_FOUND || !m_list.GetItemRect(row, cell))
    {
        return {};
    }
    int left = cell.GetLeft();
    for (int column = 0; column < m_list.GetColumnCount(); ++column)
    {
        const int right = left + m_list.GetColumnWidth(column);
        if (place.x < right)
        {
            const bool hasBox = column == 0 && m_list.HasCheckBoxes();
            const int box = hasBox ? wxRendererNative::Get().GetCheckBoxSize(&m_list).GetWidth() + 2 * MarginOfBox : 0;
            const wxString text = m_list.GetItemText(row, column);
            const int room = right - left - CellPadding - box;
            return m_list.GetTextExtent(text).GetWidth() > room ? text : wxString();
        }
        left = right;
    }
    return {};
}

void CutTextTips::OnMotion(wxMouseEvent& event)
{
    event.Skip();
    Show(CutTextAt(event.GetPosition()));
}

void CutTextTips::Show(const wxString& text)
{
    if (text == m_list.GetToolTipText())
    {
        return; // a tip that is set anew vanishes for a moment
    }
    if (text.empty())
    {
        m_list.UnsetToolTip();
    }
    else
    {
        m_list.SetToolTip(text);
    }
}
