// The rule explorer with its windows: what commands, keys and hints do to them.

#include "Explorer/ConfigModuleView.h"

#include "Application/Commands.h"
#include "Document/ConfigModuleDoc.h"
#include "Explorer/CutTextTips.h"
#include "Explorer/ListCtrlEx.h"
#include "Explorer/RuleText.h"
#include "tests/Document/TestApplication.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/RuleEditor.h>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/docview.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/menu.h>
#include <wx/uiaction.h>

#include <chrono>
#include <memory>
#include <vector>

namespace
{

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

std::vector<CQoxRule*>& EditedRules()
{
    static std::vector<CQoxRule*> rules;
    return rules;
}

void NoteEdit(CQoxRule& rule)
{
    EditedRules().push_back(&rule);
    rule.m_nCriticality = 5;
    rule.m_strSummary = L"edited";
}

void ThrowFromEditor(CQoxRule& /*rule*/)
{
    throw 1;
}

void NoteUserRuleDialog(wxWindow* parent, ConcreteQOXRule& rule)
{
    EXPECT_NE(parent, nullptr);
    EditedRules().push_back(&rule);
}

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

    template <typename Condition>
    bool WaitFor(Condition&& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition() && std::chrono::steady_clock::now() < end)
        {
            wxYield();
            wxTheApp->ProcessIdle();
        }
        return condition();
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

using Rules = std::vector<CQoxRule*>;

} // namespace

TEST_F(ConfigModuleViewTest, AViewStartsSortedByTicksWithNothingSelected)
{
    New();
    EXPECT_EQ(list->GetSortIndicator(), 0);
    EXPECT_TRUE(list->IsAscendingSortIndicator());
    EXPECT_EQ(list->SelectedCount(), 0);
    EXPECT_EQ(application.docOpenState, 0);
    EXPECT_FALSE(document->IsModified());
    EXPECT_EQ(frames.status, FormatText(TextId::RuleCount, { L"0", L"4" }));
}

TEST_F(ConfigModuleViewTest, EachOfTheThreeEditCommandsEditsTheFirstSelectedRule)
{
    New();
    Select(2);
    for (const int command : EditRuleCommands)
    {
        EditedRules().clear();
        Command(command);
        EXPECT_EQ(EditedRules(), Rules{ list->RuleOfRow(2) });
    }
    Select(1); // beside the other
    EditedRules().clear();
    Command(CommandEditRule);
    EXPECT_EQ(EditedRules(), Rules{ list->RuleOfRow(1) });
}

TEST_F(ConfigModuleViewTest, WithoutASelectedRowTheEditCommandEditsNothing)
{
    New();
    Command(CommandEditRule);
    EXPECT_TRUE(EditedRules().empty());
}

TEST_F(ConfigModuleViewTest, AnEditedRuleIsShownAnewAndTheListGetsTheFocus)
{
    New();
    TakeKeys();
    Select(3);
    view->SummaryListCtrl().SetFocus();
    ASSERT_TRUE(WaitFor([this] { return HasFocus(view->SummaryListCtrl()); }));
    Command(CommandEditRule);
    EXPECT_EQ(CellText(3, RuleColumn::Criticality), CriticalityText(5));
    EXPECT_EQ(Summary(), L"edited");
    EXPECT_FALSE(document->IsModified());
    EXPECT_TRUE(WaitFor([this] { return HasFocus(*list); }));
}

TEST_F(ConfigModuleViewTest, EditingATickedRuleModifiesTheDocument)
{
    New();
    list->SetTicked(1, true);
    document->Modify(false);
    Select(1);
    Command(CommandEditRule);
    EXPECT_TRUE(document->IsModified());
}

TEST_F(ConfigModuleViewTest, ADoubleClickAndEnterEdit)
{
    New();
    TakeKeys();
    wxRect rect;
    list->GetItemRect(1, rect);
    user.MouseMove(list->ClientToScreen({ 100, rect.GetTop() + rect.GetHeight() / 2 }));
    user.MouseDblClick();
    EXPECT_TRUE(WaitFor([] { return EditedRules().size() == 1; }));
    user.Char(WXK_RETURN);
    EXPECT_TRUE(WaitFor([] { return EditedRules().size() == 2; }));
    EXPECT_EQ(EditedRules(), (Rules{ list->RuleOfRow(1), list->RuleOfRow(1) }));
}

