// Rule files as earlier builds wrote them: their rules have to be found, with what users entered
// in them.

#include "tests/RuleModules/LoadedModule.h"

#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <gtest/gtest.h>
#include <memory>
#include <ostream>

namespace
{

struct FieldFile
{
    const char* file;
    const wchar_t* library;

    // Without it the names of the tests hold addresses, which change from run to run.
    friend void PrintTo(const FieldFile& field, std::ostream* out) { *out << field.file; }
};

class FieldFilesTest : public testing::TestWithParam<FieldFile>
{
};

/// Attribute of an element; empty if it has none.
std::wstring Attribute(const QoxXMLNode& element, const wchar_t* name)
{
    std::wstring value;
    element.GetAttributeValue(name, value);
    return value;
}

void ExpectParametersOf(const QoxXMLNode& element, CQoxRule& rule)
{
    const std::unique_ptr<QoxXMLNodeList> parameters(element.GetNodeList(L"Parameter"));
    ASSERT_NE(parameters, nullptr);
    for (long index = 0; index < parameters->GetSize(); ++index)
    {
        const std::unique_ptr<QoxXMLNode> parameter((*parameters)[index]);
        const std::wstring number = Attribute(*parameter, L"Number");
        SCOPED_TRACE(testing::PrintToString(rule.m_strRuleName + L" " + number));
        const CQoxParamStorage* const read = rule.FindParameterInArray(std::stol(number));
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->strName.Get(), Attribute(*parameter, L"Name"));
        EXPECT_EQ(Platform::Utf8ToWide(std::string(ParamKindName(read->eKind))), Attribute(*parameter, L"Kind"));
        const std::wstring value = Attribute(*parameter, L"Value");
        EXPECT_EQ(read->IsNumeric() ? FormatShownNumber(read->dValue) : read->strValue, value);
    }
}

TEST_P(FieldFilesTest, EveryRuleIsReadWithItsValues)
{
    const LoadedModule module(StagedLibrary(GetParam().library));
    ASSERT_TRUE(module.IsLoaded());
    QoxXMLDocument document;
    const std::unique_ptr<QoxXMLNode> root(
        document.LoadFromFile(Platform::Utf8ToWide(std::string(VANTREL_FIELD_FILES_DIR "/") + GetParam().file)));
    ASSERT_NE(root, nullptr);
    const std::unique_ptr<QoxXMLNodeList> elements(root->GetNodeList(L"Rule"));
    ASSERT_NE(elements, nullptr);
    EXPECT_GE(elements->GetSize(), 10);
    for (long index = 0; index < elements->GetSize(); ++index)
    {
        const std::unique_ptr<QoxXMLNode> element((*elements)[index]);
        CQoxRule* rule = nullptr;
        module.Export<GetRuleFunction>("GetRule")(element.get(), rule);
        ASSERT_NE(rule, nullptr);
        EXPECT_EQ(std::to_wstring(rule->m_nCriticality), Attribute(*element, L"Criticality"));
        EXPECT_EQ(rule->m_strModulePath, Attribute(*element, L"ModulePath"));
        EXPECT_TRUE(rule->ValidateInputData());
        ExpectParametersOf(*element, *rule);
        module.Export<DeleteRuleFunction>("DeleteRule")(&rule);
    }
}

INSTANTIATE_TEST_SUITE_P(All, FieldFilesTest,
                         testing::Values(FieldFile{ "milled-bracket.vrf", L"QoxMillRulesu.dll" },
                                         FieldFile{ "sheet-metal-enclosure.vrf", L"QoxSMRulesu.dll" },
                                         FieldFile{ "moulded-housing.vrf", L"QOXIMRulesu.dll" }),
                         [](const testing::TestParamInfo<FieldFile>& test)
                         { return Platform::WideToUtf8(std::wstring(test.param.library, 7)); });

} // namespace
