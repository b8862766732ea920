// The document within the document/view framework, without windows.

#include "Document/ConfigModuleDoc.h"

#include "Platform/Files.h"
#include "Platform/HeldFile.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <wx/docview.h>
#include <wx/init.h>

#include <vector>

namespace
{

/// A view that holds nothing but what it was told.
class EmptyView : public wxView
{
public:
    void OnUpdate(wxView* /*sender*/, wxObject* hint) override
    {
        if (const auto* const ruleHint = dynamic_cast<RuleViewHint*>(hint))
        {
            hints.push_back(ruleHint->Hint());
        }
    }

    std::vector<ViewHint> hints;

    bool OnCreate(wxDocument* document, long /*flags*/) override
    {
        SetDocument(document);
        return true;
    }
    void OnDraw(wxDC* /*dc*/) override {}
    bool OnClose(bool /*deleteWindow*/) override { return true; }
    void OnChangeFilename() override {}

private:
    wxDECLARE_DYNAMIC_CLASS(EmptyView);
};

wxIMPLEMENT_DYNAMIC_CLASS(EmptyView, wxView);

class ConfigModuleDocTest : public testing::Test
{
protected:
    ConfigModuleDocTest()
    {
        // The manager owns its template.
        new wxDocTemplate(&manager, "Rule File", "*.vrf", "", "vrf", "Rule File", "Rules",
                          wxCLASSINFO(CQOXRMConfigModuleDoc), wxCLASSINFO(EmptyView));
    }
    ~ConfigModuleDocTest() override { manager.CloseDocuments(true); }

    static const std::vector<ViewHint>& HintsOf(CQOXRMConfigModuleDoc& document)
    {
        return dynamic_cast<EmptyView&>(*document.GetFirstView()).hints;
    }

    CQOXRMConfigModuleDoc& New() { return dynamic_cast<CQOXRMConfigModuleDoc&>(*manager.CreateNewDocument()); }

    TestApplication application;
    wxInitializer toolkit;
    wxDocManager manager;
};

} // namespace

TEST_F(ConfigModuleDocTest, ANewDocumentHasItsBareTitleAsPathAndInTheRecentFiles)
{
    CQOXRMConfigModuleDoc& document = New();
    EXPECT_EQ(document.GetTitle(), "unnamed1");
    EXPECT_EQ(document.GetFilename(), "unnamed1");
    ASSERT_EQ(manager.GetHistoryFilesCount(), 1U);
    EXPECT_TRUE(manager.GetHistoryFile(0).EndsWith("unnamed1")) << manager.GetHistoryFile(0);
}

TEST_F(ConfigModuleDocTest, AModifiedReadOnlyDocumentHasItsMarkOnceAndThenAStar)
{
    CQOXRMConfigModuleDoc& document = New();
    document.Rules().SetReadOnly(true);
    document.SetDocumentTitle("rules.vrf");
    EXPECT_EQ(document.GetTitle(), "rules.vrf [Read-Only] ");
    document.Modify(true);
    EXPECT_EQ(document.GetTitle(), "rules.vrf [Read-Only] *");
    document.Modify(true);
    EXPECT_EQ(document.GetTitle(), "rules.vrf [Read-Only] *");
    document.Modify(false);
    EXPECT_EQ(document.GetTitle(), "rules.vrf [Read-Only] ");
}

TEST_F(ConfigModuleDocTest, ATitleOfOneStarBecomesEmptyWhenTheModificationGoes)
{
    CQOXRMConfigModuleDoc& document = New();
    document.Modify(true);
    document.SetTitle("*");
    document.Modify(false);
    EXPECT_EQ(document.GetTitle(), "");
}

TEST_F(ConfigModuleDocTest, ClosingTheLastDocumentDisablesTheCommandsOnOneRule)
{
    CQOXRMConfigModuleDoc& first = New();
    CQOXRMConfigModuleDoc& second = New();
    application.docOpenState = 1;
    EXPECT_TRUE(manager.CloseDocument(&first, true));
    EXPECT_EQ(application.docOpenState, 1);
    EXPECT_TRUE(manager.CloseDocument(&second, true));
    EXPECT_EQ(application.docOpenState, 0);
}

TEST_F(ConfigModuleDocTest, NoDocumentClosesWhileTheEditorOfARuleIsOpen)
{
    CQOXRMConfigModuleDoc& document = New();
    g_bEditInProgress = true;
    EXPECT_FALSE(manager.CloseDocument(&document));
    EXPECT_FALSE(manager.CloseDocuments(false));
    g_bEditInProgress = false;
    EXPECT_EQ(manager.GetDocumentsVector().size(), 1U);
    EXPECT_TRUE(manager.CloseDocument(&document));
}

