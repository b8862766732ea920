#include "tests/RuleModules/LoadedModule.h"

#include "Platform/Text.h"
#include "tests/Support/StockLibraries.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/ModuleTexts.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace
{

std::wstring LibraryFile(const std::string& library)
{
    return Platform::Utf8ToWide(library) + L".dll";
}

std::wstring Lower(const std::wstring& text)
{
    std::wstring result = text;
    std::transform(result.begin(), result.end(), result.begin(),
                   [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; });
    return result;
}

/// Another language: each text is its number.
bool NumbersForTexts(std::uint32_t number, std::wstring& text)
{
    text = L"#" + std::to_wstring(number);
    return true;
}

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

class RuleModuleTest : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_module.IsLoaded());
        UseDatabase({ StagedLibrary(L"QoxSqliteDatabaseu.dll") });
        ::SetXMLDoc(&m_document);
        m_module.Export<ModuleSetXMLDocFunction>("SetXMLDoc")(&m_document);
    }

    void TearDown() override
    {
        m_module.Export<ModuleSetXMLDocFunction>("SetXMLDoc")(nullptr);
        ::SetXMLDoc(nullptr);
        SetModuleTextSource(nullptr);
    }

    std::wstring Name()
    {
        std::wstring name;
        m_module.Export<GetModuleNameFunction>("GetModuleName")(name);
        return name;
    }

    /// Writes a rule file with the rules in the units; gives its bytes.
    std::string WriteFile(const std::vector<CQoxRule*>& rules, const RuleUnitSystemStructure& units)
    {
        QoxXMLDocument document;
        ::SetXMLDoc(&document);
        const std::unique_ptr<QoxXMLNode> root(document.CreateNode(L"Lumeq"));
        root->AddAttribute(L"Unit", std::to_wstring(units.linear));
        root->AddAttribute(L"AngularUnit", std::to_wstring(units.angular));
        document.AppendNode(root.get());
        for (CQoxRule* const rule : rules)
        {
            const std::unique_ptr<QoxXMLNode> element(rule->GetXML());
            root->AppendNode(element.get());
        }
        EXPECT_TRUE(document.Save(m_folder.File(L"rules.vrf")));
        ::SetXMLDoc(&m_document);
        return ReadBytes(m_folder.File(L"rules.vrf"));
    }

    /// The rules of the file that was written last. Given back by `DeleteAll`.
    std::vector<CQoxRule*> ReadFile()
    {
        std::vector<CQoxRule*> rules;
        QoxXMLDocument document;
        const std::unique_ptr<QoxXMLNode> root(document.LoadFromFile(m_folder.File(L"rules.vrf")));
        const std::unique_ptr<QoxXMLNodeList> elements(root != nullptr ? root->GetNodeList(L"Rule") : nullptr);
        for (long index = 0; elements != nullptr && index < elements->GetSize(); ++index)
        {
            const std::unique_ptr<QoxXMLNode> element((*elements)[index]);
            rules.push_back(ReadRule(element.get()));
        }
        return rules;
    }

    void DeleteAll(std::vector<CQoxRule*>& rules)
    {
        for (CQoxRule*& rule : rules)
        {
            Delete(rule);
        }
        rules.clear();
    }

    void UseDatabase(const std::list<std::wstring>& modules)
    {
        m_module.Export<SetDBModuleListFunction>("SetDBModuleList")(&modules);
    }

    CQoxRule* ReadRule(QoxXMLNode* node)
    {
        CQoxRule* rule = nullptr;
        m_module.Export<GetRuleFunction>("GetRule")(node, rule);
        return rule;
    }

    void Delete(CQoxRule*& rule) { m_module.Export<DeleteRuleFunction>("DeleteRule")(&rule); }

    LoadedModule m_module{ StagedLibrary(LibraryFile(GetParam())) };
    TemporaryFolder m_folder;
    QoxXMLDocument m_document;
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

