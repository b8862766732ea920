#include "Platform/Process.h"

#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/FakeDesktop.h"
#include "tests/Support/TemporaryFolder.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>

using namespace Platform;

namespace
{

TEST(ProcessTest, ProgramIsTheRunningFile)
{
    EXPECT_EQ(NativePath(ProgramPath()), std::filesystem::read_symlink("/proc/self/exe"));
    EXPECT_EQ(ProgramFolder() + L"/" + FileNamePart(ProgramPath()), ProgramPath());
    EXPECT_TRUE(FolderExists(ProgramFolder()));
}

TEST(ProcessTest, TheUserHasTheNameThatTheSystemTells)
{
    std::FILE* const command = ::popen("id -un", "r");
    ASSERT_NE(command, nullptr);
    std::array<char, 256> line = {};
    const bool told = std::fgets(line.data(), line.size(), command) != nullptr;
    ::pclose(command);
    if (!told)
    {
        GTEST_SKIP() << "the user has no name on this machine";
    }
    EXPECT_EQ(Platform::UserName() + L"\n", Platform::Posix::PathText(line.data()));
}

TEST(ProcessTest, UserFoldersFollowTheirVariables)
{
    const ScopedVariable home("HOME", L"/home/someone");
    {
        const ScopedVariable data("XDG_DATA_HOME", L"/d/");
        const ScopedVariable configuration("XDG_CONFIG_HOME", L"/c");
        EXPECT_EQ(UserDataFolder(), L"/d/vantrel/");
        EXPECT_EQ(UserConfigurationFolder(), L"/c/vantrel");
    }
    for (const std::optional<std::wstring>& none :
         { std::optional<std::wstring>(), std::optional<std::wstring>(L""), std::optional<std::wstring>(L"relative") })
    {
        const ScopedVariable data("XDG_DATA_HOME", none);
        const ScopedVariable configuration("XDG_CONFIG_HOME", none);
        EXPECT_EQ(UserDataFolder(), L"/home/someone/.local/share/vantrel/");
        EXPECT_EQ(UserConfigurationFolder(), L"/home/someone/.config/vantrel");
    }
}

TEST(ProcessTest, HomeIsKnownWithoutItsVariable)
{
    const ScopedVariable home("HOME", std::nullopt);
    const ScopedVariable data("XDG_DATA_HOME", std::nullopt);
    EXPECT_TRUE(IsAbsolutePath(UserDataFolder()));
    EXPECT_TRUE(UserDataFolder().ends_with(L"/.local/share/vantrel/"));
}

TEST(ProcessTest, LocaleThatIsNotInstalledStillHoldsAllText)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const ScopedVariable locale("LC_ALL", L"xx_XX.nonsense");
    UseUserLocale();
    wchar_t character = 0;
    EXPECT_EQ(std::mbtowc(&character, "\xC3\xA9", 2), 2);
    EXPECT_EQ(character, L'\u00E9');
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ProcessTest, NumbersKeepTheirFormInEveryLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    UseUserLocale();
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    std::setlocale(LC_ALL, before.c_str());
}

TEST(OpenWithDesktopTest, HandsOverAFileByItsFullPath)
{
    const FakeDesktop desktop;
    EXPECT_TRUE(OpenWithDesktop(L"/some where/--help \u00E9.htm"));
    EXPECT_EQ(desktop.WaitForTarget(), "/some where/--help \xC3\xA9.htm");
}

TEST(OpenWithDesktopTest, NameThatLooksLikeAnOptionIsAFile)
{
    const FakeDesktop desktop;
    EXPECT_TRUE(OpenWithDesktop(L"--version"));
    EXPECT_EQ(desktop.WaitForTarget(), std::filesystem::current_path().native() + "/--version");
}

TEST(OpenWithDesktopTest, HandsOverAnAddressAsItIs)
{
    const FakeDesktop desktop;
    EXPECT_TRUE(OpenWithDesktop(L"file:///help/index.htm#topic-1000"));
    EXPECT_EQ(desktop.WaitForTarget(), "file:///help/index.htm#topic-1000");
}

TEST(OpenWithDesktopTest, NoProgramForItFails)
{
    const ::TemporaryFolder folder;
    const ScopedVariable path("PATH", folder.Path());
    EXPECT_FALSE(OpenWithDesktop(L"/some/file"));
    EXPECT_FALSE(OpenWithDesktop(L""));
}

} // namespace
