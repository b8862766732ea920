#include "Document/Lumeq.h"
#include "Platform/Text.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{

class RuleFileReaderTest : public testing::Test
{
protected:
    ~RuleFileReaderTest() override
    {
        PointerArray rules;
        record.GetRules(rules);
        for (CQoxRule* const rule : rules)
        {
            delete rule;
        }
    }

    bool Load(const std::string& bytes)
    {
        WriteBytes(path, bytes);
        return record.LoadRuleFile(ToNarrow(path));
    }

    std::vector<std::wstring> Names() const
    {
        PointerArray rules;
        record.GetRules(rules);
        std::vector<std::wstring> names;
        for (const CQoxRule* const rule : rules)
        {
            names.push_back(rule->m_strRuleName);
        }
        return names;
    }

    TestApplication application;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    CQOXRMLumeq record;
};

std::string RuleElement(const std::string& module, const std::string& name)
{
    return "<Rule RuleModule=\"" + module + "\" RuleName=\"" + name + "\"/>";
}

constexpr const char* CompleteName = "Complete Test Module";
constexpr const char* SecondName = "Second Test Module";

} // namespace

TEST_F(RuleFileReaderTest, AFileWithoutRulesGivesTheUnitsAndNoRules)
{
    EXPECT_TRUE(
        Load("<Lumeq Name=\"n\" Createdby=\"c\" CreatedOn=\"o\" Unit=\"3\" AngularUnit=\"1\" Version=\"v3.3\" />"));
    EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 3, 1 }));
    EXPECT_EQ(record.GetCount(), 0);
    EXPECT_TRUE(record.strName.empty());
    EXPECT_TRUE(record.strCreatedBy.empty());
    EXPECT_TRUE(record.strCreatedOn.empty());
    EXPECT_EQ(g_pXmlDoc, nullptr);
}

TEST_F(RuleFileReaderTest, AnUnparsableUnitKeepsTheDefaultUnit)
{
    for (const char* const unit : { "", " ", "inches", "+-3", "x3", "99999999999999999999" })
    {
        record.newRuleUnits = { 8, 2 };
        EXPECT_TRUE(Load(std::string("<Lumeq Unit=\"") + unit + "\" AngularUnit=\"" + unit + "\"/>"));
        EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 8, 2 })) << unit;
    }
    EXPECT_TRUE(Load("<Lumeq/>"));
    EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 8, 2 }));
}

TEST_F(RuleFileReaderTest, AUnitIsADecimalNumberAfterBlanksAndWhateverBehindIt)
{
    EXPECT_TRUE(Load("<Lumeq Unit=\"  +4 feet\" AngularUnit=\"-7\"/>"));
    EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 4, -7 }));
}

TEST_F(RuleFileReaderTest, APasswordWithoutRulesDataIsNotTreatedAsProtection)
{
    EXPECT_TRUE(Load("<Lumeq Password=\"abc\"/>"));
    EXPECT_FALSE(record.IsPasswordProtected());
    EXPECT_TRUE(Load("<Lumeq Password=\"abc\" RulesData=\"\"/>"));
    EXPECT_FALSE(record.IsPasswordProtected());
    EXPECT_TRUE(Load("<Lumeq Password=\"\" RulesData=\"d41d8cd98f00b204e9800998ecf8427e\"/>"));
    EXPECT_FALSE(record.IsPasswordProtected());
    EXPECT_TRUE(Load("<Lumeq Password=\"abc\" RulesData=\"d41d8cd98f00b204e9800998ecf8427e\"/>"));
    EXPECT_TRUE(record.IsPasswordProtected());
}

TEST_F(RuleFileReaderTest, RulesComeFromTheModulesInTheOrderOfTheFile)
{
    application.LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement(SecondName, "TestModuleSecond Rule 2") +
                     RuleElement("Interactive User Defined Rule", "Own") +
                     RuleElement(CompleteName, "TestModuleComplete Rule 1") + "</Lumeq>"));
    EXPECT_EQ(Names(), (std::vector<std::wstring>{ L"TestModuleSecond Rule 2", L"Own", L"TestModuleComplete Rule 1" }));
    PointerArray rules;
    record.GetRules(rules);
    EXPECT_EQ(rules[0]->m_nTreeIndex, 1);
    EXPECT_EQ(rules[0]->m_strRuleModule, L"Second Test Module");
    EXPECT_EQ(rules[0]->m_strModulePath, TestModulePath(L"TestModuleSecond"));
    EXPECT_NE(dynamic_cast<ConcreteQOXRule*>(rules[1]), nullptr);
}

