#include "Application/FrameBars.h"

#include "Application/BarPlace.h"
#include "Application/CommandBars.h"
#include "Application/CommandIcons.h"
#include "Application/TabToolbar.h"
#include "Application/WindowPlace.h"

#include <wx/frame.h>
#include <wx/persist.h>
#include <wx/toolbar.h>

#include <algorithm>
#include <optional>

namespace
{

constexpr const wchar_t* StripPane = L"Commands";
constexpr const wchar_t* SecondPane = L"QuickToolBar";

constexpr int StripLayer = 1;
constexpr int SecondLayer = 2; // further outside: it stands to the left of the strip

bool IsSide(const wxAuiPaneInfo& pane)
{
    return pane.IsDocked() && (pane.dock_direction == wxAUI_DOCK_LEFT || pane.dock_direction == wxAUI_DOCK_RIGHT);
}

/// Keeps where the bars are for the next start.
class PersistentBars : public wxPersistentObject
{
public:
    explicit PersistentBars(FrameBars* bars) : wxPersistentObject(bars), m_bars(*bars) {}

    void Save() const override
    {
        SaveValue("Layout", m_bars.Layout());
        SaveValue("Tab", m_bars.Strip().CurrentTab());
    }
    bool Restore() override
    {
        wxString layout;
        if (RestoreValue("Layout", &layout))
        {
            m_bars.SetLayout(layout);
        }
        int tab = 0;
        if (RestoreValue("Tab", &tab) && tab != m_bars.Strip().CurrentTab())
        {
            m_bars.Strip().ShowTab(tab);
        }
        return true;
    }
    wxString GetKind() const override { return "Bars"; }
    wxString GetName() const override { return "MainFrame"; }

private:
    FrameBars& m_bars;
};

} // namespace

FrameBars::FrameBars(wxFrame& frame) : m_frame(frame)
{
    m_manager.SetManagedWindow(&frame);
    m_strip = new CQOXRMTabToolbar(&frame);
    MakeSecondToolBar();
    AddPanes();
    KeepOwnWindows();
    for (wxWindow* const bar : BothBars())
    {
        bar->Bind(wxEVT_SIZE, &FrameBars::OnBarSize, this);
    }
    m_secondBar->Bind(wxEVT_TOOL_ENTER, &FrameBars::OnSecondBarEnter, this);
    m_secondBar->Bind(wxEVT_SYS_COLOUR_CHANGED, &FrameBars::OnSecondBarColours, this);
    wxPersistenceManager::Get().Register(this, new PersistentBars(this)); // which owns it
    wxPersistenceManager::Get().Restore(this);
    if (!FitToDocks())
    {
        m_manager.Update();
    }
}

FrameBars::~FrameBars()
{
    wxPersistenceManager::Get().SaveAndUnregister(this);
    m_manager.UnInit();
    // The bars live a little longer, and hear of the mouse that leaves their windows.
    for (wxWindow* const bar : BothBars())
    {
        bar->Unbind(wxEVT_SIZE, &FrameBars::OnBarSize, this);
    }
    m_secondBar->Unbind(wxEVT_TOOL_ENTER, &FrameBars::OnSecondBarEnter, this);
    m_secondBar->Unbind(wxEVT_SYS_COLOUR_CHANGED, &FrameBars::OnSecondBarColours, this);
}

std::array<wxWindow*, 2> FrameBars::BothBars() const
{
    return { m_strip, m_secondBar };
}

void FrameBars::OnBarSize(wxSizeEvent& event)
{
    event.Skip();
    // The manager tells nobody that the user has moved a bar to another side.
    if (!m_fitRequested)
    {
        m_fitRequested = true;
        m_frame.CallAfter(
            [this]
            {
                m_fitRequested = false;
                FitToDocks();
            });
    }
}

