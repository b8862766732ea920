#include "Application/HelpFile.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Support/FakeDesktop.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

namespace
{

std::wstring WithSeparators(std::wstring path)
{
    for (wchar_t& character : path)
    {
        character = character == L'/' ? Platform::PathSeparator : character;
    }
    return path;
}

} // namespace

TEST(HelpFileTest, TheHelpFileLiesInTheLowerCaseFolderOfTheLanguageBelowTheRoot)
{
    EXPECT_EQ(HelpFilePath(WithSeparators(L"/opt/Vantrel/bin/VantrelRuleBuilderu.exe"), L"zh_CN"),
              WithSeparators(L"/opt/Vantrel/lang/zh_CN/vantrel.chm"));
}

TEST(HelpFileTest, WithoutAFrameworkLibraryBesideTheProgramNoHelpIsShown)
{
    const TemporaryFolder folder;
    const FakeDesktop desktop;
    WriteBytes(folder.File(L"vantrel.chm"), "ITSF");
    EXPECT_FALSE(ShowHelpFile(WithSeparators(folder.File(L"bin/VantrelRuleBuilderu.exe")), folder.File(L"vantrel.chm"),
                              HelpTopic::Overview));
}

TEST(HelpFileTest, AHelpFileThatIsMissingIsNotShown)
{
    EXPECT_FALSE(ShowHelpFile(STAGED_PROGRAM, HelpFilePath(STAGED_PROGRAM, L"klingon"), HelpTopic::Overview));
}

TEST(HelpFileTest, EachLanguageShowsTheTopicFromItsOwnFolder)
{
    for (const std::wstring language : { L"english", L"zh_TW" })
    {
        FakeDesktop desktop;
        EXPECT_TRUE(ShowHelpFile(STAGED_PROGRAM, HelpFilePath(STAGED_PROGRAM, language), HelpTopic::EnterPassword));
        const std::string target = desktop.WaitForTarget();
        EXPECT_TRUE(target.starts_with("file:///")) << target;
        EXPECT_TRUE(target.ends_with("/Lang/" + Platform::WideToUtf8(language) + "/help/enter-password.html"))
            << target;
    }
}
