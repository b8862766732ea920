#include "Platform/Locale.h"
#include "Platform/Files.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

using namespace Platform;

TEST(LocaleTest, DecimalsFollowThePointOfTheCLocale)
{
    const ScopedVariable locale("LC_ALL", L"C");
    EXPECT_EQ(UserDecimalSeparator(), L'.');
}

TEST(LocaleTest, DecimalsFollowAPointWhereTheLocaleIsNotInstalled)
{
    const ScopedVariable locale("LC_ALL", L"xx_XX.nonsense");
    EXPECT_EQ(UserDecimalSeparator(), L'.');
}

TEST(LocaleTest, DecimalsFollowWhatTheUsersLocaleHasWhileTheProgramKeepsThePoint)
{
    // Made for the test, since few machines have it installed.
    const ::TemporaryFolder folder;
    const std::string target = NativePath(folder.File(L"de_DE.UTF-8")).string();
    const std::string command = "localedef -i de_DE -f UTF-8 '" + target + "' >/dev/null 2>&1";
    [[maybe_unused]] const int status = std::system(command.c_str()); // counts warnings too
    const ScopedVariable path("LOCPATH", folder.Path());
    const ScopedVariable locale("LC_ALL", L"de_DE.UTF-8");
    if (!FolderExists(folder.File(L"de_DE.UTF-8")))
    {
        GTEST_SKIP() << "no German locale can be made on this machine";
    }
    EXPECT_EQ(UserDecimalSeparator(), L',');
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_EQ(std::to_string(1.5).substr(0, 3), "1.5");
}
