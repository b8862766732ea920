#pragma once

#include "Application/FrameStatusBar.h"
#include "Help/HelpTopics.h"
#include "Platform/SingleInstance.h"

#include <wx/docmdi.h>

#include <memory>

class MainMenu;

/// What the main window hands on to the application.
class IMainFrameHost
{
public:
    virtual ~IMainFrameHost() = default;

    /// Opens a rule file, or brings its window forward if it is open.
    virtual void OpenDocumentFile(const std::wstring& path) = 0;
    /// The commands that act on one rule are enabled.
    virtual bool IsOneRuleSelected() const = 0;
    virtual bool IsLogEnabled() const = 0;
    virtual void ToggleLog() = 0;
    virtual OpenFiles Files() const = 0;

    /// Lets the user choose the units of the active document; without one, does nothing.
    virtual void ChangeUnits() = 0;
    virtual void ShowHelp(HelpTopic topic) = 0;

    /// Has the user change which modules are configured, and brings the program in line.
    virtual void ShowRuleModules() = 0;
    virtual void ShowDatabaseModules() = 0;

    /// Has the user change the folders of scripts and of the rule database.
    virtual void ShowScriptLocation() = 0;
};

class FrameBars;

/// The main window: menus, bars, status bar, and the document windows within.
class CQOXRMMainFrame : public wxDocMDIParentFrame
{
public:
    /// `host` is not owned.
    CQOXRMMainFrame(wxDocManager* manager, IMainFrameHost& host);
    ~CQOXRMMainFrame() override;

    /// Takes what later starts of the program send, from now on.
    void ListenToOtherInstances(Platform::InstanceMark& mark);

    /// Brings the window to the front and restores it if it is minimised.
    void BringForward();

    /// Takes the path that another start sent. False while the editor of a rule is open.
    bool OnCopyData(const void* data, std::size_t size);

    /// The menu that lists the recent files.
    wxMenu* RecentFilesMenu() const { return m_fileMenu; }

    /// The bars that dock at the sides.
    FrameBars& Bars() { return *m_bars; }

    /// What a right click on a bar offers.
    std::unique_ptr<wxMenu> MakeBarMenu() const;

private:
    void MakeMenus();
    void MakeBars();
    void MakeStatusBar();
    void BindCommands();
    void BindStates();
    void FocusRules();
    void OnFirstActivate(wxActivateEvent& event);
    void OnDropFiles(wxDropFilesEvent& event);
    void OnAbout(wxCommandEvent& event);

    IMainFrameHost& m_host;
    std::unique_ptr<MainMenu> m_mainMenu;
    wxMenu* m_fileMenu = nullptr;          // owned by the menu bar
    FrameStatusBar* m_statusBar = nullptr; // owned by the frame
    std::unique_ptr<FrameBars> m_bars;
    std::unique_ptr<Platform::InstanceInbox> m_inbox;
};
