#include "Document/RuleDocument.h"
#include "Document/UnitSettings.h"
#include "Document/UserRuleFile.h"
#include "Modules/RuleModule.h"
#include "Platform/Files.h"
#include "Platform/Process.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

namespace
{

constexpr const char* CompleteRule =
    "<Rule RuleModule=\"Complete Test Module\" RuleName=\"TestModuleComplete Rule 1\"/>";

class RuleDocumentTest : public testing::Test
{
protected:
    TestApplication application;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
};

void WriteUserRules(const std::string& rules)
{
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq>" + rules + "</Lumeq>");
}

} // namespace

TEST_F(RuleDocumentTest, OpeningReadsTheFileAndTheUserDefinedRules)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    WriteUserRules("<Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\"/>");
    WriteBytes(path, std::string("<Lumeq Unit=\"3\">") + CompleteRule + "</Lumeq>");
    RuleDocument document;
    EXPECT_FALSE(document.IsUnitSet());
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_TRUE(document.IsUnitSet());
    EXPECT_EQ(document.OpenPath(), path);
    EXPECT_EQ(document.Header().GetCount(), 1);
    ASSERT_EQ(document.UserRules().GetSize(), 1);
    EXPECT_EQ(document.UserRules()[0]->m_strRuleName, L"Mine");
}

TEST_F(RuleDocumentTest, AFileThatIsNoXmlIsNotOpened)
{
    WriteBytes(path, "no xml");
    RuleDocument document;
    EXPECT_EQ(document.Open(path), RuleDocument::OpenFailure::NotRead);
    EXPECT_FALSE(document.IsUnitSet());
    EXPECT_EQ(ReadBytes(path), "no xml");
}

TEST_F(RuleDocumentTest, TheRulesOfADocumentThatNoViewShowedGoBackToTheirModule)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    const int before = LiveRulesOf(L"TestModuleComplete");
    WriteBytes(path, std::string("<Lumeq>") + CompleteRule + CompleteRule +
                         "<Rule RuleModule=\"VSTA Rule\" RuleName=\"A\"/></Lumeq>");
    {
        RuleDocument document;
        ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
        EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before + 2);
    }
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before);
}

TEST_F(RuleDocumentTest, TheFileOfUserDefinedRulesIsMadeEmptyIfItDoesNotExist)
{
    RuleDocument document;
    document.LoadUserRules();
    EXPECT_EQ(document.UserRules().GetSize(), 0);
    const std::string bytes = ReadBytes(UserDefinedRuleFilePath());
    EXPECT_NE(
        bytes.find("<Lumeq Name=\"\" Createdby=\"\" CreatedOn=\"\" Unit=\"0\" AngularUnit=\"0\" Version=\"v3.3\" />"),
        std::string::npos);
}

TEST_F(RuleDocumentTest, AFileOfUserDefinedRulesThatCannotBeParsedGivesNoneAndStays)
{
    WriteBytes(UserDefinedRuleFilePath(), "broken");
    RuleDocument document;
    document.LoadUserRules();
    EXPECT_EQ(document.UserRules().GetSize(), 0);
    EXPECT_EQ(ReadBytes(UserDefinedRuleFilePath()), "broken");
    EXPECT_TRUE(application.prompt.texts.empty());
}

TEST_F(RuleDocumentTest, SavingWritesTheRuleListInItsOrderWithTheDocumentsUnits)
{
    ConcreteQOXRule first;
    ConcreteQOXRule second;
    first.m_strRuleName = L"First";
    second.m_strRuleName = L"Second";
    RuleDocument document;
    document.Header().newRuleUnits = { 3, 1 };
    document.Rules().Append(&second);
    document.Rules().Append(&first);
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    const std::string bytes = ReadBytes(path);
    EXPECT_NE(bytes.find("Unit=\"3\" AngularUnit=\"1\""), std::string::npos);
    ASSERT_NE(bytes.find("First"), std::string::npos);
    EXPECT_LT(bytes.find("Second"), bytes.find("First"));
    EXPECT_EQ(first.m_nRuleState, 1);
    EXPECT_EQ(document.OpenPath(), path);
}

TEST_F(RuleDocumentTest, TheFileDetailsOfTheDocumentStayOutOfTheFile)
{
    RuleDocument document;
    document.Header().strName = L"bracket";
    document.Header().strCreatedBy = L"someone";
    document.Header().strCreatedOn = L"01/02/2026";
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_NE(ReadBytes(path).find("<Lumeq Name=\"\" Createdby=\"\" CreatedOn=\"\" Unit="), std::string::npos);
}

TEST_F(RuleDocumentTest, AnEmptyDocumentIsSavedWithTheUnitsOfAFreshRecord)
{
    RuleDocument document;
    document.Header().newRuleUnits = { 3, 1 };
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_NE(ReadBytes(path).find("Unit=\"0\" AngularUnit=\"0\""), std::string::npos);
}

