#include "Platform/Text.h"
#include "tests/RuleModules/StockModuleFixture.h"
#include "tests/Support/StockLibraries.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace
{

/// What modules write into rule files and read from them.
class RuleModuleFileTest : public StockModuleFixture
{
protected:
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

    TemporaryFolder m_folder;
};

TEST_P(RuleModuleFileTest, RulesOfAFileComeBackWithEqualBytes)
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

TEST_P(RuleModuleFileTest, FileOfAnotherLanguageIsReadIntoTheOneInUse)
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

TEST_P(RuleModuleFileTest, RuleComesBackFromItsElementUnchanged)
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

TEST_P(RuleModuleFileTest, RuleNameIsMatchedWithoutRegardToCase)
{
    const OfferedRules offered(m_module);
    const std::unique_ptr<QoxXMLNode> element(m_document.CreateNode(L"Rule"));
    element->AddAttribute(L"RuleModule", Name());
    element->AddAttribute(L"RuleName", Platform::ToLower(offered.rules[0]->m_strRuleName));
    CQoxRule* rule = ReadRule(element.get());
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strDisplayName, offered.rules[0]->m_strDisplayName);
    Delete(rule);
}

TEST_P(RuleModuleFileTest, ElementsOfOthersAreNotClaimed)
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
    EXPECT_FALSE(claims(Platform::ToLower(Name()), name));
    EXPECT_FALSE(claims(InteractiveRuleMark, name));
    EXPECT_FALSE(claims(VSTARuleMark, name));
    EXPECT_FALSE(claims(std::nullopt, name));
    EXPECT_FALSE(claims(Name(), L"NoSuchRule"));
    EXPECT_FALSE(claims(Name(), L""));
    EXPECT_EQ(ReadRule(nullptr), nullptr);
}

TEST_P(RuleModuleFileTest, ChoiceOfAFileStaysEvenIfNobodyKnowsIt)
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

INSTANTIATE_TEST_SUITE_P(All, RuleModuleFileTest, testing::ValuesIn(StockLibraries(VANTREL_STOCK_LIBRARIES)),
                         [](const testing::TestParamInfo<std::string>& test) { return test.param; });

} // namespace
