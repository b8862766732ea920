// Editing the rule of a row.

#include "Document/UserRuleFile.h"
#include "Modules/ApplicationGlobals.h"
#include "tests/Explorer/RuleExplorerFixture.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/RuleEditor.h>
#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace
{

/// What the registered editor does in a test.
std::function<void(CQoxRule&)>& Editor()
{
    static std::function<void(CQoxRule&)> editor;
    return editor;
}

void CallEditor(CQoxRule& rule)
{
    Editor()(rule);
}

class RuleEditTest : public RuleExplorerTest
{
protected:
    RuleEditTest()
    {
        Editor() = [this](CQoxRule& rule) { edited.push_back(&rule); };
        SetRuleEditor(&CallEditor);
        LoadModules();
    }
    ~RuleEditTest() override
    {
        SetRuleEditor(nullptr);
        Editor() = nullptr;
        CVantrelLog::CloseLogFile();
    }

    void OpenWithUserRules()
    {
        WriteBytes(UserDefinedRuleFilePath(),
                   "<Lumeq><Rule RuleModule=\"interactive user defined rule\" RuleName=\"Mine\" Category=\"Old\"/>"
                   "<Rule RuleModule=\"VSTA Rule\" RuleName=\"Project\"/></Lumeq>");
        OpenWith("");
        ASSERT_EQ(rows.RowCount(), 6);
    }

    std::vector<CQoxRule*> edited;
};

using Rules = std::vector<CQoxRule*>;

} // namespace

TEST_F(RuleEditTest, TheRulesOwnEditorIsOpenedOnTheRuleOfTheRowUnderTheMark)
{
    explorer.UpdateRuleList(true);
    bool marked = false;
    Editor() = [&](CQoxRule& rule)
    {
        edited.push_back(&rule);
        marked = g_bEditInProgress;
        EXPECT_EQ(window.editsTold, 0) << "views are told afterwards";
    };
    explorer.EditRow(2);
    EXPECT_EQ(edited, Rules{ rows.RuleOfRow(2) });
    EXPECT_TRUE(marked);
    EXPECT_FALSE(g_bEditInProgress);
    EXPECT_EQ(window.editsTold, 1);
}

TEST_F(RuleEditTest, ARowThatIsNotTickedShowsItsCriticalityAnewAndLeavesTheDocumentAsItIs)
{
    explorer.UpdateRuleList(true);
    Editor() = [](CQoxRule& rule)
    {
        rule.m_nCriticality = 5;
        rule.m_strCategory = L"Other";
    };
    explorer.EditRow(1);
    EXPECT_EQ(rows.At(1).texts[3], CriticalityText(5));
    EXPECT_EQ(rows.At(1).texts[1], L"Walls") << "the category of a module's rule stays in its row";
    EXPECT_FALSE(window.modified);
}

TEST_F(RuleEditTest, EditingATickedRowModifiesTheDocument)
{
    explorer.UpdateRuleList(true);
    Tick(1, true);
    window.modified = false;
    explorer.EditRow(1);
    EXPECT_TRUE(window.modified);
}

TEST_F(RuleEditTest, AUserDefinedRuleShowsItsCategoryAnewToo)
{
    OpenWithUserRules();
    Editor() = [](CQoxRule& rule)
    {
        rule.m_nCriticality = 1;
        rule.m_strCategory = L"New";
    };
    explorer.EditRow(4);
    EXPECT_EQ(rows.At(4).texts[1], L"New");
    EXPECT_EQ(rows.At(4).texts[3], CriticalityText(1));
}

TEST_F(RuleEditTest, AUserDefinedRuleGoesToItsDialogWhereThereIsOneAndOthersDoNot)
{
    OpenWithUserRules();
    Rules inDialog;
    explorer.SetUserRuleDialog(
        [&](ConcreteQOXRule& rule)
        {
            inDialog.push_back(&rule);
            rule.m_nCriticality = 1;
        });
    explorer.EditRow(4);
    explorer.EditRow(5);
    explorer.EditRow(0);
    EXPECT_EQ(inDialog, (Rules{ rows.RuleOfRow(4), rows.RuleOfRow(5) }));
    EXPECT_EQ(edited, Rules{ rows.RuleOfRow(0) });
    EXPECT_EQ(rows.At(4).texts[3], CriticalityText(1));
    EXPECT_EQ(window.editsTold, 3);
    EXPECT_FALSE(g_bEditInProgress);
}

TEST_F(RuleEditTest, AUserDefinedRuleHasItsOwnEditorWhereThereIsNoDialog)
{
    OpenWithUserRules();
    explorer.EditRow(4);
    EXPECT_EQ(edited, Rules{ rows.RuleOfRow(4) });
}

TEST_F(RuleEditTest, EditingIsLoggedWithTheNameOfTheRule)
{
    explorer.UpdateRuleList(true);
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    explorer.EditRow(3);
    CVantrelLog::CloseLogFile();
    EXPECT_NE(ReadBytes(log).find("Edit Rule Command Received for TestModuleComplete Rule 2 Rule\n"),
              std::string::npos);
}

TEST_F(RuleEditTest, WhatAnEditorThrowsIsToldAndLoggedAndEndsTheMark)
{
    explorer.UpdateRuleList(true);
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    Editor() = [](CQoxRule& rule)
    {
        rule.m_nCriticality = 2;
        throw std::runtime_error("no window");
    };
    explorer.EditRow(2);
    CVantrelLog::CloseLogFile();
    EXPECT_FALSE(g_bEditInProgress);
    EXPECT_EQ(window.failedEditors, std::vector<std::wstring>{ L"TestModuleComplete Rule 1" });
    EXPECT_EQ(rows.At(2).texts[3], CriticalityText(2)) << "the row shows what has come of the rule";
    const std::string text = ReadBytes(log);
    EXPECT_NE(text.find("TestModuleComplete.dll failed\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Edit Rule Command Received for TestModuleComplete Rule 1 Rule\n"), std::string::npos);
}

TEST_F(RuleEditTest, AnythingMayBeThrown)
{
    explorer.UpdateRuleList(true);
    Editor() = [](CQoxRule& /*rule*/) { throw 1; };
    explorer.EditRow(0);
    EXPECT_FALSE(g_bEditInProgress);
    EXPECT_EQ(window.failedEditors.size(), 1U);
}

TEST_F(RuleEditTest, NoSecondRuleIsEditedMeanwhile)
{
    explorer.UpdateRuleList(true);
    Editor() = [this](CQoxRule& rule)
    {
        edited.push_back(&rule);
        explorer.EditRow(1);
    };
    explorer.EditRow(0);
    EXPECT_EQ(edited, Rules{ rows.RuleOfRow(0) });
    EXPECT_EQ(window.editsTold, 1);
}

TEST_F(RuleEditTest, ARowThatMovedMeanwhileIsTheOneThatIsShownAnew)
{
    explorer.UpdateRuleList(true);
    Editor() = [this](CQoxRule& rule)
    {
        rule.m_nCriticality = 4;
        std::swap(rows.At(0), rows.At(3));
    };
    explorer.EditRow(0);
    EXPECT_EQ(rows.At(3).texts[3], CriticalityText(4));
    EXPECT_EQ(rows.At(0).texts[3], CriticalityText(3));
}

TEST_F(RuleEditTest, NumbersOutsideTheListEditNothing)
{
    explorer.UpdateRuleList(true);
    explorer.EditRow(-1);
    explorer.EditRow(4);
    EXPECT_TRUE(edited.empty());
    EXPECT_EQ(window.editsTold, 0);
}
