#include "Modules/ModuleSet.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Modules/ModuleSetFixture.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/QoxXml.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <stdexcept>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

class ModuleSetTest : public ModuleSetFixture
{
protected:
    /// A file of the name as a library of either system would be called.
    std::wstring FakeLibrary(const std::wstring& name, const std::string& bytes) const
    {
        WriteBytes(m_folder.File(name + L".so"), bytes);
        WriteBytes(m_folder.File(name + L".dll"), bytes);
        return m_folder.File(name + L".dll");
    }

    static std::string BytesOfModule(const std::wstring& name)
    {
        const std::filesystem::path folder =
            Platform::NativePath(Platform::FolderPart(TestModulePath(L"TestModuleComplete")));
        for (const auto& entry : std::filesystem::directory_iterator(folder))
        {
            if (entry.path().stem() == Platform::NativePath(name))
            {
                return ReadBytes(entry.path().wstring());
            }
        }
        throw std::runtime_error("no module of that name");
    }
};

constexpr const wchar_t* Complete = L"TestModuleComplete";
constexpr const wchar_t* Second = L"TestModuleSecond";
constexpr const wchar_t* NoName = L"TestModuleNoName";
constexpr const wchar_t* NoRules = L"TestModuleNoRules";
constexpr const wchar_t* Database = L"TestDatabaseComplete";

} // namespace

TEST_F(ModuleSetTest, AFreshSetHasNothing)
{
    EXPECT_THAT(m_modules.ConfigModules(), IsEmpty());
    EXPECT_THAT(m_modules.DBModules(), IsEmpty());
    Configure({});
    EXPECT_THAT(Loaded(), IsEmpty());
    EXPECT_THAT(m_toFree, IsEmpty());
}

TEST_F(ModuleSetTest, AtStartModulesAreLoadedInTheOrderOfTheList)
{
    Configure({ Second, NoName, Complete });
    EXPECT_THAT(Loaded(), ElementsAre(Second, NoName, Complete));
    EXPECT_THAT(m_toFree, IsEmpty());
}

TEST_F(ModuleSetTest, PathsInLowerCaseFindFilesInAnyCase)
{
    Configure({ Complete });
    ASSERT_THAT(m_modules.ConfigModules(), SizeIs(1));
    EXPECT_EQ(Platform::LibraryPath(m_modules.ConfigModules().front()), TestModulePath(Complete));
    EXPECT_NE(m_modules.ConfigModulePaths().front(), TestModulePath(Complete));
}

TEST_F(ModuleSetTest, LoadingCallsNothingInAModule)
{
    Configure({ Complete, Second });
    ConfigureDatabases({ Database });
    EXPECT_EQ(Journal(), "");
}

TEST_F(ModuleSetTest, AModuleWithoutTheRequiredExportsIsLoadedAtStart)
{
    Configure({ L"TestModuleEmpty", L"TestModuleNoGetAllRules" });
    EXPECT_THAT(Loaded(), ElementsAre(L"TestModuleEmpty", L"TestModuleNoGetAllRules"));
}

