#pragma once

#include "Application/CommandLine.h"
#include "Application/DocumentManager.h"
#include "Application/MainFrame.h"
#include "Application/ResourceLanguage.h"
#include "Application/WindowPrompt.h"
#include "Document/UserRuleFile.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/ModuleSet.h"

#include <wx/app.h>

#include <memory>
#include <string>
#include <vector>

class CQoxRule;

/// The application: start, end, and what concerns all documents.
class CQOXRMConfigModuleApp : public wxApp, public IRuleApplication, private IMainFrameHost
{
public:
    CQOXRMConfigModuleApp();
    ~CQOXRMConfigModuleApp() override;

    bool OnInit() override;
    int OnRun() override;
    int OnExit() override;

    /// All languages of the program are written from the left, whatever the desktop's is.
    wxLayoutDirection GetLayoutDirection() const override { return wxLayout_LeftToRight; }

    ModuleSet& Modules() override { return m_modules; }
    IUserPrompt& Prompt() override { return m_prompt; }
    void ShowHelp(HelpTopic topic) override;
    void SetDocOpenState(int state) override { nDocOpenState = state; }
    Platform::LibraryHandle Framework() override;

    /// A user-defined rule was added, deleted or changed: rewrites the file of user-defined
    /// rules and tells every open document. `name` is the rule's name before the edit. A
    /// null rule, or for adding one that isn't a `ConcreteQOXRule`, does nothing.
    void OnAddRule(CQoxRule* rule);
    void OnDeleteRule(CQoxRule* rule);
    void OnEditRule(const std::wstring& name, CQoxRule* rule);

    /// After the configured rule modules changed: loads and unloads, and reads every
    /// document again that isn't modified.
    void OnRuleModulesChanged();

    /// After the configured database modules changed.
    void OnDatabaseModulesChanged();

private:
    /// The steps of the start, in their order. False ends the program.
    bool InitInstance();
    bool IsAnotherInstanceRunning() const;
    void ForwardToRunningInstance();
    void LoadAllModules();
    bool MakeMainWindow();
    void UpdateRegistration();
    bool OpenInitialDocument();
    bool ProcessShellCommand();
    void ExitInstance();

    void ChangeUserRule(CQoxRule* rule, UserRuleChange change, const std::wstring& name);
    void NotifyDocuments(CQoxRule* rule, UserRuleChange change, const std::wstring& name);

    void OpenDocumentFile(const std::wstring& path) override;
    void OpenWaitingFiles();
    bool IsOneRuleSelected() const override { return nDocOpenState != 0; }
    bool IsLogEnabled() const override { return bLogEnabled; }
    void ToggleLog() override;
    OpenFiles Files() const override;
    void ChangeUnits() override;
    void ShowRuleModules() override;
    void ShowDatabaseModules() override;
    void ShowScriptLocation() override;

    int nDocOpenState = 0;
    bool bLogEnabled = false;
    bool m_started = false;
    bool m_automationStarted = false;
    LanguageResources m_language;
    WindowPrompt m_prompt;
    ModuleSet m_modules;
    CommandLine m_commandLine;
    std::vector<std::wstring> m_waitingFiles; // that came while the user was being asked
    MdiViewFrames m_viewFrames;
    std::unique_ptr<RuleDocManager> m_documents;
    CQOXRMMainFrame* m_mainFrame = nullptr; // owned by the window system
};

/// The mark of the first instance, made before the application object.
extern Platform::InstanceMark g_singleInstance;

wxDECLARE_APP(CQOXRMConfigModuleApp);
