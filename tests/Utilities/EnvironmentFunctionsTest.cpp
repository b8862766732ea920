#include "Utilities/EnvironmentFunctions.h"

#include "Platform/Registry.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace
{

constexpr const wchar_t* MachineKey = L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";
constexpr const wchar_t* UserKey = L"Environment";

std::optional<std::wstring> Stored(Platform::RegistryRoot root, const wchar_t* key)
{
    return Platform::ReadRegistryText(root, key, L"VANTREL_TEST_VALUE");
}

class EnvironmentFunctionsTest : public testing::Test
{
protected:
    TemporaryFolder folder;
    ScopedEnvironment settings{ "XDG_CONFIG_HOME", folder.Path() };
};

} // namespace

TEST_F(EnvironmentFunctionsTest, TheKeysAreThoseOfTheSystem)
{
    EXPECT_EQ(EnvironmentKeys().machine, MachineKey);
    EXPECT_EQ(EnvironmentKeys().user, UserKey);
}

TEST_F(EnvironmentFunctionsTest, EveryScopeBut0IsTheUsers)
{
    EXPECT_EQ(SetEnvironmentValue(L"VANTREL_TEST_VALUE", L"/data \u00E9", UserScope), 0);
    EXPECT_EQ(Stored(Platform::RegistryRoot::CurrentUser, UserKey), L"/data \u00E9");
    EXPECT_EQ(SetEnvironmentValue(L"VANTREL_TEST_VALUE", L"/other", 77), 0);
    EXPECT_EQ(Stored(Platform::RegistryRoot::CurrentUser, UserKey), L"/other");
    EXPECT_EQ(Stored(Platform::RegistryRoot::LocalMachine, MachineKey), std::nullopt);
}

TEST_F(EnvironmentFunctionsTest, TheMachinesStoreIsTheAdministratorsAlone)
{
    const bool mayWrite = CanWriteSoftwareKey() == 1;
    EXPECT_EQ(mayWrite, Platform::MayWriteRegistryKey(Platform::RegistryRoot::LocalMachine, L"SOFTWARE"));
    EXPECT_EQ(SetEnvironmentValue(L"VANTREL_TEST_VALUE", L"/data", MachineScope), 0)
        << "a store that can't be opened counts as no failure";
    EXPECT_EQ(Stored(Platform::RegistryRoot::LocalMachine, MachineKey).has_value(), mayWrite);
}

TEST_F(EnvironmentFunctionsTest, AValueThatTheStoreDoesNotTakeGives1)
{
    EXPECT_EQ(SetEnvironmentValue(L"VANTREL_TEST\nVALUE", L"/data", UserScope), 1);
    EXPECT_EQ(Stored(Platform::RegistryRoot::CurrentUser, UserKey), std::nullopt);
}

TEST_F(EnvironmentFunctionsTest, AnnouncingAChangeChangesNothing)
{
    SetEnvironmentValue(L"VANTREL_TEST_VALUE", L"/data", UserScope);
    BroadcastEnvironmentChange();
    EXPECT_EQ(Stored(Platform::RegistryRoot::CurrentUser, UserKey), L"/data");
}
