#include "Platform/Files.h"
#include "tests/Document/RecordTest.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/QoxXml.h>
#include <Vantrel/VantrelLog.h>

#include <memory>
#include <stdexcept>

namespace
{

class RuleFileWriterTest : public RecordTest
{
protected:
    ~RuleFileWriterTest() override { g_bScriptRuleFile = false; }

    bool Write() { return record.WriteRuleFile(ToNarrow(path)); }
};

/// A rule that fails when it is asked for its element.
class FailingRule : public ConcreteQOXRule
{
public:
    using ConcreteQOXRule::operator=;

    QoxXMLNode* GetXML() override { return nullptr; }
};

/// A rule that throws out of that call.
class ThrowingRule : public ConcreteQOXRule
{
public:
    using ConcreteQOXRule::operator=;

    QoxXMLNode* GetXML() override { throw std::runtime_error("broken"); }
};

constexpr const char* EmptyFile = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                  "<Lumeq Name=\"\" Createdby=\"\" CreatedOn=\"\" Unit=\"0\" AngularUnit=\"0\" "
                                  "Version=\"v3.3\" />\n";

} // namespace

TEST_F(RuleFileWriterTest, AnEmptyRecordWritesTheRootWithItsSixAttributesInOrder)
{
    EXPECT_TRUE(Write());
    EXPECT_EQ(ReadBytes(path), EmptyFile);
    EXPECT_EQ(g_pXmlDoc, nullptr);
}

TEST_F(RuleFileWriterTest, UnitsAreWrittenAsNumbersAlsoUnknownOnes)
{
    record.newRuleUnits = { 10, -3 };
    EXPECT_TRUE(Write());
    EXPECT_NE(ReadBytes(path).find("Unit=\"10\" AngularUnit=\"-3\""), std::string::npos);
}

TEST_F(RuleFileWriterTest, RulesMarkedAsDeletedAreNotWritten)
{
    Add(L"Keep");
    Add(L"Drop").m_nRuleState = 2;
    EXPECT_TRUE(Write());
    const std::string bytes = ReadBytes(path);
    EXPECT_NE(bytes.find("RuleName=\"Keep\""), std::string::npos);
    EXPECT_EQ(bytes.find("Drop"), std::string::npos);
}

TEST_F(RuleFileWriterTest, ARuleThatFailsIsLeftOutAndTheOthersAreWritten)
{
    Add(L"First");
    FailingRule failing;
    std::int32_t index = 0;
    record.AddRule(&failing, index);
    Add(L"Last");
    EXPECT_TRUE(Write());
    const std::string bytes = ReadBytes(path);
    EXPECT_LT(bytes.find("First"), bytes.find("Last"));
    EXPECT_NE(bytes.find("Last"), std::string::npos);
}

TEST_F(RuleFileWriterTest, ARuleThatThrowsIsLeftOutAndItsModuleNamedInTheLog)
{
    ThrowingRule throwing;
    throwing.m_strModulePath = L"broken.dll";
    std::int32_t index = 0;
    record.AddRule(&throwing, index);
    Add(L"Last");
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    EXPECT_TRUE(Write());
    CVantrelLog::CloseLogFile();
    EXPECT_NE(ReadBytes(path).find("Last"), std::string::npos);
    EXPECT_NE(ReadBytes(log).find("Rule module broken.dll failed\n"), std::string::npos);
}

TEST_F(RuleFileWriterTest, FrameworkAndModulesAreToldOfTheDocumentBeforeTheRules)
{
    application->LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
    Add(L"A");
    EXPECT_TRUE(Write());
    EXPECT_EQ(CallsOf(L"TestModuleComplete"), "SetXMLDoc");
    EXPECT_EQ(CallsOf(L"TestModuleSecond"), "SetXMLDoc");
    EXPECT_NE(ReadBytes(path).find("RuleName=\"A\""), std::string::npos);
}

TEST_F(RuleFileWriterTest, AScriptRulePackageTellsTheFrameworkByItsOtherExportAndTheModulesByTheSame)
{
    application->LoadRuleModules({ L"TestModuleComplete" });
    g_bScriptRuleFile = true;
    Add(L"A");
    EXPECT_TRUE(Write());
    EXPECT_EQ(CallsOf(L"TestModuleComplete"), "SetXMLDoc");
    EXPECT_NE(ReadBytes(path).find("RuleName=\"A\""), std::string::npos);
}

