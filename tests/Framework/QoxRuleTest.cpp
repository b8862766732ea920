#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxXml.h>
#include <Vantrel/RuleEditor.h>

#include <gtest/gtest.h>

#include <memory>

namespace
{

using NodePtr = std::unique_ptr<QoxXMLNode>;

int editedRules = 0;

void CountEdit(CQoxRule& /*rule*/)
{
    ++editedRules;
}

class QoxRuleTest : public testing::Test
{
protected:
    void SetUp() override { SetXMLDoc(&m_document); }
    void TearDown() override { SetXMLDoc(nullptr); }

    NodePtr Parse(const std::string& bytes)
    {
        const std::wstring path = m_folder.File(L"rule.xml");
        WriteBytes(path, bytes);
        return NodePtr(m_document.LoadFromFile(path));
    }

    TemporaryFolder m_folder;
    QoxXMLDocument m_document;
};

void FillWithEverything(CQoxRule& rule)
{
    rule.m_strRuleName = L"Deep <Hole> & \"Co\"";
    rule.m_strDisplayName = L"Tiefe L\u00f6cher";
    rule.m_strSummary = L"First line\nsecond line";
    rule.m_strSummary2 = L"\u65e5\u672c\u8a9e";
    rule.m_strCategory = L"Holes";
    rule.m_categoryList = { L"Holes", L"Pockets" };
    rule.m_strRuleModule = L"Milling Rules";
    rule.m_strModulePath = L"QoxMillRulesu.dll";
    rule.m_references = { L"C:\\a.tlb", L"" };
    rule.m_nCriticality = 4;
    rule.m_strHelpFile = L"help.htm";

    CQoxParamStorage length;
    length.nNumber = 1;
    length.eKind = ParamKind::Length;
    length.strName = L"MaxDepth";
    length.strLabel = L"Largest depth";
    length.strHelp = L"From the face.";
    length.dValue = 12.5;
    length.dDefault = 10;
    length.dMinimum = 0;
    length.dMaximum = 250.125;
    rule.Parameters().push_back(length);

    CQoxParamStorage choice;
    choice.nNumber = 2;
    choice.eKind = ParamKind::Choice;
    choice.strName = L"Material";
    choice.choices = { L"Steel", L"Brass & Bronze" };
    choice.strValue = L"Steel";
    choice.strDefault = L"Brass & Bronze";
    rule.Parameters().push_back(choice);

    int number = 3;
    for (const ParamKind kind :
         { ParamKind::Angle, ParamKind::Number, ParamKind::Integer, ParamKind::YesNo, ParamKind::Text })
    {
        CQoxParamStorage parameter;
        parameter.nNumber = number++;
        parameter.eKind = kind;
        parameter.dValue = parameter.IsNumeric() ? 1 : 0;
        parameter.strValue = parameter.IsNumeric() ? L"" : L"text";
        rule.Parameters().push_back(parameter);
    }
}

void ExpectEqual(const CQoxRule& left, const CQoxRule& right)
{
    EXPECT_EQ(left.m_strRuleName, right.m_strRuleName);
    EXPECT_EQ(left.m_strDisplayName, right.m_strDisplayName);
    EXPECT_EQ(left.m_strSummary, right.m_strSummary);
    EXPECT_EQ(left.m_strSummary2, right.m_strSummary2);
    EXPECT_EQ(left.m_strCategory, right.m_strCategory);
    EXPECT_EQ(left.m_categoryList, right.m_categoryList);
    EXPECT_EQ(left.m_strRuleModule, right.m_strRuleModule);
    EXPECT_EQ(left.m_strModulePath, right.m_strModulePath);
    EXPECT_EQ(left.m_references, right.m_references);
    EXPECT_EQ(left.m_nCriticality, right.m_nCriticality);
    EXPECT_EQ(left.m_strHelpFile, right.m_strHelpFile);
    ASSERT_EQ(left.Parameters().size(), right.Parameters().size());
    for (std::size_t index = 0; index < left.Parameters().size(); ++index)
    {
        const CQoxParamStorage& a = left.Parameters()[index];
        const CQoxParamStorage& b = right.Parameters()[index];
        EXPECT_EQ(a.nNumber, b.nNumber);
        EXPECT_EQ(a.eKind, b.eKind);
        EXPECT_EQ(a.strName, b.strName);
        EXPECT_EQ(a.strLabel, b.strLabel);
        EXPECT_EQ(a.strHelp, b.strHelp);
        EXPECT_EQ(a.dValue, b.dValue);
        EXPECT_EQ(a.dDefault, b.dDefault);
        EXPECT_EQ(a.dMinimum, b.dMinimum);
        EXPECT_EQ(a.dMaximum, b.dMaximum);
        EXPECT_EQ(a.strValue, b.strValue);
        EXPECT_EQ(a.strDefault, b.strDefault);
        EXPECT_EQ(a.choices, b.choices);
    }
}

} // namespace

