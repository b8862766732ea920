// The main window's own work: files from elsewhere, recent files, status bar, bars.

#include "Application/CommandBars.h"
#include "Application/TabToolbar.h"
#include "Modules/ApplicationGlobals.h"
#include "Platform/Text.h"
#include "tests/Application/MainFrameFixture.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/VantrelLog.h>

#include <wx/toolbar.h>

namespace
{

/// Notes the hints that a document gives.
class HintView : public wxView
{
public:
    explicit HintView(wxDocument& document) { SetDocument(&document); }
    void OnDraw(wxDC* /*dc*/) override {}
    void OnUpdate(wxView* /*sender*/, wxObject* hint) override
    {
        if (const auto* const ruleHint = dynamic_cast<RuleViewHint*>(hint))
        {
            hints.push_back(ruleHint->Hint());
        }
    }

    std::vector<ViewHint> hints;
};

class MainFrameTest : public MainFrameFixture
{
protected:
    bool Send(const std::wstring& path)
    {
        std::string bytes;
        for (const char16_t unit : Platform::WideToUtf16(path) + u'\0')
        {
            bytes += static_cast<char>(unit & 0xFF);
            bytes += static_cast<char>(unit >> 8);
        }
        return frame->OnCopyData(bytes.data(), bytes.size());
    }

    wxString Status(FrameStatusBar::Pane pane) const { return frame->GetStatusBar()->GetStatusText(pane); }

    int PaneWidth(FrameStatusBar::Pane pane) const
    {
        wxRect place;
        frame->GetStatusBar()->GetFieldRect(pane, place);
        return place.GetWidth();
    }

    std::vector<wxString> RecentFiles() const
    {
        std::vector<wxString> files;
        for (std::size_t entry = 0; entry < manager->GetHistoryFilesCount(); ++entry)
        {
            files.push_back(manager->GetHistoryFile(entry));
        }
        return files;
    }

