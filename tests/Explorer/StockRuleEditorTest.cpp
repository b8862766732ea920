// The rules of every stock module in the rule editor.

#include "Explorer/RuleEditorDlg.h"
#include "Platform/Text.h"
#include "tests/RuleModules/LoadedModule.h"
#include "tests/Support/ShownDialog.h"
#include "tests/Support/StockLibraries.h"
#include "tests/Support/WindowTest.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <gtest/gtest.h>

#include <wx/config.h>
#include <wx/memconf.h>

#include <list>
#include <memory>
#include <string>
#include <vector>

namespace
{

class StockRuleEditorTest : public WindowTest, public testing::WithParamInterface<std::string>
{
protected:
    StockRuleEditorTest()
    {
        delete wxConfigBase::Set(new wxMemoryConfig);
        ::SetXMLDoc(&document);
    }
    ~StockRuleEditorTest() override
    {
        ::SetXMLDoc(nullptr);
        delete wxConfigBase::Set(nullptr);
    }

    static std::wstring ElementOf(CQoxRule& rule)
    {
        const std::unique_ptr<QoxXMLNode> element(rule.GetXML());
        return element != nullptr ? element->GetXML() : std::wstring();
    }

    /// The rule as a document in the units shows it, opened and left by OK.
    static void OpenAndConfirm(CQoxRule& rule)
    {
        RuleEditorDlg dialog(nullptr, rule, L'.');
        const int result = RunDialog(dialog,
                                     [&]
                                     {
                                         for (const CQoxParamStorage& parameter : rule.Parameters())
                                         {
                                             const wxWindow* const field =
                                                 wxWindow::FindWindowByName(parameter.strLabel.Get(), &dialog);
                                             EXPECT_TRUE(field != nullptr && field->IsShown())
                                                 << Platform::WideToUtf8(parameter.strLabel.Get());
                                         }
                                         ClickOn(dialog, wxID_OK);
                                         if (dialog.IsModal() && dialog.GetReturnCode() != wxID_OK)
                                         {
                                             dialog.EndModal(wxID_CANCEL); // OK refused what the rule came with
                                         }
                                     });
        EXPECT_EQ(result, wxID_OK);
    }

    QoxXMLDocument document;
};

TEST_P(StockRuleEditorTest, EveryRuleOpensAndOkWithoutAChangeLeavesEachByteOfItInAnyUnits)
{
    const LoadedModule module(StagedLibrary(Platform::Utf8ToWide(GetParam()) + L".dll"));
    ASSERT_TRUE(module.IsLoaded());
    const std::list<std::wstring> databases = { StagedLibrary(L"QoxSqliteDatabaseu.dll") };
    module.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
    const OfferedRules offered(module);
    ASSERT_FALSE(offered.rules.IsEmpty());

    constexpr RuleUnitSystemStructure Metric = {};
    constexpr RuleUnitSystemStructure Split = { static_cast<std::int32_t>(LinearUnit::FeetAndInches),
                                                static_cast<std::int32_t>(AngularUnit::DegreesMinutesSeconds) };
    for (CQoxRule* const rule : offered.rules)
    {
        SCOPED_TRACE(Platform::WideToUtf8(rule->m_strRuleName));
        for (const RuleUnitSystemStructure& units : { Metric, Split })
        {
            rule->UpdateRule(&rule->m_units, &units);
            rule->m_units = units;
            const std::wstring before = ElementOf(*rule);
            ASSERT_FALSE(before.empty());
            OpenAndConfirm(*rule);
            EXPECT_EQ(ElementOf(*rule), before);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, StockRuleEditorTest, testing::ValuesIn(StockLibraries(VANTREL_STOCK_LIBRARIES)),
                         [](const testing::TestParamInfo<std::string>& test) { return test.param; });

} // namespace
