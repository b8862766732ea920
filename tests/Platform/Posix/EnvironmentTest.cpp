#include "Platform/Environment.h"

#include "Platform/Registry.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace Platform;

namespace
{

TEST(EnvironmentTest, NamesAreComparedWithoutCase)
{
    const ScopedVariable variable("Vantrel_Test_Value", L"D:\\\u00E9");
    EXPECT_EQ(EnvironmentVariable(L"Vantrel_Test_Value"), L"D:\\\u00E9");
    EXPECT_EQ(EnvironmentVariable(L"VANTREL_TEST_VALUE"), L"D:\\\u00E9");
}

TEST(EnvironmentTest, NameAsItIsWrittenGoesFirst)
{
    const ScopedVariable lower("vantrel_test_value", L"lower");
    const ScopedVariable upper("VANTREL_TEST_VALUE", L"upper");
    EXPECT_EQ(EnvironmentVariable(L"vantrel_test_value"), L"lower");
    EXPECT_EQ(EnvironmentVariable(L"VANTREL_TEST_VALUE"), L"upper");
}

TEST(EnvironmentTest, MissingOrUnnamedVariableGivesNothing)
{
    EXPECT_FALSE(EnvironmentVariable(L"VANTREL_TEST_MISSING"));
    EXPECT_FALSE(EnvironmentVariable(L""));
    const ScopedVariable variable("VANTREL_TEST_VALUE", L"a=b");
    EXPECT_FALSE(EnvironmentVariable(L"VANTREL_TEST_VALUE=a"));
    EXPECT_FALSE(EnvironmentVariable(L"VANTREL_TEST_VALU"));
    EXPECT_EQ(EnvironmentVariable(L"VANTREL_TEST_VALUE"), L"a=b");
}

TEST(EnvironmentTest, EmptyVariableIsSet)
{
    const ScopedVariable variable("VANTREL_TEST_VALUE", L"");
    EXPECT_EQ(EnvironmentVariable(L"VANTREL_TEST_VALUE"), L"");
}

TEST(EnvironmentTest, AppdataFallsBackToTheConfigurationFolder)
{
    const ScopedVariable appdata("appdata", std::nullopt);
    const ScopedVariable upper("APPDATA", std::nullopt);
    const ScopedVariable home("HOME", L"/home/someone");
    {
        const ScopedVariable configuration("XDG_CONFIG_HOME", L"/somewhere/config/");
        EXPECT_EQ(EnvironmentVariable(L"appdata"), L"/somewhere/config");
        EXPECT_EQ(EnvironmentVariable(L"APPDATA"), L"/somewhere/config");
    }
    const ScopedVariable relative("XDG_CONFIG_HOME", L"config");
    EXPECT_EQ(EnvironmentVariable(L"appdata"), L"/home/someone/.config");
    const ScopedVariable set("APPDATA", L"/set");
    EXPECT_EQ(EnvironmentVariable(L"appdata"), L"/set");
}

TEST(EnvironmentTest, TempFallsBackToTheTemporaryFolder)
{
    const ::TemporaryFolder folder;
    const ScopedVariable temp("TEMP", std::nullopt);
    const ScopedVariable base("TMPDIR", folder.Path() + L"/");
    EXPECT_EQ(EnvironmentVariable(L"TEMP"), folder.Path());
    const ScopedVariable set("TEMP", L"/set");
    EXPECT_EQ(EnvironmentVariable(L"temp"), L"/set");
}

TEST(EnvironmentTest, StoredVariablesAreTakenOverWhereTheProcessHasNone)
{
    const ::TemporaryFolder folder;
    const ScopedVariable configuration("XDG_CONFIG_HOME", folder.Path());
    const ScopedVariable stored("VANTREL_TEST_STORED", std::nullopt);
    const ScopedVariable known("VANTREL_TEST_KNOWN", L"of the process");
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"Environment", L"VANTREL_TEST_STORED", L"/data \u00E9"));
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"Environment", L"vantrel_test_known", L"stored"));
    ASSERT_TRUE(WriteRegistryNumber(RegistryRoot::CurrentUser, L"Environment", L"VANTREL_TEST_NUMBER", 1));
    ASSERT_TRUE(WriteRegistryText(RegistryRoot::CurrentUser, L"Environment", L"a=b", L"not a name"));
    TakeOverStoredEnvironment();
    EXPECT_EQ(EnvironmentVariable(L"VANTREL_TEST_STORED"), L"/data \u00E9");
    EXPECT_EQ(EnvironmentVariable(L"VANTREL_TEST_KNOWN"), L"of the process");
    EXPECT_FALSE(EnvironmentVariable(L"VANTREL_TEST_NUMBER"));
    EXPECT_FALSE(EnvironmentVariable(L"a"));
}

} // namespace
