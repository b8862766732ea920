#include "Modules/ModuleRegDlgs.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/ShownDialog.h"
#include "tests/Support/TestFiles.h"
#include "tests/Support/WindowTest.h"

#include <Vantrel/VantrelLog.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/init.h>
#include <wx/listctrl.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace
{

using testing::HasSubstr;

constexpr const wchar_t* Complete = L"TestModuleComplete";
constexpr const wchar_t* Second = L"TestModuleSecond";

class RuleRegDlgTest : public testing::Test
{
protected:
    RuleRegDlgTest()
    {
        const std::wstring original = TestModulePath(L"TestModuleNoRules");
        std::filesystem::copy_file(
            Platform::NativePath(original.substr(0, original.size() - 4) + Platform::LibrarySuffix),
            Platform::NativePath(folder.File(std::wstring(L"QoxMillRulesu") + Platform::LibrarySuffix)));
    }
    ~RuleRegDlgTest() override
    {
        registration.reset();
        ModuleSet::Handles toFree;
        application.Modules().ConfigModulePaths().clear();
        application.Modules().LoadConfigModules(toFree);
        ModuleSet::FreeModules(toFree);
    }

    void Make(const std::vector<std::wstring>& configured)
    {
        application.LoadRuleModules(configured);
        registration = std::make_unique<CQOXRuleConfigModuleRegDlg>(
            nullptr, application.Modules(), ModuleRegistration::Places{ config, folder.Path() },
            [this]
            {
                ++reloads;
                ModuleSet::Handles toFree;
                application.Modules().LoadConfigModules(toFree);
                ModuleSet::FreeModules(toFree);
            },
            application.prompt);
    }

    CQOXRuleRegDlg& Dialog() { return registration->Dialog(); }
    wxListCtrl& Configured() { return *ControlsOf<wxListCtrl>(Dialog()).at(0); }
    wxListCtrl& Defaults() { return *ControlsOf<wxListCtrl>(Dialog()).at(1); }
    wxTextCtrl& Field() { return *ControlsOf<wxTextCtrl>(Dialog()).at(0); }
    wxTextCtrl& Path() { return *ControlsOf<wxTextCtrl>(Dialog()).at(1); }
    wxTextCtrl& Summary() { return *ControlsOf<wxTextCtrl>(Dialog()).at(2); }
    wxButton& Remove() { return *ControlsOf<wxButton>(Dialog()).at(0); }
    wxButton& Reset() { return *ControlsOf<wxButton>(Dialog()).at(1); }
    wxButton& Browse() { return *ControlsOf<wxButton>(Dialog()).at(2); }
    wxButton& Add() { return *ControlsOf<wxButton>(Dialog()).at(3); }
    wxWindow& Ok() { return *Dialog().FindWindow(wxID_OK); }
    wxWindow& Cancel() { return *Dialog().FindWindow(wxID_CANCEL); }
    wxWindow* Default() { return Dialog().GetDefaultItem(); }

    std::vector<std::wstring> Rows()
    {
        std::vector<std::wstring> rows;
        rows.reserve(static_cast<std::size_t>(Configured().GetItemCount()));
        for (int row = 0; row < Configured().GetItemCount(); ++row)
        {
            rows.push_back(Configured().GetItemText(row).ToStdWstring());
        }
        return rows;
    }

    /// Adds a module by its path.
    void AddTyped(const std::wstring& name)
    {
        Field().SetValue(TestModulePath(name));
        ClickOn(Add());
    }

    /// Presses Return, which is to end the dialog. It ends in any case, so that a test does too.
    void PressReturnToEnd()
    {
        wxUIActionSimulator().Char(WXK_RETURN);
        if (!WaitFor([this] { return !Dialog().IsModal(); }))
        {
            Dialog().EndModal(wxID_NONE);
        }
    }

    static bool IsLoaded(const std::wstring& name)
    {
        return Platform::FindLoadedLibrary(TestModulePath(name)) != nullptr;
    }

    TestApplication application;
    TemporaryFolder folder;
    std::wstring config = folder.File(L"ConfigModule.ini");
    std::unique_ptr<CQOXRuleConfigModuleRegDlg> registration;
    int reloads = 0;
};

} // namespace

