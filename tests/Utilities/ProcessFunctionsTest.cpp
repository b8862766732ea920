#include "Utilities/ProcessFunctions.h"

#include "Platform/Files.h"
#include "Platform/Process.h"

#include <gtest/gtest.h>

TEST(ProcessFunctionsTest, ANameMustHave1To259Characters)
{
    EXPECT_EQ(KillProcessByName(""), 632u);
    EXPECT_EQ(KillProcessByName(std::string(260, 'x')), 632u);
    EXPECT_EQ(KillProcessByName(std::string(259, 'x')), 603u) << "no process is called so";
}

TEST(ProcessFunctionsTest, APathIsNoProcessName)
{
    EXPECT_EQ(KillProcessByName("/no/such/program"), 603u);
}

TEST(ProcessFunctionsTest, ALoadedLibraryTellsItsPathFolderAndName)
{
    const Platform::LibraryHandle framework = Platform::FindLoadedLibrary(L"vantrelframeworku.dll");
    ASSERT_NE(framework, nullptr);
    EXPECT_EQ(GetModulePath(framework), Platform::LibraryPath(framework));
    EXPECT_EQ(GetModuleName(framework), L"vantrelframeworku.dll");
    EXPECT_EQ(GetModuleFolder(framework) + Platform::PathSeparator + GetModuleName(framework),
              GetModulePath(framework));
}

TEST(ProcessFunctionsTest, ANullHandleHasNoNameButThePathOfTheProgram)
{
    EXPECT_EQ(GetModuleName(nullptr), L"");
    EXPECT_EQ(GetModulePath(nullptr), Platform::ProgramPath());
    EXPECT_EQ(GetModuleFolder(nullptr), Platform::ProgramFolder());
}