TEST_F(RuleDocumentTest, ASaveUpdatesTheDetailsOfTheDocumentAndLeavesThemOutOfTheFile)
{
    RuleDocument document;
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_EQ(document.Header().strName, path);
    EXPECT_EQ(document.Header().strCreatedBy, Platform::UserName());
    // Month, day and year, since no language is given: "03/09/2016 13:05:07".
    ASSERT_EQ(document.Header().strCreatedOn.size(), 19u);
    EXPECT_EQ(document.Header().strCreatedOn[5], L'/');
    EXPECT_NE(ReadBytes(path).find("Name=\"\" Createdby=\"\" CreatedOn=\"\""), std::string::npos);
}

TEST_F(RuleDocumentTest, AFolderThatDoesNotExistIsNotSavedInto)
{
    RuleDocument document;
    EXPECT_EQ(document.Save(folder.File(L"missing") + Platform::PathSeparator + L"rules.vrf"),
              RuleDocument::SaveFailure::NotWritable);
}

TEST_F(RuleDocumentTest, APathWithCharactersThatTheCodePageLacksNamesNoOtherFile)
{
    // Question marks stand in the code page for what it lacks.
    const std::wstring unknown = folder.File(L"Gr\U0001F600.vrf");
    if (ToNarrow(unknown) != ToNarrow(folder.File(L"Gr?.vrf")))
    {
        GTEST_SKIP() << "the code page of this machine has all characters";
    }
    const std::string bytes = "<Lumeq Unit=\"3\"/>";
    WriteBytes(folder.File(L"Gr?.vrf"), bytes);
    RuleDocument document;
    EXPECT_EQ(document.Open(unknown), RuleDocument::OpenFailure::Told);
    EXPECT_EQ(document.Save(unknown), RuleDocument::SaveFailure::NotWritable);
    EXPECT_EQ(ReadBytes(folder.File(L"Gr?.vrf")), bytes);
}

TEST_F(RuleDocumentTest, AUserDefinedRuleWithTheNameOfAModulesLibraryIsTheDocuments)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    const int before = LiveRulesOf(L"TestModuleComplete");
    ConcreteQOXRule source;
    source.m_strModulePath = TestModulePath(L"TestModuleComplete");
    RuleDocument document;
    for (const wchar_t* const mark : { InteractiveRuleMark, L"vsta rule" })
    {
        source.m_strRuleModule = mark;
        document.AddUserRule(&source);
        CQoxRule* rule = document.UserRules()[0];
        document.DeleteRuleFromDocument(rule);
        EXPECT_EQ(rule, nullptr);
        EXPECT_EQ(document.UserRules().GetSize(), 0);
        EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before);
    }
}

TEST_F(RuleDocumentTest, AModulesRuleGoesBackToItsModule)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    const int before = LiveRulesOf(L"TestModuleComplete");
    PointerArray rules;
    RuleModule(application.Modules().ConfigModules()[0]).GetAllRules(rules);
    ASSERT_EQ(rules.GetSize(), 2);
    rules[0]->m_strModulePath = TestModulePath(L"TestModuleComplete");
    rules[1]->m_strModulePath = TestModulePath(L"TestModuleComplete");
    RuleDocument document;
    document.Rules().Append(rules[0]);
    document.DeleteRuleFromDocument(rules[0]);
    EXPECT_EQ(rules[0], nullptr);
    EXPECT_TRUE(document.Rules().IsEmpty());
    document.DeleteRuleFromDocument(rules[0]); // a null pointer does nothing
    document.DeleteRuleFromDocument(rules[1]);
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before);
}

TEST_F(RuleDocumentTest, AUserDefinedRuleIsTakenOutAndDeleted)
{
    ConcreteQOXRule source;
    source.m_strRuleName = L"Mine";
    source.m_strRuleModule = InteractiveRuleMark;
    source.m_strModulePath = L"Mine.bas";
    RuleDocument document;
    document.AddUserRule(&source);
    ASSERT_EQ(document.UserRules().GetSize(), 1);
    CQoxRule* rule = document.UserRules()[0];
    EXPECT_NE(rule, &source);
    document.Rules().Append(rule);
    document.DeleteRuleFromDocument(rule);
    EXPECT_EQ(rule, nullptr);
    EXPECT_EQ(document.UserRules().GetSize(), 0);
    EXPECT_TRUE(document.Rules().IsEmpty());
}

