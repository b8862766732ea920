#include "Application/FrameStatusBar.h"

#include "Utilities/Texts.h"

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
        MeasurePane(indicator.pane, LoadText(indicator.text));
    }
    UpdateCount(0); // the keyboard is asked when the window is there
}

void FrameStatusBar::UpdatePanes(const OpenFiles& files)
{
    UpdateCount(files.count);
    const std::array states = { wxGetKeyState(WXK_CAPITAL), wxGetKeyState(WXK_NUMLOCK), wxGetKeyState(WXK_SCROLL),
                                files.activeReadOnly };
    for (std::size_t index = 0; index < Indicators.size(); ++index)
    {
        SetPane(Indicators[index].pane, states[index] ? wxString(LoadText(Indicators[index].text)) : wxString());
    }
}

void FrameStatusBar::UpdateCount(int count)
{
    const wxString text = FormatText(TextId::OpenFileCount, { std::to_wstring(count) });
    if (text != GetStatusText(OpenFilesPane))
    {
        MeasurePane(OpenFilesPane, text);
        SetStatusWidths(PaneCount, m_widths);
        SetStatusText(text, OpenFilesPane);
    }
}

void FrameStatusBar::SetPane(Pane pane, const wxString& text)
{
    if (text != GetStatusText(pane))
    {
        SetStatusText(text, pane);
    }
}

void FrameStatusBar::MeasurePane(Pane pane, const wxString& text)
{
    m_widths[pane] = GetTextExtent(text).GetWidth() + FromDIP(PaneMargin);
    if (pane == PaneCount - 1)
    {
        m_widths[pane] += GetSize().GetHeight(); // the grip of the window, a square, is taken out of it
    }
}
