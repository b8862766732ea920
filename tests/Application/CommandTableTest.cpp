// Every command of the main window through its menu item, its key and its buttons.

#include "Application/CommandBars.h"
#include "Application/CommandButtons.h"
#include "Application/TabCtrlEx.h"
#include "Application/TabToolbar.h"
#include "tests/Application/MainFrameFixture.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/RuleEditor.h>

#include <wx/anybutton.h>
#include <wx/tglbtn.h>
#include <wx/toolbar.h>

#include <map>

namespace
{

int& EditedRules()
{
    static int count = 0;
    return count;
}

class CommandTableTest : public MainFrameFixture
{
protected:
    CommandTableTest()
    {
        EditedRules() = 0;
        SetRuleEditor([](CQoxRule&) { ++EditedRules(); });
        frame->Bind(wxEVT_CLOSE_WINDOW,
                    [this](wxCloseEvent& event)
                    {
                        host.Note("close");
                        event.Veto();
                    });
    }
    ~CommandTableTest() override
    {
        SetRuleEditor(nullptr);
        frame->Hide();
    }

    /// A document with one selected rule, and nothing noted yet.
    void Start()
    {
        document = &New();
        list = &ListOf(*document);
        constexpr long State = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
        list->SetItemState(0, State, State);
        host.oneRuleSelected = true;
        application.prompt.password = std::nullopt;
        list->SetFocus();
        ASSERT_TRUE(
            WaitFor([&] { return wxWindow::FindFocus() == list || list->IsDescendant(wxWindow::FindFocus()); }));
        Calls();
    }

    bool Asked(FilePurpose purpose) const
    {
        const auto& questions = application.prompt.fileQuestions;
        return questions.size() == 1 && questions[0].purpose == purpose && host.calls.empty();
    }

    /// What the command has done, once and no other than it should.
    bool Done(int command)
    {
        const auto once = [&](const std::string& call) { return host.calls == Strings{ call }; };
        switch (command)
        {
        case wxID_NEW:
            return manager->GetDocumentsVector().size() == 2 && host.calls.empty();
        case wxID_OPEN:
            return Asked(FilePurpose::Open);
        case wxID_SAVE: // the document has no file yet
        case wxID_SAVEAS:
            return Asked(FilePurpose::Save);
        case wxID_CLOSE:
            return manager->GetDocumentsVector().empty() && host.calls.empty();
        case CommandSetPassword:
            return application.prompt.passwordPurposes == std::vector{ PasswordPurpose::Set };
        case CommandUnitSettings:
            return once("units");
        case wxID_PAGE_SETUP:
            return host.calls.size() == 1 && host.calls[0].find("PageSetup") != std::string::npos;
        case wxID_EXIT:
            return once("close");
        case CommandEditRule:
        case CommandEditRuleButton:
            return EditedRules() == 1 && host.calls.empty();
        case CommandSecondToolBar:
            return !frame->Bars().SecondToolBar().IsShown();
        case CommandShowTab:
        case CommandShowTab + 1:
        case CommandShowTab + 2:
        case CommandShowTabLast:
            return frame->Bars().Strip().CurrentTab() == command - CommandShowTab &&
                   frame->Bars().Strip().IsDescendant(wxWindow::FindFocus());
        case CommandNextPane:
            return frame->Bars().Strip().IsDescendant(wxWindow::FindFocus());
        case CommandToggleLog:
            return once("log") && host.logEnabled;
        case CommandRuleModules:
            return once("rule modules");
        case CommandDatabaseModules:
            return once("database modules");
        case CommandScriptLocation:
            return once("script location");
        case wxID_HELP:
            return once("help " + std::to_string(static_cast<int>(HelpTopic::Overview)));
        case wxID_ABOUT:
            return once("dialog wxDialog") &&
                   catcher->titles.back() == FormatText(TextId::AboutTitle, { LoadText(TextId::ApplicationTitle) });
        default:
            ADD_FAILURE() << "no expectation for the command " << command;
            return false;
        }
    }

    /// Whether a command that was carried out can be once more: others than these always can.
    bool IsEnabledAfter(int command) const
    {
        return command != wxID_CLOSE; // there is no document any more
    }

