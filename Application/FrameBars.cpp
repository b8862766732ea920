#include "Application/FrameBars.h"

#include "Application/CommandBars.h"
#include "Application/CommandIcons.h"
#include "Application/TabToolbar.h"

#include <wx/display.h>
#include <wx/frame.h>
#include <wx/persist.h>
#include <wx/toolbar.h>

namespace
{

constexpr const char* StripPane = "Commands";
constexpr const char* SecondPane = "QuickToolBar";

constexpr int StripLayer = 1;
constexpr int SecondLayer = 2; // further outside: it stands to the left of the strip

bool IsSide(const wxAuiPaneInfo& pane)
{
    return pane.IsDocked() && (pane.dock_direction == wxAUI_DOCK_LEFT || pane.dock_direction == wxAUI_DOCK_RIGHT);
}

bool IsOnAScreen(const wxPoint& place)
{
    return wxDisplay::GetFromPoint(place) != wxNOT_FOUND;
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
    for (wxWindow* const bar : { static_cast<wxWindow*>(m_strip), static_cast<wxWindow*>(m_secondBar) })
    {
        // The manager tells nobody that the user has moved a bar to another side.
        bar->Bind(wxEVT_SIZE,
                  [this](wxSizeEvent& event)
                  {
                      event.Skip();
                      m_frame.CallAfter([this] { FitToDocks(); });
                  });
    }
    wxPersistenceManager::Get().Register(this, new PersistentBars(this)); // which owns it
    wxPersistenceManager::Get().Restore(this);
    FitToDocks();
    m_manager.Update();
}

FrameBars::~FrameBars()
{
    wxPersistenceManager::Get().SaveAndUnregister(this);
    m_manager.UnInit();
}

void FrameBars::MakeSecondToolBar()
{
    m_secondBar =
        new wxToolBar(&m_frame, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTB_FLAT | wxTB_VERTICAL | wxTB_NODIVIDER);
    for (const int id : QuickBarCommands)
    {
        if (const Command* const command = FindCommand(id))
        {
            m_secondBar->AddTool(id, ButtonLabelOf(*command), CommandIcon(id, m_secondBar->GetForegroundColour()),
                                 ToolTipOf(id), command->kind);
        }
    }
    m_secondBar->Realize();
    m_secondBar->Bind(wxEVT_SYS_COLOUR_CHANGED,
                      [this](wxSysColourChangedEvent& event)
                      {
                          event.Skip();
                          for (const int id : QuickBarCommands)
                          {
                              if (m_secondBar->FindById(id) != nullptr)
                              {
                                  m_secondBar->SetToolNormalBitmap(id,
                                                                   CommandIcon(id, m_secondBar->GetForegroundColour()));
                              }
                          }
                      });
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

void FrameBars::FitToDocks()
{
    if (m_fitting)
    {
        return;
    }
    m_fitting = true;
    const bool stripChanged = FitStrip();
    const bool secondChanged = FitSecondBar();
    if (stripChanged || secondChanged)
    {
        m_manager.Update();
    }
    m_fitting = false;
}

bool FrameBars::FitStrip()
{
    wxAuiPaneInfo& strip = PaneOf(*m_strip);
    const bool atSide = IsSide(strip);
    m_strip->SetVertical(atSide || strip.IsFloating());
    wxSize room = m_frame.GetClientSize();
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
    return m_secondBar->IsShown();
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
    return const_cast<wxAuiManager&>(m_manager).SavePerspective();
}

void FrameBars::SetLayout(const wxString& layout)
{
    const wxString before = Layout();
    if (!layout.Contains(wxString::Format("name=%s;", StripPane)) ||
        !layout.Contains(wxString::Format("name=%s;", SecondPane)) || !m_manager.LoadPerspective(layout, false))
    {
        m_manager.LoadPerspective(before, false);
    }
    wxAuiPaneInfo& strip = PaneOf(*m_strip);
    wxAuiPaneInfo& second = PaneOf(*m_secondBar);
    strip.Show();
    for (wxAuiPaneInfo* const pane : { &strip, &second })
    {
        // The screen that it floated on may be gone.
        if (pane->IsFloating() && !IsOnAScreen(pane->floating_pos))
        {
            pane->Dock();
        }
    }
    // The texts of the layout are of the language that it was saved in.
    strip.Caption(LoadText(TextId::CommandStripTitle));
    second.Caption(LoadText(TextId::QuickToolBarTitle));
    FitToDocks();
    m_manager.Update();
}
