#include "RuleModules/Common/ModuleCatalogue.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/RuleModules/Fixtures/TestModule.h"
#include "tests/RuleModules/LoadedModule.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxXml.h>

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <numbers>

namespace
{

using namespace std::string_view_literals;
using testing::ElementsAre;

constexpr std::array Materials = { L"Wood"sv, L"Wool"sv };
constexpr std::array Categories = { L"First"sv, L"Second"sv };

constexpr std::array Parameters = {
    LengthParam(1, L"Width", L"Width", { 25.4, 2.54, 254 }, L"A width."),
    AngleParam(2, L"Slope", L"Slope", { 90, 0, 180 }, L"A slope."),
    NumberParam(3, L"Ratio", L"Ratio", { 4, 0, CQoxParamStorage::NoMaximum }, L"A ratio."),
    MaterialParam(4, L"Material", L"Material", L"Wool", L"A material."),
};

constexpr std::array Rules = {
    RuleDefinition{ L"TestWidths", L"Widths", L"First", L"Short.", L"Longer.", 4, L"test_widths.htm", Parameters },
};

constexpr ModuleDefinition Module = { L"Test Rules", L"For tests.", L"TestRulesu.dll", L"metal", Materials,
                                      Categories,    Rules };

std::wstring TestModuleLibrary(const std::wstring& name)
{
    return Platform::Utf8ToWide(VANTREL_TEST_MODULES_DIR) + Platform::PathSeparator + name;
}

class ModuleCatalogueTest : public testing::Test
{
protected:
    /// Reads the rule out of a whole file with this root tag and `Rule` element.
    std::unique_ptr<CQoxRule> ReadFile(const std::string& rootTag, const std::string& ruleMarkup)
    {
        WriteBytes(m_folder.File(L"rules.vrf"), rootTag + ruleMarkup + "</Lumeq>");
        QoxXMLDocument document;
        const std::unique_ptr<QoxXMLNode> root(document.LoadFromFile(m_folder.File(L"rules.vrf")));
        if (!root)
        {
            return nullptr;
        }
        const std::unique_ptr<QoxXMLNode> element(root->SelectSingleNode(L"Rule"));
        return m_catalogue.GetRule(*element);
    }

