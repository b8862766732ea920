#include "Explorer/Controls/AutoScrollEdit.h"

#include "Platform/ScrollBars.h"
#include "Utilities/ScreenReader.h"

wxDEFINE_EVENT(EVT_CHECK_SCROLL_BARS, wxThreadEvent);

CQOXRMAutoScrollEdit::CQOXRMAutoScrollEdit(wxWindow* parent, wxWindowID id, const wxString& text, const wxString& name,
                                           const wxSize& size)
    : wxTextCtrl(parent, id, text, wxDefaultPosition, size, wxTE_MULTILINE | wxTE_DONTWRAP, wxDefaultValidator, name)
{
    NameForScreenReaders(*this, name);
    Bind(EVT_CHECK_SCROLL_BARS, [this](wxThreadEvent&) { CheckScrollBars(); });
    // Whatever has changed the text: a character, a paste, the program.
    Bind(wxEVT_TEXT,
         [this](wxCommandEvent& event)
         {
             event.Skip();
             CheckLater();
         });
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             event.Skip();
             CheckLater();
         });
    CheckScrollBars();
}

void CQOXRMAutoScrollEdit::CheckLater()
{
    QueueEvent(new wxThreadEvent(EVT_CHECK_SCROLL_BARS)); // owned by the queue
}

void CQOXRMAutoScrollEdit::CheckScrollBars()
{
    const int lineHeight = GetTextExtent("Ag").GetHeight();
    const wxSize client = GetClientSize();
    m_bars = ScrollBarsFor(GetValue().ToStdWstring(), lineHeight, client.GetWidth(), client.GetHeight(),
                           [this](const std::wstring& line) { return GetTextExtent(line).GetWidth(); });
    Platform::ShowScrollBars(GetHandle(), { m_bars.horizontal, m_bars.vertical });
}
