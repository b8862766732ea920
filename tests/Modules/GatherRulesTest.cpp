#include "Modules/ModuleSet.h"

#include "Modules/RuleModule.h"
#include "Platform/Text.h"
#include "tests/Modules/ModuleSetFixture.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

constexpr const wchar_t* Complete = L"TestModuleComplete";
constexpr const wchar_t* Second = L"TestModuleSecond";
constexpr const wchar_t* Database = L"TestDatabaseComplete";

class GatherRulesTest : public ModuleSetFixture
{
protected:
    ~GatherRulesTest() override
    {
        for (CQoxRule* const gathered : m_rules)
        {
            CQoxRule* rule = gathered;
            RuleModule(Platform::FindLoadedLibrary(rule->m_strModulePath)).DeleteRule(rule);
        }
    }

    void Gather()
    {
        GatherRules(m_modules, m_asked, m_rules, [this] { ++m_messages; });
    }

    Names RuleNames() const
    {
        Names names;
        for (const CQoxRule* const rule : m_rules)
        {
            names.push_back(rule->m_strRuleName);
        }
        return names;
    }

    std::list<std::wstring> m_asked;
    PointerArray m_rules;
    int m_messages = 0;
};

} // namespace

TEST_F(GatherRulesTest, TheRulesOfTheLastModuleComeFirst)
{
    ConfigureDatabases({ Database });
    Configure({ Complete, Second });
    Gather();
    EXPECT_THAT(RuleNames(), ElementsAre(L"TestModuleSecond Rule 1", L"TestModuleSecond Rule 2",
                                         L"TestModuleComplete Rule 1", L"TestModuleComplete Rule 2"));
    EXPECT_THAT(m_asked, ElementsAre(TestModulePath(Second), TestModulePath(Complete)));
    EXPECT_EQ(m_messages, 0);
}

TEST_F(GatherRulesTest, EachRuleTellsItsModulesNameAndPath)
{
    ConfigureDatabases({ Database });
    Configure({ Complete });
    Gather();
    ASSERT_EQ(m_rules.GetSize(), 2);
    for (const CQoxRule* const rule : m_rules)
    {
        EXPECT_EQ(rule->m_strRuleModule, L"Complete Test Module");
        EXPECT_EQ(rule->m_strModulePath, TestModulePath(Complete));
    }
}

TEST_F(GatherRulesTest, AModuleWithoutANameGoesByThatOfItsFile)
{
    ConfigureDatabases({ Database });
    Configure({ L"TestModuleNoName" });
    Gather();
    ASSERT_EQ(m_rules.GetSize(), 2);
    EXPECT_EQ(m_rules[0]->m_strRuleModule, L"TestModuleNoName.dll");
}

TEST_F(GatherRulesTest, WithoutADatabaseModuleTheMessageComesAndNoModuleIsAsked)
{
    Configure({ Complete, Second });
    Gather();
    EXPECT_EQ(m_messages, 1);
    EXPECT_THAT(RuleNames(), IsEmpty());
    EXPECT_THAT(m_asked, IsEmpty());
    EXPECT_EQ(Journal(), "");
    Gather();
    EXPECT_EQ(m_messages, 2) << "it comes again each time";
}

TEST_F(GatherRulesTest, ADatabaseModuleThatCanNotBeLoadedCountsAsNone)
{
    Configure({ Complete });
    ConfigureDatabases({ L"MissingDatabase" });
    Gather();
    EXPECT_EQ(m_messages, 1);
    EXPECT_THAT(RuleNames(), IsEmpty());
}

TEST_F(GatherRulesTest, WithoutAnyRuleModuleThereIsNoMessage)
{
    Gather();
    EXPECT_EQ(m_messages, 0);
    EXPECT_THAT(RuleNames(), IsEmpty());
}

TEST_F(GatherRulesTest, TheMessageComesAlsoIfAllModulesWereAskedBefore)
{
    ConfigureDatabases({ Database });
    Configure({ Complete });
    Gather();
    ConfigureDatabases({});
    Gather();
    EXPECT_EQ(m_messages, 1);
    EXPECT_EQ(m_rules.GetSize(), 2) << "what was gathered stays";
}