    /// A rule file without rules.
    std::wstring RuleFile(const std::wstring& name)
    {
        std::wstring path = folder.File(name);
        WriteBytes(path, "<?xml version=\"1.0\"?>\n<Lumeq Unit=\"0\" AngularUnit=\"0\"/>\n");
        return path;
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(MainFrameTest, AFileOfAnotherStartIsOpened)
{
    EXPECT_TRUE(Send(L"/rules/a \u00e9.vrf"));
    EXPECT_EQ(host.opened, std::vector<std::wstring>{ L"/rules/a \u00e9.vrf" });
}

TEST_F(MainFrameTest, AFileOfAnotherStartIsRefusedWhileTheEditorOfARuleIsOpen)
{
    g_bEditInProgress = true;
    EXPECT_FALSE(Send(L"/rules/a.vrf"));
    EXPECT_TRUE(frame->OnCopyData(nullptr, 0)); // without a path there is nothing to refuse
    g_bEditInProgress = false;
    EXPECT_TRUE(host.opened.empty());
}

TEST_F(MainFrameTest, NoModuleGoesWhileTheEditorOfARuleIsOpen)
{
    const auto choose = [this](int command)
    {
        wxCommandEvent event(wxEVT_MENU, command);
        frame->GetEventHandler()->ProcessEvent(event);
        wxUpdateUIEvent state(command);
        frame->GetEventHandler()->ProcessEvent(state);
        return state.GetEnabled();
    };
    g_bEditInProgress = true;
    EXPECT_FALSE(choose(CommandRuleModules));
    EXPECT_FALSE(choose(CommandDatabaseModules));
    g_bEditInProgress = false;
    EXPECT_TRUE(host.calls.empty());
    EXPECT_TRUE(choose(CommandRuleModules));
    EXPECT_TRUE(choose(CommandDatabaseModules));
    EXPECT_EQ(host.calls, (std::vector<std::string>{ "rule modules", "database modules" }));
}

TEST_F(MainFrameTest, FilesThatAreDroppedAreOpenedWhateverTheyAreCalled)
{
    auto* const files = new wxString[2]{ "/rules/a.vrf", "/rules/b.QoxRule" }; // owned by the event
    wxDropFilesEvent event(wxEVT_DROP_FILES, 2, files);
    event.SetEventObject(frame);
    frame->ProcessWindowEvent(event);
    EXPECT_TRUE(host.opened.empty()) << "the program that they are dragged from waits";
    ASSERT_TRUE(WaitFor([&] { return host.opened.size() >= 2; }));
    EXPECT_EQ(host.opened, (std::vector<std::wstring>{ L"/rules/a.vrf", L"/rules/b.QoxRule" }));
}

TEST_F(MainFrameTest, OpeningAFileTellsTheViewsOfTheActiveDocumentEvenIfNoneWasChosen)
{
    CQOXRMConfigModuleDoc& document = New();
    HintView view(document);
    ChooseItem(wxID_OPEN);
    EXPECT_EQ(application.prompt.fileQuestions.size(), 1U);
    EXPECT_EQ(view.hints, std::vector{ ViewHint::FileOpened });
    view.SetDocument(nullptr);
    document.RemoveView(&view);
}

TEST_F(MainFrameTest, ARecentFileIsOpenedAndItsViewsAreTold)
{
    const std::wstring path = RuleFile(L"a.vrf");
    manager->AddFileToHistory(path);
    ChooseItem(wxID_FILE1);
    auto* const document = dynamic_cast<CQOXRMConfigModuleDoc*>(manager->GetCurrentDocument());
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->GetFilename(), path);
    EXPECT_EQ(RecentFiles(), std::vector<wxString>{ path });

    HintView view(*document);
    ChooseItem(wxID_FILE1); // open already: brought forward
    EXPECT_EQ(manager->GetDocumentsVector().size(), 1U);
    EXPECT_EQ(view.hints, std::vector{ ViewHint::FileOpened });
    view.SetDocument(nullptr);
    document->RemoveView(&view);
}

TEST_F(MainFrameTest, ARecentFileThatCanNotBeOpenedLeavesTheListAndTheViewsAreToldAllTheSame)
{
    CQOXRMConfigModuleDoc& document = New();
    HintView view(document);
    manager->AddFileToHistory(RuleFile(L"kept.vrf"));
    const std::vector<wxString> kept = RecentFiles();
    manager->AddFileToHistory(folder.File(L"gone.vrf"));
    ASSERT_EQ(RecentFiles().size(), kept.size() + 1);
    ChooseItem(wxID_FILE1);
    EXPECT_EQ(RecentFiles(), kept);
    EXPECT_FALSE(application.prompt.texts.empty());
    EXPECT_EQ(manager->GetDocumentsVector().size(), 1U);
    EXPECT_EQ(view.hints, std::vector{ ViewHint::FileOpened });
    view.SetDocument(nullptr);
    document.RemoveView(&view);
}

TEST_F(MainFrameTest, APackageIsReadAsARuleFileAndNotOpened)
{
    const std::wstring path = folder.File(L"rules.QoxRule");
    WriteBytes(path, "PK\x03\x04 no rule file");
    EXPECT_EQ(manager->OpenFile(path), nullptr);
    EXPECT_FALSE(application.prompt.texts.empty());
    EXPECT_TRUE(manager->GetDocumentsVector().empty());
}

TEST_F(MainFrameTest, AFileThatCanNotBeOpenedLeavesTitleAndStatusToTheOneThatIsOpen)
{
    New();
    const wxString title = frame->GetTitle();
    const wxString status = Status(FrameStatusBar::MessagePane);
    ASSERT_FALSE(status.empty());
    EXPECT_EQ(manager->OpenFile(folder.File(L"gone.vrf")), nullptr);
    EXPECT_EQ(frame->GetTitle(), title);
    EXPECT_EQ(Status(FrameStatusBar::MessagePane), status);
}

TEST_F(MainFrameTest, TheLogNamesTheFileOfEachWindowThatTheUserTurnsTo)
{
    const std::wstring log = folder.File(L"log");
    CVantrelLog::OpenLogFile(log.c_str());
    const CQOXRMConfigModuleDoc& first = New();
    const CQOXRMConfigModuleDoc& second = New();
    const auto count = [&](const CQOXRMConfigModuleDoc& document)
    {
        const std::string line =
            "Current Rule File is " + Platform::WideToUtf8(document.GetTitle().ToStdWstring()) + "\n";
        const std::string text = ReadBytes(log);
        std::size_t found = 0;
        for (std::size_t at = text.find(line); at != std::string::npos; at = text.find(line, at + 1))
        {
            ++found;
        }
        return found;
    };
    EXPECT_TRUE(WaitFor([&] { return count(first) == 1 && count(second) == 1; })) << ReadBytes(log);
    first.GetFirstView()->GetFrame()->Raise();
    dynamic_cast<wxMDIChildFrame&>(*first.GetFirstView()->GetFrame()).Activate();
    EXPECT_TRUE(WaitFor([&] { return count(first) == 2; })) << ReadBytes(log);
    EXPECT_EQ(count(second), 1U);
    CVantrelLog::CloseLogFile();
}

TEST_F(MainFrameTest, TheSelectionThatCommandsGoByIsThatOfTheWindowInFront)
{
    CQOXRMConfigModuleDoc& first = New();
    CQOXRMConfigModuleDoc& second = New();
    const auto turnTo = [](CQOXRMConfigModuleDoc& document)
    { dynamic_cast<wxMDIChildFrame&>(*document.GetFirstView()->GetFrame()).Activate(); };
    const auto isInFront = [&](CQOXRMConfigModuleDoc& document)
    { return manager->GetCurrentView() == document.GetFirstView(); };
    turnTo(first);
    ASSERT_TRUE(WaitFor([&] { return isInFront(first); }));
    constexpr long State = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
    ListOf(first).SetItemState(0, State, State);
    ASSERT_EQ(application.docOpenState, 1);
    for (CQOXRMConfigModuleDoc* const document : { &first, &second }) // as after a change of the modules
    {
        document->UpdateViews(ViewHint::Reload);
    }
    EXPECT_EQ(application.docOpenState, 1);

    turnTo(second);
    ASSERT_TRUE(WaitFor([&] { return isInFront(second); }));
    EXPECT_EQ(application.docOpenState, 0);
    manager->CloseDocument(&second, true);
    EXPECT_TRUE(WaitFor([&] { return isInFront(first); }));
    EXPECT_EQ(application.docOpenState, 1);
}

TEST_F(MainFrameTest, TheStatusBarHasTheCountOfTheRulesAndOfTheFiles)
{
    New();
    EXPECT_EQ(Status(FrameStatusBar::MessagePane), FormatText(TextId::RuleCount, { L"0", L"4" }));
    host.files.count = 1;
    EXPECT_TRUE(
        WaitFor([&] { return Status(FrameStatusBar::OpenFilesPane) == FormatText(TextId::OpenFileCount, { L"1" }); }));
    const int width = PaneWidth(FrameStatusBar::OpenFilesPane);
    host.files.count = 1000000;
    EXPECT_TRUE(WaitFor([&] { return PaneWidth(FrameStatusBar::OpenFilesPane) > width; }));
    host.files.count = 1;
    EXPECT_TRUE(WaitFor([&] { return PaneWidth(FrameStatusBar::OpenFilesPane) == width; }));
}

TEST_F(MainFrameTest, APaneIsAsWideAsItsTextAndAMargin)
{
    for (const int count : { 1, 22222 })
    {
        host.files.count = count;
        const wxString text = FormatText(TextId::OpenFileCount, { std::to_wstring(count) });
        ASSERT_TRUE(WaitFor([&] { return Status(FrameStatusBar::OpenFilesPane) == text; }));
        EXPECT_GT(PaneWidth(FrameStatusBar::OpenFilesPane), frame->GetStatusBar()->GetTextExtent(text).GetWidth());
    }
}

TEST_F(MainFrameTest, AnIndicatorTellsOfAReadOnlyFile)
{
    EXPECT_EQ(Status(FrameStatusBar::ReadOnlyPane), "");
    host.files.activeReadOnly = true;
    EXPECT_TRUE(WaitFor([&] { return Status(FrameStatusBar::ReadOnlyPane) == LoadText(TextId::IndicatorReadOnly); }));
    host.files.activeReadOnly = false;
    EXPECT_TRUE(WaitFor([&] { return Status(FrameStatusBar::ReadOnlyPane).empty(); }));
}

TEST_F(MainFrameTest, AWindowThatIsNextToNothingLeavesTheStripTheRoomItHad)
{
    const auto leastHeight = [this]
    { return frame->Bars().Manager().GetPane(&frame->Bars().Strip()).min_size.GetHeight(); };
    const int oneRow = frame->Bars().Strip().WantedSize({ 2000, 1000 }).GetHeight();
    ASSERT_TRUE(WaitFor([&] { return leastHeight() == oneRow; }));
    // So small it is for a moment where window systems make it from nothing to its size.
    frame->SetClientSize(2, 1);
    frame->Bars().Strip().SetSize(0, 1);
    frame->Bars().SetLayout({}); // fits the strip
    EXPECT_EQ(leastHeight(), oneRow);
}

TEST_F(MainFrameTest, AWindowThatIsMadeNarrowInOneGoShowsAllButtons)
{
    CQOXRMTabToolbar& strip = frame->Bars().Strip();
    const wxSize narrow(strip.FloatingSize().GetWidth() / 2, 700);
    frame->SetClientSize(narrow);
    strip.SetSize(narrow.GetWidth(), strip.GetSize().GetHeight());
    frame->Bars().SetLayout({}); // fits the strip
    EXPECT_EQ(frame->Bars().Manager().GetPane(&strip).min_size.GetHeight(), strip.WantedSize(narrow).GetHeight());
    EXPECT_GT(strip.WantedSize(narrow).GetHeight(), strip.HeightOfRows(1));
}

TEST_F(MainFrameTest, TheWindowHasItsLargeIconsOnceItIsInUse)
{
    const auto hasIcon = [this](int size)
    { return frame->GetIcons().GetIcon(wxSize(size, size), wxIconBundle::FALLBACK_NONE).IsOk(); };
    EXPECT_TRUE(hasIcon(16) && hasIcon(32)) << "title bars ask for them at once";
    EXPECT_TRUE(WaitFor([&] { return hasIcon(48) && hasIcon(256); }));
}

TEST_F(MainFrameTest, TheIndicatorOfAReadOnlyFileIsShownWholeBesideTheGripOfTheWindow)
{
    wxStatusBar& bar = *frame->GetStatusBar();
    const auto draws = std::make_shared<int>(0);
    bar.Bind(wxEVT_PAINT,
             [draws](wxPaintEvent& event)
             {
                 event.Skip(); // the bar draws itself then
                 ++*draws;
             });
    host.files.activeReadOnly = true;
    ASSERT_TRUE(WaitFor([&] { return Status(FrameStatusBar::ReadOnlyPane) == LoadText(TextId::IndicatorReadOnly); }));
    *draws = 0;
    bar.Refresh();
    ASSERT_TRUE(WaitFor([&] { return *draws > 0; }));
    EXPECT_FALSE(bar.GetField(FrameStatusBar::ReadOnlyPane).IsEllipsized());
}

TEST_F(MainFrameTest, TheIndicatorsFollowTheLockKeys)
{
    struct Lock
    {
        wxKeyCode key;
        FrameStatusBar::Pane pane;
        TextId text;
    };
    for (const Lock& lock : { Lock{ WXK_CAPITAL, FrameStatusBar::CapsLockPane, TextId::IndicatorCapsLock },
                              Lock{ WXK_NUMLOCK, FrameStatusBar::NumLockPane, TextId::IndicatorNumLock } })
    {
        EXPECT_EQ(Status(lock.pane), "");
        user.Char(lock.key);
        EXPECT_TRUE(WaitFor([&] { return Status(lock.pane) == LoadText(lock.text); })) << lock.key;
        user.Char(lock.key);
        EXPECT_TRUE(WaitFor([&] { return Status(lock.pane).empty(); })) << lock.key;
    }
    EXPECT_EQ(Status(FrameStatusBar::ScrollLockPane), ""); // a virtual screen has no such key
}

TEST_F(MainFrameTest, TheMenuOfABarHasOneEntryThatShowsTheQuickToolBar)
{
    const std::unique_ptr<wxMenu> menu = frame->MakeBarMenu();
    ASSERT_EQ(menu->GetMenuItemCount(), 1U);
    const wxMenuItem& entry = *menu->GetMenuItems().front();
    EXPECT_EQ(entry.GetId(), CommandSecondToolBar);
    EXPECT_EQ(entry.GetItemLabel(), LoadText(TextId::ShowToolbar));
    EXPECT_TRUE(entry.IsChecked());
    frame->Bars().ShowSecondToolBar(false);
    EXPECT_FALSE(frame->MakeBarMenu()->IsChecked(CommandSecondToolBar));
}

TEST_F(MainFrameTest, TheStatusBarTellsOfTheQuickToolBarsButtonUnderTheMouse)
{
    New();
    const wxString before = Status(FrameStatusBar::MessagePane);
    wxToolBar& bar = frame->Bars().SecondToolBar();
    constexpr int FirstButton = 20;
    ASSERT_TRUE(WaitFor([&] { return bar.IsShownOnScreen() && bar.GetSize().GetHeight() > 2 * FirstButton; }));
    user.MouseMove(bar.ClientToScreen(wxPoint(FirstButton, FirstButton)));
    EXPECT_TRUE(WaitFor([&] { return Status(FrameStatusBar::MessagePane) == LoadText(TextId::TipNew); }))
        << Status(FrameStatusBar::MessagePane);
    user.MouseMove(
        frame->ClientToScreen(wxPoint(frame->GetClientSize().GetWidth() / 2, frame->GetClientSize().GetHeight() / 2)));
    EXPECT_TRUE(WaitFor([&] { return Status(FrameStatusBar::MessagePane) == before; }));
}

TEST_F(MainFrameTest, TheStatusBarTellsOfAButtonOfTheQuickToolBarInAWindowOfItsOwnToo)
{
    New();
    const wxString before = Status(FrameStatusBar::MessagePane);
    wxToolBar& bar = frame->Bars().SecondToolBar();
    frame->Bars().Manager().GetPane(&bar).Float().FloatingPosition(300, 300);
    frame->Bars().Manager().Update();
    ASSERT_NE(bar.GetParent(), frame);
    bar.OnMouseEnter(wxID_OPEN); // what the toolkit calls
    EXPECT_EQ(Status(FrameStatusBar::MessagePane), LoadText(TextId::TipOpen));
    bar.OnMouseEnter(wxID_ANY);
    EXPECT_EQ(Status(FrameStatusBar::MessagePane), before);
}

TEST_F(MainFrameTest, TheQuickToolBarHasTheCommandsWithTipsInTheirOrder)
{
    wxToolBar& bar = frame->Bars().SecondToolBar();
    std::vector<int> expected;
    for (const int id : QuickBarCommands)
    {
        if (FindCommand(id) != nullptr)
        {
            expected.push_back(id);
        }
    }
    ASSERT_EQ(bar.GetToolsCount(), expected.size());
    for (std::size_t place = 0; place < expected.size(); ++place)
    {
        const wxToolBarToolBase& tool = *bar.GetToolByPos(static_cast<int>(place));
        EXPECT_EQ(tool.GetId(), expected[place]);
        EXPECT_EQ(tool.GetShortHelp(), ToolTipOf(expected[place]));
        EXPECT_FALSE(tool.GetLabel().empty()); // for programs that read the screen
        EXPECT_TRUE(tool.GetNormalBitmapBundle().IsOk());
    }
}