TEST_F(RuleRegDlgTest, AtFirstTheModulesAreListedAndNothingIsToBeConfirmed)
{
    Make({ Complete, Second, L"TestModuleNoName" });
    EXPECT_EQ(Dialog().GetTitle(), "Rule Modules");
    EXPECT_EQ(Rows(), (std::vector<std::wstring>{ L"Complete Test Module", L"Second Test Module" }))
        << "a module without a name has no row";
    EXPECT_EQ(Defaults().GetItemCount(), 1);
    EXPECT_EQ(Defaults().GetItemText(0), "Test Module Without Rules");
    EXPECT_EQ(Configured().GetSelectedItemCount(), 1);
    EXPECT_EQ(Path().GetValue(), TestModulePath(Second));
    EXPECT_EQ(Summary().GetValue(), "Summary of TestModuleSecond\n");
    EXPECT_FALSE(Path().IsEditable());
    EXPECT_FALSE(Summary().IsEditable());
    EXPECT_FALSE(Ok().IsEnabled());
    EXPECT_FALSE(Reset().IsEnabled());
    EXPECT_FALSE(Add().IsEnabled());
    EXPECT_TRUE(Remove().IsEnabled());
    EXPECT_EQ(Default(), &Add());
}

TEST_F(RuleRegDlgTest, AColumnIsAsWideAsItsLongestNameWithATenthMore)
{
    Make({ Complete });
    const int text = Defaults().GetTextExtent("Test Module Without Rules").GetWidth();
    ASSERT_GT(text, Dialog().FromDIP(100));
    EXPECT_EQ(Defaults().GetColumnWidth(0), static_cast<int>(text * 1.1));
    ASSERT_LT(Configured().GetTextExtent("Complete Test Module").GetWidth(), Dialog().FromDIP(150));
    EXPECT_EQ(Configured().GetColumnWidth(0), Dialog().FromDIP(150)) << "short names leave it as it is";
}

TEST_F(RuleRegDlgTest, EachStartOfTheDialogIsLogged)
{
    const std::wstring log = folder.File(L"log");
    CVantrelLog::OpenLogFile(log);
    Make({ Complete });
    AddTyped(Second);
    ClickOn(Reset());
    registration.reset();
    CVantrelLog::CloseLogFile();
    const std::string lines = ReadBytes(log);
    const auto first = lines.find("Rule Register Dialog initialized");
    ASSERT_NE(first, std::string::npos);
    const auto second = lines.find("Rule Register Dialog initialized", first + 1);
    EXPECT_LT(lines.find("Configured new module"), second) << "Reset starts it again";
    EXPECT_NE(lines.find("Rule Register Dialog Uninitialized", second), std::string::npos);
}

TEST_F(RuleRegDlgTest, TheFieldHasTheKeyboardAndReturnRemovesNothing)
{
    Make({ Complete });
    const int result = RunDialog(Dialog(),
                                 [this]
                                 {
                                     EXPECT_EQ(wxWindow::FindFocus(), &Field());
                                     wxUIActionSimulator().Char(WXK_RETURN);
                                     wxYield();
                                     EXPECT_EQ(Rows().size(), 1u);
                                     EXPECT_TRUE(Dialog().IsModal());
                                     wxUIActionSimulator().Char(WXK_ESCAPE);
                                 });
    EXPECT_NE(result, wxID_OK);
}