void FrameBars::OnSecondBarEnter(wxCommandEvent& event)
{
    event.Skip();
    // A bar in a window of its own looks for the status bar there.
    if (m_secondBar->GetParent() != &m_frame)
    {
        const bool onTool = event.GetInt() != wxID_ANY;
        m_frame.DoGiveHelp(onTool ? m_secondBar->GetToolLongHelp(event.GetInt()) : wxString(), onTool);
    }
}

void FrameBars::OnSecondBarColours(wxSysColourChangedEvent& event)
{
    event.Skip();
    for (const int id : QuickBarCommands)
    {
        if (m_secondBar->FindById(id) != nullptr)
        {
            m_secondBar->SetToolNormalBitmap(id, CommandIcon(id, m_secondBar->GetForegroundColour()));
        }
    }
}

void FrameBars::MakeSecondToolBar()
{
    m_secondBar =
        new wxToolBar(&m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTB_FLAT | wxTB_VERTICAL | wxTB_NODIVIDER);
    for (const int id : QuickBarCommands)
    {
        if (const Command* const command = FindCommand(id))
        {
            m_secondBar->AddTool(id, ButtonLabelOf(*command), CommandIcon(id, m_secondBar->GetForegroundColour()), {},
                                 command->kind, ToolTipOf(id), LoadText(command->tip));
        }
    }
    m_secondBar->Realize();
}

void FrameBars::AddPanes()
{
    m_manager.AddPane(m_secondBar, wxAuiPaneInfo()
                                       .Name(SecondPane)
                                       .Caption(LoadText(TextId::QuickToolBarTitle))
                                       .ToolbarPane()
                                       .Left()
                                       .Layer(SecondLayer)
                                       .CloseButton(false));
    m_manager.AddPane(m_strip, wxAuiPaneInfo()
                                   .Name(StripPane)
                                   .Caption(LoadText(TextId::CommandStripTitle))
                                   .Top()
                                   .Layer(StripLayer)
                                   .CaptionVisible(false)
                                   .Gripper()
                                   .CloseButton(false)
                                   .PaneBorder(false)
                                   .DockFixed()
                                   .FloatingSize(m_strip->FloatingSize()));
}

void FrameBars::KeepOwnWindows()
{
    // Their close boxes. The toolkit would leave a bar that can't be shown again.
    m_manager.Bind(wxEVT_AUI_PANE_CLOSE,
                   [this](wxAuiManagerEvent& event)
                   {
                       event.Veto();
                       const bool isStrip = event.GetPane()->window == m_strip;
                       m_frame.CallAfter(
                           [this, isStrip]
                           {
                               if (isStrip)
                               {
                                   PaneOf(*m_strip).Dock(); // no command shows it again
                                   m_manager.Update();
                               }
                               else
                               {
                                   ShowSecondToolBar(false);
                               }
                           });
                   });
}

bool FrameBars::FitToDocks()
{
    const bool stripChanged = FitStrip();
    const bool secondChanged = FitSecondBar();
    const bool changed = stripChanged || secondChanged;
    if (changed)
    {
        m_manager.Update();
    }
    return changed;
}

bool FrameBars::FitStrip()
{
    wxAuiPaneInfo& strip = PaneOf(*m_strip);
    const bool atSide = IsSide(strip);
    m_strip->SetVertical(atSide || strip.IsFloating());
    wxSize room = m_frame.GetClientSize();
    if (!atSide && room.GetHeight() < m_strip->HeightOfRows(1))
    {
        return false; // some window systems make a window from next to nothing to its size
    }
    if (m_strip->GetSize().GetWidth() >= m_strip->FloatingSize().GetWidth())
    {
        room.SetWidth(m_strip->GetSize().GetWidth()); // else it has no place yet
    }
    const wxSize wanted = m_strip->WantedSize(room);
    // Only one side of the strip is its own; the other is that of the frame.
    const wxSize least = atSide ? wxSize(wanted.GetWidth(), 0) : wxSize(0, wanted.GetHeight());
    if (!strip.IsDocked() || strip.min_size == least)
    {
        return false;
    }
    strip.BestSize(wanted).MinSize(least).GripperTop(atSide);
    strip.Position(0); // where it was dropped is no reason for a gap
    return true;
}