TEST_F(ConfigModuleDocTest, AFileThatCannotBeReadIsNamedAndNotOpened)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"broken.vrf");
    WriteBytes(path, "no xml");
    CQOXRMConfigModuleDoc& document = New();
    EXPECT_FALSE(document.OnOpenDocument(path));
    ASSERT_EQ(application.prompt.texts.size(), 1U);
    EXPECT_NE(application.prompt.texts[0].find(path), std::wstring::npos);
}

TEST_F(ConfigModuleDocTest, SavingClearsTheModificationAndFailingToSaveKeepsIt)
{
    const TemporaryFolder folder;
    CQOXRMConfigModuleDoc& document = New();
    document.Modify(true);
    EXPECT_FALSE(document.OnSaveDocument(folder.File(L"missing") + Platform::PathSeparator + L"rules.vrf"));
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(application.prompt.texts.size(), 1U);
    EXPECT_TRUE(document.OnSaveDocument(folder.File(L"rules.vrf")));
    EXPECT_FALSE(document.IsModified());
}

TEST_F(ConfigModuleDocTest, AReadOnlyDocumentStaysModifiedWhileOthersHaveItsFileAndIsNamedPlainlyOnceItHasIt)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"rules.vrf");
    WriteBytes(path, "<Lumeq/>");
    Platform::FileCause cause = Platform::FileCause::None;
    auto others = Platform::HeldFile::Open(path, cause);
    application.prompt.answer = true;
    CQOXRMConfigModuleDoc& document = New();
    ASSERT_TRUE(document.OnOpenDocument(path));
    EXPECT_EQ(document.GetTitle(), "rules.vrf [Read-Only] ");
    document.Modify(true);
    application.prompt.texts.clear();
    EXPECT_FALSE(document.OnSaveDocument(path));
    EXPECT_EQ(application.prompt.texts.size(), 1U);
    EXPECT_TRUE(document.IsModified());
    others.reset();
    EXPECT_TRUE(document.OnSaveDocument(path));
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(document.GetTitle(), "rules.vrf");
}

TEST_F(ConfigModuleDocTest, AnUnmodifiedDocumentGoesWithoutAQuestion)
{
    CQOXRMConfigModuleDoc& document = New();
    EXPECT_TRUE(document.OnSaveModified());
    EXPECT_TRUE(application.prompt.texts.empty());
}

TEST_F(ConfigModuleDocTest, TheQuestionAboutChangesNamesTheDocumentWithoutItsMark)
{
    CQOXRMConfigModuleDoc& document = New();
    document.SetDocumentTitle("rules.vrf");
    document.Modify(true);
    application.prompt.saveAnswer = SaveAnswer::Cancel;
    EXPECT_FALSE(document.OnSaveModified());
    EXPECT_TRUE(document.IsModified());
    EXPECT_EQ(application.prompt.texts, std::vector<std::wstring>{ L"rules.vrf" });
}

TEST_F(ConfigModuleDocTest, ChangesThatAreNotWantedGoAndThoseThatAreGetSaved)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"rules.vrf");
    CQOXRMConfigModuleDoc& document = New();
    ASSERT_TRUE(document.OnSaveDocument(path));
    const std::string before = ReadBytes(path);

    document.Rules().SetReadOnly(false);
    document.Modify(true);
    application.prompt.saveAnswer = SaveAnswer::Discard;
    EXPECT_TRUE(document.OnSaveModified());
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(ReadBytes(path), before);

    document.Modify(true);
    application.prompt.saveAnswer = SaveAnswer::Save;
    ASSERT_TRUE(Platform::DeleteFileAt(path));
    EXPECT_TRUE(document.OnSaveModified());
    EXPECT_FALSE(document.IsModified());
    EXPECT_FALSE(ReadBytes(path).empty());
}

