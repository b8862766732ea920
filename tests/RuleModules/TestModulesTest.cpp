// The modules that other tests load have to be what those tests take them for.

#include "tests/RuleModules/Fixtures/TestModule.h"
#include "tests/RuleModules/LoadedModule.h"

#include "Platform/Files.h"
#include "Platform/Text.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace
{

struct ExportCase
{
    const char* library;
    std::set<std::string> missing;
};

constexpr const char* RuleModuleExports[] = { "GetAllRules",   "GetRule",          "SetXMLDoc", "SetDBModuleList",
                                              "GetModuleName", "GetModuleSummary", "DeleteRule" };

std::wstring TestModulePath(const char* library)
{
    return Platform::Utf8ToWide(VANTREL_TEST_MODULES_DIR) + Platform::PathSeparator + Platform::Utf8ToWide(library) +
           L".dll";
}

TEST(TestModules, RuleModulesHaveTheExportsThatTheirNamesTell)
{
    const ExportCase cases[] = {
        { "TestModuleComplete", {} },
        { "TestModuleSecond", {} },
        { "TestModuleNoRules", {} },
        { "TestModuleNoName", { "GetModuleName" } },
        { "TestModuleNoGetAllRules", { "GetAllRules" } },
        { "TestModuleNoGetRule", { "GetRule" } },
        { "TestModuleNoSetXMLDoc", { "SetXMLDoc" } },
        { "TestModuleNoSetDBModuleList", { "SetDBModuleList" } },
        { "TestModuleEmpty",
          { "GetAllRules", "GetRule", "SetXMLDoc", "SetDBModuleList", "GetModuleName", "GetModuleSummary",
            "DeleteRule" } },
    };
    for (const ExportCase& expected : cases)
    {
        const LoadedModule module(TestModulePath(expected.library));
        ASSERT_TRUE(module.IsLoaded()) << expected.library;
        for (const char* const name : RuleModuleExports)
        {
            EXPECT_EQ(module.Has(name), !expected.missing.contains(name)) << expected.library << ' ' << name;
        }
        EXPECT_FALSE(module.Has("GetDbInterface")) << expected.library;
    }
}

TEST(TestModules, DatabaseModulesHaveTheExportsThatTheirNamesTell)
{
    const LoadedModule complete(TestModulePath("TestDatabaseComplete"));
    const LoadedModule null(TestModulePath("TestDatabaseNull"));
    const LoadedModule noDelete(TestModulePath("TestDatabaseNoDelete"));
    EXPECT_TRUE(complete.Has("GetDbInterface") && complete.Has("DeleteDbInterface"));
    EXPECT_TRUE(null.Has("GetDbInterface") && null.Has("DeleteDbInterface"));
    EXPECT_TRUE(noDelete.Has("GetDbInterface"));
    EXPECT_FALSE(noDelete.Has("DeleteDbInterface"));
    EXPECT_FALSE(complete.Has("GetAllRules"));
}

TEST(TestModules, CallsAreRecordedInOrder)
{
    const LoadedModule module(TestModulePath("TestModuleComplete"));
    ASSERT_TRUE(module.IsLoaded());
    module.Export<TestModuleResetFunction>("TestModuleReset")();
    const auto liveRules = module.Export<TestModuleLiveRulesFunction>("TestModuleLiveRules");

    const std::list<std::wstring> databases = { L"one", L"two" };
    module.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
    std::list<std::wstring> noted;
    module.Export<TestModuleDatabaseModulesFunction>("TestModuleDatabaseModules")(noted);
    EXPECT_EQ(noted, databases);

    QoxXMLDocument document;
    module.Export<ModuleSetXMLDocFunction>("SetXMLDoc")(&document);
    EXPECT_EQ(module.Export<TestModuleDocumentFunction>("TestModuleDocument")(), &document);
    module.Export<ModuleSetXMLDocFunction>("SetXMLDoc")(nullptr);
    {
        const OfferedRules offered(module);
        EXPECT_EQ(offered.rules.GetSize(), 2);
        EXPECT_EQ(liveRules(), 2);
    }
    EXPECT_EQ(liveRules(), 0);
    EXPECT_STREQ(module.Export<TestModuleCallsFunction>("TestModuleCalls")(),
                 "SetDBModuleList SetXMLDoc SetXMLDoc GetAllRules DeleteRule DeleteRule");
    EXPECT_EQ(module.Export<TestModuleCallCountFunction>("TestModuleCallCount")("DeleteRule"), 2);
}

TEST(TestModules, RulesComeBackFromTheirElementsToTheirOwnModuleOnly)
{
    const LoadedModule first(TestModulePath("TestModuleComplete"));
    const LoadedModule second(TestModulePath("TestModuleSecond"));
    QoxXMLDocument document;
    ::SetXMLDoc(&document);
    {
        const OfferedRules offered(first);
        offered.rules[1]->FindParameterInArray(1)->dValue = 42;
        const std::unique_ptr<QoxXMLNode> element(offered.rules[1]->GetXML());
        ASSERT_NE(element, nullptr);
        CQoxRule* rule = nullptr;
        second.Export<GetRuleFunction>("GetRule")(element.get(), rule);
        EXPECT_EQ(rule, nullptr);
        first.Export<GetRuleFunction>("GetRule")(element.get(), rule);
        ASSERT_NE(rule, nullptr);
        EXPECT_EQ(rule->m_strRuleName, L"TestModuleComplete Rule 2");
        EXPECT_EQ(rule->FindParameterInArray(1)->dValue, 42);
        first.Export<DeleteRuleFunction>("DeleteRule")(&rule);
    }
    ::SetXMLDoc(nullptr);
}

TEST(TestModules, LeaveTheProcessWhenTheyAreReleased)
{
    for (const char* const name : { "TestModuleComplete", "TestModuleEmpty", "TestDatabaseComplete" })
    {
        ASSERT_TRUE(LoadedModule(TestModulePath(name)).IsLoaded());
        EXPECT_EQ(Platform::FindLoadedLibrary(TestModulePath(name)), nullptr) << name;
    }
}

TEST(TestModules, ModuleWithoutRulesOffersNone)
{
    const LoadedModule module(TestModulePath("TestModuleNoRules"));
    const OfferedRules offered(module);
    EXPECT_TRUE(offered.rules.IsEmpty());
}

} // namespace
