#include "Application/MainFrame.h"

#include "Application/AboutDlg.h"
#include "Application/CommandBars.h"
#include "Application/CommandIcons.h"
#include "Application/ForwardedFile.h"
#include "Application/MainMenu.h"

#include <wx/menu.h>
#include <wx/persist/toplevel.h>
#include <wx/toolbar.h>
#include <wx/utils.h>

namespace
{

constexpr int StartWidth = 1000;
constexpr int StartHeight = 700;

} // namespace

CQOXRMMainFrame::CQOXRMMainFrame(wxDocManager* manager, IMainFrameHost& host)
    : wxDocMDIParentFrame(manager, nullptr, wxID_ANY, LoadText(TextId::ApplicationTitle), wxDefaultPosition,
                          wxDefaultSize, wxDEFAULT_FRAME_STYLE | wxNO_FULL_REPAINT_ON_RESIZE),
      m_host(host)
{
    MakeMenus();
    MakeToolBar();
    CreateStatusBar();

    DragAcceptFiles(true);
    Bind(wxEVT_DROP_FILES, &CQOXRMMainFrame::OnDropFiles, this);
    Bind(wxEVT_MENU, &CQOXRMMainFrame::OnAbout, this, wxID_ABOUT);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ShowHelp(HelpTopic::Overview); }, wxID_HELP);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ToggleLog(); }, CommandToggleLog);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ChangeUnits(); }, CommandUnitSettings);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ShowRuleModules(); }, CommandRuleModules);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ShowDatabaseModules(); }, CommandDatabaseModules);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_host.ShowScriptLocation(); }, CommandScriptLocation);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(m_host.IsLogEnabled()); }, CommandToggleLog);

    for (const int command : { CommandEditRule, CommandEditRuleButton })
    {
        Bind(
            wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(m_host.IsOneRuleSelected()); }, command);
    }
    // A view answers for its document; this is for when there is none.
    Bind(
        wxEVT_UPDATE_UI, [](wxUpdateUIEvent& event) { event.Enable(false); }, CommandSetPassword);

    SetIcons(ProgramIcons());
    SetName("MainFrame");
    if (!wxPersistenceManager::Get().RegisterAndRestore(this))
    {
        SetSize(FromDIP(wxSize(StartWidth, StartHeight)));
        Centre();
    }
}

CQOXRMMainFrame::~CQOXRMMainFrame() = default;

void CQOXRMMainFrame::MakeMenus()
{
    auto* const menuBar = new wxMenuBar; // owned by the frame
    m_mainMenu = std::make_unique<MainMenu>(*menuBar);
    m_fileMenu = m_mainMenu->MenuOf(TextId::MenuFile);
    SetMenuBar(menuBar);
}

void CQOXRMMainFrame::MakeToolBar()
{
    wxToolBar* const toolBar = CreateToolBar(wxTB_FLAT | wxTB_HORIZONTAL);
    for (const int id : QuickBarCommands)
    {
        const Command& command = *FindCommand(id);
        toolBar->AddTool(id, wxStripMenuCodes(LoadText(command.text), wxStrip_Menu), CommandIcon(id),
                         LoadText(command.tip));
    }
    toolBar->Realize();
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

void CQOXRMMainFrame::OnDropFiles(wxDropFilesEvent& event)
{
    for (int index = 0; index < event.GetNumberOfFiles(); ++index)
    {
        m_host.OpenDocumentFile(event.GetFiles()[index].ToStdWstring());
    }
}

void CQOXRMMainFrame::OnAbout(wxCommandEvent& /*event*/)
{
    CAboutDlg(this).ShowModal();
}
