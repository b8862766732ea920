#include "Application/ConfigModuleApp.h"

#include "Application/HelpFile.h"
#include "Application/LogFolder.h"
#include "Application/Registration.h"
#include "Application/ToolkitTexts.h"
#include "Authoring/ScriptLocnDlg.h"
#include "Document/ConfigModuleDoc.h"
#include "Document/ModuleReload.h"
#include "Document/UnitSettingDlg.h"
#include "Explorer/ListCtrlEx.h"
#include "Explorer/RuleEditorDlg.h"
#include "Modules/FrameworkLibrary.h"
#include "Modules/ModuleConfiguration.h"
#include "Modules/ModuleRegDlgs.h"
#include "Platform/Automation.h"
#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Fonts.h"
#include "Platform/Process.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/DataHelper.h>
#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/ModuleTexts.h>
#include <Vantrel/RuleEditor.h>
#include <Vantrel/VantrelLog.h>

#include <wx/config.h>
#include <wx/stdpaths.h>

#include <utility>
#include <vector>

namespace
{

constexpr const wchar_t* InitialName = L"Vantrel Rule Manager";
constexpr const wchar_t* ProfileVendor = L"Local AppWizard-Generated Applications";
constexpr const wchar_t* ProfileFile = L"vantrel-rule-manager";

IDatabaseCollector* DatabaseCollector()
{
    return qox_db::QOXDataHelper::getInstance();
}

std::vector<std::wstring> ProgramArguments(const wxArrayString& arguments)
{
    std::vector<std::wstring> result;
    for (std::size_t index = 1; index < arguments.size(); ++index)
    {
        result.push_back(arguments[index].ToStdWstring());
    }
    return result;
}

std::vector<CQOXRMConfigModuleDoc*> OpenDocuments(RuleDocManager& manager)
{
    std::vector<CQOXRMConfigModuleDoc*> documents;
    for (wxDocument* const document : manager.GetDocumentsVector())
    {
        if (auto* const ruleDocument = dynamic_cast<CQOXRMConfigModuleDoc*>(document))
        {
            documents.push_back(ruleDocument);
        }
    }
    return documents;
}

} // namespace

CQOXRMConfigModuleApp::CQOXRMConfigModuleApp()
{
    SetAppName(InitialName);
}

CQOXRMConfigModuleApp::~CQOXRMConfigModuleApp()
{
    SetModuleTextSource(nullptr);
    UseTextLibrary(nullptr);
}

bool CQOXRMConfigModuleApp::OnInit()
{
    Platform::UseUserLocale();
    Platform::TakeOverStoredEnvironment();
    m_started = InitInstance();
    // Also a start that stops here ends through OnExit, with a status of 0: a file handed
    // to the first instance or a package imported is no failure.
    return true;
}

int CQOXRMConfigModuleApp::OnRun()
{
    return m_started ? wxApp::OnRun() : 0;
}

int CQOXRMConfigModuleApp::OnExit()
{
    ExitInstance();
    return wxApp::OnExit();
}

