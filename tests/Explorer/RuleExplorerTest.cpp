#include "Explorer/RuleExplorer.h"

#include "Document/UserRuleFile.h"
#include "Platform/Text.h"
#include "tests/Explorer/RuleExplorerFixture.h"
#include "Utilities/Texts.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/VantrelLog.h>

#include <gmock/gmock.h>

namespace
{

using NameList = std::vector<std::wstring>;

// The summary is one of the things that a rule of a file is matched by.
constexpr const char* FirstRule =
    "<Rule RuleModule=\"Complete Test Module\" RuleName=\"TestModuleComplete Rule 1\" "
    "Summary2=\"Summary of TestModuleComplete Rule 1\"><Parameter Number=\"1\" Kind=\"length\" Value=\"42\"/></Rule>";

/// The rules that stand in the document's tree, each with the module that it says it is of.
NameList RulesInTree(const RuleDocument& document)
{
    PointerArray rules;
    document.Header().GetLiveRules(rules);
    NameList names;
    for (const CQoxRule* const rule : rules)
    {
        names.push_back(rule->m_strRuleModule + L": " + rule->m_strRuleName);
    }
    return names;
}

} // namespace

TEST_F(RuleExplorerTest, TheRulesOfTheLastModuleComeFirst)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    EXPECT_EQ(Names(), (NameList{ L"TestModuleSecond Rule 1", L"TestModuleSecond Rule 2", L"TestModuleComplete Rule 1",
                                  L"TestModuleComplete Rule 2" }));
    EXPECT_FALSE(window.modified);
}

TEST_F(RuleExplorerTest, ARowShowsTheFourTextsOfItsRule)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    const FakeRows::Row& row = rows.At(2);
    EXPECT_EQ(row.texts[0], L"TestModuleComplete Rule 1");
    EXPECT_EQ(row.texts[1], L"Holes");
    EXPECT_EQ(row.texts[2], L"Complete Test Module");
    EXPECT_EQ(row.texts[3], CriticalityText(3));
    EXPECT_EQ(row.rule->m_strModulePath, TestModulePath(L"TestModuleComplete"));
    EXPECT_FALSE(row.ticked);
}

TEST_F(RuleExplorerTest, TheRulesOfTheFileAreTickedInThePlaceOfTheModulesOwn)
{
    LoadModules();
    OpenWith(FirstRule);
    ASSERT_EQ(rows.RowCount(), 4);
    const int row = rows.Find(L"TestModuleComplete Rule 1");
    EXPECT_EQ(row, 2);
    EXPECT_TRUE(rows.IsTicked(row));
    EXPECT_EQ(rows.RuleOfRow(row)->Parameters()[0].dValue, 42);
    EXPECT_EQ(document.Rules().Rules(), std::vector<CQoxRule*>{ rows.RuleOfRow(row) });
    EXPECT_EQ(rows.RuleOfRow(row)->m_nRuleState, 1);
    EXPECT_EQ(rows.SelectedCount(), 0) << "the list starts with no row selected";
    EXPECT_FALSE(window.modified);
    EXPECT_FALSE(rows.IsTicked(3));
}

TEST_F(RuleExplorerTest, AFileThatHoldsARuleTwiceKeepsTheLastOfThem)
{
    LoadModules();
    const int before = LiveRulesOf(L"TestModuleComplete");
    std::string second = FirstRule;
    second.replace(second.find("42"), 2, "43");
    OpenWith(FirstRule + second);
    ASSERT_EQ(rows.RowCount(), 4);
    EXPECT_EQ(rows.RuleOfRow(2)->Parameters()[0].dValue, 43);
    EXPECT_EQ(document.Rules().Size(), 1u);
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), before + 2);
}

TEST_F(RuleExplorerTest, ARuleIsMatchedWithoutRegardToCaseAndByTheLibrarysNameAlone)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\" Summary2=\"S\" "
                                          "ModulePath=\"mine.bas\"/></Lumeq>");
    OpenWith("<Rule RuleModule=\"vsta rule\" RuleName=\"MINE\" Summary2=\"s\" ModulePath=\"/elsewhere/Mine.BAS\"/>");
    const int row = rows.Find(L"MINE");
    ASSERT_GE(row, 0);
    EXPECT_TRUE(rows.IsTicked(row));
    EXPECT_EQ(rows.RuleOfRow(row)->m_strRuleModule, L"VSTA Rule");
    EXPECT_EQ(rows.RuleOfRow(row)->m_strModulePath, L"mine.bas");
    ASSERT_EQ(document.UserRules().GetSize(), 1);
    EXPECT_EQ(document.UserRules()[0], rows.RuleOfRow(row));
}