    /// The check mark of a command that has one, before and after it was carried out once.
    static bool IsCheckedBefore(int command) { return command == CommandSecondToolBar; }
    static bool IsCheckedAfter(int command) { return command == CommandToggleLog; }

    /// Item and buttons show the states of a command.
    void ExpectStates(const Command& row, bool enabled, bool checked)
    {
        if (row.menu)
        {
            EXPECT_EQ(OpenedItem(row.id).IsEnabled(), enabled);
            EXPECT_EQ(row.kind == wxITEM_CHECK && Item(row.id)->IsChecked(), checked);
        }
        wxToolBar& bar = frame->Bars().SecondToolBar();
        if (bar.FindById(row.id) != nullptr)
        {
            EXPECT_TRUE(WaitFor([&] { return bar.GetToolEnabled(row.id) == enabled; }));
        }
        for (wxAnyButton* const button : frame->Bars().Strip().Bar().Buttons())
        {
            if (button->GetId() == row.id)
            {
                EXPECT_TRUE(WaitFor([&] { return button->IsThisEnabled() == enabled; }));
                const auto* const toggle = dynamic_cast<wxToggleButton*>(button);
                EXPECT_TRUE(WaitFor([&] { return (toggle != nullptr && toggle->GetValue()) == checked; }));
            }
        }
    }

    /// Carries a command out in a way of the user's, with its states before and after.
    template <typename Way>
    void CarryOut(const Command& row, Way&& way)
    {
        document->Modify(row.id == wxID_SAVE);
        ExpectStates(row, true, IsCheckedBefore(row.id));
        way();
        EXPECT_TRUE(WaitFor([&] { return Done(row.id); })) << testing::PrintToString(host.calls);
        ExpectStates(row, IsEnabledAfter(row.id), IsCheckedAfter(row.id));
    }

    static bool StandsOnATab(int command)
    {
        return std::any_of(CommandTabs.begin(), CommandTabs.end(),
                           [&](const CommandTab& tab) { return std::ranges::count(tab.commands, command) > 0; });
    }

    /// Another tab than the command's own, so that showing it changes something.
    void LeaveTabOf(int command)
    {
        if (command >= CommandShowTab && command <= CommandShowTabLast)
        {
            frame->Bars().Strip().ShowTab(command == CommandShowTab ? 1 : 0);
        }
    }

    CQOXRMConfigModuleDoc* document = nullptr;
    CQOXRMListCtrlEx* list = nullptr;
};

/// One command at a time, by its place in the table.
class CommandRowTest : public CommandTableTest, public testing::WithParamInterface<int>
{
protected:
    const Command& Row() const { return CommandTable[static_cast<std::size_t>(GetParam())]; }
};

} // namespace

TEST_P(CommandRowTest, IsCarriedOutByItsMenuItem)
{
    if (!Row().menu)
    {
        EXPECT_EQ(Item(Row().id), nullptr); // it stands on bars alone
        return;
    }
    Start();
    LeaveTabOf(Row().id);
    ASSERT_NE(Item(Row().id), nullptr);
    EXPECT_TRUE(OpenedItem(Row().id).IsEnabled()); // a new document can be saved unchanged
    EXPECT_EQ(Item(Row().id)->IsCheckable(), Row().kind == wxITEM_CHECK);
    EXPECT_EQ(Item(Row().id)->GetHelp(), LoadText(Row().tip));
    CarryOut(Row(), [&] { EXPECT_TRUE(ChooseItem(Row().id)); });
}

TEST_P(CommandRowTest, IsCarriedOutByItsKey)
{
    const wxString text = LoadText(Row().text);
    if (!Row().menu || !text.Contains("\t"))
    {
        EXPECT_TRUE(!Row().menu || Item(Row().id)->GetAccel() == nullptr);
        return;
    }
    Start();
    LeaveTabOf(Row().id);
    const std::unique_ptr<wxAcceleratorEntry> key(Item(Row().id)->GetAccel());
    ASSERT_NE(key, nullptr);
    int modifiers = wxMOD_NONE;
    modifiers |= (key->GetFlags() & wxACCEL_CTRL) != 0 ? wxMOD_CONTROL : wxMOD_NONE;
    modifiers |= (key->GetFlags() & wxACCEL_SHIFT) != 0 ? wxMOD_SHIFT : wxMOD_NONE;
    CarryOut(Row(), [&] { user.Char(key->GetKeyCode(), modifiers); });
}

