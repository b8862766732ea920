#include "Application/FrameStatusBar.h"

#include "Utilities/Texts.h"

#include <wx/dcclient.h>
#include <wx/utils.h>

#include <array>

namespace
{

constexpr int PaneMargin = 12;

struct Indicator
{
    FrameStatusBar::Pane pane;
    TextId text;
};

constexpr std::array Indicators = {
    Indicator{ FrameStatusBar::CapsLockPane, TextId::IndicatorCapsLock },
    Indicator{ FrameStatusBar::NumLockPane, TextId::IndicatorNumLock },
    Indicator{ FrameStatusBar::ScrollLockPane, TextId::IndicatorScrollLock },
    Indicator{ FrameStatusBar::ReadOnlyPane, TextId::IndicatorReadOnly },
};

} // namespace

FrameStatusBar::FrameStatusBar(wxWindow* parent) : wxStatusBar(parent)
{
    SetFieldsCount(PaneCount);
    m_widths[MessagePane] = -1;
    for (const Indicator& indicator : Indicators)
    {
        FitPane(indicator.pane, LoadText(indicator.text));
    }
    UpdatePanes({});
}

void FrameStatusBar::UpdatePanes(const OpenFiles& files)
{
    const wxString count = FormatText(TextId::OpenFileCount, { std::to_wstring(files.count) });
    if (count != GetStatusText(OpenFilesPane))
    {
        FitPane(OpenFilesPane, count);
        SetStatusText(count, OpenFilesPane);
    }
    const std::array states = { wxGetKeyState(WXK_CAPITAL), wxGetKeyState(WXK_NUMLOCK), wxGetKeyState(WXK_SCROLL),
                                files.activeReadOnly };
    for (std::size_t index = 0; index < Indicators.size(); ++index)
    {
        SetPane(Indicators[index].pane, states[index] ? wxString(LoadText(Indicators[index].text)) : wxString());
    }
}

void FrameStatusBar::SetPane(Pane pane, const wxString& text)
{
    if (text != GetStatusText(pane))
    {
        SetStatusText(text, pane);
    }
}

void FrameStatusBar::FitPane(Pane pane, const wxString& text)
{
    wxClientDC device(this);
    device.SetFont(GetFont());
    m_widths[pane] = device.GetTextExtent(text).GetWidth() + FromDIP(PaneMargin);
    if (pane == PaneCount - 1)
    {
        m_widths[pane] += GetSize().GetHeight(); // the grip of the window, a square, is taken out of it
    }
    SetStatusWidths(PaneCount, m_widths);
}
