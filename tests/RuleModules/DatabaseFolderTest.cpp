#include "RuleModules/SqliteDatabase/SqliteHandles.h"

#include "Platform/Text.h"
#include "tests/RuleModules/LoadedModule.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/RuleDatabase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;

std::list<std::wstring> MetalsOfTheDatabase()
{
    std::list<std::wstring> names;
    if (IRuleDatabase* const database = OpenRuleDatabase({ StagedLibrary(L"QoxSqliteDatabaseu.dll") }))
    {
        database->GetNames(L"materials", L"metal", names);
        CloseRuleDatabase(database);
    }
    return names;
}

/// A folder with a database of its own, named by the variable.
class DatabaseFolderTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const std::string path = Platform::WideToUtf8(m_folder.File(L"VantrelRules.sqlite"));
        const SqliteDatabase database = OpenSqlite(path.c_str(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        ASSERT_NE(database, nullptr);
        ASSERT_EQ(sqlite3_exec(database.get(),
                               "CREATE TABLE materials (name TEXT, material_group TEXT, density REAL);"
                               "INSERT INTO materials VALUES ('Unobtainium', 'metal', 1.5),"
                               "('Adamant', 'metal', 9.5), ('Ambroid', 'plastic', 1.1);",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK);
    }

    TemporaryFolder m_folder;
    ScopedEnvironment m_variable{ "VANTREL_DATABASE_DIR", m_folder.Path() };
};

TEST_F(DatabaseFolderTest, VariableGoesBeforeTheFolderOfTheModule)
{
    EXPECT_THAT(MetalsOfTheDatabase(), ElementsAre(L"Adamant", L"Unobtainium"));
}

TEST_F(DatabaseFolderTest, FolderWithoutADatabaseMeansNone)
{
    const TemporaryFolder empty;
    const ScopedEnvironment variable("VANTREL_DATABASE_DIR", empty.Path());
    EXPECT_THAT(MetalsOfTheDatabase(), ElementsAre());
}

TEST_F(DatabaseFolderTest, EmptyVariableCountsAsNotSet)
{
    const ScopedEnvironment variable("VANTREL_DATABASE_DIR", L"");
    EXPECT_GT(MetalsOfTheDatabase().size(), 10U);
}

TEST_F(DatabaseFolderTest, RulesOfferTheMaterialsOfThatDatabase)
{
    const LoadedModule module(StagedLibrary(L"QoxMillRulesu.dll"));
    ASSERT_TRUE(module.IsLoaded());
    const std::list<std::wstring> databases = { StagedLibrary(L"QoxSqliteDatabaseu.dll") };
    module.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
    const OfferedRules offered(module);
    ASSERT_GE(offered.rules.GetSize(), 1);
    const CQoxParamStorage* const material = offered.rules[0]->FindParameterInArray(3);
    ASSERT_NE(material, nullptr);
    EXPECT_THAT(material->choices, ElementsAre(L"Adamant", L"Unobtainium"));
    EXPECT_EQ(material->strValue, L"Adamant");
}

} // namespace
