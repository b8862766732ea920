#include "tests/RuleModules/LoadedModule.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <set>
#include <vector>

namespace
{

struct ModuleCase
{
    const char* label;
    const wchar_t* library;
    const wchar_t* name;
    const wchar_t* knownMaterial;   // of the database, and not built in
    const wchar_t* builtInMaterial; // first of the built-in list

    // Without it the names of the tests hold addresses, which change from run to run.
    friend void PrintTo(const ModuleCase& module, std::ostream* out) { *out << module.label; }
};

constexpr ModuleCase Modules[] = {
    { "Mill", L"QoxMillRulesu.dll", L"Milling Rules", L"EN AW-5083-H111", L"42CrMo4" },
    { "SheetMetal", L"QoxSMRulesu.dll", L"Sheet Metal Rules", L"S355MC", L"CuZn37 sheet" },
    { "InjectionMoulding", L"QOXIMRulesu.dll", L"Injection Moulding Rules", L"PPS-GF40", L"ABS" },
};

std::wstring Lower(const std::wstring& text)
{
    std::wstring result = text;
    std::transform(result.begin(), result.end(), result.begin(),
                   [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; });
    return result;
}

bool OffersMaterial(const CQoxParamStorage& parameter, const std::wstring& material)
{
    return std::find(parameter.choices.begin(), parameter.choices.end(), material) != parameter.choices.end();
}

class RuleModuleTest : public testing::TestWithParam<ModuleCase>
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

    LoadedModule m_module{ StagedLibrary(GetParam().library) };
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
    std::wstring name;
    std::wstring summary;
    m_module.Export<GetModuleNameFunction>("GetModuleName")(name);
    m_module.Export<GetModuleSummaryFunction>("GetModuleSummary")(summary);
    EXPECT_EQ(name, GetParam().name);
    EXPECT_GT(summary.size(), 20U);
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
        EXPECT_EQ(rule->m_strRuleModule, GetParam().name);
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

TEST_P(RuleModuleTest, UsesEveryKindOfParameterOfItsProcess)
{
    const OfferedRules offered(m_module);
    std::set<ParamKind> kinds;
    for (const CQoxRule* const rule : offered.rules)
    {
        for (const CQoxParamStorage& parameter : rule->Parameters())
        {
            kinds.insert(parameter.eKind);
        }
    }
    EXPECT_EQ(kinds, (std::set{ ParamKind::Length, ParamKind::Angle, ParamKind::Number, ParamKind::Integer,
                                ParamKind::YesNo, ParamKind::Choice }));
}

TEST_P(RuleModuleTest, RuleComesBackFromItsElementUnchanged)
{
    const OfferedRules offered(m_module);
    for (CQoxRule* const rule : offered.rules)
    {
        SCOPED_TRACE(testing::PrintToString(rule->m_strRuleName));
        rule->m_strModulePath = GetParam().library;
        rule->m_nCriticality = rule->m_nCriticality % 5 + 1;
        rule->m_strSummary = L"Checked by hand";
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
    element->AddAttribute(L"RuleModule", GetParam().name);
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
    const auto claims = [this](const wchar_t* module, const std::wstring& ruleName)
    {
        const std::unique_ptr<QoxXMLNode> element(m_document.CreateNode(L"Rule"));
        if (module != nullptr)
        {
            element->AddAttribute(L"RuleModule", module);
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
    EXPECT_TRUE(claims(GetParam().name, name));
    EXPECT_FALSE(claims(L"Another Module", name));
    EXPECT_FALSE(claims(Lower(GetParam().name).c_str(), name));
    EXPECT_FALSE(claims(InteractiveRuleMark, name));
    EXPECT_FALSE(claims(VSTARuleMark, name));
    EXPECT_FALSE(claims(nullptr, name));
    EXPECT_FALSE(claims(GetParam().name, L"NoSuchRule"));
    EXPECT_FALSE(claims(GetParam().name, L""));
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

TEST_P(RuleModuleTest, MaterialsComeFromTheDatabase)
{
    const OfferedRules offered(m_module);
    int materialParameters = 0;
    for (const CQoxRule* const rule : offered.rules)
    {
        for (const CQoxParamStorage& parameter : rule->Parameters())
        {
            if (parameter.eKind == ParamKind::Choice)
            {
                ++materialParameters;
                EXPECT_TRUE(OffersMaterial(parameter, GetParam().knownMaterial));
                EXPECT_TRUE(OffersMaterial(parameter, parameter.strDefault));
                EXPECT_GE(parameter.choices.size(), 10U);
            }
        }
    }
    EXPECT_GE(materialParameters, 2);
}

TEST_P(RuleModuleTest, WithoutADatabaseTheBuiltInMaterialsAreOffered)
{
    for (const std::list<std::wstring>& databases :
         { std::list<std::wstring>{}, std::list<std::wstring>{ StagedLibrary(L"missing.dll") },
           std::list<std::wstring>{ StagedLibrary(GetParam().library) } })
    {
        UseDatabase(databases);
        const OfferedRules offered(m_module);
        for (CQoxRule* const rule : offered.rules)
        {
            EXPECT_TRUE(rule->ValidateInputData());
            for (const CQoxParamStorage& parameter : rule->Parameters())
            {
                if (parameter.eKind == ParamKind::Choice)
                {
                    EXPECT_FALSE(OffersMaterial(parameter, GetParam().knownMaterial));
                    EXPECT_EQ(parameter.choices.front(), GetParam().builtInMaterial);
                }
            }
        }
    }
}

TEST_P(RuleModuleTest, NullListOfDatabaseModulesMeansNone)
{
    m_module.Export<SetDBModuleListFunction>("SetDBModuleList")(nullptr);
    const OfferedRules offered(m_module);
    EXPECT_GE(offered.rules.GetSize(), 10);
}

TEST_P(RuleModuleTest, MaterialOfAFileStaysEvenIfNobodyKnowsIt)
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
    EXPECT_GE(checkedRules, 2);
}

INSTANTIATE_TEST_SUITE_P(All, RuleModuleTest, testing::ValuesIn(Modules),
                         [](const testing::TestParamInfo<ModuleCase>& test) { return std::string(test.param.label); });

TEST(RuleModules, LeaveTheProcessWhenTheyAreReleased)
{
    const std::list<std::wstring> databases = { StagedLibrary(L"QoxSqliteDatabaseu.dll") };
    for (const ModuleCase& module : Modules)
    {
        const std::wstring path = StagedLibrary(module.library);
        {
            const LoadedModule loaded(path);
            loaded.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
            const OfferedRules offered(loaded);
            EXPECT_NE(Platform::FindLoadedLibrary(path), nullptr);
        }
        EXPECT_EQ(Platform::FindLoadedLibrary(path), nullptr) << module.label;
        EXPECT_EQ(Platform::FindLoadedLibrary(databases.front()), nullptr) << module.label;
    }
}

TEST(RuleModules, RuleNamesAndHelpFilesAreUniqueAmongAllModules)
{
    std::set<std::wstring> names;
    std::set<std::wstring> helpFiles;
    for (const ModuleCase& module : Modules)
    {
        const LoadedModule loaded(StagedLibrary(module.library));
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
