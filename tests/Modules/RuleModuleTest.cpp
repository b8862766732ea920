#include "Modules/RuleModule.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxXml.h>
#include <Vantrel/VantrelLog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace
{

/// A module for tests, loaded for as long as it lives, with no calls noted.
class LoadedTestModule
{
public:
    explicit LoadedTestModule(const std::wstring& name) : LoadedTestModule(TestModulePath(name), name) {}

    LoadedTestModule(const std::wstring& path, const std::wstring& name)
        : library(Platform::OpenLibraryFile(path)), module(library), m_name(name)
    {
        EXPECT_NE(library, nullptr) << Platform::WideToUtf8(path);
    }

    ~LoadedTestModule() { Platform::ReleaseLibrary(library); }
    LoadedTestModule(const LoadedTestModule&) = delete;
    LoadedTestModule& operator=(const LoadedTestModule&) = delete;

    std::string Calls() const { return CallsOf(m_name); }

    const Platform::LibraryHandle library;
    const RuleModule module;

private:
    std::wstring m_name;
};

/// A document with one `Rule` element, told to the framework library.
class RuleElement
{
public:
    RuleElement(const std::wstring& module, const std::wstring& name) : node(document.CreateNode(L"Rule"))
    {
        node->AddAttribute(L"RuleModule", module);
        node->AddAttribute(L"RuleName", name);
    }

    QoxXMLDocument document;
    std::unique_ptr<QoxXMLNode> node;
};

LoadedTestModule ThrowingModule()
{
    return { Platform::Utf8ToWide(VANTREL_THROWING_MODULE_DIR) + Platform::PathSeparator + L"ThrowingModule.dll",
             L"ThrowingModule" };
}

} // namespace

TEST(ModuleValidityTest, ARuleModuleNeedsItsFourRequiredExports)
{
    EXPECT_TRUE(IsValidRuleModule(LoadedTestModule(L"TestModuleComplete").library));
    for (const wchar_t* const name : { L"TestModuleNoGetAllRules", L"TestModuleNoGetRule", L"TestModuleNoSetXMLDoc",
                                       L"TestModuleNoSetDBModuleList", L"TestModuleEmpty", L"TestDatabaseComplete" })
    {
        EXPECT_FALSE(IsValidRuleModule(LoadedTestModule(name).library)) << Platform::WideToUtf8(name);
    }
    EXPECT_FALSE(IsValidRuleModule(nullptr));
}

TEST(ModuleValidityTest, ARuleModuleWithoutOptionalExportsIsValid)
{
    EXPECT_TRUE(IsValidRuleModule(LoadedTestModule(L"TestModuleNoName").library));
    EXPECT_TRUE(IsValidRuleModule(LoadedTestModule(L"TestModuleNoRules").library));
}

TEST(ModuleValidityTest, ADatabaseModuleNeedsBothOfItsExports)
{
    EXPECT_TRUE(IsValidDatabaseModule(LoadedTestModule(L"TestDatabaseComplete").library));
    EXPECT_TRUE(IsValidDatabaseModule(LoadedTestModule(L"TestDatabaseNull").library)) << "nothing is called";
    EXPECT_FALSE(IsValidDatabaseModule(LoadedTestModule(L"TestDatabaseNoDelete").library));
    EXPECT_FALSE(IsValidDatabaseModule(LoadedTestModule(L"TestModuleComplete").library));
    EXPECT_FALSE(IsValidDatabaseModule(LoadedTestModule(L"TestModuleEmpty").library));
    EXPECT_FALSE(IsValidDatabaseModule(nullptr));
}

TEST(ModuleValidityTest, TheTestCallsNothing)
{
    const LoadedTestModule rules(L"TestModuleComplete");
    const LoadedTestModule database(L"TestDatabaseComplete");
    IsValidRuleModule(rules.library);
    IsValidDatabaseModule(database.library);
    EXPECT_EQ(rules.Calls(), "");
    EXPECT_EQ(database.Calls(), "");
}

