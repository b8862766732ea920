#include "Platform/Process.h"

#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <array>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

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

/// Has a program of its own in the place of the desktop's.
class OpenWithDesktopTest : public testing::Test
{
protected:
    void InstallOpener()
    {
        WriteBytes(m_folder.File(L"xdg-open"), "#!/bin/sh\nprintf %s \"$1\" > \"$VANTREL_TEST_OUT.part\"\n"
                                               "mv \"$VANTREL_TEST_OUT.part\" \"$VANTREL_TEST_OUT\"\n");
        std::filesystem::permissions(NativePath(m_folder.File(L"xdg-open")), std::filesystem::perms::owner_all);
    }

    std::string WaitForOutput() const
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!FileExists(m_out) && std::chrono::steady_clock::now() < end)
        {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return ReadBytes(m_out);
    }

    ::TemporaryFolder m_folder;
    std::wstring m_out = m_folder.File(L"out");
    ScopedVariable m_outVariable{ "VANTREL_TEST_OUT", m_out };
    ScopedVariable m_path{ "PATH", m_folder.Path() + L":/usr/bin:/bin" };
};

TEST_F(OpenWithDesktopTest, HandsOverAFileByItsFullPath)
{
    InstallOpener();
    EXPECT_TRUE(OpenWithDesktop(L"/some where/--help \u00E9.htm"));
    EXPECT_EQ(WaitForOutput(), "/some where/--help \xC3\xA9.htm");
}

TEST_F(OpenWithDesktopTest, NameThatLooksLikeAnOptionIsAFile)
{
    InstallOpener();
    EXPECT_TRUE(OpenWithDesktop(L"--version"));
    EXPECT_EQ(WaitForOutput(), std::filesystem::current_path().native() + "/--version");
}

TEST_F(OpenWithDesktopTest, HandsOverAnAddressAsItIs)
{
    InstallOpener();
    EXPECT_TRUE(OpenWithDesktop(L"file:///help/index.htm#topic-1000"));
    EXPECT_EQ(WaitForOutput(), "file:///help/index.htm#topic-1000");
}

TEST_F(OpenWithDesktopTest, NoProgramForItFails)
{
    const ScopedVariable path("PATH", m_folder.Path());
    EXPECT_FALSE(OpenWithDesktop(L"/some/file"));
    EXPECT_FALSE(OpenWithDesktop(L""));
}

} // namespace