    TemporaryFolder m_folder;
    ModuleCatalogue m_catalogue{ Module };
};

constexpr const char* MetricRoot = "<Lumeq Unit=\"0\" AngularUnit=\"0\">";
constexpr const char* InchRoot = "<Lumeq Unit=\"3\" AngularUnit=\"3\">";
constexpr const char* BareRule = "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\"/>";

TEST_F(ModuleCatalogueTest, BareElementGivesTheRuleAsDefined)
{
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    ASSERT_NE(rule, nullptr);
    PointerArray offered;
    m_catalogue.GetAllRules(offered);
    ASSERT_EQ(offered.GetSize(), 1);
    CQoxRule*& asDefined = offered[0];

    EXPECT_EQ(rule->m_strDisplayName, L"Widths");
    EXPECT_EQ(rule->m_strSummary, L"Short.");
    EXPECT_EQ(rule->m_strSummary2, L"Longer.");
    EXPECT_EQ(rule->m_nCriticality, 4);
    EXPECT_EQ(rule->m_strHelpFile, L"test_widths.htm");
    EXPECT_THAT(rule->m_categoryList, ElementsAre(L"First", L"Second"));
    ASSERT_EQ(rule->Parameters().size(), 4U);
    for (std::size_t index = 0; index < 4; ++index)
    {
        const CQoxParamStorage& read = rule->Parameters()[index];
        const CQoxParamStorage& defined = asDefined->Parameters()[index];
        EXPECT_EQ(read.dValue, defined.dValue);
        EXPECT_EQ(read.dDefault, defined.dDefault);
        EXPECT_EQ(read.dMinimum, defined.dMinimum);
        EXPECT_EQ(read.dMaximum, defined.dMaximum);
        EXPECT_EQ(read.strValue, defined.strValue);
        EXPECT_EQ(read.strLabel, defined.strLabel);
        EXPECT_EQ(read.strHelp, defined.strHelp);
        EXPECT_EQ(read.choices, defined.choices);
    }
    ModuleCatalogue::DeleteRule(&asDefined);
}

TEST_F(ModuleCatalogueTest, ElementWithoutALibraryGetsTheModulesOwn)
{
    EXPECT_EQ(ReadFile(MetricRoot, BareRule)->m_strModulePath, L"TestRulesu.dll");
    EXPECT_EQ(ReadFile(MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\" ModulePath=\"own.dll\"/>")
                  ->m_strModulePath,
              L"own.dll");
}

TEST_F(ModuleCatalogueTest, WhatAFileLacksComesInTheUnitsOfTheFile)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(InchRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                           "<Parameter Number=\"1\" Kind=\"length\" Value=\"2\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    const CQoxParamStorage& width = *rule->FindParameterInArray(1);
    EXPECT_EQ(width.dValue, 2);
    EXPECT_DOUBLE_EQ(width.dDefault, 1);
    EXPECT_DOUBLE_EQ(width.dMinimum, 0.1);
    EXPECT_DOUBLE_EQ(width.dMaximum, 10);
    EXPECT_EQ(width.strLabel, L"Width");
    const CQoxParamStorage& slope = *rule->FindParameterInArray(2);
    EXPECT_DOUBLE_EQ(slope.dValue, std::numbers::pi / 2);
    EXPECT_DOUBLE_EQ(slope.dMaximum, std::numbers::pi);
    EXPECT_EQ(rule->FindParameterInArray(3)->dValue, 4);
    EXPECT_TRUE(rule->ValidateInputData());
}

TEST_F(ModuleCatalogueTest, UnreadableNumbersAndUnitsFallBackToTheDefinition)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile("<Lumeq Unit=\"many\" AngularUnit=\"99999999999999999999\">",
                 "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\" Criticality=\"high\">"
                 "<Parameter Number=\"1\" Kind=\"length\" Value=\"wide\" Minimum=\"nan\" Maximum=\"1e999\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_nCriticality, 4);
    EXPECT_EQ(rule->FindParameterInArray(1)->dValue, 25.4);
    EXPECT_EQ(rule->FindParameterInArray(1)->dMinimum, 2.54);
    EXPECT_EQ(rule->FindParameterInArray(1)->dMaximum, 254);
    EXPECT_EQ(rule->FindParameterInArray(2)->dValue, 90);
}

TEST_F(ModuleCatalogueTest, FileGoesBeforeTheDefinition)
{
    const std::unique_ptr<CQoxRule> rule = ReadFile(
        MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\" DisplayName=\"Mine\" Summary=\"My own\" "
                    "Criticality=\"1\" Category=\"Second\"><Category Value=\"Third\"/>"
                    "<Parameter Number=\"1\" Kind=\"length\" Label=\"My width\" Value=\"3\" Minimum=\"1\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strDisplayName, L"Mine");
    EXPECT_EQ(rule->m_strSummary, L"My own");
    EXPECT_EQ(rule->m_nCriticality, 1);
    EXPECT_EQ(rule->m_strCategory, L"Second");
    EXPECT_THAT(rule->m_categoryList, ElementsAre(L"Third"));
    EXPECT_EQ(rule->FindParameterInArray(1)->strLabel, L"My width");
    EXPECT_EQ(rule->FindParameterInArray(1)->dMinimum, 1);
}

TEST_F(ModuleCatalogueTest, SecondSummaryIsTodaysSoThatTheRuleIsMatchedWithTheOfferedOne)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\" Summary2=\"Of last year\"/>");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strSummary2, L"Longer.");
}

TEST_F(ModuleCatalogueTest, ParameterThatTheDefinitionDoesNotKnowIsKept)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(InchRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                           "<Parameter Number=\"77\" Kind=\"number\" Value=\"8\"/>"
                           "<Parameter Number=\"1\" Kind=\"text\" Value=\"about so wide\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->FindParameterInArray(77)->dValue, 8);
    EXPECT_EQ(rule->FindParameterInArray(1)->strValue, L"about so wide");
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(1)->dDefault, 1);
}