TEST_F(RuleExplorerTest, ARuleOfTheFileThatMatchesNothingIsLeftOutButStaysInTheDocument)
{
    LoadModules();
    OpenWith("<Rule RuleModule=\"VSTA Rule\" RuleName=\"Unknown here\"/>");
    EXPECT_EQ(rows.RowCount(), 4);
    EXPECT_TRUE(document.Rules().IsEmpty());
    EXPECT_EQ(RulesInTree(document), NameList{ L"VSTA Rule: Unknown here" });
}

TEST_F(RuleExplorerTest, AUserDefinedRuleOfTheFileDoesNotTakeTheRowOfAModulesRule)
{
    LoadModules();
    OpenWith("<Rule RuleModule=\"VSTA Rule\" RuleName=\"TestModuleComplete Rule 1\" "
             "Summary2=\"Summary of TestModuleComplete Rule 1\" ModulePath=\"" +
             Platform::WideToUtf8(TestModulePath(L"TestModuleComplete")) + "\"/>");
    const int row = rows.Find(L"TestModuleComplete Rule 1");
    ASSERT_GE(row, 0);
    EXPECT_FALSE(rows.IsTicked(row));
    EXPECT_FALSE(rows.RuleOfRow(row)->IsUserDefined());
    EXPECT_TRUE(document.Rules().IsEmpty());
    EXPECT_EQ(RulesInTree(document), NameList{ L"VSTA Rule: TestModuleComplete Rule 1" });
}

TEST_F(RuleExplorerTest, RulesWithoutARowAreGivenBackOnce)
{
    LoadModules();
    vstaSupport = std::nullopt;
    explorer.UpdateRuleList(true);
    ASSERT_EQ(rows.RowCount(), 0);
    const std::vector<CQoxRule*> taken = explorer.TakeRulesToGiveBack();
    EXPECT_EQ(taken.size(), 4U);
    document.ReleaseRules(taken);
    EXPECT_TRUE(explorer.TakeRulesToGiveBack().empty());
}

TEST_F(RuleExplorerTest, WithoutADatabaseModuleTheMessageIsShownOnceAndNoModuleIsAsked)
{
    application.LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
    explorer.UpdateRuleList(true);
    EXPECT_EQ(window.noDatabaseMessages, 1);
    EXPECT_EQ(rows.RowCount(), 0);
    EXPECT_EQ(CallsOf(L"TestModuleComplete"), "");
    EXPECT_EQ(CallsOf(L"TestModuleSecond"), "");
}

TEST_F(RuleExplorerTest, TickingTakesARuleIntoTheDocumentAndUntickingOutOfIt)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    Tick(1, true);
    EXPECT_TRUE(document.Rules().Contains(rows.RuleOfRow(1)));
    EXPECT_EQ(rows.RuleOfRow(1)->m_nRuleState, 1);
    EXPECT_TRUE(window.modified);
    EXPECT_EQ(window.status, FormatText(TextId::RuleCount, { L"1", L"4" }));
    EXPECT_EQ(rows.anchor, 1);

    window.modified = false;
    explorer.OnRowsChanged({ 1 }); // nothing new
    EXPECT_FALSE(window.modified);

    Tick(1, false);
    EXPECT_TRUE(document.Rules().IsEmpty());
    EXPECT_EQ(rows.RuleOfRow(1)->m_nRuleState, 0);
    EXPECT_TRUE(window.modified);
    CVantrelLog::CloseLogFile();
    const std::string text = ReadBytes(log);
    EXPECT_NE(text.find("TestModuleSecond Rule 2 Rule is Selected\n"), std::string::npos);
    EXPECT_NE(text.find("TestModuleSecond Rule 2 Rule is Deselected\n"), std::string::npos);
}

TEST_F(RuleExplorerTest, TickedRulesGoToTheEndOfTheDocument)
{
    LoadModules();
    OpenWith(FirstRule);
    Tick(0, true);
    EXPECT_EQ(document.Rules().Rules(), (std::vector<CQoxRule*>{ rows.RuleOfRow(2), rows.RuleOfRow(0) }));
}

TEST_F(RuleExplorerTest, RowNumbersOutsideTheListDoNothing)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    explorer.OnRowsChanged({ -1, 4 });
    EXPECT_FALSE(window.modified);
    EXPECT_EQ(rows.anchor, -1);
}