TEST_F(ConfigModuleViewTest, AnEditorThatFailsIsToldAndTheViewGoesOn)
{
    New();
    SetRuleEditor(&ThrowFromEditor);
    Select(0);
    Command(CommandEditRule);
    EXPECT_EQ(application.prompt.texts, std::vector<std::wstring>{ FormatText(
                                            TextId::RuleEditorFailed, { list->RuleOfRow(0)->m_strDisplayName }) });
    EXPECT_FALSE(g_bEditInProgress);
}

TEST_F(ConfigModuleViewTest, AUserDefinedRuleGoesToTheDialogOfTheProgram)
{
    CQOXRMConfigModuleView::SetUserRuleDialog(&NoteUserRuleDialog);
    New();
    ConcreteQOXRule rule;
    rule.m_strRuleModule = InteractiveRuleMark;
    rule.m_strRuleName = rule.m_strDisplayName = L"Mine";
    document->Rules().AddUserRule(&rule);
    document->UpdateViews(ViewHint::UserRuleAdded);
    ASSERT_EQ(list->RowCount(), 5);
    Select(4);
    Command(CommandEditRule);
    EXPECT_EQ(EditedRules(), Rules{ list->RuleOfRow(4) });
    EXPECT_EQ(CellText(4, RuleColumn::Criticality), CriticalityText(3)) << "the editor of the rule was not asked";
}

TEST_F(ConfigModuleViewTest, TheMarkOfASingleSelectionFollowsTheSelection)
{
    New();
    Select(0);
    EXPECT_EQ(application.docOpenState, 1);
    EXPECT_NE(Summary(), L"");
    Select(1);
    EXPECT_EQ(application.docOpenState, 0);
    EXPECT_EQ(Summary(), L"");
    list->SetSelected(0, false);
    EXPECT_EQ(application.docOpenState, 1);
    list->DeselectAll();
    EXPECT_EQ(application.docOpenState, 0);
    EXPECT_EQ(Summary(), L"");
}

TEST_F(ConfigModuleViewTest, TheViewThatIsActivatedSetsTheMarkByItsOwnSelection)
{
    New();
    Select(0);
    CQOXRMConfigModuleView& first = *view;
    New();
    EXPECT_EQ(application.docOpenState, 0);
    first.Activate(true);
    EXPECT_EQ(application.docOpenState, 1);
    view->Activate(true);
    EXPECT_EQ(application.docOpenState, 0);
    Select(0);
    Select(1);
    first.Activate(true);
    view->Activate(true);
    EXPECT_EQ(application.docOpenState, 0) << "several are not one";
}

TEST_F(ConfigModuleViewTest, TheMarkIsClearedWhenTheSelectedRowGoes)
{
    New();
    ConcreteQOXRule rule;
    rule.m_strRuleModule = InteractiveRuleMark;
    rule.m_strRuleName = L"Mine";
    rule.m_strSummary = L"mine";
    document->Rules().AddUserRule(&rule);
    document->UpdateViews(ViewHint::UserRuleAdded);
    Select(4);
    ASSERT_EQ(application.docOpenState, 1);
    ASSERT_EQ(Summary(), L"mine");
    document->UpdateViews(ViewHint::UserRuleDeleted, &rule);
    EXPECT_EQ(list->RowCount(), 4);
    EXPECT_EQ(application.docOpenState, 0);
    EXPECT_EQ(Summary(), L"");
}

TEST_F(ConfigModuleViewTest, TheContextMenuEditsTicksAndSelects)
{
    New();
    Select(2);
    std::unique_ptr<wxMenu> menu = view->MakeContextMenu();
    EXPECT_TRUE(menu->IsEnabled(CommandEditRuleHere));
    EXPECT_FALSE(menu->IsChecked(CommandTickRule));
    Command(CommandTickRule, true);
    EXPECT_TRUE(list->IsTicked(2));
    EXPECT_TRUE(document->Rules().Rules().Contains(list->RuleOfRow(2)));
    menu = view->MakeContextMenu();
    EXPECT_TRUE(menu->IsChecked(CommandTickRule));
    Command(CommandTickRule, false);
    EXPECT_TRUE(document->Rules().Rules().IsEmpty());
    Command(CommandSelectAllRules);
    EXPECT_EQ(list->SelectedCount(), 4);
}