TEST_F(RuleRegDlgTest, InTheListsTheReturnKeyPressesTheDefaultButton)
{
    Make({ Complete, Second });
    const auto turnTo = [](wxListCtrl& list)
    {
        list.SetFocus();
        return WaitFor([&list] { return list.HasFocus() || list.IsDescendant(wxWindow::FindFocus()); });
    };
    const int result = RunDialog(Dialog(),
                                 [&]
                                 {
                                     EXPECT_TRUE(turnTo(Configured()));
                                     Configured().SetItemState(1, 0, wxLIST_STATE_SELECTED);
                                     Configured().SetItemState(1, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
                                     wxUIActionSimulator().Char(WXK_RETURN);
                                     EXPECT_TRUE(WaitFor([this] { return Rows().size() == 1; })) << "Remove";
                                     EXPECT_TRUE(turnTo(Defaults()));
                                     Defaults().SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
                                     wxUIActionSimulator().Char(WXK_RETURN);
                                     EXPECT_TRUE(WaitFor([this] { return Rows().size() == 2; })) << "Add";
                                     EXPECT_TRUE(turnTo(Configured()));
                                     Configured().SetItemState(1, 0, wxLIST_STATE_SELECTED);
                                     PressReturnToEnd(); // Cancel, without a selection
                                 });
    EXPECT_EQ(result, wxID_CANCEL);
}

TEST_F(RuleRegDlgTest, TheReturnKeyInTheListAfterRemovingIsOk)
{
    Make({ Complete, Second });
    const int result =
        RunDialog(Dialog(),
                  [this]
                  {
                      ClickOn(Remove());
                      EXPECT_TRUE(WaitFor([this] { return Configured().IsDescendant(wxWindow::FindFocus()); }));
                      PressReturnToEnd();
                  });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(Rows().size(), 1U);
}

TEST_F(RuleRegDlgTest, TheModuleThatIsSelectedIsInSight)
{
    Make(std::vector<std::wstring>(40, Complete));
    EXPECT_EQ(Configured().GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED), 39);
    EXPECT_GT(Configured().GetTopItem(), 0);
}

TEST_F(RuleRegDlgTest, TextInTheFieldMakesAddTheDefaultAndItStaysEnabled)
{
    Make({ Complete });
    Field().SetValue("x");
    EXPECT_TRUE(Add().IsEnabled());
    EXPECT_EQ(Default(), &Add());
    Field().SetValue("");
    EXPECT_TRUE(Add().IsEnabled());
}

TEST_F(RuleRegDlgTest, AnAddedModuleIsSelectedAndCanBeConfirmedOrReset)
{
    Make({ Complete });
    AddTyped(Second);
    EXPECT_EQ(Rows().back(), L"Second Test Module");
    EXPECT_NE(Configured().GetItemState(1, wxLIST_STATE_SELECTED), 0);
    EXPECT_EQ(Path().GetValue(), TestModulePath(Second));
    EXPECT_TRUE(Ok().IsEnabled());
    EXPECT_TRUE(Reset().IsEnabled());
    EXPECT_EQ(Default(), &Ok());
    EXPECT_TRUE(Field().IsEmpty());
}

TEST_F(RuleRegDlgTest, ARefusedModuleIsToldTheFieldEmptiedAndNothingElseChanges)
{
    Make({ Complete });
    AddTyped(L"TestModuleEmpty");
    EXPECT_EQ(Rows().size(), 1u);
    EXPECT_EQ(application.prompt.texts.size(), 1u);
    EXPECT_TRUE(Field().IsEmpty());
    EXPECT_FALSE(Ok().IsEnabled());
    EXPECT_FALSE(Reset().IsEnabled());
}

TEST_F(RuleRegDlgTest, AChosenDefaultModuleIsAddedWhileTheFieldIsEmpty)
{
    Make({});
    Defaults().SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    EXPECT_TRUE(Add().IsEnabled());
    EXPECT_EQ(Default(), &Add());
    ClickOn(Add());
    EXPECT_EQ(Rows(), std::vector<std::wstring>{ L"Test Module Without Rules" });
    EXPECT_EQ(Path().GetValue(), folder.File(L"QoxMillRulesu.dll"));
}

TEST_F(RuleRegDlgTest, RemovingTakesTheSelectedRowsAndSelectsTheLastThatIsLeft)
{
    Make({ Complete, Second, L"TestModuleNoRules" });
    Configured().SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    ClickOn(Remove()); // rows 0 and 2
    EXPECT_EQ(Rows(), std::vector<std::wstring>{ L"Second Test Module" });
    EXPECT_EQ(Path().GetValue(), TestModulePath(Second));
    EXPECT_TRUE(Remove().IsEnabled());
    EXPECT_TRUE(Ok().IsEnabled());
    EXPECT_TRUE(Reset().IsEnabled());
    EXPECT_EQ(Default(), &Ok());
    ClickOn(Remove());
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(Remove().IsEnabled());
    EXPECT_TRUE(Path().IsEmpty());
    EXPECT_TRUE(Summary().IsEmpty());
    EXPECT_EQ(Default(), &Ok());
    EXPECT_TRUE(IsLoaded(Complete)) << "nothing is released yet";
}

