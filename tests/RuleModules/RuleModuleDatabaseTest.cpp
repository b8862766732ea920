#include "tests/RuleModules/StockModuleFixture.h"
#include "tests/Support/StockLibraries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <list>
#include <string>
#include <vector>

namespace
{

/// The choice parameters of all rules.
std::vector<const CQoxParamStorage*> ChoicesOf(const PointerArray& rules)
{
    std::vector<const CQoxParamStorage*> choices;
    for (const CQoxRule* const rule : rules)
    {
        for (const CQoxParamStorage& parameter : rule->Parameters())
        {
            if (parameter.eKind == ParamKind::Choice)
            {
                choices.push_back(&parameter);
            }
        }
    }
    return choices;
}

/// What rules offer with and without the database.
class RuleModuleDatabaseTest : public StockModuleFixture
{
};

TEST_P(RuleModuleDatabaseTest, ChoicesComeFromTheDatabase)
{
    const OfferedRules withDatabase(m_module);
    const std::vector<const CQoxParamStorage*> choices = ChoicesOf(withDatabase.rules);
    EXPECT_GE(choices.size(), 1U);
    UseDatabase({});
    const OfferedRules without(m_module);
    const std::vector<const CQoxParamStorage*> builtIn = ChoicesOf(without.rules);
    ASSERT_EQ(builtIn.size(), choices.size());
    for (std::size_t index = 0; index < choices.size(); ++index)
    {
        SCOPED_TRACE(testing::PrintToString(choices[index]->strName.Get()));
        EXPECT_GE(choices[index]->choices.size(), 10U);
        EXPECT_LT(builtIn[index]->choices.size(), choices[index]->choices.size());
        EXPECT_EQ(builtIn[index]->strDefault, choices[index]->strDefault);
        for (const std::wstring& choice : builtIn[index]->choices)
        {
            EXPECT_THAT(choices[index]->choices.Get(), testing::Contains(choice));
        }
    }
}

TEST_P(RuleModuleDatabaseTest, WithoutADatabaseTheRulesAreWholeToo)
{
    for (const std::list<std::wstring>& databases :
         { std::list<std::wstring>{}, std::list<std::wstring>{ StagedLibrary(L"missing.dll") },
           std::list<std::wstring>{ StagedLibrary(LibraryFile(GetParam())) } })
    {
        UseDatabase(databases);
        const OfferedRules offered(m_module);
        for (CQoxRule* const rule : offered.rules)
        {
            EXPECT_TRUE(rule->ValidateInputData());
        }
        for (const CQoxParamStorage* const choice : ChoicesOf(offered.rules))
        {
            EXPECT_GE(choice->choices.size(), 2U);
        }
    }
}

TEST_P(RuleModuleDatabaseTest, NullListOfDatabaseModulesMeansNone)
{
    m_module.Export<SetDBModuleListFunction>("SetDBModuleList")(nullptr);
    const OfferedRules offered(m_module);
    EXPECT_GE(offered.rules.GetSize(), 10);
}

INSTANTIATE_TEST_SUITE_P(All, RuleModuleDatabaseTest, testing::ValuesIn(StockLibraries(VANTREL_STOCK_LIBRARIES)),
                         [](const testing::TestParamInfo<std::string>& test) { return test.param; });

} // namespace