bool CQOXRMConfigModuleApp::InitInstance()
{
    if (IDatabaseCollector* const collector = DatabaseCollector())
    {
        collector->OnCollectorStart();
    }
    InitResourceLibrary(m_language, Platform::ProgramPath());
    TranslateToolkit();
    const std::wstring title = LoadText(TextId::ApplicationTitle);
    SetAppName(title);
    SetAppDisplayName(title);
    nDocOpenState = 0;
    if (IsAnotherInstanceRunning())
    {
        ForwardToRunningInstance();
        return false;
    }
    g_pApp = this;

    m_automationStarted = Platform::InitializeAutomation();
    if (!m_automationStarted)
    {
        m_prompt.ShowBox(BoxKind::Error, LoadText(TextId::AutomationFailed), title);
        return false;
    }
    wxStandardPaths::Get().SetFileLayout(wxStandardPaths::FileLayout_XDG);
    wxConfigBase::Set(new wxConfig(title, ProfileVendor, ProfileFile)); // owned by the toolkit

    const Platform::LibraryHandle framework = LoadFrameworkLibrary();
    if (const auto onStart = FindFrameworkFunction<OnStartApplicationFunction>(framework, "OnStartApplication"))
    {
        onStart();
    }
    Platform::PrepareFonts(); // while the modules load
    ReadConfigModules(m_modules.ConfigModulePaths());
    ReadDBModules(m_modules.DBModulePaths());
    LoadAllModules();

    if (!MakeMainWindow())
    {
        return false;
    }
    SetRuleEditor(EditRuleInWindow);
    Registration::RegisterFileTypes();
    m_commandLine = ParseCommandLine(ProgramArguments(argv.GetArguments()));
    if (m_commandLine.IsServerStart())
    {
        // Later starts hand their files to this one, which shows itself then.
        m_mainFrame->ListenToOtherInstances(g_singleInstance);
        return true;
    }
    UpdateRegistration();
    return OpenInitialDocument();
}

bool CQOXRMConfigModuleApp::IsAnotherInstanceRunning() const
{
    return g_singleInstance.CreationError() == Platform::InstanceMark::AlreadyExists;
}

void CQOXRMConfigModuleApp::ForwardToRunningInstance()
{
    const CommandLine commandLine = ParseCommandLine(ProgramArguments(argv.GetArguments()));
    // The first instance has another current folder.
    Platform::ForwardToInstance(g_singleInstance, Platform::AbsolutePath(commandLine.fileName));
}

void CQOXRMConfigModuleApp::LoadAllModules()
{
    ModuleSet::Handles listConfigModulesToFree;
    ModuleSet::Handles listDBModulesToFree;
    m_modules.LoadConfigModules(listConfigModulesToFree);
    ModuleSet::FreeModules(listConfigModulesToFree);
    m_modules.LoadDBModules(listDBModulesToFree);
    ModuleSet::FreeModules(listDBModulesToFree);
    m_modules.UpdateDBModuleList();
}

bool CQOXRMConfigModuleApp::MakeMainWindow()
{
    m_prompt.OnAnswered(
        [this]
        {
            if (!m_waitingFiles.empty())
            {
                CallAfter(&CQOXRMConfigModuleApp::OpenWaitingFiles); // once the work that asked has ended
            }
        });
    m_documents = std::make_unique<RuleDocManager>();
    if (m_documents->MakeRuleTemplate() == nullptr)
    {
        return false;
    }
    m_mainFrame = new CQOXRMMainFrame(m_documents.get(), *this); // owned by the window system
    m_viewFrames.SetParent(m_mainFrame);
    CQOXRMConfigModuleView::SetFrames(&m_viewFrames);
    SetTopWindow(m_mainFrame);
    m_documents->FileHistoryUseMenu(m_mainFrame->RecentFilesMenu());
    m_documents->FileHistoryLoad(*wxConfigBase::Get());
    return true;
}

void CQOXRMConfigModuleApp::UpdateRegistration()
{
    if (m_commandLine.shellCommand == ShellCommand::Unregister)
    {
        Registration::UnregisterAll();
    }
    else
    {
        Registration::RegisterServer();
    }
}

bool CQOXRMConfigModuleApp::OpenInitialDocument()
{
    g_bScriptRuleFile = IsScriptRulePackage(m_commandLine.fileName);
    if (g_bScriptRuleFile)
    {
        // A package never reaches a document, and the program ends with it.
        m_prompt.ShowBox(BoxKind::Error, FormatText(TextId::PackageNotImported, { m_commandLine.fileName }),
                         LoadText(TextId::ApplicationTitle));
        return false;
    }
    if (!m_commandLine.fileName.empty() && !Platform::PathExists(m_commandLine.fileName))
    {
        m_prompt.ShowBox(BoxKind::Error, FormatText(TextId::FileOnCommandLineMissing, { m_commandLine.fileName }),
                         LoadText(TextId::ApplicationTitle));
        m_commandLine.fileName.clear();
        m_commandLine.shellCommand = ShellCommand::New;
    }
    if (!ProcessShellCommand())
    {
        return false;
    }
    m_mainFrame->Show();
    m_mainFrame->Update();
    m_mainFrame->ListenToOtherInstances(g_singleInstance);
    return true;
}

