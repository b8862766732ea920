#include "Document/ModuleReload.h"

#include "Document/RuleDocument.h"
#include "Platform/Text.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

namespace
{

constexpr const wchar_t* Leaving = L"TestModuleComplete";
constexpr const wchar_t* Staying = L"TestModuleSecond";

class ModuleReloadTest : public testing::Test
{
protected:
    ModuleReloadTest()
    {
        application.LoadRuleModules({ Leaving, Staying });
        WriteBytes(path, "<Lumeq><Rule RuleModule=\"Second Test Module\" RuleName=\"TestModuleSecond Rule 1\"/>"
                         "</Lumeq>");
    }

    void Remove(const std::wstring& name)
    {
        application.Modules().ConfigModulePaths().remove(Platform::ToLower(TestModulePath(name)));
    }

    static bool IsLoaded(const std::wstring& name)
    {
        return Platform::FindLoadedLibrary(TestModulePath(name)) != nullptr;
    }

    OpenRuleDocument Open(RuleDocument& document, bool isModified)
    {
        return { document, path, isModified, [this] { loadedAtReload.push_back(IsLoaded(Leaving)); } };
    }

    TestApplication application;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    std::vector<bool> loadedAtReload; // for each reloaded view, whether the leaving module was there
};

} // namespace

TEST_F(ModuleReloadTest, AnUnmodifiedDocumentIsReadAgainAndItsViewsFilledBeforeTheModuleGoes)
{
    RuleDocument document;
    Remove(Leaving);
    ReloadRuleModules(application.Modules(), { Open(document, false) });
    EXPECT_EQ(document.Header().GetCount(), 1);
    EXPECT_EQ(loadedAtReload, std::vector<bool>{ true });
    EXPECT_FALSE(IsLoaded(Leaving));
    EXPECT_TRUE(IsLoaded(Staying));
}

TEST_F(ModuleReloadTest, RulesThatNoViewShowsGoBackBeforeTheirModuleGoes)
{
    const auto live = TestModuleFunction<TestModuleLiveRulesFunction>(Leaving, "TestModuleLiveRules");
    const int before = live();
    WriteBytes(path, "<Lumeq><Rule RuleModule=\"Complete Test Module\" RuleName=\"TestModuleComplete Rule 1\"/>"
                     "<Rule RuleModule=\"Second Test Module\" RuleName=\"TestModuleSecond Rule 1\"/></Lumeq>");
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    ASSERT_EQ(live(), before + 1);
    Remove(Leaving);
    // Kept loaded, so that it can be asked afterwards.
    const Platform::LibraryHandle kept = Platform::OpenLibraryFile(TestModulePath(Leaving));
    ReloadRuleModules(application.Modules(), { Open(document, true) });
    EXPECT_EQ(live(), before);
    PointerArray rules;
    document.Header().GetRules(rules);
    ASSERT_EQ(rules.GetSize(), 1);
    EXPECT_EQ(rules[0]->m_strModulePath, TestModulePath(Staying));
    Platform::ReleaseLibrary(kept);
}

TEST_F(ModuleReloadTest, AModifiedDocumentIsNotReadAgainButItsModuleGoesAllTheSame)
{
    RuleDocument document;
    Remove(Leaving);
    ReloadRuleModules(application.Modules(), { Open(document, true) });
    EXPECT_EQ(document.Header().GetCount(), 0);
    EXPECT_EQ(loadedAtReload, std::vector<bool>{ true });
    EXPECT_FALSE(IsLoaded(Leaving));
}

TEST_F(ModuleReloadTest, ADocumentWhoseUnitsWereChangedIsNotReadAgain)
{
    RuleDocument document;
    document.ChangeUnits({ 3, 0 });
    Remove(Leaving);
    ReloadRuleModules(application.Modules(), { Open(document, false) });
    EXPECT_EQ(document.Header().GetCount(), 0);
    EXPECT_EQ(document.Header().newRuleUnits, (structRulesUnit{ 3, 0 }));
    EXPECT_EQ(loadedAtReload.size(), 1U);
}

TEST_F(ModuleReloadTest, ADocumentWithoutAFileHasOnlyItsViewsReloaded)
{
    RuleDocument document;
    OpenRuleDocument open = Open(document, false);
    open.path.clear();
    ReloadRuleModules(application.Modules(), { open });
    EXPECT_EQ(document.Header().GetCount(), 0);
    EXPECT_EQ(loadedAtReload.size(), 1U);
}

TEST_F(ModuleReloadTest, AFileThatIsGoneIsNotReadAgain)
{
    RuleDocument document;
    OpenRuleDocument open = Open(document, false);
    open.path = folder.File(L"gone.vrf");
    ReloadRuleModules(application.Modules(), { open });
    EXPECT_EQ(document.Header().GetCount(), 0);
    EXPECT_EQ(loadedAtReload.size(), 1U);
}

TEST_F(ModuleReloadTest, UnitsThatTheFileHasGotMeanwhileDoNotGetToTheValuesInTheRows)
{
    RuleDocument document;
    ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
    const structRulesUnit units = document.Header().newRuleUnits;
    WriteBytes(path, "<Lumeq Unit=\"3\" AngularUnit=\"1\"><Rule RuleModule=\"Second Test Module\" "
                     "RuleName=\"TestModuleSecond Rule 1\"/></Lumeq>");
    ReloadRuleModules(application.Modules(), { Open(document, false) });
    EXPECT_EQ(document.Header().GetCount(), 2) << "it was read";
    EXPECT_EQ(document.Header().newRuleUnits, units);
    EXPECT_EQ(document.Header().oldRuleUnits, (structRulesUnit{ 0, 0 }));
    EXPECT_FALSE(document.HaveUnitsChanged());
}