TEST_F(QoxRuleTest, EverythingOfARuleSurvivesWritingAndReading)
{
    ConcreteQOXRule rule;
    FillWithEverything(rule);
    const NodePtr element(rule.GetXML());
    ASSERT_NE(element, nullptr);
    ConcreteQOXRule copy;
    copy.PopulateParametersFromXML(element.get());
    ExpectEqual(rule, copy);
    const NodePtr again(copy.GetXML());
    EXPECT_EQ(again->GetXML(), element->GetXML());
}

TEST_F(QoxRuleTest, EverythingOfARuleSurvivesDeepCopyButItsPlaceInATree)
{
    ConcreteQOXRule rule;
    FillWithEverything(rule);
    rule.m_nTreeIndex = 7;
    rule.m_nRuleState = 1;
    ConcreteQOXRule copy;
    copy = static_cast<CQoxRule*>(&rule);
    ExpectEqual(rule, copy);
    EXPECT_EQ(copy.m_nRuleState, 1);
    EXPECT_EQ(copy.m_nTreeIndex, 0);
    copy = static_cast<CQoxRule*>(nullptr);
    ExpectEqual(rule, copy);
}

TEST_F(QoxRuleTest, UnknownAttributesAndChildrenSurvive)
{
    const std::string markup =
        "<Rule RuleModule=\"M\" RuleName=\"R\" DisplayName=\"\" Category=\"\" Criticality=\"3\" "
        "ModulePath=\"\" HelpFile=\"\" Summary=\"\" Summary2=\"\" Owner=\"a &amp; b\">"
        "<Parameter Number=\"1\" Name=\"N\" Label=\"\" Kind=\"number\" Value=\"2\" Default=\"0\" "
        "Help=\"\" Colour=\"red\"><Note/></Parameter>"
        "<Parameter Number=\"2\" Kind=\"tensor\" Value=\"1 2 3\"/>"
        "<Parameter Kind=\"number\"/>"
        "<!--kept--><Extension v=\"1\">mixed <b>text</b></Extension></Rule>";
    const NodePtr element = Parse("<L>" + markup + "</L>");
    const NodePtr ruleElement(element->SelectSingleNode(L"Rule"));
    ConcreteQOXRule rule;
    rule.PopulateParametersFromXML(ruleElement.get());
    ASSERT_EQ(rule.Parameters().size(), 1u);
    EXPECT_EQ(NodePtr(rule.GetXML())->GetXML(), std::wstring(markup.begin(), markup.end()));
    ConcreteQOXRule copy;
    copy = static_cast<CQoxRule*>(&rule);
    EXPECT_EQ(NodePtr(copy.GetXML())->GetXML(), std::wstring(markup.begin(), markup.end()));
}

