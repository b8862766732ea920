#pragma once

#include "Explorer/Controls/HyperLinkState.h"

#include <wx/control.h>
#include <wx/event.h>

/// What a link tells its parent when it is clicked, if it was asked to: its id, and
/// `HyperLinkClickedMessage` as the number.
wxDECLARE_EVENT(EVT_HYPERLINK_CLICKED, wxCommandEvent);

/// A text that opens a file or an address, or tells its parent, when it is clicked. Reached by
/// Tab, and clicked with Enter and the space bar too.
class CHyperLink : public wxControl
{
public:
    /// Without a text, the target is shown. The font is the parent's, underlined.
    CHyperLink(wxWindow* parent, wxWindowID id, const wxString& text, const wxString& target = wxString());
    ~CHyperLink() override;

    void SetTarget(const wxString& target) { m_target = target; }
    const wxString& Target() const { return m_target; }

    /// A click tells the parent by `EVT_HYPERLINK_CLICKED` and opens nothing.
    void SetNotifyParent(bool notify) { m_state.notifiesParent = notify; }

    void SetNormalColour(LinkColour colour);
    void SetHoverColour(LinkColour colour);
    void SetVisitedColour(LinkColour colour);
    LinkColour NormalColour() const { return m_state.normal; }
    LinkColour HoverColour() const { return m_state.hover; }
    LinkColour VisitedColour() const { return m_state.visitedColour; }

    /// Takes colours that can be read where the window is dark; elsewhere they stay. For links
    /// whose colours nobody has chosen.
    void AdaptColoursToWindow();

    bool IsMouseOver() const { return m_state.mouseIsOver; }
    bool IsVisited() const { return m_state.visited; }
    /// What the text is painted with now.
    LinkColour ShownColour() const { return m_state.Colour(); }

    /// The tip of the link, which is shown only once this was called.
    void SetTip(const wxString& tip) { SetToolTip(tip); }

    void SetLabel(const wxString& label) override;

    /// What a click does. False if the target could not be opened.
    bool Click();

protected:
    wxSize DoGetBestClientSize() const override;

private:
    void OnPaint(wxPaintEvent& event);
    void OnMouseMoved(const wxPoint& place);
    void OnMouseLeft();

    wxString m_target;
    HyperLinkState m_state;
    bool m_pressed = false; ///< The mouse button went down on the link.
};