TEST_F(GatherRulesTest, AModuleIsAskedOnceForEachListOfAskedModules)
{
    ConfigureDatabases({ Database });
    Configure({ Complete });
    Gather();
    ForgetJournal();
    Gather();
    EXPECT_EQ(m_rules.GetSize(), 2);
    EXPECT_EQ(Journal(), "");

    std::list<std::wstring> askedByAnotherView;
    GatherRules(m_modules, askedByAnotherView, m_rules, [] {});
    EXPECT_EQ(m_rules.GetSize(), 4);
    EXPECT_THAT(askedByAnotherView, ElementsAre(TestModulePath(Complete)));
}

TEST_F(GatherRulesTest, ANewModuleIsAskedAndItsRulesComeBehindThoseThatAreThere)
{
    ConfigureDatabases({ Database });
    Configure({ Complete });
    Gather();
    Configure({ Complete, Second });
    Gather();
    EXPECT_THAT(RuleNames(), ElementsAre(L"TestModuleComplete Rule 1", L"TestModuleComplete Rule 2",
                                         L"TestModuleSecond Rule 1", L"TestModuleSecond Rule 2"));
    EXPECT_THAT(m_asked, ElementsAre(TestModulePath(Complete), TestModulePath(Second)));
}

TEST_F(GatherRulesTest, AModuleWithoutGetAllRulesIsSkippedAndNeverRecordedAsAsked)
{
    ConfigureDatabases({ Database });
    Configure({ Complete, L"TestModuleNoGetAllRules", L"TestModuleEmpty" });
    Gather();
    EXPECT_EQ(m_rules.GetSize(), 2);
    EXPECT_THAT(m_asked, ElementsAre(TestModulePath(Complete)));
    EXPECT_EQ(Journal(), "TestModuleComplete GetAllRules\nTestModuleComplete GetModuleName\n");
}

TEST_F(GatherRulesTest, AModuleThatOffersNoRulesIsRecordedAsAsked)
{
    ConfigureDatabases({ Database });
    Configure({ L"TestModuleNoRules" });
    Gather();
    EXPECT_THAT(RuleNames(), IsEmpty());
    EXPECT_THAT(m_asked, ElementsAre(TestModulePath(L"TestModuleNoRules")));
}

TEST_F(GatherRulesTest, TheRulesOfAModuleThatIsListedTwiceAreGatheredOnce)
{
    ConfigureDatabases({ Database });
    Configure({ Complete, Complete });
    Gather();
    EXPECT_EQ(m_rules.GetSize(), 2);
    EXPECT_THAT(m_asked, ElementsAre(TestModulePath(Complete)));
}

TEST_F(GatherRulesTest, PathsThatAreNoLongerConfiguredLeaveTheListOfAskedModules)
{
    ConfigureDatabases({ Database });
    Configure({ Complete });
    const std::wstring inOtherCase = Platform::ToLower(TestModulePath(Complete));
    m_asked = { L"gone.dll", TestModulePath(Second), inOtherCase, TestModulePath(Complete), L"" };
    Gather();
    EXPECT_THAT(m_asked, ElementsAre(inOtherCase, TestModulePath(Complete)));
    EXPECT_THAT(RuleNames(), IsEmpty());
}

TEST_F(GatherRulesTest, TheListOfAskedModulesIsTidiedAlsoWithoutADatabaseModule)
{
    Configure({ Complete });
    m_asked = { TestModulePath(Second) };
    Gather();
    EXPECT_EQ(m_messages, 1);
    EXPECT_THAT(m_asked, IsEmpty());
}

TEST_F(GatherRulesTest, AModuleThatComesBackIsAskedAgain)
{
    ConfigureDatabases({ Database });
    Configure({ Complete });
    Gather();
    Configure({});
    Gather();
    EXPECT_THAT(m_asked, IsEmpty());
    Configure({ Complete });
    Gather();
    EXPECT_EQ(m_rules.GetSize(), 4);
}
