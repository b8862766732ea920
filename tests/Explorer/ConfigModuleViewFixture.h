#pragma once

#include "Explorer/ConfigModuleView.h"

#include "Application/Commands.h"
#include "Document/ConfigModuleDoc.h"
#include "Explorer/CutTextTips.h"
#include "Explorer/ListCtrlEx.h"
#include "Explorer/RuleText.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/WindowTest.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/RuleEditor.h>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/config.h>
#include <wx/docview.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/memconf.h>
#include <wx/menu.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <memory>
#include <vector>

/// Gives each view a window of its own and notes what is shown around it.
class TestFrames : public IViewFrames
{
public:
    wxWindow* MakeFrame(wxDocument* document, wxView* view) override
    {
        frame = new wxDocChildFrame(document, view, parent, wxID_ANY, "test", { 0, 0 }, { 700, 600 });
        return frame; // owned by the window system
    }
    void SetStatusText(const wxString& text) override { status = text; }
    void SetActiveTitle(const wxString& title) override { activeTitle = title; }

    wxDocParentFrame* parent = nullptr; // these two are owned by the window system
    wxFrame* frame = nullptr;
    wxString status;
    wxString activeTitle;
};

inline std::vector<CQoxRule*>& EditedRules()
{
    static std::vector<CQoxRule*> rules;
    return rules;
}

inline void NoteEdit(CQoxRule& rule)
{
    EditedRules().push_back(&rule);
    rule.m_nCriticality = 5;
    rule.m_strSummary = L"edited";
}

/// Closes the menus that open in a window, as a user does, and notes how many items each has. It
/// must live as long as menus open.
class MenuWatch
{
public:
    explicit MenuWatch(wxWindow& window)
    {
        // A menu holds up whoever opens it until it is closed, and a key that comes ahead of it is lost.
        constexpr int KeyIsLostMilliseconds = 200;
        m_closing.Bind(wxEVT_TIMER, [](wxTimerEvent&) { wxUIActionSimulator().Char(WXK_ESCAPE); });
        window.Bind(wxEVT_MENU_OPEN,
                    [this](wxMenuEvent& event)
                    {
                        m_items.push_back(static_cast<int>(event.GetMenu()->GetMenuItemCount()));
                        m_closing.Start(KeyIsLostMilliseconds);
                    });
        window.Bind(wxEVT_MENU_CLOSE,
                    [this](wxMenuEvent&)
                    {
                        m_closing.Stop();
                        ++m_closed;
                    });
    }

    const std::vector<int>& Items() const { return m_items; }
    int Closed() const { return m_closed; }

private:
    wxTimer m_closing;
    std::vector<int> m_items; // of each menu that was opened
    int m_closed = 0;
};

/// A view with a document in a window of its own, with a user at mouse and keyboard.
class ConfigModuleViewTest : public testing::Test
{
protected:
    ConfigModuleViewTest()
    {
        application.LoadDatabaseModules({ L"TestDatabaseComplete" });
        application.LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
        EditedRules().clear();
        SetRuleEditor(&NoteEdit);

        wxApp::SetInstance(new wxApp); // owned by the toolkit
        toolkit = std::make_unique<wxInitializer>();
        delete wxConfigBase::Set(new wxMemoryConfig);
        manager = std::make_unique<wxDocManager>();
        frames.parent = new wxDocParentFrame(manager.get(), nullptr, wxID_ANY, "parent");
        CQOXRMConfigModuleView::SetFrames(&frames);
        // The manager owns its template.
        new wxDocTemplate(manager.get(), "Rule File", "*.vrf", "", "vrf", "Rule File", "Rules",
                          wxCLASSINFO(CQOXRMConfigModuleDoc), wxCLASSINFO(CQOXRMConfigModuleView));
    }
    ~ConfigModuleViewTest() override
    {
        SetRuleEditor(nullptr);
        CQOXRMConfigModuleView::SetUserRuleDialog(nullptr);
        for (wxDocument* const open : manager->GetDocumentsVector())
        {
            open->Modify(false); // closes without a question
        }
        manager->CloseDocuments(true);
        frames.parent->Destroy();
        wxTheApp->ProcessIdle(); // deletes what is to be destroyed
        manager.reset();
        CQOXRMConfigModuleView::SetFrames(nullptr);
        delete wxConfigBase::Set(nullptr);
    }

