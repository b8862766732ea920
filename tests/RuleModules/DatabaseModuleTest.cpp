#include "tests/RuleModules/LoadedModule.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/RuleDatabase.h>
#include <Vantrel/VantrelLog.h>

#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

namespace
{

struct DatabaseCloser
{
    void operator()(IRuleDatabase* database) const { CloseRuleDatabase(database); }
};

using OpenDatabase = std::unique_ptr<IRuleDatabase, DatabaseCloser>;

const std::wstring& StagedDatabase()
{
    static const std::wstring path = StagedLibrary(L"QoxSqliteDatabaseu.dll");
    return path;
}

/// The file of the database module in the stage, by whatever suffix libraries have here.
std::filesystem::path DatabaseModuleFile()
{
    const std::filesystem::path folder = std::filesystem::path(VANTREL_STAGE_DIR) / "bin";
    for (const auto& entry : std::filesystem::directory_iterator(folder))
    {
        if (entry.path().stem() == "QoxSqliteDatabaseu" && entry.path().extension() != ".a")
        {
            return entry.path();
        }
    }
    return {};
}

TEST(DatabaseModule, HasBothExports)
{
    const LoadedModule module(StagedDatabase());
    ASSERT_TRUE(module.IsLoaded());
    EXPECT_TRUE(module.Has("GetDbInterface"));
    EXPECT_TRUE(module.Has("DeleteDbInterface"));
}

TEST(DatabaseModule, IsFoundByItsLowerCasedPath)
{
    std::wstring path = StagedDatabase();
    const std::size_t name = path.size() - std::wstring(L"QoxSqliteDatabaseu.dll").size();
    std::transform(path.begin() + static_cast<std::ptrdiff_t>(name), path.end(),
                   path.begin() + static_cast<std::ptrdiff_t>(name),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c))); });
    EXPECT_NE(OpenDatabase(OpenRuleDatabase({ path })), nullptr);
}

/// The module copied to a folder of its own, where it finds another file beside it.
class DatabaseModuleInItsFolder : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_FALSE(DatabaseModuleFile().empty());
        const std::filesystem::path copy = std::filesystem::path(m_folder.Path()) / DatabaseModuleFile().filename();
        std::filesystem::copy_file(DatabaseModuleFile(), copy);
        m_module = m_folder.File(L"QoxSqliteDatabaseu.dll");
    }

    TemporaryFolder m_folder;
    std::wstring m_module;
};

TEST_F(DatabaseModuleInItsFolder, FileBesideTheModuleIsTheDatabase)
{
    std::filesystem::copy_file(std::filesystem::path(VANTREL_STAGE_DIR) / "bin" / "VantrelRules.sqlite",
                               std::filesystem::path(m_folder.Path()) / "VantrelRules.sqlite");
    EXPECT_NE(OpenDatabase(OpenRuleDatabase({ m_module })), nullptr);
}

TEST_F(DatabaseModuleInItsFolder, WithoutAFileThereIsNoDatabase)
{
    ASSERT_TRUE(LoadedModule(m_module).IsLoaded());
    EXPECT_EQ(OpenRuleDatabase({ m_module }), nullptr);
}

TEST_F(DatabaseModuleInItsFolder, DamagedFileLeavesTheBuiltInChoicesAndOneLineInTheLog)
{
    WriteBytes(m_folder.File(L"VantrelRules.sqlite"), std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    const LoadedModule kept(m_module); // as the program keeps it
    ASSERT_TRUE(kept.IsLoaded());

    CVantrelLog::OpenLogFile(m_folder.File(L"log.txt"));
    EXPECT_EQ(OpenRuleDatabase({ m_module }), nullptr);
    const LoadedModule rules(StagedLibrary(L"QOXIMRulesu.dll"));
    ASSERT_TRUE(rules.IsLoaded());
    const std::list<std::wstring> databases = { m_module };
    rules.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
    const OfferedRules offered(rules);
    CVantrelLog::CloseLogFile();

    ASSERT_GE(offered.rules.GetSize(), 1);
    const CQoxParamStorage* const material = offered.rules[0]->FindParameterInArray(3);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->choices.size(), 6U);
    EXPECT_EQ(material->strValue, L"ABS");
    const std::string log = ReadBytes(m_folder.File(L"log.txt"));
    const std::size_t line = log.find("VantrelRules.sqlite\" is damaged, or it is no database.");
    EXPECT_NE(line, std::string::npos) << log;
    EXPECT_EQ(log.find("VantrelRules.sqlite", line + 1), std::string::npos) << log;
}

TEST_F(DatabaseModuleInItsFolder, FileThatWasRepairedIsReadAgain)
{
    const LoadedModule kept(m_module);
    ASSERT_TRUE(kept.IsLoaded());
    WriteBytes(m_folder.File(L"VantrelRules.sqlite"), "not a database");
    EXPECT_EQ(OpenRuleDatabase({ m_module }), nullptr);
    std::filesystem::copy_file(std::filesystem::path(VANTREL_STAGE_DIR) / "bin" / "VantrelRules.sqlite",
                               std::filesystem::path(m_folder.Path()) / "VantrelRules.sqlite",
                               std::filesystem::copy_options::overwrite_existing);
    EXPECT_NE(OpenDatabase(OpenRuleDatabase({ m_module })), nullptr);
    std::filesystem::remove(std::filesystem::path(m_folder.Path()) / "VantrelRules.sqlite");
    EXPECT_EQ(OpenRuleDatabase({ m_module }), nullptr);
}

} // namespace