TEST_F(RuleFileWriterTest, TheFrameworkIsToldByOneOfItsTwoExportsNeverByBoth)
{
    const std::wstring name = L"TestFramework";
    application->framework = Platform::OpenLibraryFile(TestModulePath(name));
    ASSERT_NE(application->framework, nullptr);
    const auto reset = TestModuleFunction<TestModuleResetFunction>(name, "TestModuleReset");
    ASSERT_NE(reset, nullptr);
    g_bScriptRuleFile = true;
    EXPECT_TRUE(Write());
    EXPECT_EQ(CallsOf(name), "SetXMLDoc2");
    reset();
    // Reading never uses the export for packages.
    EXPECT_TRUE(record.LoadRuleFile(ToNarrow(path)));
    EXPECT_EQ(CallsOf(name), "SetXMLDoc");
    reset();
    g_bScriptRuleFile = false;
    EXPECT_TRUE(Write());
    EXPECT_EQ(CallsOf(name), "SetXMLDoc");
    reset();
    EXPECT_TRUE(record.WriteUserFile(path));
    EXPECT_EQ(CallsOf(name), "");
    Platform::ReleaseLibrary(application->framework);
}

TEST_F(RuleFileWriterTest, WithoutAnApplicationOrAPathNothingIsWritten)
{
    EXPECT_FALSE(record.WriteRuleFile(""));
    EXPECT_FALSE(record.WriteUserFile(L""));
    application.reset();
    EXPECT_FALSE(Write());
    EXPECT_FALSE(Platform::PathExists(path));
    EXPECT_TRUE(record.WriteUserFile(path)) << "the user's file needs no application";
    EXPECT_EQ(ReadBytes(path), EmptyFile);
}

TEST_F(RuleFileWriterTest, AFailedWriteMakesNoDifference)
{
    EXPECT_TRUE(record.WriteRuleFile(ToNarrow(folder.File(L"missing") + L"/rules.vrf")));
    EXPECT_EQ(record.WriteFailure(), Platform::FileCause::FileNotFound) << "but it can be asked for";
    EXPECT_TRUE(Write());
    EXPECT_EQ(record.WriteFailure(), Platform::FileCause::None);
}

TEST_F(RuleFileWriterTest, EachRuleIsLoggedInARuleFileAndNoneInTheUsersFile)
{
    Add(L"Alpha");
    const std::wstring log = folder.File(L"run.log");
    CVantrelLog::OpenLogFile(log);
    EXPECT_TRUE(record.WriteUserFile(path));
    EXPECT_EQ(ReadBytes(log), "");
    EXPECT_TRUE(Write());
    CVantrelLog::CloseLogFile();
    EXPECT_NE(ReadBytes(log).find("Alpha has been added in the file to be saved\n"), std::string::npos);
}

TEST_F(RuleFileWriterTest, LoadingAndSavingAgainGivesTheSameBytes)
{
    application->LoadRuleModules({ L"TestModuleComplete" });
    WriteBytes(path,
               "<Lumeq Unit='3' AngularUnit='3' Name='x'><Rule RuleModule='Complete Test Module' "
               "RuleName='TestModuleComplete Rule 2' Extra='kept'><Parameter Number='1' Kind='length' "
               "Value='0.1'/><Own><Deep/></Own></Rule><Rule RuleModule='VSTA Rule' RuleName='&#xe9;&lt;'/></Lumeq>");
    std::string first;
    for (int round = 0; round < 3; ++round)
    {
        CQOXRMLumeq copy;
        ASSERT_TRUE(copy.LoadRuleFile(ToNarrow(path)));
        ASSERT_TRUE(copy.WriteRuleFile(ToNarrow(path)));
        PointerArray rules;
        copy.GetRules(rules);
        EXPECT_EQ(rules.GetSize(), 2);
        for (CQoxRule* const rule : rules)
        {
            delete rule;
        }
        const std::string bytes = ReadBytes(path);
        EXPECT_NE(bytes.find("Extra=\"kept\""), std::string::npos);
        EXPECT_NE(bytes.find("<Deep />"), std::string::npos);
        EXPECT_NE(bytes.find("Name=\"\" Createdby=\"\" CreatedOn=\"\""), std::string::npos);
        if (round > 0)
        {
            EXPECT_EQ(bytes, first);
        }
        first = bytes;
    }
}
