#include "Application/BarManager.h"

#include <wx/aui/floatpane.h>

wxAuiFloatingFrame* BarManager::CreateFloatingFrame(wxWindow* parent, const wxAuiPaneInfo& pane)
{
    wxAuiFloatingFrame* const frame = wxAuiManager::CreateFloatingFrame(parent, pane); // owned by the window system
    frame->Bind(wxEVT_MOVE,
                [isPut = false](wxMoveEvent& event) mutable
                {
                    isPut = isPut || event.GetPosition() != wxPoint(0, 0);
                    event.Skip(isPut);
                });
    return frame;
}
