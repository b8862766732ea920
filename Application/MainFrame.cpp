#include "Application/MainFrame.h"

#include "Application/AboutDlg.h"
#include "Application/CommandIcons.h"
#include "Application/Commands.h"
#include "Application/ForwardedFile.h"
#include "Application/FrameBars.h"
#include "Application/MainMenu.h"
#include "Application/TabToolbar.h"
#include "Application/WindowPlace.h"
#include "Modules/ApplicationGlobals.h"

#include <wx/menu.h>
#include <wx/toolbar.h>
#include <wx/utils.h>

namespace
{

constexpr int StartWidth = 1150;
constexpr int StartHeight = 720;

// The largest icon that title bars ask for. Larger ones are for switching between programs, and
// to draw them and hand them to the window system would hold up the window.
constexpr int TitleIconSize = 32;

/// An editor that a module brings along needn't keep the user from the main window, and what
/// takes modules away may take this one away under it.
template <typename Call>
void WhileNoRuleIsEdited(const Call& call)
{
    if (!g_bEditInProgress)
    {
        call();
    }
}

} // namespace

CQOXRMMainFrame::CQOXRMMainFrame(wxDocManager* manager, IMainFrameHost& host)
    : wxDocMDIParentFrame(manager, nullptr, wxID_ANY, LoadText(TextId::ApplicationTitle), wxDefaultPosition,
                          wxDefaultSize, wxDEFAULT_FRAME_STYLE | wxNO_FULL_REPAINT_ON_RESIZE),
      m_host(host)
{
    SetIcons(ProgramIcons(TitleIconSize));
    Bind(wxEVT_ACTIVATE, &CQOXRMMainFrame::OnFirstActivate, this);
    SetName("MainFrame");
    RestorePlace(*this, { StartWidth, StartHeight });
    MakeMenus();
    MakeStatusBar();
    MakeBars(); // they are laid out for the size that the frame has

    DragAcceptFiles(true);
    Bind(wxEVT_DROP_FILES, &CQOXRMMainFrame::OnDropFiles, this);
    BindCommands();
    BindStates();
}

void CQOXRMMainFrame::BindCommands()
{
    Bind(wxEVT_MENU, &CQOXRMMainFrame::OnAbout, this, wxID_ABOUT);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ShowHelp(HelpTopic::Overview); }, wxID_HELP);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ToggleLog(); }, CommandToggleLog);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ChangeUnits(); }, CommandUnitSettings);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { WhileNoRuleIsEdited([this] { m_host.ShowRuleModules(); }); },
        CommandRuleModules);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { WhileNoRuleIsEdited([this] { m_host.ShowDatabaseModules(); }); },
        CommandDatabaseModules);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ShowScriptLocation(); }, CommandScriptLocation);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_bars->ShowSecondToolBar(!m_bars->IsSecondToolBarShown()); },
        CommandSecondToolBar);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent& event) { m_bars->GoToTab(event.GetId() - CommandShowTab); }, CommandShowTab,
        CommandShowTabLast);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_bars->GoToNextPane([this] { FocusRules(); }); }, CommandNextPane);
}

void CQOXRMMainFrame::BindStates()
{
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(m_host.IsLogEnabled()); }, CommandToggleLog);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(m_bars->IsSecondToolBarShown()); },
        CommandSecondToolBar);
    for (const int command : { CommandEditRule, CommandEditRuleButton })
    {
        Bind(
            wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(m_host.IsOneRuleSelected()); }, command);
    }
    for (const int command : { CommandRuleModules, CommandDatabaseModules })
    {
        Bind(
            wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(!g_bEditInProgress); }, command);
    }
    // A view answers for its document; this is for when there is none.
    Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(false); }, CommandSetPassword);
    Bind(wxEVT_IDLE,
         [this](wxIdleEvent& event)
         {
             event.Skip();
             m_statusBar->UpdatePanes(m_host.Files());
         });
}

CQOXRMMainFrame::~CQOXRMMainFrame() = default;

void CQOXRMMainFrame::MakeMenus()
{
    auto* const menuBar = new wxMenuBar; // owned by the frame
    m_mainMenu = std::make_unique<MainMenu>(*menuBar);
    m_fileMenu = m_mainMenu->MenuOf(TextId::MenuFile);
    SetMenuBar(menuBar);
}

void CQOXRMMainFrame::MakeStatusBar()
{
    m_statusBar = new FrameStatusBar(this); // owned by the frame
    SetStatusBar(m_statusBar);
}

void CQOXRMMainFrame::MakeBars()
{
    m_bars = std::make_unique<FrameBars>(*this);
    for (wxWindow* const bar :
         { static_cast<wxWindow*>(&m_bars->Strip()), static_cast<wxWindow*>(&m_bars->SecondToolBar()) })
    {
        bar->Bind(wxEVT_CONTEXT_MENU,
                  [this](wxContextMenuEvent&)
                  {
                      const std::unique_ptr<wxMenu> menu = MakeBarMenu();
                      PopupMenu(menu.get());
                  });
    }
    m_bars->Strip().Bind(wxEVT_CHAR_HOOK,
                         [this](wxKeyEvent& event)
                         {
                             if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers())
                             {
                                 FocusRules();
                                 return;
                             }
                             event.Skip();
                         });
}

std::unique_ptr<wxMenu> CQOXRMMainFrame::MakeBarMenu() const
{
    auto menu = std::make_unique<wxMenu>();
    menu->AppendCheckItem(CommandSecondToolBar, LoadText(TextId::ShowToolbar));
    menu->Check(CommandSecondToolBar, m_bars->IsSecondToolBarShown());
    return menu;
}

void CQOXRMMainFrame::FocusRules()
{
    if (wxMDIChildFrame* const child = GetActiveChild())
    {
        // The first window within takes the keyboard to where the user works.
        wxWindow* const first = child->GetChildren().empty() ? child : child->GetChildren().front();
        first->SetFocus();
    }
}

void CQOXRMMainFrame::ListenToOtherInstances(Platform::InstanceMark& mark)
{
    m_inbox = std::make_unique<Platform::InstanceInbox>(
        mark, GetHandle(),
        Platform::InstanceRequests{ [this] { BringForward(); },
                                    [this](const void* data, std::size_t size) { return OnCopyData(data, size); } });
}

void CQOXRMMainFrame::BringForward()
{
    Show(); // one that was started as a server is hidden
    if (IsIconized())
    {
        Iconize(false);
    }
    Raise();
}

bool CQOXRMMainFrame::OnCopyData(const void* data, std::size_t size)
{
    return TakeForwardedFile(data, size, [this](const std::wstring& path) { m_host.OpenDocumentFile(path); });
}

void CQOXRMMainFrame::OnFirstActivate(wxActivateEvent& event)
{
    event.Skip();
    if (event.GetActive())
    {
        Unbind(wxEVT_ACTIVATE, &CQOXRMMainFrame::OnFirstActivate, this);
        CallAfter([this] { SetIcons(ProgramIcons()); });
    }
}

void CQOXRMMainFrame::OnDropFiles(wxDropFilesEvent& event)
{
    // Later: until this returns, the program that they are dragged from waits, and opening may ask.
    for (int index = 0; index < event.GetNumberOfFiles(); ++index)
    {
        CallAfter([this, path = event.GetFiles()[index].ToStdWstring()] { m_host.OpenDocumentFile(path); });
    }
}

void CQOXRMMainFrame::OnAbout(wxCommandEvent& /*event*/)
{
    CAboutDlg(this).ShowModal();
}