TEST_F(ConfigModuleDocTest, SavingUnderAnotherNameStartsFromItsNameAndTakesTheChosenOne)
{
    const TemporaryFolder folder;
    manager.SetLastDirectory(folder.Path());
    CQOXRMConfigModuleDoc& document = New();
    application.prompt.path = folder.File(L"rules.vrf");
    EXPECT_TRUE(document.SaveAs());
    ASSERT_EQ(application.prompt.fileQuestions.size(), 1U);
    const FileQuestion& question = application.prompt.fileQuestions[0];
    EXPECT_EQ(question.purpose, FilePurpose::Save);
    EXPECT_EQ(question.folder, folder.Path());
    EXPECT_EQ(question.fileName, L"unnamed1");
    EXPECT_EQ(question.extension, L"vrf");
    EXPECT_EQ(question.filterName, L"Rule File (*.vrf)");
    EXPECT_EQ(question.pattern, L"*.vrf");
    EXPECT_TRUE(Platform::PathExists(folder.File(L"rules.vrf")));
    EXPECT_EQ(document.GetTitle(), "rules.vrf");
    EXPECT_EQ(document.GetFilename().ToStdWstring(), folder.File(L"rules.vrf"));
    EXPECT_EQ(manager.GetHistoryFile(0).ToStdWstring(), folder.File(L"rules.vrf"));

    Platform::MakeFolder(folder.File(L"other"));
    application.prompt.path = folder.File(L"other") + Platform::PathSeparator + L"more.vrf";
    EXPECT_TRUE(document.SaveAs());
    EXPECT_EQ(application.prompt.fileQuestions[1].folder, folder.Path()) << "where the file was";
    EXPECT_EQ(application.prompt.fileQuestions[1].fileName, L"rules.vrf");
}

TEST_F(ConfigModuleDocTest, SavingUnderAnotherNameThatIsGivenUpOrFailsChangesNothing)
{
    const TemporaryFolder folder;
    CQOXRMConfigModuleDoc& document = New();
    EXPECT_FALSE(document.SaveAs());
    application.prompt.path = folder.File(L"none") + Platform::PathSeparator + L"rules.vrf";
    EXPECT_FALSE(document.SaveAs());
    EXPECT_EQ(document.GetTitle(), "unnamed1");
    EXPECT_EQ(document.GetFilename(), "unnamed1");
    EXPECT_EQ(manager.GetHistoryFilesCount(), 1U);
}

TEST_F(ConfigModuleDocTest, AChangeOfUnitsIsToldToTheViewsOfThatDocumentAndIsNoModification)
{
    CQOXRMConfigModuleDoc& document = New();
    CQOXRMConfigModuleDoc& other = New();
    document.ChangeUnits({ 3, 1 });
    EXPECT_EQ(HintsOf(document), std::vector<ViewHint>{ ViewHint::UnitsChanged });
    EXPECT_TRUE(HintsOf(other).empty());
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(document.GetTitle(), "unnamed1");
    EXPECT_EQ(document.Rules().Header().newRuleUnits, (structRulesUnit{ 3, 1 }));
    EXPECT_EQ(document.Rules().Header().oldRuleUnits, (structRulesUnit{ 0, 0 }));
    EXPECT_EQ(other.Rules().Header().newRuleUnits, (structRulesUnit{ 0, 0 }));
}

TEST_F(ConfigModuleDocTest, AFileWhoseDigestIsWrongCanBeSavedWithoutAChange)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"rules.vrf");
    const std::string bytes = "<Lumeq Password=\"x\" RulesData=\"0\"><Rule RuleModule=\"VSTA Rule\"/></Lumeq>";
    WriteBytes(path, bytes);
    CQOXRMConfigModuleDoc& document = New();
    ASSERT_TRUE(document.OnOpenDocument(path));
    EXPECT_FALSE(document.IsModified());
    EXPECT_TRUE(document.CanBeSaved());
    std::wstring password;
    document.Rules().Header().GetPassword(password);
    application.prompt.password = password;
    EXPECT_TRUE(document.Save());
    EXPECT_NE(ReadBytes(path), bytes);
    EXPECT_FALSE(document.CanBeSaved());
}

TEST_F(ConfigModuleDocTest, ADocumentOfWhichOnlyTheUnitsWereChangedCanBeSaved)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"rules.vrf");
    WriteBytes(path, "<Lumeq/>");
    CQOXRMConfigModuleDoc& document = New();
    ASSERT_TRUE(document.OnOpenDocument(path));
    EXPECT_FALSE(document.CanBeSaved());
    EXPECT_TRUE(document.Save());
    EXPECT_EQ(ReadBytes(path), "<Lumeq/>") << "nothing to save";
    document.ChangeUnits({ 3, 1 });
    EXPECT_TRUE(document.CanBeSaved());
    EXPECT_TRUE(document.Save());
    EXPECT_NE(ReadBytes(path), "<Lumeq/>");
    EXPECT_FALSE(document.CanBeSaved());
}