TEST_F(RuleExplorerTest, TheSummaryOfTheOneSelectedRowIsShown)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    rows.SetSelected(0, true);
    explorer.OnRowsChanged({ 0 });
    EXPECT_EQ(window.summary, L"Summary of TestModuleSecond Rule 1");
    EXPECT_TRUE(window.single);
}

TEST_F(RuleExplorerTest, SelectingTwoRowsLeavesTheSummaryEmpty)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    rows.SetSelected(0, true);
    rows.SetSelected(1, true);
    explorer.OnRowsChanged({ 1 });
    EXPECT_EQ(window.summary, L"(cleared)");
    EXPECT_FALSE(window.single);
}

TEST_F(RuleExplorerTest, HiddenRulesGetNoRowAndThoseOfAnotherModuleDo)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(),
               "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"Minimum Flange Size\"/>"
               "<Rule RuleModule=\"Interactive User Defined Rule\" RuleName=\"Minimum Flange Size\"/></Lumeq>");
    OpenWith("");
    EXPECT_EQ(rows.RowCount(), 5);
    EXPECT_EQ(rows.RuleOfRow(4)->m_strRuleModule, InteractiveRuleMark);
}

TEST_F(RuleExplorerTest, VSTARulesGetNoRowWhereTheyAreNotSupportedAndStayInTheFile)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(),
               "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"A\"/>"
               "<Rule RuleModule=\"Interactive User Defined Rule\" RuleName=\"B\"/></Lumeq>");
    vstaSupport = false;
    OpenWith("<Rule RuleModule=\"VSTA Rule\" RuleName=\"A\"/>");
    EXPECT_EQ(rows.RowCount(), 5);
    EXPECT_EQ(rows.Find(L"A"), -1);
    EXPECT_EQ(RulesInTree(document), NameList{ L"VSTA Rule: A" });
    ASSERT_EQ(document.Rules().Size(), 1U);
    EXPECT_EQ(document.Rules().Rules()[0]->m_strRuleName, L"A");
    ASSERT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    EXPECT_THAT(ReadBytes(path), testing::HasSubstr("RuleName=\"A\""));
}

TEST_F(RuleExplorerTest, NoRowIsAddedWhereTheFrameworkCannotTellOfVSTA)
{
    LoadModules();
    vstaSupport.reset();
    explorer.UpdateRuleList(true);
    EXPECT_EQ(rows.RowCount(), 0);
    EXPECT_FALSE(window.single);
}

TEST_F(RuleExplorerTest, NewRulesAreConvertedToTheDocumentsUnitsAndThoseOfTheFileAreNot)
{
    LoadModules();
    OpenWith(FirstRule, "Unit=\"3\" AngularUnit=\"0\"");
    explorer.ApplyUnitsToNewRules();
    EXPECT_DOUBLE_EQ(rows.RuleOfRow(2)->Parameters()[0].dValue, 42);
    EXPECT_DOUBLE_EQ(rows.RuleOfRow(0)->Parameters()[0].dValue, 10 / 25.4);
    EXPECT_EQ(rows.RuleOfRow(0)->m_units, (structRulesUnit{ 3, 0 }));
}

TEST_F(RuleExplorerTest, AReloadDropsTheRowsOfModulesThatAreNotConfiguredAnyMore)
{
    LoadModules();
    OpenWith(FirstRule);
    auto& paths = application.Modules().ConfigModulePaths();
    paths.pop_front(); // the first module, one of whose rules is ticked
    ModuleSet::Handles toFree;
    application.Modules().LoadConfigModules(toFree);
    EXPECT_EQ(toFree.size(), 1u);
    explorer.UpdateRuleList(false);
    ModuleSet::FreeModules(toFree);
    EXPECT_EQ(Names(), (NameList{ L"TestModuleSecond Rule 1", L"TestModuleSecond Rule 2" }));
    EXPECT_TRUE(document.Rules().IsEmpty());
    EXPECT_TRUE(window.modified);
}

TEST_F(RuleExplorerTest, AUserDefinedRuleWithThePathOfAModuleHasOneRowAfterAReload)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"A\" ModulePath=\"" +
                                              Platform::WideToUtf8(TestModulePath(L"TestModuleComplete")) +
                                              "\"/></Lumeq>");
    OpenWith("");
    ASSERT_EQ(rows.RowCount(), 5);
    explorer.UpdateRuleList(false);
    EXPECT_EQ(rows.RowCount(), 5);
    EXPECT_EQ(document.UserRules().GetSize(), 1);
}

