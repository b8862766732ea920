#pragma once

#include "Explorer/Controls/ScrollBarNeed.h"

#include <wx/event.h>
#include <wx/textctrl.h>

/// What a field posts to itself after each character, to look at its bars once the character
/// is in the text.
wxDECLARE_EVENT(EVT_CHECK_SCROLL_BARS, wxThreadEvent);

/// A text field of several lines, without wrapping, whose scroll bars come and go with the text.
class CQOXRMAutoScrollEdit : public wxTextCtrl
{
public:
    /// `name` is what a screen reader says.
    CQOXRMAutoScrollEdit(wxWindow* parent, wxWindowID id, const wxString& text, const wxString& name,
                         const wxSize& size = wxDefaultSize);

    /// The bars that are shown.
    ScrollBarNeed Bars() const { return m_bars; }

private:
    void CheckLater();
    void CheckScrollBars();

    ScrollBarNeed m_bars;
};
