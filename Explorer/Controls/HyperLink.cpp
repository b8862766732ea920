#include "Explorer/Controls/HyperLink.h"

#include "Platform/Process.h"
#include "Utilities/ScreenReader.h"

#include <wx/cursor.h>
#include <wx/dcclient.h>
#include <wx/renderer.h>

#include <tuple>
#include <utility>

wxDEFINE_EVENT(EVT_HYPERLINK_CLICKED, wxCommandEvent);

namespace
{

// Above and below the text, for the frame that shows where the keyboard is.
constexpr int FocusMargin = 2;

} // namespace

CHyperLink::CHyperLink(wxWindow* parent, wxWindowID id, const wxString& text, const wxString& target)
    : wxControl(parent, id, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      m_target(target)
{
    SetFont(parent->GetFont().Underlined());
    SetLabel(text.empty() ? EscapeMnemonics(target) : text);
    SetCursor(wxCursor(wxCURSOR_HAND));

    Bind(wxEVT_PAINT, &CHyperLink::OnPaint, this);
    Bind(wxEVT_MOTION, [this](wxMouseEvent& event) { OnMouseMoved(event.GetPosition()); });
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { OnMouseLeft(); });
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { OnMouseLeft(); });
    Bind(wxEVT_LEFT_DOWN,
         [this](wxMouseEvent& event)
         {
             event.Skip(); // gives the link the keyboard
             m_pressed = true;
         });
    Bind(wxEVT_LEFT_UP,
         [this](wxMouseEvent& event)
         {
             if (std::exchange(m_pressed, false) && GetClientRect().Contains(event.GetPosition()))
             {
                 // That nothing opens is all there is to say of a failure.
                 std::ignore = Click();
             }
         });
    Bind(wxEVT_KEY_DOWN,
         [this](wxKeyEvent& event)
         {
             const int key = event.GetKeyCode();
             if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER || key == WXK_SPACE)
             {
                 std::ignore = Click();
                 return;
             }
             event.Skip();
         });
    for (const auto& type : { wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS })
    {
        Bind(type,
             [this](wxFocusEvent& event)
             {
                 event.Skip();
                 Refresh();
             });
    }
    SetInitialSize();
}

CHyperLink::~CHyperLink()
{
    if (HasCapture())
    {
        ReleaseMouse();
    }
}

void CHyperLink::SetNormalColour(LinkColour colour)
{
    m_state.normal = colour;
    Refresh();
}

void CHyperLink::SetHoverColour(LinkColour colour)
{
    m_state.hover = colour;
    Refresh();
}

void CHyperLink::SetVisitedColour(LinkColour colour)
{
    m_state.visitedColour = colour;
    Refresh();
}

void CHyperLink::AdaptColoursToWindow()
{
    constexpr double DarkBelow = 0.5;
    if (GetParent()->GetBackgroundColour().GetLuminance() < DarkBelow)
    {
        m_state.normal = MakeLinkColour(138, 180, 248);
        m_state.hover = MakeLinkColour(255, 138, 128);
        m_state.visitedColour = MakeLinkColour(197, 138, 249);
        Refresh();
    }
}

void CHyperLink::SetLabel(const wxString& label)
{
    wxControl::SetLabel(label);
    SetName(GetLabelText());
    NameForScreenReaders(*this, GetName());
    InvalidateBestSize();
    Refresh();
}

void CHyperLink::OnMouseMoved(const wxPoint& place)
{
    if (!GetClientRect().Contains(place))
    {
        OnMouseLeft();
        return;
    }
    if (m_state.mouseIsOver)
    {
        return;
    }
    m_state.mouseIsOver = true;
    Refresh();
    if (!HasCapture())
    {
        CaptureMouse();
    }
}

void CHyperLink::OnMouseLeft()
{
    m_pressed = false; // the button may come up where the link isn't told
    if (HasCapture())
    {
        ReleaseMouse();
    }
    if (m_state.mouseIsOver)
    {
        m_state.mouseIsOver = false;
        Refresh();
    }
}

bool CHyperLink::Click()
{
    if (HasCapture())
    {
        ReleaseMouse(); // a dialog that the parent shows needs it
    }
    m_state.visited = true;
    Refresh();
    if (!m_state.notifiesParent)
    {
        return Platform::OpenWithDesktop(m_target.ToStdWstring());
    }
    wxCommandEvent event(EVT_HYPERLINK_CLICKED, GetId());
    event.SetEventObject(this);
    event.SetInt(HyperLinkClickedMessage);
    GetParent()->GetEventHandler()->ProcessEvent(event); // it may end the link
    return true;
}

wxSize CHyperLink::DoGetBestClientSize() const
{
    return GetTextExtent(GetLabelText()) + wxSize(0, 2 * FocusMargin);
}

void CHyperLink::OnPaint(wxPaintEvent& /*event*/)
{
    wxPaintDC dc(this);
    dc.SetFont(GetFont());
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    dc.SetTextForeground(wxColour(static_cast<unsigned long>(m_state.Colour())));
    dc.DrawText(GetLabelText(), 0, FocusMargin); // its start lines up with texts above and below
    if (HasFocus())
    {
        wxRendererNative::Get().DrawFocusRect(this, dc, GetClientRect());
    }
}