TEST_F(RuleFileReaderTest, TheDocumentGoesToTheModulesBeforeAnyRuleIsAskedFor)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement(CompleteName, "TestModuleComplete Rule 1") + "</Lumeq>"));
    EXPECT_EQ(CallsOf(L"TestModuleComplete"), "SetXMLDoc GetRule GetModuleName");
}

TEST_F(RuleFileReaderTest, ModulesAreAskedInLoadOrderUntilOneGivesARule)
{
    application.LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement(CompleteName, "TestModuleComplete Rule 1") + "</Lumeq>"));
    const auto asked = TestModuleFunction<TestModuleCallCountFunction>(L"TestModuleSecond", "TestModuleCallCount");
    ASSERT_NE(asked, nullptr);
    EXPECT_EQ(asked("GetRule"), 0);
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement("Nobody", "x") + "</Lumeq>"));
    EXPECT_EQ(asked("GetRule"), 1);
}

TEST_F(RuleFileReaderTest, ARuleThatNoModuleKnowsVanishesWithoutAWord)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement("Gone Module", "Lost") + RuleElement(CompleteName, "No such rule") +
                     "<Rule/><Other/>text</Lumeq>"));
    EXPECT_EQ(record.GetCount(), 0);
    EXPECT_TRUE(application.prompt.texts.empty());
}

TEST_F(RuleFileReaderTest, AnExactMarkIsNotOfferedToTheModules)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement("VSTA Rule", "A") + RuleElement("Interactive User Defined Rule", "B") +
                     "</Lumeq>"));
    EXPECT_EQ(record.GetCount(), 2);
    EXPECT_EQ(CallsOf(L"TestModuleComplete"), "SetXMLDoc");
}

TEST_F(RuleFileReaderTest, AMarkInAnotherCaseGoesToTheModulesFirstAndThenBecomesAUserDefinedRule)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement("vsta rule", "A") + "</Lumeq>"));
    EXPECT_EQ(Names(), std::vector<std::wstring>{ L"A" });
    EXPECT_EQ(CallsOf(L"TestModuleComplete"), "SetXMLDoc GetRule");
}

TEST_F(RuleFileReaderTest, AUserDefinedRuleWithTheMarkAndAnotherModuleIsNotLostByASave)
{
    EXPECT_TRUE(Load("<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"A\" RuleModule=\"Milling\"/></Lumeq>"));
    EXPECT_TRUE(record.WriteRuleFile(ToNarrow(path)));
    EXPECT_TRUE(record.LoadRuleFile(ToNarrow(path))); // adds the rules of the file
    EXPECT_EQ(Names(), (std::vector<std::wstring>{ L"A", L"A" }));
}

TEST_F(RuleFileReaderTest, ReferencesToWhatIsNoCharacterLeaveAFileThatIsReadAgain)
{
    EXPECT_TRUE(Load("<Lumeq><Rule RuleModule=\"VSTA Rule\" RuleName=\"A&#xD800;\" New=\"&#xD800;&#xFFFFFF;\">"
                     "<Parameter Number=\"1\" Kind=\"text\" Extra=\"&#xDFFF;\"/></Rule></Lumeq>"));
    EXPECT_TRUE(record.WriteRuleFile(ToNarrow(path)));
    EXPECT_TRUE(record.LoadRuleFile(ToNarrow(path)));
    EXPECT_EQ(Names().size(), 2U);
}

TEST_F(RuleFileReaderTest, AListOfRulesIsReadWithoutTellingTheModulesOfTheDocument)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    WriteBytes(path, "<Lumeq>" + RuleElement("VSTA Rule", "A") + "</Lumeq>");
    EXPECT_TRUE(record.LoadRuleList(path));
    EXPECT_EQ(Names(), std::vector<std::wstring>{ L"A" });
    EXPECT_EQ(CallsOf(L"TestModuleComplete").find("SetXMLDoc"), std::string::npos);
}

TEST_F(RuleFileReaderTest, AnyOtherRootIsReadLikeAnEmptyRuleFile)
{
    EXPECT_TRUE(Load("<html Unit=\"3\"><body/></html>"));
    EXPECT_EQ(record.GetCount(), 0);
    EXPECT_EQ(record.newRuleUnits.linear, 3);
}

