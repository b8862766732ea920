#include "RuleModules/SqliteDatabase/RuleTableDatabase.h"

#include "Platform/Text.h"
#include "RuleModules/SqliteDatabase/SqliteHandles.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;

class RuleTablesTest : public testing::Test
{
protected:
    std::wstring File() const { return m_folder.File(L"materials.sqlite"); }

    SqliteDatabase OpenForWriting() const
    {
        return OpenSqlite(Platform::WideToUtf8(File()).c_str(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    }

    void Make(const char* script) const
    {
        const SqliteDatabase database = OpenForWriting();
        ASSERT_NE(database, nullptr);
        ASSERT_EQ(sqlite3_exec(database.get(), script, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database.get());
    }

    static std::list<std::wstring> Names(RuleTableDatabase& database, const std::wstring& group)
    {
        std::list<std::wstring> names;
        database.GetNames(L"materials", group, names);
        return names;
    }

    /// The database of a file, or null; what was wrong with it is in `m_problem`.
    std::unique_ptr<RuleTableDatabase> Open(const std::wstring& path)
    {
        std::shared_ptr<const RuleTables> tables = ReadRuleTables(path, m_problem);
        return tables != nullptr ? std::make_unique<RuleTableDatabase>(std::move(tables)) : nullptr;
    }

    TemporaryFolder m_folder;
    RuleTableProblem m_problem = RuleTableProblem::None;
};

constexpr const char* SmallTable =
    "CREATE TABLE materials (name TEXT, material_group TEXT, density REAL, hardness REAL, note TEXT);"
    "INSERT INTO materials VALUES ('zinc', 'metal', 7.1, NULL, '12'), ('Brass', 'metal', 8.4, 90, 'x'),"
    "('copper', 'metal', 9e999, 40, 'x'), ('ABS', 'plastic', 1, 3, 'x'), (NULL, 'metal', 1, 1, 'x'),"
    "('Acier inoxydable poli \xc3\xa9 \xf0\x9f\x94\xa9', 'sheet', 7.9, 1, 'x');";

TEST_F(RuleTablesTest, GivesTheNamesOfAGroupInAlphabeticalOrder)
{
    Make(SmallTable);
    const auto database = Open(File());
    ASSERT_NE(database, nullptr);
    EXPECT_THAT(Names(*database, L"metal"), ElementsAre(L"Brass", L"copper", L"zinc"));
    EXPECT_THAT(Names(*database, L"plastic"), ElementsAre(L"ABS"));
    EXPECT_THAT(Names(*database, L"stone"), ElementsAre());
    EXPECT_EQ(Names(*database, L"").size(), 5U);
}

TEST_F(RuleTablesTest, ForgetsWhatTheListHeldBefore)
{
    Make(SmallTable);
    const auto database = Open(File());
    std::list<std::wstring> names = { L"old" };
    database->GetNames(L"materials", L"stone", names);
    EXPECT_TRUE(names.empty());
}

TEST_F(RuleTablesTest, NamesBeyondAsciiSurvive)
{
    Make(SmallTable);
    const auto database = Open(File());
    EXPECT_THAT(Names(*database, L"sheet"),
                ElementsAre(Platform::Utf8ToWide("Acier inoxydable poli \xc3\xa9 \xf0\x9f\x94\xa9")));
}

TEST_F(RuleTablesTest, PropertiesAreTheNumericColumns)
{
    Make(SmallTable);
    const auto database = Open(File());
    double value = -1;
    EXPECT_TRUE(database->GetProperty(L"materials", L"Brass", L"density", value));
    EXPECT_EQ(value, 8.4);
    EXPECT_TRUE(database->GetProperty(L"materials", L"Brass", L"hardness", value));
    EXPECT_EQ(value, 90);
}

TEST_F(RuleTablesTest, UnknownPropertyLeavesTheValueUntouched)
{
    Make(SmallTable);
    const auto database = Open(File());
    double value = -1;
    EXPECT_FALSE(database->GetProperty(L"materials", L"zinc", L"hardness", value)) << "null in the table";
    EXPECT_FALSE(database->GetProperty(L"materials", L"zinc", L"note", value)) << "a text";
    EXPECT_FALSE(database->GetProperty(L"materials", L"copper", L"density", value)) << "infinite";
    EXPECT_FALSE(database->GetProperty(L"materials", L"zinc", L"colour", value));
    EXPECT_FALSE(database->GetProperty(L"materials", L"tin", L"density", value));
    EXPECT_EQ(value, -1);
}

TEST_F(RuleTablesTest, MissingFileIsNoDatabaseAndIsNotMade)
{
    EXPECT_EQ(Open(File()), nullptr);
    EXPECT_EQ(Open(m_folder.Path()), nullptr);
    EXPECT_EQ(Open(L""), nullptr);
    EXPECT_EQ(m_problem, RuleTableProblem::Missing);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(File())));
}

TEST_F(RuleTablesTest, FileOfAnotherKindIsNoDatabase)
{
    for (const std::string& bytes : { std::string(), std::string("not a database"), std::string(100'000, '\xff'),
                                      "SQLite format 3" + std::string(1, '\0') + " and then nothing of it" })
    {
        WriteBytes(File(), bytes);
        EXPECT_EQ(Open(File()), nullptr);
        EXPECT_TRUE(m_problem == RuleTableProblem::Damaged || m_problem == RuleTableProblem::NoMaterials);
    }
}

TEST_F(RuleTablesTest, DatabaseWithoutTheTableIsNone)
{
    Make("CREATE TABLE others (name TEXT);");
    EXPECT_EQ(Open(File()), nullptr);
    EXPECT_EQ(m_problem, RuleTableProblem::NoMaterials);
}

TEST_F(RuleTablesTest, CutOrDamagedFileGivesNoHalfList)
{
    std::string script = "CREATE TABLE materials (name TEXT, material_group TEXT);";
    for (int number = 0; number < 500; ++number)
    {
        script += "INSERT INTO materials VALUES ('material number " + std::to_string(number) + "', 'metal');";
    }
    Make(script.c_str());
    const std::string whole = ReadBytes(File());
    ASSERT_GT(whole.size(), 8192U);
    for (std::size_t length = 0; length < whole.size(); length += 256)
    {
        WriteBytes(File(), whole.substr(0, length));
        EXPECT_EQ(Open(File()), nullptr) << length;
    }
    for (std::size_t offset = 0; offset < whole.size(); offset += 101)
    {
        std::string damaged = whole;
        damaged[offset] = static_cast<char>(~damaged[offset]);
        WriteBytes(File(), damaged);
        // A changed letter goes unseen; what is read has to stay bounded and whole.
        if (const auto database = Open(File()))
        {
            EXPECT_LE(Names(*database, L"").size(), 10'000U);
        }
    }
    WriteBytes(File(), whole);
    EXPECT_NE(Open(File()), nullptr);
}

TEST_F(RuleTablesTest, FileOfUnreasonableSizeIsNotRead)
{
    Make(SmallTable);
    std::filesystem::resize_file(std::filesystem::path(File()), 100'000'000);
    EXPECT_EQ(Open(File()), nullptr);
    EXPECT_EQ(m_problem, RuleTableProblem::TooLarge);
}

TEST_F(RuleTablesTest, EndlessViewInPlaceOfTheTableIsGivenUp)
{
    Make("CREATE VIEW materials AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n)"
         " SELECT 'm' || x AS name, 'metal' AS material_group FROM n;");
    EXPECT_EQ(Open(File()), nullptr);
}

TEST_F(RuleTablesTest, LockedFileIsNoDatabaseUntilItIsFree)
{
    Make(SmallTable);
    {
        const SqliteDatabase holder = OpenForWriting();
        ASSERT_EQ(sqlite3_exec(holder.get(), "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
        EXPECT_EQ(Open(File()), nullptr);
    }
    EXPECT_NE(Open(File()), nullptr);
}

TEST_F(RuleTablesTest, FileIsFreeAgainOnceItWasRead)
{
    Make(SmallTable);
    const auto database = Open(File());
    ASSERT_NE(database, nullptr);
    Make("DELETE FROM materials");
    EXPECT_THAT(Names(*database, L"plastic"), ElementsAre(L"ABS"));
}

TEST_F(RuleTablesTest, OtherTablesKeepTheirOrderAndTheirOwnNames)
{
    Make("CREATE TABLE materials (name TEXT, material_group TEXT);"
         "CREATE TABLE drills (name TEXT, series TEXT, diameter REAL);"
         "INSERT INTO drills VALUES ('9 mm', 'metric', 9), ('10 mm', 'metric', 10), ('1/2 in', 'inch', 12.7),"
         " ('9 mm', 'metric', 99);"
         "CREATE TABLE tubes (name TEXT, diameter REAL); INSERT INTO tubes VALUES ('9 mm', 5);");
    const auto database = Open(File());
    ASSERT_NE(database, nullptr);
    std::list<std::wstring> names;
    database->GetNames(L"drills", L"metric", names);
    EXPECT_THAT(names, ElementsAre(L"9 mm", L"10 mm"));
    database->GetNames(L"drills", L"", names);
    EXPECT_THAT(names, ElementsAre(L"9 mm", L"10 mm", L"1/2 in"));
    double value = 0;
    EXPECT_TRUE(database->GetProperty(L"drills", L"9 mm", L"diameter", value));
    EXPECT_EQ(value, 9) << "of two entries with a name the first counts";
    EXPECT_TRUE(database->GetProperty(L"tubes", L"9 mm", L"diameter", value));
    EXPECT_EQ(value, 5);
}

TEST_F(RuleTablesTest, TableThatIsMissingIsEmpty)
{
    Make(SmallTable);
    const auto database = Open(File());
    std::list<std::wstring> names = { L"old" };
    database->GetNames(L"threads", L"", names);
    EXPECT_THAT(names, ElementsAre());
    double value = -1;
    EXPECT_FALSE(database->GetProperty(L"threads", L"M8", L"pitch", value));
    EXPECT_EQ(value, -1);
}

TEST_F(RuleTablesTest, OneDamagedTableSpoilsAllOfThem)
{
    Make("CREATE TABLE materials (name TEXT, material_group TEXT);"
         "CREATE VIEW tubes AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n WHERE x < 1e12)"
         " SELECT 'm' || max(x) AS name FROM n;");
    EXPECT_EQ(Open(File()), nullptr);
    EXPECT_EQ(m_problem, RuleTableProblem::Damaged);
}

} // namespace
