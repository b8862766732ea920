// The rule explorer with its windows: what commands, keys and hints do to them.

#include "tests/Explorer/ConfigModuleViewFixture.h"
#include "tests/Support/TestFiles.h"

#include <gmock/gmock.h>

namespace
{

void ThrowFromEditor(CQoxRule& /*rule*/)
{
    throw 1;
}

void NoteUserRuleDialog(wxWindow* parent, ConcreteQOXRule& rule)
{
    EXPECT_NE(parent, nullptr);
    EditedRules().push_back(&rule);
}

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

TEST_F(ConfigModuleViewTest, ARuleOfAModuleThatIsNotConfiguredHasNoRowAndASaveLeavesItOut)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"rules.vrf");
    WriteBytes(path, "<Lumeq><Rule RuleModule=\"Module Of Another Machine\" RuleName=\"Unknown Rule\" "
                     "Summary2=\"Summary\" ModulePath=\"unknown.dll\"/>"
                     "<Rule RuleModule=\"Complete Test Module\" RuleName=\"TestModuleComplete Rule 1\" "
                     "Summary2=\"Summary of TestModuleComplete Rule 1\"/></Lumeq>");
    document = dynamic_cast<CQOXRMConfigModuleDoc*>(manager->CreateDocument(path, wxDOC_SILENT));
    ASSERT_NE(document, nullptr);
    list = &dynamic_cast<CQOXRMConfigModuleView&>(*document->GetFirstView()).RuleListCtrl();
    ASSERT_EQ(list->RowCount(), 4) << "those of the modules";
    EXPECT_EQ(CellText(0, RuleColumn::Name), L"TestModuleComplete Rule 1") << "those of the file come first";
    EXPECT_TRUE(list->IsTicked(0));
    for (int row = 1; row < list->RowCount(); ++row)
    {
        EXPECT_FALSE(list->IsTicked(row)) << row;
        EXPECT_NE(list->RuleOfRow(row)->m_strRuleName, L"Unknown Rule");
    }
    EXPECT_FALSE(document->IsModified());
    EXPECT_TRUE(application.prompt.texts.empty());

    ASSERT_TRUE(document->OnSaveDocument(path));
    const std::string saved = ReadBytes(path);
    EXPECT_THAT(saved, testing::HasSubstr("RuleName=\"TestModuleComplete Rule 1\""));
    EXPECT_THAT(saved, testing::Not(testing::HasSubstr("Unknown Rule")));
    EXPECT_EQ(saved.find("<Rule "), saved.rfind("<Rule ")) << saved;
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
    const MenuWatch menus(*frame);
    bool isAnswered = false; // a key that goes after what may open a menu, and to the menu if one does
    list->Bind(wxEVT_CHAR_HOOK,
               [&isAnswered](wxKeyEvent& event)
               {
                   isAnswered = event.GetKeyCode() == WXK_F12;
                   event.Skip();
               });
    const auto openedBy = [&](auto&& action)
    {
        const int before = menus.Closed();
        isAnswered = false;
        action();
        user.Char(WXK_F12);
        EXPECT_TRUE(WaitFor([&] { return menus.Closed() > before || isAnswered; }));
        return menus.Closed() > before;
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

TEST_F(ConfigModuleViewTest, AReloadShowsTheCountsAgain)
{
    New();
    const wxString counts = frames.status;
    frames.status.clear();
    document->UpdateViews(ViewHint::Reload);
    EXPECT_EQ(frames.status, counts);
}

TEST_F(ConfigModuleViewTest, ADocumentBehindAnotherLeavesTheStatusToThat)
{
    New();
    CQOXRMConfigModuleDoc* const behind = document;
    New();
    manager->ActivateView(view);
    frames.status = "of the one in front";
    behind->UpdateViews(ViewHint::Reload);
    EXPECT_EQ(frames.status, "of the one in front");
    document->UpdateViews(ViewHint::Reload);
    EXPECT_NE(frames.status, "of the one in front");
}

TEST_F(ConfigModuleViewTest, ADocumentThatIsClosedBehindAnotherLeavesItTitleAndStatus)
{
    New();
    CQOXRMConfigModuleView& first = *view;
    New();
    first.Activate(true);
    frames.status = "of the one in front";
    frames.activeTitle = "in front";
    manager->CloseDocument(document, true);
    EXPECT_EQ(frames.status, "of the one in front");
    EXPECT_EQ(frames.activeTitle, "in front");
    manager->CloseDocument(first.GetDocument(), true);
    EXPECT_EQ(frames.status, "");
    EXPECT_EQ(frames.activeTitle, "");
}

TEST_F(ConfigModuleViewTest, ADocumentBehindAnotherLeavesTheMarkOfASingleSelectionToThat)
{
    New();
    CQOXRMConfigModuleView& first = *view;
    ConcreteQOXRule rule;
    rule.m_strRuleModule = InteractiveRuleMark;
    rule.m_strRuleName = L"Mine";
    New(); // this one is behind from now on
    const auto changeTheOneBehind = [&]
    {
        document->UpdateViews(ViewHint::Reload);
        document->Rules().AddUserRule(&rule);
        document->UpdateViews(ViewHint::UserRuleAdded);
        document->UpdateViews(ViewHint::UserRuleDeleted, &rule);
    };
    first.Activate(true);
    first.RuleListCtrl().SetSelected(0, true);
    first.RuleListCtrl().SetSelected(1, true);
    first.RuleListCtrl().SetSelected(1, false);
    ASSERT_EQ(application.docOpenState, 1);
    changeTheOneBehind();
    EXPECT_EQ(application.docOpenState, 1);

    first.RuleListCtrl().DeselectAll();
    ASSERT_EQ(application.docOpenState, 0);
    Select(0);
    ASSERT_EQ(list->SelectedCount(), 1);
    EXPECT_EQ(application.docOpenState, 0);
    changeTheOneBehind();
    EXPECT_EQ(application.docOpenState, 0);

    view->Activate(true);
    EXPECT_EQ(application.docOpenState, 1) << "it is in front now";
    first.Activate(true);
    EXPECT_EQ(application.docOpenState, 0);
}

TEST_F(ConfigModuleViewTest, AViewThatComesToTheFrontShowsItsOwnStatus)
{
    New();
    CQOXRMConfigModuleView& first = *view;
    New();
    view->Activate(true);
    frames.status = "of the one in front";
    first.Activate(true);
    EXPECT_EQ(frames.status, FormatText(TextId::RuleCount, { L"0", L"4" }));
}