TEST_F(QoxRuleTest, OfAttributesOfOneNameTheFirstCounts)
{
    const NodePtr element =
        Parse("<Rule RuleModule=\"M\" RuleName=\"R\" Criticality=\"3\" Owner=\"a\" Criticality=\"4\" "
              "RuleName=\"S\" Owner=\"b\" RuleModule=\"N\">"
              "<Parameter Number=\"1\" Kind=\"number\" Value=\"2\" Value=\"3\" Unit=\"c\" "
              "Number=\"5\" Kind=\"text\" Unit=\"d\"/></Rule>");
    ConcreteQOXRule rule;
    rule.PopulateParametersFromXML(element.get());
    EXPECT_EQ(rule.m_strRuleModule, L"M");
    EXPECT_EQ(rule.m_strRuleName, L"R");
    EXPECT_EQ(rule.m_nCriticality, 3);
    ASSERT_EQ(rule.Parameters().size(), 1u);
    EXPECT_EQ(rule.Parameters()[0].nNumber, 1);
    EXPECT_EQ(rule.Parameters()[0].eKind, ParamKind::Number);
    EXPECT_EQ(rule.Parameters()[0].dValue, 2);
    EXPECT_EQ(NodePtr(rule.GetXML())->GetXML(),
              L"<Rule RuleModule=\"M\" RuleName=\"R\" DisplayName=\"\" Category=\"\" Criticality=\"3\" ModulePath=\"\" "
              L"HelpFile=\"\" Summary=\"\" Summary2=\"\" Owner=\"a\"><Parameter Number=\"1\" Name=\"\" Label=\"\" "
              L"Kind=\"number\" Value=\"2\" Default=\"0\" Help=\"\" Unit=\"c\"/></Rule>");
}

TEST_F(QoxRuleTest, AnAbsurdNumberOfAttributesCostsNoMoreThanItsSize)
{
    std::string bytes = "<Rule";
    for (int number = 0; number < 50000; ++number)
    {
        bytes += " a" + std::to_string(number) + "=\"\"";
    }
    const NodePtr element = Parse(bytes + "/>");
    ConcreteQOXRule rule;
    rule.PopulateParametersFromXML(element.get());
    const std::wstring markup = NodePtr(rule.GetXML())->GetXML();
    EXPECT_NE(markup.find(L" a49999=\"\"/>"), std::wstring::npos);
}

TEST_F(QoxRuleTest, WhatTheElementLacksStaysAndWhatCannotBeReadTooStays)
{
    ConcreteQOXRule rule;
    FillWithEverything(rule);
    const NodePtr element = Parse("<Rule Criticality=\"high\"><Parameter Number=\"1\" Kind=\"length\" Value=\"1e999\" "
                                  "Minimum=\"nan\"/></Rule>");
    rule.PopulateParametersFromXML(element.get());
    EXPECT_EQ(rule.m_nCriticality, 4);
    EXPECT_EQ(rule.m_strCategory, L"Holes");
    EXPECT_EQ(rule.m_categoryList.size(), 2u);
    EXPECT_EQ(rule.Parameters()[0].dValue, 12.5);
    EXPECT_EQ(rule.Parameters()[0].dMinimum, 0);
    EXPECT_EQ(rule.Parameters()[0].strLabel, L"Largest depth");
}

TEST_F(QoxRuleTest, AModulesFolderStaysOutOfFilesAndAUserDefinedRulesFileNameIsKeptWhole)
{
    ConcreteQOXRule rule;
    rule.m_strRuleModule = L"Milling Rules";
    rule.m_strModulePath = L"/opt/some where/bin/QoxMillRulesu.dll";
    ConcreteQOXRule copy;
    copy.PopulateParametersFromXML(NodePtr(rule.GetXML()).get());
    EXPECT_EQ(copy.m_strModulePath, L"QoxMillRulesu.dll");
    rule.m_strRuleModule = VSTARuleMark;
    rule.m_strModulePath = L"folder/rule.bas";
    copy.PopulateParametersFromXML(NodePtr(rule.GetXML()).get());
    EXPECT_EQ(copy.m_strModulePath, L"folder/rule.bas");
}

