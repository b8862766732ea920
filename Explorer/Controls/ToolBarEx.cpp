#include "Explorer/Controls/ToolBarEx.h"

#include "Utilities/ScreenReader.h"

#include <wx/minifram.h>
#include <wx/utils.h>

CQOXToolBarEx::CQOXToolBarEx(wxWindow* parent, wxWindowID id, const wxString& name, long style)
    : wxAuiToolBar(parent, id, wxDefaultPosition, wxDefaultSize, style), m_home(parent)
{
    SetName(name);
    NameForScreenReaders(*this, name);
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             event.Skip();
             OnMoved();
         });
    Bind(wxEVT_MOVE,
         [this](wxMoveEvent& event)
         {
             event.Skip();
             OnMoved();
         });
}

wxAuiPaneInfo CQOXToolBarEx::Pane() const
{
    return wxAuiPaneInfo().Name(GetName()).Caption(GetName()).ToolbarPane().CloseButton(false);
}

void CQOXToolBarEx::OnMoved()
{
    auto* const frame = dynamic_cast<wxMiniFrame*>(wxGetTopLevelParent(this));
    if (m_mark.OnMoved(GetParent() != m_home, frame != nullptr))
    {
        frame->SetWindowStyleFlag(frame->GetWindowStyleFlag() & ~(wxSYSTEM_MENU | wxCLOSE_BOX));
        frame->Refresh();
    }
}
