#include "Application/LogFolder.h"
#include "Platform/Files.h"
#include "tests/Support/ScopedEnvironment.h"

#include <gtest/gtest.h>

TEST(LogFolderTest, TheProgramsOwnVariableComesBeforeTheSystems)
{
    const ScopedEnvironment temp("TEMP", L"/temp");
    {
        const ScopedEnvironment own("VANTREL_TEMPFOLDER", L"/own");
        EXPECT_EQ(LogFolder(), L"/own");
    }
    const ScopedEnvironment empty("VANTREL_TEMPFOLDER", L"");
    EXPECT_EQ(LogFolder(), L"/temp");
}

TEST(LogFolderTest, TheFilesNameFollowsASeparator)
{
    EXPECT_EQ(LogFilePath(L"x"), std::wstring(L"x") + Platform::PathSeparator + L"Vantrel_RuleBuilder.vantrellog");
}
