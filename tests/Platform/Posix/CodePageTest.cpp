#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Text.h"
#include "tests/Support/ScopedLocale.h"
#include "tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

class NarrowLocaleTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_locale.IsTaken())
        {
            GTEST_SKIP() << "no Latin-1 locale can be made on this machine";
        }
    }

    ::TemporaryFolder m_folder;
    Latin1Locale m_locale;
};

TEST_F(NarrowLocaleTest, CharactersOfTheCodePageAreOneByteEach)
{
    EXPECT_EQ(ToCodePage(L"R\u00E8gle"), "R\xE8gle");
    EXPECT_EQ(FromCodePage("R\xE8gle"), L"R\u00E8gle");
}

TEST_F(NarrowLocaleTest, CharactersThatTheCodePageLacksBecomeQuestionMarks)
{
    EXPECT_EQ(ToCodePage(L"a\u65E5\u672C\U0001F600z"), "a???z");
    EXPECT_EQ(ToCodePage(std::wstring(1, static_cast<wchar_t>(0xD800))), "?");
}

TEST_F(NarrowLocaleTest, PathInTheCodePageIsItsBytes)
{
    EXPECT_EQ(Posix::PathBytes(L"/R\u00E8gle"), "/R\xE8gle");
    EXPECT_EQ(Posix::PathText("/R\xE8gle"), L"/R\u00E8gle");
}

TEST_F(NarrowLocaleTest, PathThatTheCodePageLacksNamesNoFileRatherThanAnother)
{
    EXPECT_EQ(Posix::PathBytes(L"/tmp/\u65E5"), "");
    EXPECT_FALSE(SaveFileWhole(m_folder.File(L"\u65E5"), "x"));
    EXPECT_FALSE(PathExists(m_folder.File(L"?")));
}

TEST(AsciiLocaleTest, CodePageHasNothingBeyondAscii)
{
    const ScopedLocale locale("C");
    ASSERT_TRUE(locale.IsTaken());
    EXPECT_EQ(ToCodePage(L"R\u00E8gle \u65E5"), "R?gle ?");
    EXPECT_EQ(FromCodePage("R\xE8gle"), L"R\uFFFDgle");
    EXPECT_EQ(FromCodePage("\xC3\xA9"), L"\uFFFD\uFFFD");
}

TEST(AsciiLocaleTest, PathsKeepAllTheirCharacters)
{
    const ScopedLocale locale("C");
    EXPECT_EQ(Posix::PathBytes(L"/R\u00E8gle \u65E5"), "/R\xC3\xA8gle \xE6\x97\xA5");
    EXPECT_EQ(Posix::PathText("/R\xC3\xA8gle \xE6\x97\xA5"), L"/R\u00E8gle \u65E5");
    const ::TemporaryFolder folder;
    EXPECT_TRUE(SaveFileWhole(folder.File(L"\u65E5"), "x"));
    EXPECT_TRUE(FileExists(folder.File(L"\u65E5")));
}

TEST(AsciiLocaleTest, LowerCaseDoesNotDependOnTheLocale)
{
    const ScopedLocale locale("C");
    EXPECT_EQ(ToLower(L"\u00C9\u0416"), L"\u00E9\u0436");
}

TEST(Utf8LocaleTest, CodePageHoldsEverything)
{
    const ScopedLocale locale("C.UTF-8");
    if (!locale.IsTaken())
    {
        GTEST_SKIP() << "no UTF-8 locale on this machine";
    }
    EXPECT_EQ(ToCodePage(L"R\u00E8gle \u65E5"), "R\xC3\xA8gle \xE6\x97\xA5");
    EXPECT_EQ(FromCodePage("R\xC3\xA8gle \xE6\x97\xA5"), L"R\u00E8gle \u65E5");
    EXPECT_EQ(FromCodePage("R\xE8gle"), L"R\uFFFDgle");
}

TEST(PathBytesTest, PathThatIsNoTextNamesNoFile)
{
    EXPECT_EQ(Posix::PathBytes(std::wstring(L"/a\0b", 4)), "");
    EXPECT_EQ(Posix::PathBytes(L"/a" + std::wstring(1, static_cast<wchar_t>(0xDC80))), "");
    EXPECT_EQ(Posix::PathBytes(L"/a" + std::wstring(1, static_cast<wchar_t>(0x110000))), "");
}

} // namespace