TEST_P(RuleModuleTest, RulesOfAFileComeBackWithEqualBytes)
{
    OfferedRules offered(m_module);
    std::vector<CQoxRule*> rules(offered.rules.begin(), offered.rules.end());
    const RuleUnitSystemStructure metric;
    for (const RuleUnitSystemStructure units : { metric, RuleUnitSystemStructure{ 3, 3 } })
    {
        for (CQoxRule* const rule : rules)
        {
            rule->m_strModulePath = LibraryFile(GetParam());
            rule->UpdateRule(&metric, &units);
        }
        const std::string written = WriteFile(rules, units);
        std::vector<CQoxRule*> read = ReadFile();
        ASSERT_EQ(read.size(), rules.size());
        for (const CQoxRule* const rule : read)
        {
            ASSERT_NE(rule, nullptr);
        }
        EXPECT_EQ(WriteFile(read, units), written);
        DeleteAll(read);
    }
}

TEST_P(RuleModuleTest, FileOfAnotherLanguageIsReadIntoTheOneInUse)
{
    SetModuleTextSource(NumbersForTexts);
    std::string otherBytes;
    {
        OfferedRules other(m_module);
        for (CQoxRule* const rule : other.rules)
        {
            EXPECT_TRUE(rule->m_strDisplayName.starts_with(L"#"));
            EXPECT_TRUE(rule->m_strSummary.starts_with(L"#"));
            EXPECT_TRUE(rule->m_strSummary2.starts_with(L"#"));
            EXPECT_TRUE(rule->m_strCategory.starts_with(L"#"));
            rule->m_strModulePath = LibraryFile(GetParam());
            rule->m_nCriticality = rule->m_nCriticality % 5 + 1;
        }
        otherBytes = WriteFile({ other.rules.begin(), other.rules.end() }, {});
    }
    SetModuleTextSource(nullptr);
    OfferedRules english(m_module);
    std::vector<CQoxRule*> read = ReadFile();
    ASSERT_EQ(read.size(), static_cast<std::size_t>(english.rules.GetSize()));
    for (std::size_t index = 0; index < read.size(); ++index)
    {
        ASSERT_NE(read[index], nullptr);
        CQoxRule& offered = *english.rules[static_cast<std::int32_t>(index)];
        EXPECT_EQ(read[index]->m_nCriticality, offered.m_nCriticality % 5 + 1) << "what users set stays";
        offered.m_nCriticality = read[index]->m_nCriticality;
        offered.m_strModulePath = read[index]->m_strModulePath;
        // As the rule list matches the rules of a file with those on offer.
        EXPECT_EQ(read[index]->m_strSummary2, offered.m_strSummary2);
        EXPECT_EQ(read[index]->m_strCategory, offered.m_strCategory);
    }
    const std::string readBytes = WriteFile(read, {});
    EXPECT_EQ(WriteFile({ english.rules.begin(), english.rules.end() }, {}), readBytes);
    EXPECT_NE(readBytes, otherBytes);
    DeleteAll(read);
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

TEST_P(RuleModuleTest, RuleComesBackFromItsElementUnchanged)
{
    const OfferedRules offered(m_module);
    for (CQoxRule* const rule : offered.rules)
    {
        SCOPED_TRACE(testing::PrintToString(rule->m_strRuleName));
        rule->m_strModulePath = LibraryFile(GetParam());
        rule->m_nCriticality = rule->m_nCriticality % 5 + 1;
        for (CQoxParamStorage& parameter : rule->Parameters())
        {
            parameter.dValue = parameter.dValue == parameter.dMaximum ? parameter.dMinimum : parameter.dMaximum;
            parameter.strValue = parameter.choices.empty() ? L"" : parameter.choices.back();
        }
        const std::unique_ptr<QoxXMLNode> written(rule->GetXML());
        ASSERT_NE(written, nullptr);
        CQoxRule* read = ReadRule(written.get());
        ASSERT_NE(read, nullptr);
        const std::unique_ptr<QoxXMLNode> again(read->GetXML());
        EXPECT_EQ(again->GetXML(), written->GetXML());
        EXPECT_EQ(read->m_nCriticality, rule->m_nCriticality);
        EXPECT_EQ(read->Parameters()[0].dValue, rule->Parameters()[0].dValue);
        EXPECT_NE(read->Parameters()[0].dValue, read->Parameters()[0].dDefault);
        Delete(read);
    }
}

TEST_P(RuleModuleTest, RuleNameIsMatchedWithoutRegardToCase)
{
    const OfferedRules offered(m_module);
    const std::unique_ptr<QoxXMLNode> element(m_document.CreateNode(L"Rule"));
    element->AddAttribute(L"RuleModule", Name());
    element->AddAttribute(L"RuleName", Lower(offered.rules[0]->m_strRuleName));
    CQoxRule* rule = ReadRule(element.get());
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strDisplayName, offered.rules[0]->m_strDisplayName);
    Delete(rule);
}