TEST(RuleModuleTest, TellsItsPathNameAndSummary)
{
    const LoadedTestModule loaded(L"TestModuleComplete");
    EXPECT_EQ(loaded.module.Path(), TestModulePath(L"TestModuleComplete"));
    EXPECT_EQ(loaded.module.DisplayName(), L"Complete Test Module");
    EXPECT_EQ(loaded.module.Summary(), L"Summary of TestModuleComplete");
    EXPECT_EQ(loaded.Calls(), "GetModuleName GetModuleSummary");
}

TEST(RuleModuleTest, WithoutANameOfItsOwnItGoesByThatOfItsFile)
{
    EXPECT_EQ(LoadedTestModule(L"TestModuleNoName").module.DisplayName(), L"TestModuleNoName.dll");
}

TEST(RuleModuleTest, RulesAreAppendedToTheArrayAndGoBackOneByOne)
{
    const LoadedTestModule loaded(L"TestModuleComplete");
    ConcreteQOXRule other;
    PointerArray rules;
    rules.Add(&other);
    EXPECT_TRUE(loaded.module.GetAllRules(rules));
    ASSERT_EQ(rules.GetSize(), 3);
    EXPECT_EQ(rules[0], &other);
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), 2);

    EXPECT_TRUE(loaded.module.TakesRulesBack());
    for (const std::int32_t index : { 1, 2 })
    {
        EXPECT_TRUE(loaded.module.DeleteRule(rules[index]));
        EXPECT_EQ(rules[index], nullptr);
    }
    EXPECT_EQ(LiveRulesOf(L"TestModuleComplete"), 0);
}

TEST(RuleModuleTest, AModuleWithoutRulesGivesNoneWithSuccess)
{
    const LoadedTestModule loaded(L"TestModuleNoRules");
    PointerArray rules;
    EXPECT_TRUE(loaded.module.GetAllRules(rules));
    EXPECT_TRUE(rules.IsEmpty());
    EXPECT_EQ(loaded.module.GetRule(RuleElement(L"Test Module Without Rules", L"TestModuleNoRules Rule 1").node.get()),
              nullptr);
}

TEST(RuleModuleTest, ARuleIsMadeOfAnElementOfTheModulesOwnOnly)
{
    const LoadedTestModule loaded(L"TestModuleComplete");
    CQoxRule* rule =
        loaded.module.GetRule(RuleElement(L"Complete Test Module", L"TestModuleComplete Rule 2").node.get());
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->m_strRuleName, L"TestModuleComplete Rule 2");
    EXPECT_TRUE(loaded.module.DeleteRule(rule));

    EXPECT_EQ(loaded.module.GetRule(RuleElement(L"Second Test Module", L"TestModuleComplete Rule 2").node.get()),
              nullptr);
    EXPECT_EQ(loaded.module.GetRule(RuleElement(L"Complete Test Module", L"No Such Rule").node.get()), nullptr);
    EXPECT_EQ(loaded.module.GetRule(nullptr), nullptr);
}

TEST(RuleModuleTest, AMissingGetAllRulesLeavesTheArrayAlone)
{
    const LoadedTestModule loaded(L"TestModuleNoGetAllRules");
    PointerArray rules;
    EXPECT_FALSE(loaded.module.GetAllRules(rules));
    EXPECT_TRUE(rules.IsEmpty());
}

TEST(RuleModuleTest, AMissingGetRuleGivesNoRule)
{
    const LoadedTestModule loaded(L"TestModuleNoGetRule");
    const RuleElement element(L"Test Module Without GetRule", L"TestModuleNoGetRule Rule 1");
    EXPECT_EQ(loaded.module.GetRule(element.node.get()), nullptr);
    EXPECT_EQ(loaded.Calls(), "");
}

