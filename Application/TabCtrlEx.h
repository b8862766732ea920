#pragma once

#include <wx/notebook.h>

#include <array>

/// The tabs of the command strip, which have pictures and no texts. Each says what it is in a tip.
class CQOXRMTabCtrlEx : public wxNotebook
{
public:
    explicit CQOXRMTabCtrlEx(wxWindow* parent);

    /// Makes the tabs, each with an empty page.
    void InsertTabs();

    /// Makes the pictures again in the colours of the theme.
    void LoadPictures();

    /// The tip of the tab at a place, in this window's coordinates; empty where there is none.
    wxString TipAt(const wxPoint& place) const;

private:
    void OnMouse(wxMouseEvent& event);
};
