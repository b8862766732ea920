#pragma once

#include "Explorer/Controls/FloatingFrameMark.h"

#include <wx/aui/auibar.h>
#include <wx/aui/framemanager.h>

/// A tool bar that can be dragged out of its window and then floats without a close box: what
/// shows and hides it is a command of the program.
class CQOXToolBarEx : public wxAuiToolBar
{
public:
    /// `name` is what a screen reader says, and the caption of the floating bar.
    CQOXToolBarEx(wxWindow* parent, wxWindowID id, const wxString& name, long style = wxAUI_TB_DEFAULT_STYLE);

    /// How the bar is added to a manager: a bar, named, without a close box.
    wxAuiPaneInfo Pane() const;

private:
    void OnMoved();

    const wxWindow* m_home; // not owned; the parent while the bar is docked
    FloatingFrameMark m_mark;
};