TEST_P(RuleModuleTest, ElementsOfOthersAreNotClaimed)
{
    const OfferedRules offered(m_module);
    const std::wstring name = offered.rules[0]->m_strRuleName;
    const auto claims = [this](const std::optional<std::wstring>& module, const std::wstring& ruleName)
    {
        const std::unique_ptr<QoxXMLNode> element(m_document.CreateNode(L"Rule"));
        if (module)
        {
            element->AddAttribute(L"RuleModule", *module);
        }
        if (!ruleName.empty())
        {
            element->AddAttribute(L"RuleName", ruleName);
        }
        CQoxRule* rule = ReadRule(element.get());
        const bool claimed = rule != nullptr;
        Delete(rule);
        return claimed;
    };
    EXPECT_TRUE(claims(Name(), name));
    EXPECT_FALSE(claims(L"Another Module", name));
    EXPECT_FALSE(claims(Lower(Name()), name));
    EXPECT_FALSE(claims(InteractiveRuleMark, name));
    EXPECT_FALSE(claims(VSTARuleMark, name));
    EXPECT_FALSE(claims(std::nullopt, name));
    EXPECT_FALSE(claims(Name(), L"NoSuchRule"));
    EXPECT_FALSE(claims(Name(), L""));
    EXPECT_EQ(ReadRule(nullptr), nullptr);
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

TEST_P(RuleModuleTest, ChoicesComeFromTheDatabase)
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

TEST_P(RuleModuleTest, WithoutADatabaseTheRulesAreWholeToo)
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

TEST_P(RuleModuleTest, NullListOfDatabaseModulesMeansNone)
{
    m_module.Export<SetDBModuleListFunction>("SetDBModuleList")(nullptr);
    const OfferedRules offered(m_module);
    EXPECT_GE(offered.rules.GetSize(), 10);
}

TEST_P(RuleModuleTest, ChoiceOfAFileStaysEvenIfNobodyKnowsIt)
{
    const OfferedRules offered(m_module);
    int checkedRules = 0;
    for (CQoxRule* const rule : offered.rules)
    {
        for (CQoxParamStorage& parameter : rule->Parameters())
        {
            if (parameter.eKind != ParamKind::Choice)
            {
                continue;
            }
            parameter.strValue = L"Material of last year";
            const std::unique_ptr<QoxXMLNode> element(rule->GetXML());
            CQoxRule* read = ReadRule(element.get());
            ASSERT_NE(read, nullptr);
            EXPECT_EQ(read->FindParameterInArray(parameter.nNumber)->strValue, L"Material of last year");
            EXPECT_EQ(read->FindParameterInArray(parameter.nNumber)->choices, parameter.choices);
            Delete(read);
            ++checkedRules;
        }
    }
    EXPECT_GE(checkedRules, 1);
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
            EXPECT_TRUE(names.insert(Lower(rule->m_strRuleName)).second) << testing::PrintToString(rule->m_strRuleName);
            EXPECT_TRUE(helpFiles.insert(rule->m_strHelpFile).second) << testing::PrintToString(rule->m_strHelpFile);
        }
    }
    EXPECT_GE(names.size(), 30U);
}

} // namespace