TEST_F(ConfigModuleViewTest, WithNothingSelectedTheContextMenuOffersNoCommandOnARule)
{
    New();
    const std::unique_ptr<wxMenu> menu = view->MakeContextMenu();
    EXPECT_FALSE(menu->IsEnabled(CommandEditRuleHere));
    EXPECT_FALSE(menu->IsEnabled(CommandTickRule));
    EXPECT_TRUE(menu->IsEnabled(CommandSelectAllRules));
}

TEST_F(ConfigModuleViewTest, TheContextMenuComesByMouseAndKeysUnlessSeveralRowsAreSelected)
{
    New();
    TakeKeys();
    Select(1);
    int opened = 0;
    frame->Bind(wxEVT_MENU_OPEN, [&opened](wxMenuEvent&) { ++opened; });
    // The menu holds the events up until it is closed.
    const auto openedBy = [&](auto&& action)
    {
        const int before = opened;
        action();
        user.Char(WXK_ESCAPE);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        WaitFor([&] { return opened > before || std::chrono::steady_clock::now() > end; });
        return opened > before;
    };
    EXPECT_TRUE(openedBy([this] { user.Char(WXK_F10, wxMOD_SHIFT); }));
    wxRect rect;
    list->GetItemRect(1, rect);
    user.MouseMove(list->ClientToScreen({ 100, rect.GetTop() + 3 }));
    EXPECT_TRUE(openedBy([this] { user.MouseClick(wxMOUSE_BTN_RIGHT); }));
    Select(2);
    EXPECT_FALSE(openedBy([this] { user.MouseClick(wxMOUSE_BTN_RIGHT); }));
    EXPECT_FALSE(openedBy([this] { user.Char(WXK_F10, wxMOD_SHIFT); }));
}

TEST_F(ConfigModuleViewTest, TabLeadsFromTheRulesToTheSummaryAndBack)
{
    New();
    TakeKeys();
    user.Char(WXK_TAB);
    EXPECT_TRUE(WaitFor([this] { return HasFocus(view->SummaryListCtrl()); }));
    user.Char(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([this] { return HasFocus(*list); }));
}

TEST_F(ConfigModuleViewTest, ReloadingGivesTheRulesTheFocusAndKeepsTheTicks)
{
    New();
    TakeKeys();
    list->SetTicked(1, true);
    const CQoxRule* const ticked = list->RuleOfRow(1);
    view->SummaryListCtrl().SetFocus();
    ASSERT_TRUE(WaitFor([this] { return HasFocus(view->SummaryListCtrl()); }));
    document->UpdateViews(ViewHint::Reload);
    EXPECT_TRUE(WaitFor([this] { return HasFocus(*list); }));
    ASSERT_EQ(list->RowCount(), 4);
    EXPECT_EQ(list->RuleOfRow(1), ticked);
    EXPECT_TRUE(list->IsTicked(1));
}

TEST_F(ConfigModuleViewTest, AHintThatIsNoneAndThatOfAnOpenedFileDoNothing)
{
    New();
    Select(0);
    const std::wstring summary = Summary();
    document->UpdateAllViews();
    document->UpdateViews(ViewHint::FileOpened);
    document->UpdateViews(static_cast<ViewHint>(2));
    EXPECT_EQ(Summary(), summary);
    EXPECT_EQ(list->SelectedCount(), 1);
    EXPECT_FALSE(document->IsModified());
}

TEST_F(ConfigModuleViewTest, AViewWithoutADocumentTakesHintsAndDoesNothing)
{
    CQOXRMConfigModuleView alone;
    RuleViewHint reload(ViewHint::Reload);
    alone.OnUpdate(nullptr, &reload);
    EXPECT_EQ(application.prompt.texts.size(), 0U);
}