TEST_P(CommandRowTest, IsCarriedOutByItsButtonInTheStrip)
{
    Start();
    CQOXRMTabToolbar& strip = frame->Bars().Strip();
    for (int tab = 0; tab < static_cast<int>(CommandTabs.size()); ++tab)
    {
        strip.ShowTab(tab);
        for (wxAnyButton* const button : strip.Bar().Buttons())
        {
            if (button->GetId() != Row().id)
            {
                continue;
            }
            EXPECT_TRUE(StandsOnATab(Row().id));
            CarryOut(Row(),
                     [&]
                     {
                         // What a click or a key on the button makes the toolkit send.
                         wxCommandEvent press(Row().kind == wxITEM_CHECK ? wxEVT_TOGGLEBUTTON : wxEVT_BUTTON,
                                              button->GetId());
                         press.SetEventObject(button);
                         EXPECT_TRUE(button->ProcessWindowEvent(press));
                     });
            return;
        }
    }
    EXPECT_FALSE(StandsOnATab(Row().id));
}

TEST_P(CommandRowTest, IsCarriedOutByItsButtonInTheQuickToolBar)
{
    Start();
    wxToolBar& bar = frame->Bars().SecondToolBar();
    ASSERT_EQ(bar.FindById(Row().id) != nullptr, std::ranges::count(QuickBarCommands, Row().id) > 0);
    if (bar.FindById(Row().id) != nullptr)
    {
        CarryOut(Row(), [&] { bar.OnLeftClick(Row().id, false); });
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandRowTest, testing::Range(0, static_cast<int>(CommandTable.size())),
                         [](const testing::TestParamInfo<int>& row)
                         {
                             std::string name = CommandTable[static_cast<std::size_t>(row.param)].icon;
                             std::erase(name, '-');
                             return std::to_string(row.param) + name;
                         });

TEST_F(CommandTableTest, WithoutADocumentTheCommandsThatNeedOneAreDisabled)
{
    const std::vector<int> needDocument = { wxID_CLOSE,         wxID_SAVE,       wxID_SAVEAS,
                                            CommandSetPassword, CommandEditRule, CommandEditRuleButton };
    for (const Command& row : CommandTable)
    {
        const bool enabled = std::find(needDocument.begin(), needDocument.end(), row.id) == needDocument.end();
        if (row.menu)
        {
            EXPECT_EQ(OpenedItem(row.id).IsEnabled(), enabled) << row.icon;
        }
        wxToolBar& bar = frame->Bars().SecondToolBar();
        if (bar.FindById(row.id) != nullptr)
        {
            EXPECT_TRUE(WaitFor([&] { return bar.GetToolEnabled(row.id) == enabled; })) << row.icon;
        }
    }
    for (int tab = 0; tab < static_cast<int>(CommandTabs.size()); ++tab)
    {
        frame->Bars().Strip().ShowTab(tab);
        for (const wxAnyButton* const button : frame->Bars().Strip().Bar().Buttons())
        {
            const bool enabled =
                std::find(needDocument.begin(), needDocument.end(), button->GetId()) == needDocument.end();
            EXPECT_TRUE(WaitFor([&] { return button->IsThisEnabled() == enabled; })) << button->GetLabel();
        }
    }
}

TEST_F(CommandTableTest, TheBoxAboutTheProgramHasItsVersionBuildAndDate)
{
    ChooseItem(wxID_ABOUT);
    const std::vector<wxString>& texts = catcher->texts;
    const auto stands = [&](const std::wstring& text) { return std::ranges::count(texts, wxString(text)) == 1; };
    EXPECT_TRUE(stands(L"Vantrel Rule Manager v4.0"));
    EXPECT_TRUE(stands(FormatText(TextId::AboutBuild, { L"4.0.0.3175", L"Mar 23 2016" })));
}

TEST_F(CommandTableTest, TheRuleCommandsAreEnabledWhileOneRuleIsSelected)
{
    Start();
    wxToolBar& bar = frame->Bars().SecondToolBar();
    EXPECT_TRUE(OpenedItem(CommandEditRule).IsEnabled());
    EXPECT_TRUE(WaitFor([&] { return bar.GetToolEnabled(CommandEditRuleButton); }));
    host.oneRuleSelected = false;
    EXPECT_FALSE(OpenedItem(CommandEditRule).IsEnabled());
    EXPECT_TRUE(WaitFor([&] { return !bar.GetToolEnabled(CommandEditRuleButton); }));
}

TEST_F(CommandTableTest, TheMarkOfTheLogFollowsTheLogInMenuAndStrip)
{
    frame->Bars().Strip().ShowTab(3);
    const auto* const button = dynamic_cast<wxToggleButton*>(frame->Bars().Strip().Bar().Buttons().front());
    ASSERT_NE(button, nullptr);
    for (const bool enabled : { true, false })
    {
        host.logEnabled = enabled;
        EXPECT_EQ(OpenedItem(CommandToggleLog).IsChecked(), enabled);
        EXPECT_TRUE(WaitFor([&] { return button->GetValue() == enabled; }));
    }
}

TEST_F(CommandTableTest, TheMarkOfTheQuickToolBarFollowsTheBar)
{
    EXPECT_TRUE(OpenedItem(CommandSecondToolBar).IsChecked());
    ChooseItem(CommandSecondToolBar);
    EXPECT_FALSE(OpenedItem(CommandSecondToolBar).IsChecked());
    EXPECT_FALSE(frame->Bars().SecondToolBar().IsShown());
    ChooseItem(CommandSecondToolBar);
    EXPECT_TRUE(OpenedItem(CommandSecondToolBar).IsChecked());
    EXPECT_TRUE(frame->Bars().SecondToolBar().IsShown());
}

TEST_F(CommandTableTest, NoCommandStandsTwiceAndEachHasItsMenuInTheOrderOfTheTable)
{
    std::map<TextId, std::vector<int>> expected;
    std::set<int> ids;
    for (const Command& row : CommandTable)
    {
        EXPECT_TRUE(ids.insert(row.id).second) << row.icon;
        if (row.menu)
        {
            expected[*row.menu].push_back(row.id);
        }
    }
    for (std::size_t menu = 0; menu < MenuTable.size(); ++menu)
    {
        std::vector<int> items;
        for (const wxMenuItem* const item : frame->GetMenuBar()->GetMenu(menu)->GetMenuItems())
        {
            if (!item->IsSeparator() && (item->GetId() < wxID_FILE1 || item->GetId() > wxID_FILE9))
            {
                items.push_back(item->GetId());
            }
        }
        EXPECT_EQ(items, expected[MenuTable[menu]]) << menu;
    }
}

TEST_F(CommandTableTest, NoTwoCommandsHaveTheSameKey)
{
    std::set<wxString> keys;
    for (const Command& row : CommandTable)
    {
        const wxString key = wxString(LoadText(row.text)).AfterFirst('\t');
        if (row.menu && !key.empty())
        {
            EXPECT_TRUE(keys.insert(key).second) << key;
        }
    }
}

TEST_F(CommandTableTest, EightCommandsHaveATipAndNoOther)
{
    const std::set<int> withTip = { CommandRuleModules, CommandDatabaseModules,
                                    CommandScriptRules, CommandEditRuleButton,
                                    wxID_NEW,           wxID_OPEN,
                                    wxID_SAVE,          wxID_HELP };
    for (const int id : withTip)
    {
        EXPECT_FALSE(ToolTipOf(id).empty()) << id;
    }
    for (const Command& row : CommandTable)
    {
        EXPECT_EQ(ToolTipOf(row.id).empty(), !withTip.contains(row.id)) << row.icon;
    }
    EXPECT_EQ(ToolTipOf(wxID_ANY), L"");
    EXPECT_EQ(ToolTipOf(0), L"");
}