TEST_F(RuleDocumentTest, ARuleOfAModuleThatIsNotLoadedIsLeftAlone)
{
    ConcreteQOXRule rule;
    rule.m_strRuleModule = L"Gone Module";
    rule.m_strModulePath = L"/nowhere/gone.dll";
    CQoxRule* pointer = &rule;
    RuleDocument document;
    document.DeleteRuleFromDocument(pointer);
    EXPECT_EQ(pointer, &rule);
}

TEST_F(RuleDocumentTest, RenamingFindsTheFirstUserDefinedRuleInAnyCase)
{
    RuleDocument document;
    ConcreteQOXRule source;
    source.m_strRuleName = L"Mine";
    document.AddUserRule(&source);
    document.AddUserRule(&source);
    document.RenameUserRule(L"MINE", L"Yours");
    document.RenameUserRule(L"nobody", L"x");
    EXPECT_EQ(document.UserRules()[0]->m_strRuleName, L"Yours");
    EXPECT_EQ(document.UserRules()[1]->m_strRuleName, L"Mine");
}

TEST_F(RuleDocumentTest, ReleasingTheRowsOfAViewDeletesEachRuleOnce)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    const int before = LiveRulesOf(L"TestModuleComplete");
    WriteUserRules("<Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\"/>");
    WriteBytes(path, std::string("<Lumeq>") + CompleteRule + "</Lumeq>");
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    PointerArray rules;
    document.Header().GetRules(rules);
    std::vector<CQoxRule*> rows(rules.begin(), rules.end());
    rows.push_back(document.UserRules()[0]);
    document.ReleaseRules(rows);
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before);
    EXPECT_EQ(document.UserRules().GetSize(), 0);
}

TEST_F(RuleDocumentTest, ASaveKeepsTheVersionThatItReplacesWithTheRulesThatItLeavesOut)
{
    const std::string withUnknownRule = "<Lumeq><Rule RuleModule=\"Gone Module\" RuleName=\"Lost?\"/></Lumeq>";
    WriteBytes(path, withUnknownRule);
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_EQ(ReadBytes(path).find("Lost?"), std::string::npos);
    const std::vector<std::wstring> versions = KeptVersions().VersionsOf(path);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(ReadBytes(versions[0]), withUnknownRule);
}

TEST_F(RuleDocumentTest, SaveAsOverAnotherFileKeepsThatOneToo)
{
    const std::wstring other = folder.File(L"other.vrf");
    WriteBytes(path, "<Lumeq Unit=\"3\"/>");
    WriteBytes(other, "what was there");
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(other), RuleDocument::SaveFailure::None);
    const std::vector<std::wstring> versions = KeptVersions().VersionsOf(other);
    ASSERT_EQ(versions.size(), 1U);
    EXPECT_EQ(ReadBytes(versions[0]), "what was there");
    EXPECT_TRUE(KeptVersions().VersionsOf(path).empty()) << "it was not replaced";
}

TEST_F(RuleDocumentTest, ASaveThatReplacesNothingKeepsNothing)
{
    RuleDocument document;
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_TRUE(KeptVersions().VersionsOf(path).empty());
}

TEST_F(RuleDocumentTest, TheFileOfUserDefinedRulesIsNoRuleFileAndIsNotKept)
{
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq/>");
    EXPECT_TRUE(CQOXRMLumeq().WriteUserFile(UserDefinedRuleFilePath()));
    EXPECT_TRUE(KeptVersions().VersionsOf(UserDefinedRuleFilePath()).empty());
}

TEST_F(RuleDocumentTest, AVersionThatCannotBeKeptDoesNotHinderTheSave)
{
    WriteBytes(path, "<Lumeq Unit=\"3\"/>");
    const KeptVersions failing(folder.File(L"kept"), CurrentLocalTime,
                               [](const std::wstring&, const std::wstring&) { return false; });
    RuleDocument document(nullptr, failing);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_NE(ReadBytes(path).find("Version="), std::string::npos);
}

TEST_F(RuleDocumentTest, AWriteThatFailsWhenTheNewFileTakesThePlaceIsLoggedAndTheSaveGoesOn)
{
    WriteBytes(path, "<Lumeq Unit=\"3\"/>");
    // In the moment before, a folder comes into the file's place.
    const KeptVersions keeping(folder.File(L"kept"), CurrentLocalTime,
                               [](const std::wstring& from, const std::wstring&)
                               { return Platform::DeleteFileAt(from) && Platform::MakeFolder(from); });
    RuleDocument document(nullptr, keeping);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    EXPECT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    CVantrelLog::CloseLogFile();
    EXPECT_NE(ReadBytes(log).find("The rule file " + ToNarrow(path) + " could not be written\n"), std::string::npos);
    EXPECT_TRUE(document.IsFileBehind());
    EXPECT_EQ(document.Save(folder.File(L"other.vrf")), RuleDocument::SaveFailure::None);
    EXPECT_FALSE(document.IsFileBehind());
}

