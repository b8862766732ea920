#include "Modules/ConfigFileValue.h"

#include "tests/Support/ScopedLocale.h"

#include <gtest/gtest.h>

TEST(ConfigFileValueTest, OrdinaryPathsStandInTheFile)
{
    const ScopedLocale locale("C.UTF-8");
    for (const wchar_t* const path : { L"/opt/rules/x.dll", L"C:\\Program Files\\Rules; #1=a]\\x.dll", L"", L"a",
                                       L"/R\u00E8gles/\u898F\u5247.dll" })
    {
        EXPECT_TRUE(CanStandInConfigFile(path)) << path;
    }
}

TEST(ConfigFileValueTest, PathsThatReadBackAsSomethingElseDoNot)
{
    for (const wchar_t* const path : { L"/a[b]/x", L"/a[b", L"[", L"/x ", L"/x\t", L"/x\n/y", L"/x\r" })
    {
        EXPECT_FALSE(CanStandInConfigFile(path)) << path;
    }
}

TEST(ConfigFileValueTest, LettersThatTheCodePageLacksDoNotStandInTheFile)
{
    const ScopedLocale locale("C");
    EXPECT_FALSE(CanStandInConfigFile(L"/\u898F\u5247"));
    EXPECT_TRUE(CanStandInConfigFile(L"/rules"));
}

TEST(ConfigFileValueTest, APercentSignIsFineInAFolderButBeginsAVariableInAModulesPath)
{
    EXPECT_TRUE(CanStandInConfigFile(L"/100%/x"));
    EXPECT_FALSE(CanBeConfiguredModule(L"/100%/x.dll"));
    EXPECT_TRUE(CanBeConfiguredModule(L"/100/x.dll"));
    EXPECT_FALSE(CanBeConfiguredModule(L"/1[0]0/x.dll"));
}