TEST_F(RuleExplorerTest, RulesOfAModuleThatIsAddedAreConvertedToTheDocumentsUnitsAndTheOthersStay)
{
    application.LoadDatabaseModules({ L"TestDatabaseComplete" });
    application.LoadRuleModules({ L"TestModuleComplete" });
    OpenWith(FirstRule, "Unit=\"3\" AngularUnit=\"0\"");
    explorer.ApplyUnitsToNewRules();
    application.LoadRuleModules({ L"TestModuleSecond" });
    explorer.UpdateRuleList(false);
    const auto valueOf = [this](const std::wstring& name)
    { return rows.RuleOfRow(rows.Find(name))->Parameters()[0].dValue; };
    EXPECT_DOUBLE_EQ(valueOf(L"TestModuleSecond Rule 1"), 10 / 25.4);
    EXPECT_DOUBLE_EQ(valueOf(L"TestModuleComplete Rule 1"), 42);
    EXPECT_DOUBLE_EQ(valueOf(L"TestModuleComplete Rule 2"), 10 / 25.4);
}

TEST_F(RuleExplorerTest, AReloadAsksNoModuleASecondTimeAndRebuildsTheUserDefinedRows)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"A\"/></Lumeq>");
    OpenWith("");
    Tick(0, true);
    EXPECT_EQ(rows.RowCount(), 5);
    explorer.UpdateRuleList(false);
    EXPECT_EQ(rows.RowCount(), 5);
    EXPECT_TRUE(rows.IsTicked(0));
    const auto count = TestModuleFunction<TestModuleCallCountFunction>(L"TestModuleComplete", "TestModuleCallCount");
    EXPECT_EQ(count("GetAllRules"), 1);
}

TEST_F(RuleExplorerTest, AChangeOfUnitsConvertsTheRulesOfAllRowsAndIsNoChangeOfTheDocument)
{
    LoadModules();
    OpenWith(FirstRule);
    document.Header().oldRuleUnits = { 0, 0 };
    document.Header().newRuleUnits = { 3, 0 };
    explorer.OnRuleUnitsChanged();
    EXPECT_DOUBLE_EQ(rows.RuleOfRow(2)->Parameters()[0].dValue, 42 / 25.4);
    EXPECT_FALSE(window.modified);
}

TEST_F(RuleExplorerTest, ValuesFollowTheUnitsOfTheDocumentThereAndBackAndIntoTheFile)
{
    LoadModules();
    OpenWith(FirstRule, "Unit=\"0\" AngularUnit=\"0\"");
    const double before = rows.RuleOfRow(2)->Parameters()[0].dValue;
    document.ChangeUnits({ 3, 0 });
    explorer.OnRuleUnitsChanged();
    document.ChangeUnits({ 1, 0 });
    explorer.OnRuleUnitsChanged();
    EXPECT_DOUBLE_EQ(rows.RuleOfRow(2)->Parameters()[0].dValue, before / 10);
    ASSERT_EQ(document.Save(path), RuleDocument::SaveFailure::None);
    const std::string saved = ReadBytes(path);
    EXPECT_NE(saved.find("Unit=\"1\" AngularUnit=\"0\""), std::string::npos) << saved;
    EXPECT_NE(saved.find("\"4.2\""), std::string::npos) << saved;
    document.ChangeUnits({ 0, 0 });
    explorer.OnRuleUnitsChanged();
    EXPECT_EQ(rows.RuleOfRow(2)->Parameters()[0].dValue, before);
    EXPECT_FALSE(window.modified);
}

TEST_F(RuleExplorerTest, AUserDefinedRuleThatIsAddedGetsARowAtTheEnd)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    ConcreteQOXRule rule;
    rule.m_strRuleModule = InteractiveRuleMark;
    rule.m_strRuleName = L"Mine";
    document.AddUserRule(&rule);
    explorer.OnUserRuleAdded();
    ASSERT_EQ(rows.RowCount(), 5);
    EXPECT_EQ(rows.RuleOfRow(4), document.UserRules()[0]);
    EXPECT_EQ(window.status, FormatText(TextId::RuleCount, { L"0", L"5" }));
}

TEST_F(RuleExplorerTest, AUserDefinedRuleThatIsDeletedLosesItsRowAndItsPlaceInTheDocument)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\"/></Lumeq>");
    OpenWith("");
    Tick(4, true);
    window.modified = false;
    ConcreteQOXRule rule;
    rule.m_strRuleName = L"MINE";
    explorer.OnUserRuleDeleted(rule);
    EXPECT_EQ(rows.RowCount(), 4);
    EXPECT_TRUE(document.Rules().IsEmpty());
    EXPECT_EQ(document.UserRules().GetSize(), 0);
    EXPECT_TRUE(window.modified);

    window.modified = false;
    explorer.OnUserRuleDeleted(rule);
    EXPECT_FALSE(window.modified) << "a name that isn't there";
}

