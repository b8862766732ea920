#include "Document/UserRuleFile.h"
#include "Document/Lumeq.h"
#include "Platform/Files.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{

class UserRuleFileTest : public testing::Test
{
protected:
    UserRuleFileTest()
    {
        rule.m_strRuleName = L"New";
        rule.m_strRuleModule = VSTARuleMark;
    }

    std::vector<std::wstring> NamesInFile() const
    {
        CQOXRMLumeq record;
        if (!record.LoadRuleList(path))
        {
            return { L"not readable" };
        }
        PointerArray rules;
        record.GetRules(rules);
        std::vector<std::wstring> names;
        for (CQoxRule* const present : rules)
        {
            names.push_back(present->m_strRuleName);
            delete present;
        }
        return names;
    }

    void WriteTwoRules() const
    {
        WriteBytes(path, "<Lumeq Unit=\"0\"><Rule RuleModule=\"VSTA Rule\" RuleName=\"Alpha\"/>"
                         "<Rule RuleModule=\"Interactive User Defined Rule\" RuleName=\"Beta\"/></Lumeq>");
    }

    TestApplication application;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"UserDefinedFile.xml");
    ConcreteQOXRule rule;
};

using Names = std::vector<std::wstring>;

} // namespace

TEST_F(UserRuleFileTest, AddingToAFileThatDoesNotExistWritesOneWithOnlyTheNewRule)
{
    ChangeRuleInUserFile(path, &rule, UserRuleChange::Add, {});
    EXPECT_EQ(NamesInFile(), Names{ L"New" });
}

TEST_F(UserRuleFileTest, AddingKeepsWhatIsThere)
{
    WriteTwoRules();
    ChangeRuleInUserFile(path, &rule, UserRuleChange::Add, {});
    EXPECT_EQ(NamesInFile(), (Names{ L"Alpha", L"Beta", L"New" }));
}

TEST_F(UserRuleFileTest, DeletingANameThatIsNotThereWritesAllRulesAgain)
{
    WriteTwoRules();
    ChangeRuleInUserFile(path, &rule, UserRuleChange::Delete, {});
    EXPECT_EQ(NamesInFile(), (Names{ L"Alpha", L"Beta" }));
    EXPECT_NE(ReadBytes(path).find("Version=\"v3.3\""), std::string::npos);
}

TEST_F(UserRuleFileTest, DeletingFindsTheNameInAnyCase)
{
    WriteTwoRules();
    rule.m_strRuleName = L"ALPHA";
    ChangeRuleInUserFile(path, &rule, UserRuleChange::Delete, {});
    EXPECT_EQ(NamesInFile(), Names{ L"Beta" });
}

TEST_F(UserRuleFileTest, EditingPutsTheRuleInThePlaceOfTheOneWithTheOldName)
{
    WriteTwoRules();
    ChangeRuleInUserFile(path, &rule, UserRuleChange::Edit, L"alpha");
    EXPECT_EQ(NamesInFile(), (Names{ L"New", L"Beta" }));
}

TEST_F(UserRuleFileTest, ANullRuleOrAnEmptyPathDoesNothing)
{
    WriteTwoRules();
    const std::string before = ReadBytes(path);
    ChangeRuleInUserFile(path, nullptr, UserRuleChange::Add, {});
    ChangeRuleInUserFile({}, &rule, UserRuleChange::Add, {});
    EXPECT_EQ(ReadBytes(path), before);
}

TEST_F(UserRuleFileTest, AFileThatCannotBeReadIsKeptBesideTheNewOne)
{
    WriteBytes(path, "my rules, damaged");
    ChangeRuleInUserFile(path, &rule, UserRuleChange::Add, {});
    EXPECT_EQ(NamesInFile(), Names{ L"New" });
    EXPECT_EQ(ReadBytes(path + L".damaged"), "my rules, damaged");
}

TEST_F(UserRuleFileTest, TheFileLiesInTheScriptFolder)
{
    EXPECT_EQ(Platform::FileNamePart(UserDefinedRuleFilePath()), L"UserDefinedFile.xml");
    EXPECT_TRUE(Platform::FolderExists(Platform::FolderPart(UserDefinedRuleFilePath())));
}
