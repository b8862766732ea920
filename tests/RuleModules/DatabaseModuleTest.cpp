#include "tests/RuleModules/LoadedModule.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/RuleDatabase.h>

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

TEST(DatabaseModule, ShippedDatabaseHasMaterialsOfEachGroup)
{
    const OpenDatabase database(OpenRuleDatabase({ StagedDatabase() }));
    ASSERT_NE(database, nullptr);
    std::size_t sum = 0;
    for (const wchar_t* const group : { L"metal", L"sheet", L"plastic" })
    {
        std::list<std::wstring> names;
        database->GetMaterialNames(group, names);
        EXPECT_GE(names.size(), 10U);
        sum += names.size();
        for (const std::wstring& name : names)
        {
            double density = 0;
            EXPECT_TRUE(database->GetMaterialProperty(name, L"density", density));
            EXPECT_TRUE(density > 0.5 && density < 20) << density;
        }
    }
    std::list<std::wstring> all;
    database->GetMaterialNames(L"", all);
    EXPECT_EQ(all.size(), sum);
    EXPECT_GE(sum, 40U);
}

TEST(DatabaseModule, ShippedDatabaseHasThePropertiesOfEachProcess)
{
    const OpenDatabase database(OpenRuleDatabase({ StagedDatabase() }));
    ASSERT_NE(database, nullptr);
    const auto expectProperties = [&database](const wchar_t* group, std::initializer_list<const wchar_t*> properties)
    {
        std::list<std::wstring> names;
        database->GetMaterialNames(group, names);
        for (const std::wstring& name : names)
        {
            for (const wchar_t* const property : properties)
            {
                double value = 0;
                EXPECT_TRUE(database->GetMaterialProperty(name, property, value))
                    << testing::PrintToString(name) << ' ' << testing::PrintToString(std::wstring(property));
                EXPECT_GT(value, 0);
            }
        }
    };
    expectProperties(L"metal", { L"tensile_strength", L"wall_thickness_min" });
    expectProperties(L"sheet", { L"tensile_strength", L"min_bend_radius_factor", L"k_factor" });
    expectProperties(L"plastic", { L"wall_thickness_min", L"wall_thickness_max", L"shrinkage_min", L"shrinkage_max" });
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

TEST_F(DatabaseModuleInItsFolder, CorruptFileLeavesTheBuiltInMaterials)
{
    WriteBytes(m_folder.File(L"VantrelRules.sqlite"), std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    ASSERT_TRUE(LoadedModule(m_module).IsLoaded());
    EXPECT_EQ(OpenRuleDatabase({ m_module }), nullptr);

    const LoadedModule rules(StagedLibrary(L"QOXIMRulesu.dll"));
    ASSERT_TRUE(rules.IsLoaded());
    const std::list<std::wstring> databases = { m_module };
    rules.Export<SetDBModuleListFunction>("SetDBModuleList")(&databases);
    const OfferedRules offered(rules);
    ASSERT_GE(offered.rules.GetSize(), 1);
    const CQoxParamStorage* const material = offered.rules[0]->FindParameterInArray(3);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->choices.size(), 6U);
    EXPECT_EQ(material->strValue, L"ABS");
}

} // namespace