TEST_F(ConfigModuleViewTest, SortingAgainKeepsTheOrderThatTheUserChose)
{
    New();
    list->Sort(RuleOrder::KeyModule);
    list->Sort(RuleOrder::KeyModule);
    const CQoxRule* const first = list->RuleOfRow(0);
    view->SortAgain();
    EXPECT_EQ(list->RuleOfRow(0), first);
    EXPECT_EQ(list->GetSortIndicator(), 2);
    EXPECT_FALSE(list->IsAscendingSortIndicator());
}

TEST_F(ConfigModuleViewTest, CtrlLOnADocumentWithAPasswordDoesNothing)
{
    New();
    application.prompt.password = L"secret";
    Command(CommandSetPassword);
    EXPECT_EQ(application.prompt.passwordPurposes, std::vector<PasswordPurpose>{ PasswordPurpose::Set });
    EXPECT_TRUE(document->IsModified());
    EXPECT_FALSE(IsEnabled(CommandSetPassword));
    Command(CommandSetPassword);
    EXPECT_EQ(application.prompt.passwordPurposes.size(), 1U);
}

TEST_F(ConfigModuleViewTest, WithoutAPasswordGivenCtrlLChangesNothing)
{
    New();
    Command(CommandSetPassword);
    EXPECT_FALSE(document->IsModified());
    EXPECT_TRUE(IsEnabled(CommandSetPassword));
}

TEST_F(ConfigModuleViewTest, TheControlsStandWhereTheSizeOfTheWindowPutsThem)
{
    New();
    wxWindow& form = *list->GetParent();
    for (const wxSize& size : { wxSize(700, 600), wxSize(901, 333) })
    {
        form.SetSize(size);
        const int width = form.GetClientSize().GetWidth() - 20;
        const int height = form.GetClientSize().GetHeight();
        EXPECT_EQ(list->GetRect(), wxRect(10, 10, width, height * 3 / 4 - 10));
        const wxRect summary = view->SummaryListCtrl().GetRect();
        EXPECT_EQ(summary.GetLeft(), 10);
        EXPECT_GE(summary.GetTop(), 10 + height * 3 / 4 + 5);
        EXPECT_EQ(summary.GetSize(), wxSize(width, height / 4 - 40));
        EXPECT_EQ(list->GetColumnWidth(0), static_cast<int>(width * 0.395));
        for (int column = 1; column < RuleColumnCount; ++column)
        {
            EXPECT_EQ(list->GetColumnWidth(column), static_cast<int>(width * 0.2));
        }
    }
}

TEST_F(ConfigModuleViewTest, AnEmptySummaryIsOneEmptyRow)
{
    New();
    list->RuleOfRow(0)->m_strSummary.clear();
    Select(0);
    EXPECT_EQ(view->SummaryListCtrl().GetItemCount(), 1);
    EXPECT_EQ(Summary(), L"");
}

TEST_F(ConfigModuleViewTest, ACutTextIsShownInATip)
{
    New();
    list->SetColumnWidth(0, 60);
    list->SetColumnWidth(1, 200);
    wxRect rect;
    list->GetItemRect(0, rect);
    const auto tipAt = [&](int left)
    {
        wxRect header;
        list->GetItemRect(0, header);
        // Mouse events count from the top of the rows.
        wxMouseEvent move(wxEVT_MOTION);
        move.SetPosition({ left, rect.GetHeight() / 2 });
        list->ProcessWindowEvent(move);
        return list->GetToolTipText().ToStdWstring();
    };
    EXPECT_EQ(tipAt(40), CellText(0, RuleColumn::Name));
    EXPECT_EQ(tipAt(100), L"") << "the category has room";
    EXPECT_EQ(tipAt(40), CellText(0, RuleColumn::Name));
    wxMouseEvent leave(wxEVT_LEAVE_WINDOW);
    list->ProcessWindowEvent(leave);
    EXPECT_EQ(list->GetToolTipText(), "");
}

TEST_F(ConfigModuleViewTest, TheStatusOfADocumentGoesWithIt)
{
    New();
    EXPECT_NE(frames.status, "");
    manager->CloseDocument(document, true);
    EXPECT_EQ(frames.status, "");
    EXPECT_EQ(application.docOpenState, 0);
}