TEST(RuleModuleTest, AMissingSetXMLDocIsNotTakenForTheFrameworksOwn)
{
    const LoadedTestModule loaded(L"TestModuleNoSetXMLDoc");
    QoxXMLDocument document;
    ::SetXMLDoc(nullptr);
    loaded.module.SetXMLDoc(&document);
    const std::unique_ptr<QoxXMLNode> element(ConcreteQOXRule().GetXML());
    EXPECT_EQ(element, nullptr) << "the framework library was told of the document";
}

TEST(RuleModuleTest, AMissingSetDBModuleListIsSkipped)
{
    const LoadedTestModule loaded(L"TestModuleNoSetDBModuleList");
    loaded.module.SetDBModuleList({ L"database.dll" });
    EXPECT_EQ(loaded.Calls(), "");
}

TEST(RuleModuleTest, WithoutAnyExportEveryCallDoesNothing)
{
    const LoadedTestModule loaded(L"TestModuleEmpty");
    const RuleModule& module = loaded.module;
    PointerArray rules;
    QoxXMLDocument document;
    ConcreteQOXRule rule;
    CQoxRule* pointer = &rule;
    EXPECT_EQ(module.DisplayName(), L"TestModuleEmpty.dll");
    EXPECT_EQ(module.Summary(), L"");
    EXPECT_FALSE(module.GetAllRules(rules));
    EXPECT_EQ(module.GetRule(RuleElement(L"TestModuleEmpty.dll", L"R").node.get()), nullptr);
    module.SetXMLDoc(&document);
    module.SetDBModuleList({});
    EXPECT_FALSE(module.TakesRulesBack());
    EXPECT_FALSE(module.DeleteRule(pointer));
    EXPECT_EQ(pointer, &rule) << "the rule is still there";
}

TEST(RuleModuleTest, WithoutALibraryEveryCallDoesNothing)
{
    const RuleModule module(nullptr);
    PointerArray rules;
    CQoxRule* rule = nullptr;
    EXPECT_EQ(module.Path(), L"");
    EXPECT_EQ(module.DisplayName(), L"");
    EXPECT_EQ(module.Summary(), L"");
    EXPECT_FALSE(module.GetAllRules(rules));
    EXPECT_EQ(module.GetRule(nullptr), nullptr);
    module.SetXMLDoc(nullptr);
    module.SetDBModuleList({});
    EXPECT_FALSE(module.TakesRulesBack());
    EXPECT_FALSE(module.DeleteRule(rule));
}

TEST(RuleModuleTest, WhatAModuleThrowsEndsTheCallAndGoesIntoTheLog)
{
    const LoadedTestModule loaded = ThrowingModule();
    const RuleModule& module = loaded.module;
    const TemporaryFolder folder;
    CVantrelLog::OpenLogFile(folder.File(L"log"));
    ConcreteQOXRule rule;
    CQoxRule* pointer = &rule;
    PointerArray rules;
    EXPECT_EQ(module.DisplayName(), L"ThrowingModule.dll");
    EXPECT_EQ(module.Summary(), L"");
    EXPECT_TRUE(module.GetAllRules(rules));
    EXPECT_EQ(rules.GetSize(), 1) << "what was appended before stays";
    EXPECT_EQ(module.GetRule(nullptr), nullptr);
    module.SetXMLDoc(nullptr);
    module.SetDBModuleList({});
    EXPECT_TRUE(module.DeleteRule(pointer));
    EXPECT_EQ(pointer, nullptr) << "whether the rule still exists can't be known";
    CVantrelLog::CloseLogFile();

    const std::string log = ReadBytes(folder.File(L"log"));
    std::size_t lines = 0;
    for (std::size_t at = log.find("ThrowingModule.dll failed"); at != std::string::npos;
         at = log.find("ThrowingModule.dll failed", at + 1))
    {
        ++lines;
    }
    EXPECT_EQ(lines, 7U) << log;
}
