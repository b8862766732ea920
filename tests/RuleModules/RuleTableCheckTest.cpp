#include "RuleModules/Kit/RuleTableCheck.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace
{

using namespace std::string_view_literals;

constexpr RuleText SomeText = { 62000, L"Text" };
constexpr ParamTextSet SomeTexts = { SomeText, SomeText };
constexpr std::array Choices = { L"A"sv, L"B"sv };
constexpr ChoiceSource Table = { L"materials", L"metal", Choices };
constexpr ChoiceSource Fixed = { {}, {}, Choices };

/// Tables in order, in which each test makes one mistake.
struct Tables
{
    std::vector<ParamDefinition> parameters = {
        LengthParam(1, L"Width", SomeTexts, { 1, 0, 2 }),
        ChoiceParam(2, L"Material", SomeTexts, Table, L"A"),
    };
    std::vector<RuleText> categories = { SomeText };
    std::vector<std::wstring> names;
    std::vector<RuleDefinition> rules;
    ModuleDefinition module;

    Tables()
    {
        for (int number = 0; number < 10; ++number)
        {
            names.push_back(L"Rule" + std::to_wstring(number));
        }
        for (const std::wstring& name : names)
        {
            rules.push_back({ name, { SomeText, SomeText, SomeText }, SomeText, 3, name, {} });
        }
        module = { L"Rules", SomeText, L"Rulesu.dll", {}, {} };
    }

    FoundMistake Found()
    {
        for (RuleDefinition& rule : rules)
        {
            rule.parameters = parameters;
        }
        module.categories = categories;
        module.rules = rules;
        return FindMistake(module);
    }
};

class RuleTableCheckTest : public testing::Test
{
protected:
    Tables m_tables;

    void ExpectMistake(TableMistake mistake, std::size_t rule = 0, std::size_t parameter = 0)
    {
        const FoundMistake found = m_tables.Found();
        EXPECT_EQ(found.mistake, mistake);
        EXPECT_EQ(found.rule, rule);
        EXPECT_EQ(found.parameter, parameter);
    }
};

TEST_F(RuleTableCheckTest, TablesInOrderHaveNoMistake)
{
    ExpectMistake(TableMistake::None);
}

TEST_F(RuleTableCheckTest, ModuleNeedsNameSummaryLibraryAndRules)
{
    const Tables whole;
    m_tables.module.displayName = {};
    ExpectMistake(TableMistake::ModuleIncomplete);
    m_tables.module.displayName = L"Rules";
    m_tables.module.summary = {};
    ExpectMistake(TableMistake::ModuleIncomplete);
    m_tables.module.summary = SomeText;
    m_tables.module.libraryFile = {};
    ExpectMistake(TableMistake::ModuleIncomplete);
    m_tables.module.libraryFile = L"Rulesu.dll";
    m_tables.rules.pop_back();
    ExpectMistake(TableMistake::ModuleIncomplete);
}

TEST_F(RuleTableCheckTest, TextsNeedANumberOfRulesAndEnglishWords)
{
    m_tables.categories.push_back({ 61999, L"Text" });
    ExpectMistake(TableMistake::CategoryIncomplete, 1);
    m_tables.categories[1] = { 65200, L"Text" };
    ExpectMistake(TableMistake::CategoryIncomplete, 1);
    m_tables.categories[1] = { 65199, L"" };
    ExpectMistake(TableMistake::CategoryIncomplete, 1);
}

TEST_F(RuleTableCheckTest, RuleNeedsAllItsTexts)
{
    m_tables.rules[2].texts.detail.english = {};
    ExpectMistake(TableMistake::RuleIncomplete, 2);
}

TEST_F(RuleTableCheckTest, RuleNeedsParametersAndAHelpFile)
{
    m_tables.parameters.clear();
    ExpectMistake(TableMistake::RuleIncomplete);
}

TEST_F(RuleTableCheckTest, NamesAreLettersAndDigits)
{
    m_tables.rules[3].name = L"Deep holes";
    ExpectMistake(TableMistake::RuleNameNotPlain, 3);
}

TEST_F(RuleTableCheckTest, RepeatedRuleIsFoundAtItsSecondPlace)
{
    m_tables.rules[4].name = m_tables.rules[1].name;
    ExpectMistake(TableMistake::RuleNameRepeated, 4);
    m_tables = {};
    m_tables.rules[4].helpFile = m_tables.rules[1].helpFile;
    ExpectMistake(TableMistake::HelpFileRepeated, 4);
}

TEST_F(RuleTableCheckTest, CategoryIsOneOfTheModules)
{
    m_tables.rules[5].category = { 62001, L"Other" };
    ExpectMistake(TableMistake::CategoryUnknown, 5);
}

TEST_F(RuleTableCheckTest, CriticalityGoesFromOneToFive)
{
    m_tables.rules[6].criticality = 0;
    ExpectMistake(TableMistake::CriticalityOutOfRange, 6);
    m_tables.rules[6].criticality = 6;
    ExpectMistake(TableMistake::CriticalityOutOfRange, 6);
    m_tables.rules[6].criticality = 5;
    ExpectMistake(TableMistake::None);
}

TEST_F(RuleTableCheckTest, ParametersAreCompleteAndTellThemselvesApart)
{
    m_tables.parameters[1].texts.help = {};
    ExpectMistake(TableMistake::ParameterIncomplete, 0, 1);
    m_tables.parameters[1] = LengthParam(0, L"Depth", SomeTexts, { 1, 0, 2 });
    ExpectMistake(TableMistake::ParameterIncomplete, 0, 1);
    m_tables.parameters[1] = LengthParam(1, L"Depth", SomeTexts, { 1, 0, 2 });
    ExpectMistake(TableMistake::ParameterNumberRepeated, 0, 1);
    m_tables.parameters[1] = LengthParam(2, L"Width", SomeTexts, { 1, 0, 2 });
    ExpectMistake(TableMistake::ParameterNameRepeated, 0, 1);
}

TEST_F(RuleTableCheckTest, DefaultsLieInTheirRange)
{
    m_tables.parameters[0] = LengthParam(1, L"Width", SomeTexts, { 3, 0, 2 });
    ExpectMistake(TableMistake::DefaultOutOfRange);
    m_tables.parameters[0] = LengthParam(1, L"Width", SomeTexts, { 0, 1, 2 });
    ExpectMistake(TableMistake::DefaultOutOfRange);
    m_tables.parameters[0] = LengthParam(1, L"Width", SomeTexts, { 2, 2, 2 });
    ExpectMistake(TableMistake::RangeEmpty);
    m_tables.parameters[0] = LengthParam(1, L"Width", SomeTexts, { 1, 0, CQoxParamStorage::NoMaximum });
    ExpectMistake(TableMistake::None);
    m_tables.parameters[0].defaultValue = CQoxParamStorage::NoMaximum;
    ExpectMistake(TableMistake::DefaultOutOfRange);
}

TEST_F(RuleTableCheckTest, DefaultOfAChoiceIsOffered)
{
    m_tables.parameters[1].defaultChoice = L"C";
    ExpectMistake(TableMistake::DefaultNotOffered, 0, 1);
    m_tables.parameters[1].choices = nullptr;
    ExpectMistake(TableMistake::ChoicesIncomplete, 0, 1);
}

TEST_F(RuleTableCheckTest, DefaultFollowsAChoiceOutOfATable)
{
    const ParamDefinition width = m_tables.parameters[0];
    m_tables.parameters[0] = DefaultByChoice(width, 2, L"density");
    ExpectMistake(TableMistake::None);
    m_tables.parameters[0] = DefaultByChoice(width, 3, L"density");
    ExpectMistake(TableMistake::GoverningChoiceUnknown);
    m_tables.parameters[0] = DefaultByChoice(width, 1, L"density");
    ExpectMistake(TableMistake::GoverningChoiceUnknown);
    m_tables.parameters[0] = DefaultByChoice(width, 2, L"");
    ExpectMistake(TableMistake::GoverningChoiceUnknown);
    m_tables.parameters[0] = DefaultByChoice(width, 2, L"density");
    m_tables.parameters[1].choices = &Fixed;
    ExpectMistake(TableMistake::GoverningChoiceUnknown);
}

TEST_F(RuleTableCheckTest, OnlyNumbersWithARangeFollowAChoice)
{
    m_tables.parameters[0] = DefaultByChoice(YesNoParam(1, L"Check", SomeTexts, true), 2, L"density");
    ExpectMistake(TableMistake::GovernedKindWrong);
}

} // namespace