TEST_F(RuleFileReaderTest, AFailedLoadLeavesItsDocumentUntilTheNextOne)
{
    EXPECT_FALSE(Load("no xml"));
    EXPECT_NE(g_pXmlDoc, nullptr);
    EXPECT_TRUE(Load("<Lumeq/>"));
    EXPECT_EQ(g_pXmlDoc, nullptr);
    EXPECT_FALSE(record.LoadRuleFile(""));
    EXPECT_FALSE(record.LoadRuleList(L""));
    EXPECT_FALSE(record.LoadRuleFile(ToNarrow(folder.Path())));
    EXPECT_FALSE(record.LoadRuleFile(ToNarrow(folder.File(L"missing.vrf"))));
}

TEST_F(RuleFileReaderTest, EachRuleIsLoggedByName)
{
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    EXPECT_TRUE(Load("<Lumeq>" + RuleElement("VSTA Rule", "Alpha") + "</Lumeq>"));
    CVantrelLog::CloseLogFile();
    EXPECT_NE(ReadBytes(log).find("Alpha rule has been added\n"), std::string::npos);
}

TEST_F(RuleFileReaderTest, ANullRootDoesNothing)
{
    record.ReadHeader(nullptr);
    EXPECT_EQ(record.GetCount(), 0);
}

TEST_F(RuleFileReaderTest, AFileCutAtAnyByteIsReadOrRefusedButNeverMore)
{
    application.LoadRuleModules({ L"TestModuleComplete" });
    const std::string whole = "<?xml version=\"1.0\"?>\n<Lumeq Unit=\"3\" AngularUnit=\"0\">\n  " +
                              RuleElement(CompleteName, "TestModuleComplete Rule 1") + "\n  " +
                              RuleElement("VSTA Rule", "B&amp;&#xe9;") + "\n</Lumeq>\n";
    int accepted = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length)
    {
        accepted += Load(whole.substr(0, length)) ? 1 : 0;
    }
    EXPECT_EQ(accepted, 2) << "only the whole file, with and without its last line end, is XML";
}

TEST_F(RuleFileReaderTest, DefectiveFilesGiveTheirResult)
{
    const std::wstring data = Platform::Utf8ToWide(VANTREL_TEST_DATA_DIR "/rulefile/");
    const auto load = [&](const wchar_t* name) { return record.LoadRuleFile(ToNarrow(data + name)); };
    EXPECT_FALSE(load(L"empty.vrf"));
    EXPECT_FALSE(load(L"plain-text.vrf"));
    EXPECT_FALSE(load(L"unclosed-root.vrf"));
    EXPECT_FALSE(load(L"nul-bytes.vrf"));
    EXPECT_TRUE(load(L"entity-bomb.vrf"));
    EXPECT_TRUE(load(L"absurd-unit.vrf"));
    EXPECT_EQ(record.newRuleUnits, (structRulesUnit{ 0, 0 }));
    EXPECT_TRUE(load(L"unknown-module.vrf"));
    EXPECT_TRUE(load(L"missing-unit.vrf"));
    EXPECT_EQ(record.GetCount(), 0);
    EXPECT_TRUE(load(L"utf16.vrf"));
    EXPECT_EQ(record.newRuleUnits.linear, 4);
}

TEST_F(RuleFileReaderTest, TenThousandNestedElementsAreReadThroughModulesAndUserRules)
{
    std::string nested;
    for (int level = 0; level < 10000; ++level)
    {
        nested += "<Rule RuleModule=\"VSTA Rule\">";
    }
    for (int level = 0; level < 10000; ++level)
    {
        nested += "</Rule>";
    }
    EXPECT_TRUE(Load("<Lumeq>" + nested + "</Lumeq>"));
    EXPECT_EQ(record.GetCount(), 1);
}

TEST_F(RuleFileReaderTest, AHundredThousandRulesAreReadListedByIndexAndForgotten)
{
    constexpr std::int32_t Count = 100000;
    std::string bytes = "<Lumeq>";
    for (std::int32_t number = 1; number <= Count; ++number)
    {
        bytes += RuleElement("VSTA Rule", std::to_string(number));
    }
    bytes += "</Lumeq>";
    ASSERT_TRUE(Load(bytes));
    for (std::int32_t index = 1; index <= Count; ++index)
    {
        CQoxRule* rule = nullptr;
        record.FindRule(record.TreeRoot(), index, rule);
        ASSERT_NE(rule, nullptr);
        ASSERT_EQ(rule->m_strRuleName, std::to_wstring(index));
    }
}