bool FrameBars::FitSecondBar()
{
    wxAuiPaneInfo& second = PaneOf(*m_secondBar);
    const bool atSide = IsSide(second);
    if (atSide == m_secondBar->IsVertical())
    {
        const wxSize best = m_secondBar->GetBestSize();
        if (second.best_size == best)
        {
            return false;
        }
        second.BestSize(best).MinSize(best);
        return true;
    }
    const long style = m_secondBar->GetWindowStyleFlag() & ~(wxTB_HORIZONTAL | wxTB_VERTICAL);
    m_secondBar->SetWindowStyleFlag(style | (atSide ? wxTB_VERTICAL : wxTB_HORIZONTAL));
    m_secondBar->Realize();
    m_secondBar->InvalidateBestSize();
    const wxSize best = m_secondBar->GetBestSize();
    second.BestSize(best).MinSize(best).FloatingSize(best).GripperTop(atSide);
    return true;
}

bool FrameBars::IsSecondToolBarShown() const
{
    return PaneOf(*m_secondBar).IsShown(); // in a hidden window of its own the bar itself isn't hidden
}

void FrameBars::ShowSecondToolBar(bool show)
{
    PaneOf(*m_secondBar).Show(show);
    m_manager.Update();
}

void FrameBars::GoToTab(int tab)
{
    m_strip->ShowTab(tab);
    m_strip->FocusButtons();
}

bool FrameBars::HoldsKeyboard(const wxWindow& pane) const
{
    const wxWindow* const focus = wxWindow::FindFocus();
    return focus != nullptr && (focus == &pane || pane.IsDescendant(const_cast<wxWindow*>(focus)));
}

void FrameBars::GoToNextPane(const std::function<void()>& toRules)
{
    if (HoldsKeyboard(*m_strip))
    {
        if (IsSecondToolBarShown())
        {
            m_secondBar->SetFocus();
            return;
        }
    }
    else if (!HoldsKeyboard(*m_secondBar))
    {
        m_strip->FocusButtons();
        return;
    }
    toRules();
}

wxString FrameBars::Layout() const
{
    return m_manager.SavePerspective();
}

void FrameBars::SetLayout(const wxString& layout)
{
    const std::optional<BarPlace> strip = SavedBarPlace(layout.ToStdWstring(), StripPane);
    const std::optional<BarPlace> second = SavedBarPlace(layout.ToStdWstring(), SecondPane);
    if (strip && second)
    {
        Put(*m_strip, *strip);
        Put(*m_secondBar, *second);
    }
    wxAuiPaneInfo& stripPane = PaneOf(*m_strip);
    stripPane.Show();
    stripPane.floating_size.IncTo(m_strip->FloatingSize());
    FitToDocks();
    m_manager.Update();
}

void FrameBars::Put(wxWindow& bar, const BarPlace& place)
{
    wxAuiPaneInfo& pane = PaneOf(bar);
    pane.Dock().Direction(place.side).Layer(place.layer).Row(place.row).Show(place.shown);
    // The window may have been larger, and the manager lets bars lie outside of it.
    const wxSize room = m_frame.GetClientSize() - bar.GetBestSize();
    pane.Position(place.position <= (IsSide(pane) ? room.GetHeight() : room.GetWidth()) ? place.position : 0);

    const wxPoint corner(place.floatingX, place.floatingY);
    pane.FloatingPosition(corner);
    if (place.floatingWidth > 0 && place.floatingHeight > 0)
    {
        pane.FloatingSize(place.floatingWidth, place.floatingHeight);
    }
    const int width = std::max(pane.floating_size.GetWidth(), bar.GetBestSize().GetWidth());
    // The screen that it floated on may be gone.
    if (place.floating && IsTitleOnAScreen(wxRect(corner, wxSize(width, 0))))
    {
        pane.Float();
    }
}
