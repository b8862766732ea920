#include "RuleModules/Kit/ModuleCatalogue.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/RuleModules/Fixtures/TestModule.h"
#include "tests/RuleModules/LoadedModule.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/ModuleTexts.h>
#include <Vantrel/QoxXml.h>
#include <Vantrel/RuleEditor.h>

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
constexpr ChoiceSource MaterialSource = { L"materials", L"metal", Materials };

constexpr std::uint32_t Text = 62000;
constexpr RuleText First = { Text, L"First" };
constexpr RuleText Second = { Text + 1, L"Second" };
constexpr std::array Categories = { First, Second };

constexpr ParamTextSet WidthTexts = { { Text + 2, L"Width" }, { Text + 3, L"A width." } };
constexpr ParamTextSet SlopeTexts = { { Text + 4, L"Slope" }, { Text + 5, L"A slope." } };
constexpr ParamTextSet RatioTexts = { { Text + 6, L"Ratio" }, { Text + 7, L"A ratio." } };
constexpr ParamTextSet MaterialTexts = { { Text + 8, L"Material" }, { Text + 9, L"A material." } };
constexpr ParamTextSet WeightTexts = { { Text + 10, L"Weight" }, { Text + 11, L"A weight." } };

constexpr std::array Parameters = {
    LengthParam(1, L"Width", WidthTexts, { 25.4, 2.54, 254 }),
    AngleParam(2, L"Slope", SlopeTexts, { 90, 0, 180 }),
    NumberParam(3, L"Ratio", RatioTexts, { 4, 0, CQoxParamStorage::NoMaximum }),
    ChoiceParam(4, L"Material", MaterialTexts, MaterialSource, L"Wool"),
    DefaultByChoice(LengthParam(5, L"Weight", WeightTexts, { 254, 2.54, 508 }), 4, L"density", 101.6),
};

constexpr RuleTextSet WidthsTexts = { { Text + 12, L"Widths" }, { Text + 13, L"Short." }, { Text + 14, L"Longer." } };

constexpr std::array Rules = {
    RuleDefinition{ L"TestWidths", WidthsTexts, First, 4, L"test_widths.htm", Parameters },
};

constexpr ModuleDefinition Module = {
    L"Test Rules", { Text + 15, L"For tests." }, L"TestRulesu.dll", Categories, Rules
};

/// Another language: each text is its number.
bool NumbersForTexts(std::uint32_t number, std::wstring& text)
{
    text = L"#" + std::to_wstring(number);
    return true;
}

bool NoTexts(std::uint32_t /*number*/, std::wstring& /*text*/)
{
    return false;
}

/// A language in use for as long as it lives.
class TextSource
{
public:
    explicit TextSource(ModuleTextSource source) { SetModuleTextSource(source); }
    ~TextSource() { SetModuleTextSource(nullptr); }
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;
};

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
    ASSERT_EQ(rule->Parameters().size(), 5U);
    for (std::size_t index = 0; index < 5; ++index)
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

TEST_F(ModuleCatalogueTest, WhatUsersChooseIsTheFiles)
{
    const std::unique_ptr<CQoxRule> rule = ReadFile(
        MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\" Criticality=\"1\" HelpFile=\"own.htm\">"
                    "<Parameter Number=\"1\" Kind=\"length\" Value=\"3\" Minimum=\"1\" Default=\"2\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_nCriticality, 1);
    EXPECT_EQ(rule->m_strHelpFile, L"own.htm");
    EXPECT_EQ(rule->FindParameterInArray(1)->dValue, 3);
    EXPECT_EQ(rule->FindParameterInArray(1)->dMinimum, 1);
    EXPECT_EQ(rule->FindParameterInArray(1)->dDefault, 2);
}

TEST_F(ModuleCatalogueTest, TextsAreTheModulesWhateverTheFileSays)
{
    const std::unique_ptr<CQoxRule> rule = ReadFile(
        MetricRoot,
        "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\" DisplayName=\"Largeurs\" Summary=\"Court\" "
        "Summary2=\"Plus long\" Category=\"Premier\"><Category Value=\"Premier\"/>"
        "<Parameter Number=\"1\" Kind=\"length\" Label=\"Largeur\" Help=\"Une largeur.\" Value=\"3\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strDisplayName, L"Widths");
    EXPECT_EQ(rule->m_strSummary, L"Short.");
    EXPECT_EQ(rule->m_strSummary2, L"Longer.") << "rules of files are matched with those on offer by it";
    EXPECT_EQ(rule->m_strCategory, L"First");
    EXPECT_THAT(rule->m_categoryList, ElementsAre(L"First", L"Second"));
    EXPECT_EQ(rule->FindParameterInArray(1)->strLabel, L"Width");
    EXPECT_EQ(rule->FindParameterInArray(1)->strHelp, L"A width.");
}

TEST_F(ModuleCatalogueTest, TextsAreThoseOfTheLanguageInUse)
{
    const TextSource language(NumbersForTexts);
    EXPECT_EQ(m_catalogue.Summary(), L"#62015");
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strDisplayName, L"#62012");
    EXPECT_EQ(rule->m_strSummary, L"#62013");
    EXPECT_EQ(rule->m_strSummary2, L"#62014");
    EXPECT_EQ(rule->m_strCategory, L"#62000");
    EXPECT_THAT(rule->m_categoryList, ElementsAre(L"#62000", L"#62001"));
    EXPECT_EQ(rule->FindParameterInArray(4)->strLabel, L"#62008");
    EXPECT_EQ(rule->FindParameterInArray(4)->strHelp, L"#62009");
}

TEST_F(ModuleCatalogueTest, NamesInFilesAreTheSameInEveryLanguage)
{
    const TextSource language(NumbersForTexts);
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strRuleModule, L"Test Rules");
    EXPECT_EQ(rule->m_strRuleName, L"TestWidths");
    EXPECT_EQ(rule->FindParameterInArray(4)->strName, L"Material");
    EXPECT_THAT(rule->FindParameterInArray(4)->choices, ElementsAre(L"Wood", L"Wool"));
}

