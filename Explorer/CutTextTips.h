#pragma once

#include <wx/listctrl.h>

/// Shows the whole text of a cell in a tip while the mouse is over it, where the column is too
/// narrow for the text.
class CutTextTips
{
public:
    /// The list, in its report form, isn't owned and must live as long.
    explicit CutTextTips(wxListCtrl& list);
    CutTextTips(const CutTextTips&) = delete;
    CutTextTips& operator=(const CutTextTips&) = delete;

    /// The text of the cell at a place of the list, as its mouse events give it, if it is cut;
    /// else empty.
    wxString CutTextAt(const wxPoint& place) const;

private:
    void OnMotion(wxMouseEvent& event);
    void Show(const wxString& text);

    wxListCtrl& m_list;
};