    /// A new document with the four rules of the modules.
    void New()
    {
        document = dynamic_cast<CQOXRMConfigModuleDoc*>(manager->CreateNewDocument());
        ASSERT_NE(document, nullptr);
        view = dynamic_cast<CQOXRMConfigModuleView*>(document->GetFirstView());
        ASSERT_NE(view, nullptr);
        frame = frames.frame;
        list = &view->RuleListCtrl();
        ASSERT_EQ(list->RowCount(), 4);
    }

    void Select(int row)
    {
        constexpr long State = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
        list->SetItemState(row, State, State);
    }

    void Command(int id, bool checked = false)
    {
        wxCommandEvent event(wxEVT_MENU, id);
        event.SetInt(checked ? 1 : 0);
        view->ProcessEvent(event);
    }

    bool IsEnabled(int id)
    {
        wxUpdateUIEvent event(id);
        view->ProcessEvent(event);
        return !event.GetSetEnabled() || event.GetEnabled();
    }

    /// Gives the window of the view the keys of the user.
    void TakeKeys()
    {
        frame->Raise();
        ASSERT_TRUE(WaitFor([this] { return frame->IsActive(); }));
        list->SetFocus();
        ASSERT_TRUE(WaitFor([this] { return HasFocus(*list); }));
    }

    static bool HasFocus(const wxWindow& window)
    {
        const wxWindow* focused = wxWindow::FindFocus();
        return focused != nullptr && (focused == &window || focused->GetParent() == &window);
    }

    int ListWidth() const { return list->GetSize().GetWidth(); }

    /// Where the border to the right of a column's heading is on the screen.
    wxPoint BorderOf(int column) const
    {
        int right = 0;
        for (int left = 0; left <= column; ++left)
        {
            right += list->GetColumnWidth(left);
        }
        wxRect first;
        list->GetItemRect(0, first);
        return list->ClientToScreen({ right, first.GetTop() / 2 });
    }

    /// Makes a column wider, as the user does.
    void DragBorder(int column, int by)
    {
        TakeKeys();
        const int before = list->GetColumnWidth(column);
        user.MouseMove(BorderOf(column));
        user.MouseDown();
        wxYield();
        user.MouseMove(BorderOf(column) + wxPoint(by, 0));
        wxYield();
        user.MouseUp();
        ASSERT_TRUE(WaitFor([&] { return list->GetColumnWidth(column) != before; }));
        BeIdle();
    }

    /// Fits a column to its texts, as the user does.
    void DoubleClickBorder(int column)
    {
        const int before = list->GetColumnWidth(column);
        for (int attempt = 0; attempt < 20 && list->GetColumnWidth(column) == before; ++attempt)
        {
            // The headings take the width of the first click when they are idle, which for a
            // user is before the second, and on a busy machine the second may come too late.
            user.MouseMove(BorderOf(column));
            user.MouseClick();
            BeIdle();
            user.MouseClick();
            BeIdle();
        }
        ASSERT_NE(list->GetColumnWidth(column), before);
    }

    /// Lets everything be idle a few times: what the user does to the headings takes effect then.
    static void BeIdle()
    {
        for (int round = 0; round < 4; ++round)
        {
            wxYield();
            wxTheApp->ProcessIdle();
        }
    }

    std::wstring CellText(int row, RuleColumn column) const
    {
        return list->GetItemText(row, static_cast<int>(column)).ToStdWstring();
    }

    std::wstring Summary() const
    {
        std::wstring text;
        for (int row = 0; row < view->SummaryListCtrl().GetItemCount(); ++row)
        {
            text += view->SummaryListCtrl().GetItemText(row).ToStdWstring();
        }
        return text;
    }

    TestApplication application;
    std::unique_ptr<wxInitializer> toolkit;
    std::unique_ptr<wxDocManager> manager;
    TestFrames frames;
    CQOXRMConfigModuleDoc* document = nullptr; // these are owned by the manager and the window system
    CQOXRMConfigModuleView* view = nullptr;
    wxFrame* frame = nullptr;
    CQOXRMListCtrlEx* list = nullptr;
    wxUIActionSimulator user;
};