TEST_F(QoxRuleTest, WithoutADocumentThereIsNoElement)
{
    ConcreteQOXRule rule;
    SetXMLDoc(nullptr);
    EXPECT_EQ(NodePtr(rule.GetXML()), nullptr);
    {
        QoxXMLDocument shortLived;
        SetXMLDoc2(&shortLived);
        EXPECT_NE(NodePtr(rule.GetXML()), nullptr);
    }
    EXPECT_EQ(NodePtr(rule.GetXML()), nullptr) << "the document has gone";
}

TEST_F(QoxRuleTest, AnAbsurdNumberOfParametersCostsNoMoreThanItsSize)
{
    std::string bytes = "<Rule>";
    for (int number = 50000; number > 0; --number)
    {
        bytes += "<Parameter Number=\"" + std::to_string(number) + "\" Kind=\"number\"/>";
    }
    bytes += "</Rule>";
    const NodePtr element = Parse(bytes);
    ConcreteQOXRule rule;
    rule.PopulateParametersFromXML(element.get());
    EXPECT_EQ(rule.Parameters().size(), 50000u);
    rule.PopulateParametersFromXML(element.get());
    EXPECT_EQ(rule.Parameters().size(), 50000u);
}

TEST_F(QoxRuleTest, UnitsAreConvertedThereAndBackWithoutChangingTheFile)
{
    ConcreteQOXRule rule;
    FillWithEverything(rule);
    rule.Parameters()[0].dValue = 0.1;
    const std::wstring before = NodePtr(rule.GetXML())->GetXML();
    const structRulesUnit metric{ 0, 0 };
    for (std::int32_t linear = 0; linear <= 10; ++linear)
    {
        const structRulesUnit other{ linear, 3 };
        rule.UpdateRule(&metric, &other);
        rule.UpdateRule(&other, &metric);
        EXPECT_EQ(NodePtr(rule.GetXML())->GetXML(), before) << linear;
    }
}

TEST_F(QoxRuleTest, ValuesAreTakenOverFromAnotherRuleByNumberAndKind)
{
    ConcreteQOXRule ours;
    ConcreteQOXRule theirs;
    FillWithEverything(ours);
    FillWithEverything(theirs);
    theirs.Parameters()[0].dValue = 99;
    theirs.Parameters()[1].strValue = L"Brass & Bronze";
    theirs.Parameters()[3].eKind = ParamKind::Length;
    theirs.Parameters()[3].dValue = 5;
    EXPECT_TRUE(ours.UpdateRule(&theirs));
    EXPECT_EQ(ours.FindParameterInArray(1)->dValue, 99);
    EXPECT_EQ(ours.FindParameterInArray(2)->strValue, L"Brass & Bronze");
    EXPECT_EQ(ours.Parameters()[3].dValue, 1);
    EXPECT_EQ(ours.FindParameterInArray(4711), nullptr);
    EXPECT_FALSE(ours.UpdateRule(static_cast<CQoxRule*>(nullptr)));
}

TEST_F(QoxRuleTest, EditingCallsTheRegisteredEditor)
{
    ConcreteQOXRule rule;
    editedRules = 0;
    rule.EditRule();
    SetRuleEditor(&CountEdit);
    rule.EditRule();
    SetRuleEditor(nullptr);
    rule.EditRule();
    EXPECT_EQ(editedRules, 1);
}

TEST_F(QoxRuleTest, AFreshRuleHasTenZeroChildrenAndIsNoRoot)
{
    const ConcreteQOXRule rule;
    EXPECT_EQ(rule.m_children.GetSize(), 0);
    EXPECT_EQ(rule.m_children[0], nullptr);
    EXPECT_EQ(rule.m_children[1], nullptr);
    EXPECT_FALSE(rule.m_bIsRoot);
    EXPECT_EQ(rule.m_nRuleState, 0);
}
