#pragma once

#include <wx/aui/framemanager.h>

/// The docking manager, which here keeps the place of a bar that floats: some window systems tell of
/// the screen's corner before they have put a new window where it is to be, and the manager would
/// take that for the user's choice.
class BarManager : public wxAuiManager
{
protected:
    wxAuiFloatingFrame* CreateFloatingFrame(wxWindow* parent, const wxAuiPaneInfo& pane) override;
};