bool CQOXRMConfigModuleApp::ProcessShellCommand()
{
    // After taking out the registration the start goes on like any other.
    return m_commandLine.fileName.empty() ? m_documents->NewFile() != nullptr
                                          : m_documents->OpenFile(m_commandLine.fileName) != nullptr;
}

void CQOXRMConfigModuleApp::ExitInstance()
{
    if (IDatabaseCollector* const collector = DatabaseCollector())
    {
        collector->OnCollectorStop();
    }
    SetRuleEditor(nullptr);
    if (m_documents != nullptr)
    {
        m_documents->FileHistorySave(*wxConfigBase::Get());
    }
    m_documents.reset();
    if (m_automationStarted)
    {
        Platform::UninitializeAutomation();
    }
    CVantrelLog::CloseLogFile();
}

Platform::LibraryHandle CQOXRMConfigModuleApp::Framework()
{
    return LoadFrameworkLibrary();
}

void CQOXRMConfigModuleApp::OpenDocumentFile(const std::wstring& path)
{
    // Another document may be halfway through its load or save, with the question about it on
    // the screen; modules know of one at a time.
    if (m_prompt.IsAsking())
    {
        m_waitingFiles.push_back(path);
        return;
    }
    m_documents->OpenFile(path);
}

void CQOXRMConfigModuleApp::OpenWaitingFiles()
{
    for (const std::wstring& path : std::exchange(m_waitingFiles, {}))
    {
        OpenDocumentFile(path); // waits again if one before it asks
    }
}

void CQOXRMConfigModuleApp::ToggleLog()
{
    if (bLogEnabled)
    {
        bLogEnabled = false;
        LogMessage(L"Closing the log file");
        CVantrelLog::CloseLogFile();
        return;
    }
    const std::wstring folder = LogFolder();
    m_prompt.ShowBox(BoxKind::Information, FormatText(TextId::LogFolder, { folder }),
                     LoadText(TextId::ApplicationTitle));
    CVantrelLog::OpenLogFile(LogFilePath(folder));
    LogMessage(L"Log creation started");
    bLogEnabled = true;
}

OpenFiles CQOXRMConfigModuleApp::Files() const
{
    auto* const active = dynamic_cast<CQOXRMConfigModuleDoc*>(m_documents->GetCurrentDocument());
    return { static_cast<int>(m_documents->GetDocumentsVector().size()),
             active != nullptr && active->Rules().IsReadOnly() };
}

void CQOXRMConfigModuleApp::ChangeUnits()
{
    auto* const document = dynamic_cast<CQOXRMConfigModuleDoc*>(m_documents->GetCurrentDocument());
    if (document == nullptr)
    {
        return;
    }
    structRulesUnit units = document->Rules().Header().newRuleUnits;
    if (CQOXUnitSettingDlg(m_mainFrame, units).ShowModal() == wxID_OK)
    {
        document->ChangeUnits(units);
    }
}

void CQOXRMConfigModuleApp::ShowHelp(HelpTopic topic)
{
    const std::wstring program = Platform::ProgramPath();
    const std::wstring path = HelpFilePath(program, m_language.strLanguageFolder);
    if (!ShowHelpFile(program, path, topic))
    {
        m_prompt.ShowBox(BoxKind::Warning, FormatText(TextId::HelpNotShown, { path }),
                         LoadText(TextId::ApplicationTitle));
    }
}