TEST_F(ModuleCatalogueTest, WithoutADatabaseTheMaterialsOfTheFileStay)
{
    const char* const element = "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                                "<Parameter Number=\"4\" Kind=\"choice\" Value=\"Clay\"><Choice Value=\"Clay\"/>"
                                "</Parameter></Rule>";
    EXPECT_THAT(ReadFile(MetricRoot, element)->FindParameterInArray(4)->choices, ElementsAre(L"Clay"));
}

TEST_F(ModuleCatalogueTest, MaterialsOfTheDatabaseGoBeforeThoseOfTheFile)
{
    const std::list<std::wstring> databases = { TestModuleLibrary(L"TestDatabaseComplete.dll") };
    m_catalogue.SetDatabaseModules(&databases);
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                             "<Parameter Number=\"4\" Kind=\"choice\" Value=\"Clay\"><Choice Value=\"Clay\"/>"
                             "</Parameter></Rule>");
    EXPECT_THAT(rule->FindParameterInArray(4)->choices, ElementsAre(L"First test metal", L"Second test metal"));
    EXPECT_EQ(rule->FindParameterInArray(4)->strValue, L"Clay");
}

TEST_F(ModuleCatalogueTest, DefaultMaterialThatTheDatabaseLacksIsItsFirst)
{
    const std::list<std::wstring> databases = { TestModuleLibrary(L"TestDatabaseComplete.dll") };
    m_catalogue.SetDatabaseModules(&databases);
    PointerArray rules;
    m_catalogue.GetAllRules(rules);
    EXPECT_EQ(rules[0]->FindParameterInArray(4)->strValue, L"First test metal");
    EXPECT_TRUE(rules[0]->ValidateInputData());
    ModuleCatalogue::DeleteRule(&rules[0]);
}

TEST_F(ModuleCatalogueTest, DatabaseIsAskedOnceUntilTheListOfModulesIsSetAnew)
{
    const LoadedModule database(TestModuleLibrary(L"TestDatabaseComplete.dll"));
    ASSERT_TRUE(database.IsLoaded());
    const auto count = database.Export<TestModuleCallCountFunction>("TestModuleCallCount");
    database.Export<TestModuleResetFunction>("TestModuleReset")();

    const std::list<std::wstring> databases = { TestModuleLibrary(L"TestDatabaseComplete.dll") };
    m_catalogue.SetDatabaseModules(&databases);
    EXPECT_EQ(count("GetDbInterface"), 0) << "nothing is opened before it is needed";
    for (int times = 0; times < 3; ++times)
    {
        ASSERT_NE(ReadFile(MetricRoot, BareRule), nullptr);
    }
    EXPECT_EQ(count("GetDbInterface"), 1);
    EXPECT_EQ(count("DeleteDbInterface"), 1) << "the database is closed again at once";

    m_catalogue.SetDatabaseModules(&databases);
    ASSERT_NE(ReadFile(MetricRoot, BareRule), nullptr);
    EXPECT_EQ(count("GetDbInterface"), 2);
}

TEST_F(ModuleCatalogueTest, FirstDatabaseModuleThatWorksIsUsed)
{
    const std::list<std::wstring> databases = { TestModuleLibrary(L"missing.dll"),
                                                TestModuleLibrary(L"TestModuleEmpty.dll"),
                                                TestModuleLibrary(L"TestDatabaseNoDelete.dll"),
                                                TestModuleLibrary(L"TestDatabaseNull.dll"),
                                                TestModuleLibrary(L"testdatabasecomplete.dll") };
    m_catalogue.SetDatabaseModules(&databases);
    EXPECT_THAT(ReadFile(MetricRoot, BareRule)->FindParameterInArray(4)->choices,
                ElementsAre(L"First test metal", L"Second test metal"));
}

TEST_F(ModuleCatalogueTest, KeepsTheDocument)
{
    QoxXMLDocument document;
    m_catalogue.SetDocument(&document);
    EXPECT_EQ(m_catalogue.Document(), &document);
    m_catalogue.SetDocument(nullptr);
    EXPECT_EQ(m_catalogue.Document(), nullptr);
}

} // namespace