TEST_F(ModuleSetTest, WhatCanNotBeLoadedIsSkipped)
{
    ASSERT_TRUE(Platform::MakeFolder(m_folder.File(L"folder.dll")));
    ASSERT_TRUE(Platform::MakeFolder(m_folder.File(L"folder.so")));
    const std::string module = BytesOfModule(Complete);
    m_modules.ConfigModulePaths() = {
        Platform::ToLower(m_folder.File(L"missing.dll")),
        Platform::ToLower(m_folder.File(L"folder.dll")),
        Platform::ToLower(m_folder.Path()),
        Platform::ToLower(FakeLibrary(L"text", "module1=x\n")),
        Platform::ToLower(FakeLibrary(L"empty", "")),
        Platform::ToLower(FakeLibrary(L"page", module.substr(0, 4096))),
        Platform::ToLower(FakeLibrary(L"head", module.substr(0, 64))),
        L"",
        L"no such library by name.dll",
        L"unset%\\x.dll",
        Platform::ToLower(TestModulePath(Second)),
        std::wstring(100'000, L'x'),
    };
    m_modules.LoadConfigModules(m_toFree);
    EXPECT_THAT(Loaded(), ElementsAre(Second));
    EXPECT_THAT(m_toFree, IsEmpty());
}

TEST_F(ModuleSetTest, SurvivorsKeepTheirOrderAndTheirHandlesAndNewModulesComeBehindThem)
{
    Configure({ Complete, Second, NoName });
    const ModuleSet::Handles before = m_modules.ConfigModules();
    Configure({ NoRules, NoName, Complete });
    EXPECT_THAT(Loaded(), ElementsAre(Complete, NoName, NoRules));
    EXPECT_EQ(m_modules.ConfigModules()[0], before[0]);
    EXPECT_EQ(m_modules.ConfigModules()[1], before[2]);
    EXPECT_THAT(NamesOf(m_toFree), ElementsAre(Second));
}

TEST_F(ModuleSetTest, WhatHasLeftGoesIntoTheArrayLastToFirstAndStaysLoadedUntilItIsFreed)
{
    Configure({ Complete, Second, NoName });
    Configure({ Second });
    EXPECT_THAT(NamesOf(m_toFree), ElementsAre(NoName, Complete));
    EXPECT_NE(HandleOf(Complete), nullptr);
    EXPECT_NE(HandleOf(NoName), nullptr);

    ModuleSet::FreeModules(m_toFree);
    EXPECT_THAT(m_toFree, IsEmpty());
    EXPECT_EQ(HandleOf(Complete), nullptr);
    EXPECT_EQ(HandleOf(NoName), nullptr);
    EXPECT_NE(HandleOf(Second), nullptr);
}

TEST_F(ModuleSetTest, WhatStandsInTheArrayOfModulesToFreeStaysInIt)
{
    Configure({ Complete });
    Configure({ Second });
    Configure({});
    EXPECT_THAT(NamesOf(m_toFree), ElementsAre(Complete, Second));
}

TEST_F(ModuleSetTest, LoadingAgainTakesNoFurtherLoadOfASurvivor)
{
    Configure({ Complete });
    Configure({ Complete });
    Configure({ Complete });
    Configure({});
    ModuleSet::FreeModules(m_toFree);
    EXPECT_EQ(HandleOf(Complete), nullptr) << "one release is enough";
}

TEST_F(ModuleSetTest, AModuleThatComesBackIsLoadedAnew)
{
    Configure({ Complete, Second });
    Configure({ Second });
    ModuleSet::FreeModules(m_toFree);
    Configure({ Complete, Second });
    EXPECT_THAT(Loaded(), ElementsAre(Second, Complete));
}

TEST_F(ModuleSetTest, AModuleThatComesBackBeforeItIsFreedStaysLoaded)
{
    Configure({ Complete });
    Configure({});
    Configure({ Complete });
    ModuleSet::FreeModules(m_toFree);
    EXPECT_NE(HandleOf(Complete), nullptr);
    EXPECT_THAT(Loaded(), ElementsAre(Complete));
}

TEST_F(ModuleSetTest, APathThatIsListedTwiceIsOneLibraryAndLeavesAsOne)
{
    // Two spellings that differ in case only are one path in the list, which has none. Each
    // line of the list is a place in the array; the library is one, and so are its rules.
    Configure({ Complete, L"TESTMODULECOMPLETE" });
    ASSERT_EQ(m_modules.ConfigModules().size(), 2U);
    EXPECT_EQ(m_modules.ConfigModules()[0], HandleOf(Complete));
    EXPECT_EQ(m_modules.ConfigModules()[1], HandleOf(Complete));
    Configure({});
    ModuleSet::FreeModules(m_toFree);
    EXPECT_EQ(HandleOf(Complete), nullptr);
}

TEST_F(ModuleSetTest, FreeingNothingIsHarmless)
{
    m_toFree = { nullptr, nullptr };
    ModuleSet::FreeModules(m_toFree);
    EXPECT_THAT(m_toFree, IsEmpty());
    ModuleSet::FreeModules(m_toFree);
    EXPECT_THAT(m_toFree, IsEmpty());
}

TEST_F(ModuleSetTest, RuleModulesAndDatabaseModulesDoNotTouchEachOther)
{
    Configure({ Complete });
    ConfigureDatabases({ Database, L"TestDatabaseNull" });
    EXPECT_THAT(Loaded(), ElementsAre(Complete));
    EXPECT_THAT(LoadedDatabases(), ElementsAre(Database, L"TestDatabaseNull"));
    ConfigureDatabases({ L"TestDatabaseNull" });
    EXPECT_THAT(NamesOf(m_toFree), ElementsAre(Database));
    EXPECT_THAT(Loaded(), ElementsAre(Complete));
    Configure({});
    EXPECT_THAT(LoadedDatabases(), ElementsAre(L"TestDatabaseNull"));
}

TEST_F(ModuleSetTest, TheListOfDatabaseModulesGoesToEveryRuleModuleFirstToLast)
{
    Configure({ Second, L"TestModuleNoSetDBModuleList", Complete });
    ConfigureDatabases({ Database, L"MissingDatabase" });
    m_modules.UpdateDBModuleList();
    EXPECT_EQ(Journal(), "TestModuleSecond SetDBModuleList\nTestModuleComplete SetDBModuleList\n");
    for (const wchar_t* const name : { Complete, Second })
    {
        std::list<std::wstring> databases;
        TestModuleFunction<TestModuleDatabaseModulesFunction>(name, "TestModuleDatabaseModules")(databases);
        EXPECT_EQ(databases, m_modules.DBModulePaths()) << "the configured ones, loaded or not";
    }
}

TEST_F(ModuleSetTest, AnEmptyListOfDatabaseModulesIsToldLikeAnother)
{
    Configure({ Complete });
    ConfigureDatabases({ Database });
    m_modules.UpdateDBModuleList();
    ConfigureDatabases({});
    m_modules.UpdateDBModuleList();
    std::list<std::wstring> databases = { L"left over" };
    TestModuleFunction<TestModuleDatabaseModulesFunction>(Complete, "TestModuleDatabaseModules")(databases);
    EXPECT_THAT(databases, IsEmpty());
}

TEST_F(ModuleSetTest, TheDocumentGoesToEveryRuleModuleFirstToLast)
{
    Configure({ Second, L"TestModuleNoSetXMLDoc", L"TestModuleEmpty", Complete });
    QoxXMLDocument document;
    m_modules.SetXMLDoc(&document);
    EXPECT_EQ(Journal(), "TestModuleSecond SetXMLDoc\nTestModuleComplete SetXMLDoc\n");
    const auto documentOf = [](const wchar_t* name)
    { return TestModuleFunction<TestModuleDocumentFunction>(name, "TestModuleDocument")(); };
    EXPECT_EQ(documentOf(Second), &document);
    EXPECT_EQ(documentOf(Complete), &document);
    m_modules.SetXMLDoc(nullptr);
    EXPECT_EQ(documentOf(Complete), nullptr);
}

TEST_F(ModuleSetTest, AConfiguredPathIsKnownInAnyCaseLoadedOrNot)
{
    Configure({ Complete, L"NotThere" });
    EXPECT_TRUE(m_modules.IsConfigured(TestModulePath(Complete)));
    EXPECT_TRUE(m_modules.IsConfigured(Platform::ToLower(TestModulePath(L"NOTTHERE"))));
    EXPECT_FALSE(m_modules.IsConfigured(TestModulePath(Second)));
    EXPECT_FALSE(m_modules.IsConfigured(L"TestModuleComplete.dll"));
    EXPECT_FALSE(m_modules.IsConfigured(L""));
}