TEST_F(RuleRegDlgTest, WithoutASelectionRemoveIsOffAndCancelTheDefault)
{
    Make({ Complete });
    Configured().SetItemState(0, 0, wxLIST_STATE_SELECTED);
    EXPECT_FALSE(Remove().IsEnabled());
    EXPECT_EQ(Default(), &Cancel());
    Configured().SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    EXPECT_TRUE(Remove().IsEnabled());
    EXPECT_EQ(Default(), &Remove());
}

TEST_F(RuleRegDlgTest, AfterModulesWereRemovedTheSelectionThatIsLeftCounts)
{
    Make({ Complete, Second });
    ClickOn(Remove());
    EXPECT_TRUE(Remove().IsEnabled());
    Configured().SetItemState(0, 0, wxLIST_STATE_SELECTED);
    EXPECT_FALSE(Remove().IsEnabled());
    EXPECT_EQ(Default(), &Cancel());
}

TEST_F(RuleRegDlgTest, ResetReleasesWhatWasAddedAndStartsAgain)
{
    Make({ Complete });
    AddTyped(Second);
    ClickOn(Reset());
    EXPECT_FALSE(IsLoaded(Second));
    EXPECT_EQ(Rows(), std::vector<std::wstring>{ L"Complete Test Module" });
    EXPECT_EQ(Defaults().GetItemCount(), 1);
    EXPECT_EQ(Configured().GetColumnCount(), 1);
    EXPECT_FALSE(Ok().IsEnabled());
    EXPECT_FALSE(Reset().IsEnabled());
    EXPECT_EQ(Default(), &Add());
}

TEST_F(RuleRegDlgTest, AfterResettingToNoModulesThereIsNothingToRemove)
{
    Make({});
    AddTyped(Second);
    EXPECT_TRUE(Remove().IsEnabled());
    ClickOn(Reset());
    EXPECT_TRUE(Rows().empty());
    EXPECT_FALSE(Remove().IsEnabled());
}

TEST_F(RuleRegDlgTest, F1ShowsTheHelpOfTheKind)
{
    Make({ Complete });
    RunDialog(Dialog(),
              []
              {
                  wxUIActionSimulator().Char(WXK_F1);
                  wxYield();
                  wxUIActionSimulator().Char(WXK_ESCAPE);
              });
    EXPECT_EQ(application.helpTopics, std::vector{ HelpTopic::RuleModules });
}

TEST_F(RuleRegDlgTest, TheHelpButtonShowsTheSameAndARequestAboutAControlItsText)
{
    Make({ Complete });
    ClickOn(*wxDynamicCast(Dialog().FindWindow(wxID_HELP), wxButton));
    EXPECT_EQ(application.helpTopics, std::vector{ HelpTopic::RuleModules });
    wxHelpEvent request(wxEVT_HELP, Add().GetId());
    request.SetEventObject(&Add());
    Add().ProcessWindowEvent(request);
    EXPECT_EQ(application.prompt.texts, std::vector<std::wstring>{ L"Help needs to be implemented" });
    EXPECT_EQ(application.helpTopics.size(), 1U);
}

TEST_F(RuleRegDlgTest, OkSavesAndThenReloads)
{
    Make({ Complete });
    Dialog().CallAfter(
        [this]
        {
            AddTyped(Second);
            ClickOn(Dialog(), wxID_OK);
        });
    EXPECT_EQ(registration->DoModal(), wxID_OK);
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(application.Modules().ConfigModules().size(), 2u);
    EXPECT_THAT(ReadBytes(config), HasSubstr(" module2=" + Platform::ToCodePage(TestModulePath(Second)) + "\n"));
    Platform::ReleaseLibrary(application.Modules().ConfigModules().back()); // the load of the dialog
}

