#pragma once

#include "Application/Commands.h"
#include "Application/DocumentManager.h"
#include "Application/FrameBars.h"
#include "Application/MainFrame.h"
#include "Document/ConfigModuleDoc.h"
#include "Explorer/ConfigModuleView.h"
#include "Explorer/ListCtrlEx.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/WindowTest.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/init.h>
#include <wx/memconf.h>
#include <wx/menu.h>
#include <wx/modalhook.h>
#include <wx/uiaction.h>

#include <memory>
#include <string>
#include <vector>

/// Notes what the main window hands on.
class HostStandIn : public IMainFrameHost
{
public:
    void OpenDocumentFile(const std::wstring& path) override { opened.push_back(path); }
    bool IsOneRuleSelected() const override { return oneRuleSelected; }
    bool IsLogEnabled() const override { return logEnabled; }
    void ToggleLog() override
    {
        logEnabled = !logEnabled;
        Note("log");
    }
    OpenFiles Files() const override { return files; }
    void ChangeUnits() override { Note("units"); }
    void ShowHelp(HelpTopic topic) override { Note("help " + std::to_string(static_cast<int>(topic))); }
    void ShowRuleModules() override { Note("rule modules"); }
    void ShowDatabaseModules() override { Note("database modules"); }
    void ShowScriptLocation() override { Note("script location"); }

    void Note(const std::string& what) { calls.push_back(what); }

    std::vector<std::wstring> opened;
    std::vector<std::string> calls;
    bool oneRuleSelected = false;
    bool logEnabled = false;
    OpenFiles files;
};

/// Answers every dialog with Cancel as soon as it would be shown, and notes it.
class DialogCatcher : public wxModalDialogHook
{
public:
    explicit DialogCatcher(HostStandIn& host) : m_host(host) { Register(); }

    std::vector<wxString> titles;
    std::vector<wxString> texts; ///< What the windows in the last one say.

protected:
    int Enter(wxDialog* dialog) override
    {
        m_host.Note(std::string("dialog ") + wxString(dialog->GetClassInfo()->GetClassName()).ToStdString());
        titles.push_back(dialog->GetTitle());
        texts.clear();
        for (const wxWindow* const child : dialog->GetChildren())
        {
            texts.push_back(child->GetLabel());
        }
        return wxID_CANCEL;
    }

private:
    HostStandIn& m_host;
};

/// The main window over real documents with four rules, on the screen.
class MainFrameFixture : public testing::Test
{
protected:
    MainFrameFixture()
    {
        application.LoadDatabaseModules({ L"TestDatabaseComplete" });
        application.LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
        wxApp::SetInstance(new wxApp); // owned by the toolkit
        toolkit = std::make_unique<wxInitializer>();
        wxConfigBase::Set(new wxMemoryConfig); // owned by the toolkit
        catcher = std::make_unique<DialogCatcher>(host);
        MakeFrame();
    }
    ~MainFrameFixture() override
    {
        DestroyFrame();
        catcher.reset();
        delete wxConfigBase::Set(nullptr);
    }

    void MakeFrame()
    {
        manager = std::make_unique<RuleDocManager>();
        ASSERT_NE(manager->MakeRuleTemplate(), nullptr);
        frame = new CQOXRMMainFrame(manager.get(), host); // owned by the window system
        viewFrames.SetParent(frame);
        CQOXRMConfigModuleView::SetFrames(&viewFrames);
        wxTheApp->SetTopWindow(frame);
        manager->FileHistoryUseMenu(frame->RecentFilesMenu());
        frame->Show();
        ASSERT_TRUE(WaitFor([&] { return frame->IsActive(); }));
    }
    void DestroyFrame()
    {
        for (wxDocument* const open : manager->GetDocumentsVector())
        {
            open->Modify(false); // closes without a question
        }
        manager->CloseDocuments(true);
        frame->Destroy();
        wxTheApp->ProcessIdle(); // deletes what is to be destroyed
        frame = nullptr;
        manager.reset();
        CQOXRMConfigModuleView::SetFrames(nullptr);
    }

    CQOXRMConfigModuleDoc& New()
    {
        auto* const document = dynamic_cast<CQOXRMConfigModuleDoc*>(manager->CreateNewDocument());
        EXPECT_NE(document, nullptr);
        // The toolkit's list takes no key before it has been laid out.
        EXPECT_TRUE(WaitFor(
            [&]
            {
                return manager->GetCurrentDocument() == document && ListOf(*document).GetCountPerPage() > 0 &&
                       wxWindow::FindFocus() != nullptr;
            }));
        return *document;
    }

    static CQOXRMListCtrlEx& ListOf(CQOXRMConfigModuleDoc& document)
    {
        return dynamic_cast<CQOXRMConfigModuleView&>(*document.GetFirstView()).RuleListCtrl();
    }

    /// What the toolkit does when the item of a command is chosen.
    bool ChooseItem(int command) { return frame->ProcessCommand(command); }

    wxMenuItem* Item(int command) { return frame->GetMenuBar()->FindItem(command); }

    /// The item as it is when its menu opens.
    wxMenuItem& OpenedItem(int command)
    {
        frame->DoMenuUpdates();
        return *Item(command);
    }

    /// Takes what was noted.
    std::vector<std::string> Calls()
    {
        std::vector<std::string> calls;
        calls.swap(host.calls);
        return calls;
    }

    using Strings = std::vector<std::string>;

    TestApplication application;
    HostStandIn host;
    std::unique_ptr<wxInitializer> toolkit;
    std::unique_ptr<DialogCatcher> catcher;
    MdiViewFrames viewFrames;
    std::unique_ptr<RuleDocManager> manager;
    CQOXRMMainFrame* frame = nullptr;
    wxUIActionSimulator user;
};