TEST_F(RuleDocumentTest, OpeningAndSavingAreLogged)
{
    WriteBytes(path, "<Lumeq/>");
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    RuleDocument document;
    document.Open(path);
    document.Save(path);
    CVantrelLog::CloseLogFile();
    const std::string text = ReadBytes(log);
    for (const std::string& line :
         { "Command received to open Rule file " + ToNarrow(path) + "\n",
           std::string("Rule file has been opened successfully\n"), std::string("Save has been called\n"),
           std::string("Updating file details\n"), std::string("The document has been saved\n") })
    {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

TEST_F(RuleDocumentTest, ANewDocumentStartsWithTheUnitsThatWereChosenLast)
{
    structRulesUnit chosen{ 3, 3 };
    UnitSettings(chosen.linear, chosen.angular, false);
    const RuleDocument document;
    EXPECT_EQ(document.Header().newRuleUnits, chosen);
    EXPECT_EQ(document.Header().oldRuleUnits, (structRulesUnit{ 0, 0 }));
    EXPECT_FALSE(document.HaveUnitsChanged());
}

TEST_F(RuleDocumentTest, TheUnitsOfAFileGoBeforeThoseThatWereChosenLast)
{
    structRulesUnit chosen{ 3, 3 };
    UnitSettings(chosen.linear, chosen.angular, false);
    WriteBytes(path, "<Lumeq Unit=\"5\"/>");
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Header().newRuleUnits, (structRulesUnit{ 5, 3 }));
    EXPECT_FALSE(document.HaveUnitsChanged());
}

TEST_F(RuleDocumentTest, AChangeOfUnitsKeepsThoseBeforeAndLeavesOtherDocuments)
{
    RuleDocument document;
    const RuleDocument other;
    document.ChangeUnits({ 3, 0 });
    document.ChangeUnits({ 4, 3 });
    EXPECT_EQ(document.Header().oldRuleUnits, (structRulesUnit{ 3, 0 }));
    EXPECT_EQ(document.Header().newRuleUnits, (structRulesUnit{ 4, 3 }));
    EXPECT_EQ(other.Header().newRuleUnits, (structRulesUnit{ 0, 0 }));
}

TEST_F(RuleDocumentTest, ChangedUnitsAreChangedUntilTheyAreInTheFileOrAsBefore)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    WriteBytes(path, std::string("<Lumeq Unit=\"3\" AngularUnit=\"0\">") + CompleteRule + "</Lumeq>");
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    document.ChangeUnits({ 4, 0 });
    EXPECT_TRUE(document.HaveUnitsChanged());
    document.ChangeUnits({ 3, 0 });
    EXPECT_FALSE(document.HaveUnitsChanged());
    document.ChangeUnits({ 4, 0 });
    CQoxRule* rule = nullptr;
    document.Header().FindRule(document.Header().TreeRoot(), 1, rule);
    document.Rules().Append(rule);
    ASSERT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_FALSE(document.HaveUnitsChanged());
    EXPECT_NE(ReadBytes(path).find("Unit=\"4\" AngularUnit=\"0\""), std::string::npos);
}

TEST_F(RuleDocumentTest, AnEmptyDocumentIsSavedWithTheUnitsThatWereChosenLast)
{
    RuleDocument document;
    document.ChangeUnits({ 4, 0 });
    structRulesUnit chosen{ 3, 3 };
    UnitSettings(chosen.linear, chosen.angular, false);
    ASSERT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_NE(ReadBytes(path).find("Unit=\"3\" AngularUnit=\"3\""), std::string::npos);
}

TEST_F(RuleDocumentTest, ItsOwnFileIsReadAgainWhoeverHoldsIt)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    WriteBytes(path, std::string("<Lumeq>") + CompleteRule + "</Lumeq>");
    RuleDocument document(&application.prompt);
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    EXPECT_EQ(document.Open(path), RuleDocument::OpenFailure::None) << "the document itself holds it";
    EXPECT_EQ(document.Header().GetCount(), 2);
    EXPECT_FALSE(document.IsReadOnly());
    EXPECT_TRUE(application.prompt.texts.empty());
}

TEST_F(RuleDocumentTest, AModulesRuleAmongTheUserDefinedOnesGoesBackToItsModule)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    const int before = LiveRulesOf(L"TestModuleComplete");
    WriteUserRules(std::string(CompleteRule) + "<Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\"/>");
    WriteBytes(path, std::string("<Lumeq>") + CompleteRule + "</Lumeq>");
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    ASSERT_EQ(document.UserRules().GetSize(), 1);
    EXPECT_EQ(document.UserRules()[0]->m_strRuleName, L"Mine");
    EXPECT_EQ(document.Header().GetCount(), 1);
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before + 1) << "that of the rule file";
}