TEST_F(RuleRegDlgTest, CancelReleasesWhatWasAddedAndChangesNothing)
{
    Make({ Complete });
    Dialog().CallAfter(
        [this]
        {
            AddTyped(Second);
            ClickOn(Remove());
            ClickOn(Remove());
            ClickOn(Dialog(), wxID_CANCEL);
        });
    EXPECT_NE(registration->DoModal(), wxID_OK);
    EXPECT_EQ(reloads, 0);
    EXPECT_FALSE(IsLoaded(Second));
    EXPECT_TRUE(IsLoaded(Complete));
    EXPECT_FALSE(Platform::PathExists(config));
    EXPECT_EQ(application.Modules().ConfigModulePaths().size(), 1u);
}

TEST_F(RuleRegDlgTest, TheFileDialogStartsInTheFolderOfTheFieldOrInTheProgramsAndItsChoiceGoesIntoTheField)
{
    Make({});
    application.prompt.path = TestModulePath(Second);
    ClickOn(Browse());
    EXPECT_EQ(Field().GetValue(), TestModulePath(Second));
    ASSERT_EQ(application.prompt.fileQuestions.size(), 1u);
    const FileQuestion& question = application.prompt.fileQuestions.front();
    EXPECT_EQ(question.folder, folder.Path());
    EXPECT_EQ(question.pattern, std::wstring(L"*") + Platform::LibrarySuffix);
    EXPECT_EQ(question.filterName, L"Rule Modules(*" + std::wstring(Platform::LibrarySuffix) + L")");

    const std::wstring other = folder.File(L"other");
    ASSERT_TRUE(Platform::MakeFolder(other));
    Field().SetValue(other);
    ClickOn(Browse());
    EXPECT_EQ(application.prompt.fileQuestions.back().folder, other);

    application.prompt.path.reset();
    ClickOn(Browse());
    EXPECT_EQ(Field().GetValue(), TestModulePath(Second)) << "giving up leaves the field";
}

TEST_F(RuleRegDlgTest, TheFileDialogStartsWhereAModuleLiesWhosePathIsTypedAsTheDialogShowsIt)
{
    Make({ Complete });
    const std::wstring shown = Path().GetValue().ToStdWstring();
    ASSERT_EQ(shown, TestModulePath(Complete));
    const std::wstring itsFolder = Platform::FolderPart(shown);
    const auto startFolder = [this](const std::wstring& typed)
    {
        Field().SetValue(typed);
        ClickOn(Browse());
        return application.prompt.fileQuestions.back().folder;
    };
    EXPECT_EQ(startFolder(shown), itsFolder);
    EXPECT_EQ(startFolder(shown.substr(0, shown.size() - 4) + Platform::LibrarySuffix), itsFolder);
    const std::wstring name = shown.substr(itsFolder.size());
    EXPECT_EQ(startFolder(itsFolder + Platform::ToLower(name)), itsFolder);

    ASSERT_TRUE(Platform::MakeFolder(folder.File(L"Mods")));
    WriteBytes(folder.File(L"Mods") + name, "x");
    const std::wstring inAnotherCase = folder.File(L"MODS") + name;
    ASSERT_TRUE(Platform::LibraryFileExists(inAnotherCase));
    EXPECT_TRUE(Platform::FolderExists(startFolder(inAnotherCase)));

    for (const std::wstring& typed : { itsFolder + Platform::PathSeparator + L"none.dll", folder.File(L"none") + name,
                                       std::wstring(L"none.dll"), std::wstring() })
    {
        EXPECT_EQ(startFolder(typed), folder.Path()) << "the program's folder";
    }
}

TEST_F(RuleRegDlgTest, TheDialogOfDatabaseModulesIsTheSameWithItsOwnData)
{
    application.LoadDatabaseModules({ L"TestDatabaseComplete" });
    CQOXRuleDBModuleRegDlg databases(
        nullptr, application.Modules(), { config, folder.Path() }, [] {}, application.prompt);
    EXPECT_EQ(databases.Dialog().GetTitle(), "Database Modules");
    EXPECT_EQ(ControlsOf<wxListCtrl>(databases.Dialog()).at(1)->GetItemCount(), 0);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new wxApp); // owned by the toolkit
    const wxInitializer toolkit(argc, argv);
    return toolkit.IsOk() ? RUN_ALL_TESTS() : 1;
}