void CQOXRMConfigModuleApp::ShowRuleModules()
{
    CQOXRuleConfigModuleRegDlg dialog(
        m_mainFrame, m_modules, { GetModuleConfigFile(), Platform::ProgramFolder() },
        [this] { OnRuleModulesChanged(); }, m_prompt);
    dialog.DoModal();
    if (auto* const view = dynamic_cast<CQOXRMConfigModuleView*>(m_documents->GetCurrentView()))
    {
        view->SortAgain();
    }
}

void CQOXRMConfigModuleApp::ShowDatabaseModules()
{
    CQOXRuleDBModuleRegDlg dialog(
        m_mainFrame, m_modules, { GetModuleConfigFile(), Platform::ProgramFolder() },
        [this] { OnDatabaseModulesChanged(); }, m_prompt);
    dialog.DoModal();
}

void CQOXRMConfigModuleApp::ShowScriptLocation()
{
    const auto show = [this](std::wstring& scriptFolder, std::wstring& databaseFolder)
    {
        CQOXRMScriptLocnDlg dialog(
            m_mainFrame, scriptFolder, [this] { return !OpenDocuments(*m_documents).empty(); }, m_prompt);
        const bool accepted = dialog.ShowModal() == wxID_OK;
        databaseFolder = dialog.DatabaseFolder();
        return accepted;
    };
    ChangeScriptLocation(GetModuleConfigFile(), show, m_prompt);
}

void CQOXRMConfigModuleApp::OnAddRule(CQoxRule* rule)
{
    const auto* const concrete = dynamic_cast<ConcreteQOXRule*>(rule);
    if (concrete == nullptr)
    {
        return;
    }
    ConcreteQOXRule newRule;
    newRule = rule;
    ChangeUserRule(&newRule, UserRuleChange::Add, {});
}

void CQOXRMConfigModuleApp::OnDeleteRule(CQoxRule* rule)
{
    if (rule != nullptr)
    {
        ChangeUserRule(rule, UserRuleChange::Delete, rule->m_strRuleName);
    }
}

void CQOXRMConfigModuleApp::OnEditRule(const std::wstring& name, CQoxRule* rule)
{
    ChangeUserRule(rule, UserRuleChange::Edit, name);
}

void CQOXRMConfigModuleApp::ChangeUserRule(CQoxRule* rule, UserRuleChange change, const std::wstring& name)
{
    if (rule == nullptr)
    {
        return;
    }
    ChangeRuleInUserFile(UserDefinedRuleFilePath(), rule, change, name);
    NotifyDocuments(rule, change, name);
}

void CQOXRMConfigModuleApp::NotifyDocuments(CQoxRule* rule, UserRuleChange change, const std::wstring& name)
{
    for (CQOXRMConfigModuleDoc* const document : OpenDocuments(*m_documents))
    {
        switch (change)
        {
        case UserRuleChange::Add:
            document->Rules().AddUserRule(rule);
            document->UpdateViews(ViewHint::UserRuleAdded);
            break;
        case UserRuleChange::Delete:
            document->UpdateViews(ViewHint::UserRuleDeleted, rule);
            break;
        case UserRuleChange::Edit:
            document->Rules().RenameUserRule(name, rule->m_strRuleName);
            document->UpdateViews(ViewHint::UserRuleChanged, rule);
            break;
        }
    }
}

void CQOXRMConfigModuleApp::OnRuleModulesChanged()
{
    std::vector<OpenRuleDocument> documents;
    for (CQOXRMConfigModuleDoc* const document : OpenDocuments(*m_documents))
    {
        documents.push_back({ document->Rules(), document->GetFilename().ToStdWstring(), document->IsModified(),
                              [document] { document->UpdateViews(ViewHint::Reload); } });
    }
    ReloadRuleModules(m_modules, documents);
}

void CQOXRMConfigModuleApp::OnDatabaseModulesChanged()
{
    ModuleSet::Handles listDBModulesToFree;
    m_modules.LoadDBModules(listDBModulesToFree);
    m_modules.UpdateDBModuleList();
    ModuleSet::FreeModules(listDBModulesToFree);
}
