#include "Platform/Text.h"
#include "tests/RuleModules/StockModuleFixture.h"
#include "tests/Support/StockLibraries.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <list>
#include <set>
#include <string>
#include <vector>

namespace
{

class RuleModuleTest : public StockModuleFixture
{
};

TEST_P(RuleModuleTest, HasAllExportsOfARuleModule)
{
    for (const char* const name : { "GetAllRules", "GetRule", "SetXMLDoc", "SetDBModuleList", "GetModuleName",
                                    "GetModuleSummary", "DeleteRule" })
    {
        EXPECT_TRUE(m_module.Has(name)) << name;
    }
}

TEST_P(RuleModuleTest, TellsItsNameAndSummary)
{
    std::wstring summary;
    m_module.Export<GetModuleSummaryFunction>("GetModuleSummary")(summary);
    EXPECT_TRUE(Name().ends_with(L" Rules"));
    EXPECT_GT(summary.size(), 20U);
    SetModuleTextSource(NumbersForTexts);
    m_module.Export<GetModuleSummaryFunction>("GetModuleSummary")(summary);
    EXPECT_TRUE(summary.starts_with(L"#"));
    EXPECT_TRUE(Name().ends_with(L" Rules")) << "files hold the name";
}

TEST_P(RuleModuleTest, OffersRulesWithCompleteTexts)
{
    const OfferedRules offered(m_module);
    EXPECT_GE(offered.rules.GetSize(), 10);
    for (const CQoxRule* const rule : offered.rules)
    {
        SCOPED_TRACE(testing::PrintToString(rule->m_strRuleName));
        EXPECT_FALSE(rule->m_strRuleName.empty());
        EXPECT_FALSE(rule->m_strDisplayName.empty());
        EXPECT_FALSE(rule->m_strSummary.empty());
        EXPECT_GT(rule->m_strSummary2.size(), rule->m_strSummary.size());
        EXPECT_TRUE(rule->m_strSummary.ends_with(L"."));
        EXPECT_TRUE(rule->m_strSummary2.ends_with(L"."));
        EXPECT_EQ(rule->m_strRuleModule, Name());
        EXPECT_TRUE(rule->m_strHelpFile.ends_with(L".htm"));
        EXPECT_NE(std::find(rule->m_categoryList.begin(), rule->m_categoryList.end(), rule->m_strCategory),
                  rule->m_categoryList.end());
        EXPECT_TRUE(rule->m_nCriticality >= 1 && rule->m_nCriticality <= 5);
        EXPECT_EQ(rule->m_nRuleState, 0);
        EXPECT_TRUE(rule->m_children.IsEmpty());
    }
}

TEST_P(RuleModuleTest, OffersNewObjectsEachTime)
{
    const OfferedRules first(m_module);
    const OfferedRules second(m_module);
    ASSERT_EQ(first.rules.GetSize(), second.rules.GetSize());
    EXPECT_NE(first.rules[0], second.rules[0]);
    EXPECT_EQ(first.rules[0]->m_strRuleName, second.rules[0]->m_strRuleName);
}

TEST_P(RuleModuleTest, ParametersAreCompleteAndValidAsMade)
{
    const OfferedRules offered(m_module);
    for (CQoxRule* const rule : offered.rules)
    {
        EXPECT_GE(rule->Parameters().size(), 2U);
        EXPECT_TRUE(rule->ValidateInputData());
        std::set<std::int32_t> numbers;
        std::set<std::wstring> names;
        for (const CQoxParamStorage& parameter : rule->Parameters())
        {
            SCOPED_TRACE(testing::PrintToString(rule->m_strRuleName + L"." + parameter.strName.Get()));
            EXPECT_TRUE(numbers.insert(parameter.nNumber).second);
            EXPECT_TRUE(names.insert(parameter.strName).second);
            EXPECT_FALSE(parameter.strName.empty());
            EXPECT_FALSE(parameter.strLabel.empty());
            EXPECT_TRUE(parameter.strHelp.Get().ends_with(L"."));
            EXPECT_TRUE(parameter.IsValid());
            EXPECT_TRUE(parameter.IsDefault());
            if (parameter.IsNumeric())
            {
                EXPECT_LT(parameter.dMinimum, parameter.dMaximum);
                EXPECT_GE(parameter.dDefault, parameter.dMinimum);
                EXPECT_LE(parameter.dDefault, parameter.dMaximum);
            }
        }
    }
}

TEST_P(RuleModuleTest, ConversionThroughAnyUnitsAndBackChangesNoShownDigit)
{
    constexpr std::int32_t LinearUnits = 11;
    constexpr std::int32_t AngularUnits = 4;
    constexpr std::int32_t Pairs = LinearUnits * AngularUnits;
    const OfferedRules offered(m_module);
    const RuleUnitSystemStructure metric;
    for (CQoxRule* const rule : offered.rules)
    {
        const std::vector<CQoxParamStorage> before = rule->Parameters();
        for (std::int32_t pair = 0; pair < Pairs * Pairs; ++pair)
        {
            const RuleUnitSystemStructure first{ pair / Pairs / AngularUnits, pair / Pairs % AngularUnits };
            const RuleUnitSystemStructure second{ pair % Pairs / AngularUnits, pair % Pairs % AngularUnits };
            rule->UpdateRule(&metric, &first);
            rule->UpdateRule(&first, &second);
            rule->UpdateRule(&second, &metric);
            for (std::size_t index = 0; index < before.size(); ++index)
            {
                const CQoxParamStorage& after = rule->Parameters()[index];
                ASSERT_EQ(FormatShownNumber(after.dValue), FormatShownNumber(before[index].dValue));
                ASSERT_EQ(FormatShownNumber(after.dDefault), FormatShownNumber(before[index].dDefault));
                ASSERT_EQ(FormatShownNumber(after.dMinimum), FormatShownNumber(before[index].dMinimum));
                ASSERT_EQ(FormatShownNumber(after.dMaximum), FormatShownNumber(before[index].dMaximum));
            }
        }
    }
}

TEST_P(RuleModuleTest, NamesThatStandInFilesAreThoseOnRecord)
{
    // A file in the field holds them: a line here may be added, but never change or go.
    const OfferedRules offered(m_module);
    std::string text = Platform::WideToUtf8(Name()) + '\n';
    for (const CQoxRule* const rule : offered.rules)
    {
        text += Platform::WideToUtf8(rule->m_strRuleName) + ' ' + Platform::WideToUtf8(rule->m_strHelpFile) + '\n';
        for (const CQoxParamStorage& parameter : rule->Parameters())
        {
            text += "    " + std::to_string(parameter.nNumber) + ' ' + Platform::WideToUtf8(parameter.strName.Get()) +
                    ' ' + std::string(ParamKindName(parameter.eKind)) + '\n';
        }
    }
    EXPECT_EQ(text, ReadBytes(Platform::Utf8ToWide(VANTREL_RULE_NAMES_DIR "/" + GetParam() + ".txt"))) << text;
}

TEST_P(RuleModuleTest, DeleteRuleNullsThePointer)
{
    const auto deleteRule = m_module.Export<DeleteRuleFunction>("DeleteRule");
    PointerArray rules;
    m_module.Export<GetAllRulesFunction>("GetAllRules")(rules);
    for (CQoxRule*& rule : rules)
    {
        ASSERT_NE(rule, nullptr);
        deleteRule(&rule);
        EXPECT_EQ(rule, nullptr);
        deleteRule(&rule); // a second time does nothing
    }
    deleteRule(nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, RuleModuleTest, testing::ValuesIn(StockLibraries(VANTREL_STOCK_LIBRARIES)),
                         [](const testing::TestParamInfo<std::string>& test) { return test.param; });

TEST(RuleModules, LeaveTheProcessWhenTheyAreReleased)
{
    const std::list<std::wstring> databases = { StagedLibrary(L"QoxSqliteDatabaseu.dll") };
    for (const std::string& module : StockLibraries(VANTREL_STOCK_LIBRARIES))
    {
        const std::wstring path = StagedLibrary(LibraryFile(module));
        {
            const LoadedModule loaded(path);
            loaded.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
            const OfferedRules offered(loaded);
            EXPECT_NE(Platform::FindLoadedLibrary(path), nullptr);
        }
        EXPECT_EQ(Platform::FindLoadedLibrary(path), nullptr) << module;
        EXPECT_EQ(Platform::FindLoadedLibrary(databases.front()), nullptr) << module;
    }
}

TEST(RuleModules, RuleNamesAndHelpFilesAreUniqueAmongAllModules)
{
    std::set<std::wstring> names;
    std::set<std::wstring> helpFiles;
    for (const std::string& module : StockLibraries(VANTREL_STOCK_LIBRARIES))
    {
        const LoadedModule loaded(StagedLibrary(LibraryFile(module)));
        ASSERT_TRUE(loaded.IsLoaded());
        const OfferedRules offered(loaded);
        for (const CQoxRule* const rule : offered.rules)
        {
            EXPECT_TRUE(names.insert(Platform::ToLower(rule->m_strRuleName)).second)
                << testing::PrintToString(rule->m_strRuleName);
            EXPECT_TRUE(helpFiles.insert(rule->m_strHelpFile).second) << testing::PrintToString(rule->m_strHelpFile);
        }
    }
    EXPECT_GE(names.size(), 30U);
}

} // namespace