TEST_F(RuleExplorerTest, AUserDefinedRuleThatIsChangedShowsItsNewTexts)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\"/></Lumeq>");
    OpenWith("");
    ConcreteQOXRule rule;
    rule.m_strRuleModule = VSTARuleMark;
    rule.m_strRuleName = L"Mine";
    rule.m_strCategory = L"Shop";
    rule.m_nCriticality = 5;
    explorer.OnUserRuleChanged(rule);
    EXPECT_EQ(document.UserRules()[0]->m_strCategory, L"Shop");
    EXPECT_EQ(rows.At(4).texts[0], L"Mine");
    EXPECT_EQ(rows.At(4).texts[1], L"Shop");
    EXPECT_EQ(rows.At(4).texts[3], CriticalityText(5));
    EXPECT_TRUE(window.modified);
}

TEST_F(RuleExplorerTest, AChangedUserDefinedRuleStaysInTheDocumentThatHasIt)
{
    LoadModules();
    WriteBytes(UserDefinedRuleFilePath(), "<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"Mine\"/></Lumeq>");
    OpenWith("");
    Tick(4, true);
    ConcreteQOXRule rule;
    rule.m_strRuleModule = VSTARuleMark;
    rule.m_strRuleName = L"mine";
    explorer.OnUserRuleChanged(rule);
    explorer.UpdateRuleList(false); // makes the row anew
    EXPECT_TRUE(rows.IsTicked(4));
    EXPECT_TRUE(document.Rules().Contains(rows.RuleOfRow(4)));
}

TEST_F(RuleExplorerTest, AUserDefinedRuleThatNoDocumentKnowsChangesNothing)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    ConcreteQOXRule rule;
    rule.m_strRuleName = L"Mine";
    explorer.OnUserRuleChanged(rule);
    EXPECT_FALSE(window.modified);
}

TEST_F(RuleExplorerTest, ANullAmongTheRulesGetsNoRowAndNoFailure)
{
    LoadModules();
    document.UserRules().Add(nullptr);
    explorer.UpdateRuleList(true);
    EXPECT_EQ(rows.RowCount(), 4);
    explorer.OnUserRuleAdded(); // the null is the last of them
    EXPECT_EQ(rows.RowCount(), 4);
    explorer.OnUserRuleDeleted(*rows.RuleOfRow(0));
    explorer.OnUserRuleChanged(*rows.RuleOfRow(0));
    EXPECT_EQ(rows.RowCount(), 4);
    EXPECT_FALSE(window.modified);
}

TEST_F(RuleExplorerTest, TheFrameworkIsAskedForVSTAOnceForAllRows)
{
    LoadModules();
    int asked = 0;
    RuleExplorer asking(document, application.Modules(), rows, window,
                        [&asked]
                        {
                            ++asked;
                            return true;
                        });
    asking.UpdateRuleList(true);
    EXPECT_EQ(rows.RowCount(), 4);
    EXPECT_EQ(asked, 1);
    document.ReleaseRules(asking.TakeRulesToGiveBack());
    rows.rows.clear();
}

TEST_F(RuleExplorerTest, RowsThatChangeTogetherAreShownOnceAndTakenInTheirOrder)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    for (const int row : { 3, 0, 2 })
    {
        rows.SetTicked(row, true);
        rows.SetSelected(row, true);
    }
    explorer.OnRowsChanged({ 3, 0, 2 });
    EXPECT_EQ(document.Rules().Rules(),
              (std::vector<CQoxRule*>{ rows.RuleOfRow(3), rows.RuleOfRow(0), rows.RuleOfRow(2) }));
    EXPECT_EQ(rows.anchor, 2);
    EXPECT_EQ(window.timesStatusSet, 1);
    EXPECT_EQ(window.status, FormatText(TextId::RuleCount, { L"3", L"4" }));
    EXPECT_EQ(window.summary, L"(cleared)");
    EXPECT_FALSE(window.single);
}

TEST_F(RuleExplorerTest, TheFirstColumnIsMeasuredOnTheRulesName)
{
    LoadModules();
    explorer.UpdateRuleList(true);
    EXPECT_EQ(rows.measured[0].size(), 4u);
    EXPECT_EQ(rows.measured[0][0], L"TestModuleSecond Rule 1");
    EXPECT_EQ(rows.measured[3].size(), 4u);
}
