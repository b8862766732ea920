#include "Authoring/ScriptLocnDlg.h"

#include "Platform/Files.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/ShownDialog.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/init.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <memory>

namespace
{

class ScriptLocnDlgTest : public testing::Test
{
protected:
    ScriptLocnDlgTest()
    {
        for (const wchar_t* const name : { L"scripts", L"other", L"database" })
        {
            Platform::MakeFolder(folder.File(name));
        }
        dialog = std::make_unique<CQOXRMScriptLocnDlg>(
            nullptr, script, [] { return true; }, prompt);
    }

    wxTextCtrl& Field(std::size_t index) { return *ControlsOf<wxTextCtrl>(*dialog).at(index); }
    void Browse(std::size_t index) { ClickOn(*ControlsOf<wxButton>(*dialog).at(index)); }

    TemporaryFolder folder;
    ScopedEnvironment variable{ "VANTREL_DATABASE_DIR", folder.File(L"database") };
    RecordingPrompt prompt;
    std::wstring script = folder.File(L"scripts");
    std::unique_ptr<CQOXRMScriptLocnDlg> dialog;
};

} // namespace

TEST_F(ScriptLocnDlgTest, BothFoldersAreShown)
{
    EXPECT_EQ(Field(0).GetValue(), script);
    EXPECT_EQ(Field(1).GetValue(), folder.File(L"database"));
}

TEST_F(ScriptLocnDlgTest, OkTakesTheTypedFoldersAndTheReturnKeyIsOk)
{
    const int result = RunDialog(*dialog,
                                 [this]
                                 {
                                     EXPECT_EQ(wxWindow::FindFocus(), &Field(0));
                                     Field(0).SetValue(folder.File(L"other"));
                                     wxUIActionSimulator().Char(WXK_RETURN);
                                 });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(script, folder.File(L"other"));
    EXPECT_EQ(prompt.texts.size(), 1u) << "the warning about the open rule file";
}

TEST_F(ScriptLocnDlgTest, ARefusedFolderGivesTheOldOneBackAndTheDialogStays)
{
    const int result = RunDialog(*dialog,
                                 [this]
                                 {
                                     Field(0).SetValue("scripts");
                                     ClickOn(*dialog, wxID_OK);
                                     EXPECT_TRUE(dialog->IsModal());
                                     EXPECT_EQ(Field(0).GetValue(), folder.File(L"scripts"));
                                     Field(1).SetValue(folder.File(L"none"));
                                     ClickOn(*dialog, wxID_OK);
                                     EXPECT_TRUE(dialog->IsModal());
                                     EXPECT_EQ(Field(1).GetValue(), folder.File(L"database"));
                                     ClickOn(*dialog, wxID_CANCEL);
                                 });
    EXPECT_EQ(result, wxID_CANCEL);
    EXPECT_EQ(prompt.texts.size(), 2u);
}

TEST_F(ScriptLocnDlgTest, TheBrowserStartsAtTheFolderInTheBoxAndItsChoiceGoesThere)
{
    prompt.path = folder.File(L"other");
    Browse(0);
    Browse(1);
    EXPECT_EQ(Field(0).GetValue(), folder.File(L"other"));
    EXPECT_EQ(Field(1).GetValue(), folder.File(L"other"));
    ASSERT_EQ(prompt.folderQuestions.size(), 2u);
    EXPECT_EQ(prompt.folderQuestions[0].title, L"Select the location to store the script");
    EXPECT_EQ(prompt.folderQuestions[0].folder, folder.File(L"scripts"));
    EXPECT_EQ(prompt.folderQuestions[1].title, L"Select the location to store the database");
    EXPECT_EQ(prompt.folderQuestions[1].folder, folder.File(L"database"));
    EXPECT_EQ(dialog->DatabaseFolder(), folder.File(L"other"));
    EXPECT_EQ(script, folder.File(L"scripts")) << "only OK takes it";
}

TEST_F(ScriptLocnDlgTest, GivingTheBrowserUpChangesNothing)
{
    Browse(0);
    Browse(1);
    EXPECT_EQ(Field(0).GetValue(), folder.File(L"scripts"));
    EXPECT_EQ(Field(1).GetValue(), folder.File(L"database"));
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new wxApp); // owned by the toolkit
    const wxInitializer toolkit(argc, argv);
    return toolkit.IsOk() ? RUN_ALL_TESTS() : 1;
}