TEST_F(ModuleCatalogueTest, TextsFollowAChangeOfTheLanguage)
{
    EXPECT_EQ(ReadFile(MetricRoot, BareRule)->m_strDisplayName, L"Widths");
    {
        const TextSource language(NumbersForTexts);
        EXPECT_EQ(ReadFile(MetricRoot, BareRule)->m_strDisplayName, L"#62012");
    }
    EXPECT_EQ(ReadFile(MetricRoot, BareRule)->m_strDisplayName, L"Widths");
}

TEST_F(ModuleCatalogueTest, RulesThatWereMadeBeforeAChangeOfTheLanguageStayWhole)
{
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    const TextSource language(NumbersForTexts);
    ASSERT_NE(ReadFile(MetricRoot, BareRule), nullptr);
    rule->InitializeParamStorage();
    EXPECT_EQ(rule->FindParameterInArray(1)->strLabel, L"Width");
}

TEST_F(ModuleCatalogueTest, TextThatALanguageLacksIsTheModulesOwn)
{
    const TextSource language(NoTexts);
    EXPECT_EQ(ReadFile(MetricRoot, BareRule)->m_strDisplayName, L"Widths");
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

class DefaultsByChoiceTest : public ModuleCatalogueTest
{
protected:
    void SetUp() override
    {
        const std::list<std::wstring> databases = { TestModuleLibrary(L"TestDatabaseComplete.dll") };
        m_catalogue.SetDatabaseModules(&databases);
    }
    void TearDown() override { SetRuleEditor(nullptr); }

    static void ChooseTheSecond(CQoxRule& rule) { rule.FindParameterInArray(4)->strValue = L"Second test metal"; }
};

TEST_F(DefaultsByChoiceTest, NewRuleHasTheDefaultOfItsFirstChoice)
{
    PointerArray rules;
    m_catalogue.GetAllRules(rules);
    EXPECT_DOUBLE_EQ(rules[0]->FindParameterInArray(5)->dDefault, 254);
    EXPECT_DOUBLE_EQ(rules[0]->FindParameterInArray(5)->dValue, 254);
    ModuleCatalogue::DeleteRule(&rules[0]);
}

TEST_F(DefaultsByChoiceTest, DefaultThatAFileLacksIsThatOfItsChoice)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(InchRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                           "<Parameter Number=\"4\" Kind=\"choice\" Value=\"Second test metal\"/></Rule>");
    ASSERT_NE(rule, nullptr);
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(5)->dDefault, 20) << "508 mm: the range ends there";
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(5)->dValue, 20);
}

TEST_F(DefaultsByChoiceTest, ChoiceThatTheDatabaseDoesNotKnowLeavesTheDefaultOfTheTable)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                             "<Parameter Number=\"4\" Kind=\"choice\" Value=\"Clay\"/></Rule>");
    EXPECT_EQ(rule->FindParameterInArray(5)->dValue, 254);
}

TEST_F(DefaultsByChoiceTest, ValueThatIsTheDefaultFollowsTheChoiceInTheEditor)
{
    SetRuleEditor(ChooseTheSecond);
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    rule->EditRule();
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(5)->dDefault, 508);
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(5)->dValue, 508);
}

TEST_F(DefaultsByChoiceTest, ValueOfTheUsersOwnStaysWhenTheChoiceChanges)
{
    SetRuleEditor(ChooseTheSecond);
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    rule->FindParameterInArray(5)->dValue = 100;
    rule->EditRule();
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(5)->dDefault, 508);
    EXPECT_EQ(rule->FindParameterInArray(5)->dValue, 100);
}

TEST_F(DefaultsByChoiceTest, NewDefaultComesInTheUnitsThatTheRuleWasConvertedTo)
{
    SetRuleEditor(ChooseTheSecond);
    const std::unique_ptr<CQoxRule> rule = ReadFile(MetricRoot, BareRule);
    const RuleUnitSystemStructure metric;
    const RuleUnitSystemStructure inches{ 3, 0 };
    rule->UpdateRule(&metric, &inches);
    rule->EditRule();
    EXPECT_DOUBLE_EQ(rule->FindParameterInArray(5)->dValue, 20);
}

TEST_F(DefaultsByChoiceTest, EditorThatLeavesTheChoiceLeavesTheDefault)
{
    const std::unique_ptr<CQoxRule> rule =
        ReadFile(MetricRoot, "<Rule RuleModule=\"Test Rules\" RuleName=\"TestWidths\">"
                             "<Parameter Number=\"5\" Kind=\"length\" Value=\"30\" Default=\"30\"/></Rule>");
    SetRuleEditor([](CQoxRule&) {});
    rule->EditRule();
    EXPECT_EQ(rule->FindParameterInArray(5)->dDefault, 30);
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
