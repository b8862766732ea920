#include "Platform/Posix/HelpPages.h"

#include "Platform/Files.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gtest/gtest.h>

using namespace Platform;
using namespace Platform::Posix;

namespace
{

using Pages = std::vector<std::string>;

TEST(HelpPagesTest, ATopicHasItsPageAndThenTheFirst)
{
    const std::string list = "1000 first.html\n1010 main-window.html\n1011 rule_list2.html\n";
    EXPECT_EQ(PagesOfTopic(list, 1010), (Pages{ "main-window.html", "first.html" }));
    EXPECT_EQ(PagesOfTopic(list, 1011), (Pages{ "rule_list2.html", "first.html" }));
    EXPECT_EQ(PagesOfTopic(list, 1000), (Pages{ "first.html", "first.html" }));
}

TEST(HelpPagesTest, ATopicThatTheListLacksHasTheFirstPage)
{
    EXPECT_EQ(PagesOfTopic("7 a.html\n1000 b.html\n", 8), (Pages{ "a.html" }));
}

TEST(HelpPagesTest, TheLastLineMayLackItsEndAndLinesMayEndAsOnOtherSystems)
{
    EXPECT_EQ(PagesOfTopic("1 a.html\r\n2 b.html\r\n", 2), (Pages{ "b.html", "a.html" }));
    EXPECT_EQ(PagesOfTopic("1 a.html\n2 b.html", 2), (Pages{ "b.html", "a.html" }));
}

TEST(HelpPagesTest, OfTwoLinesForATopicTheFirstCounts)
{
    EXPECT_EQ(PagesOfTopic("1 a.html\n2 b.html\n2 c.html\n", 2), (Pages{ "b.html", "a.html" }));
}

TEST(HelpPagesTest, AnEmptyListHasNoPage)
{
    EXPECT_EQ(PagesOfTopic("", 1000), Pages());
    EXPECT_EQ(PagesOfTopic("\n\n", 1000), Pages());
}

class HelpPagesLineTest : public testing::TestWithParam<const char*>
{
};

TEST_P(HelpPagesLineTest, ALineOfAnotherFormDoesNotCount)
{
    EXPECT_EQ(PagesOfTopic(GetParam(), 1000), Pages());
    EXPECT_EQ(PagesOfTopic(std::string(GetParam()) + "\n1000 good.html\n", 1000), (Pages{ "good.html", "good.html" }));
}

INSTANTIATE_TEST_SUITE_P(Lines, HelpPagesLineTest,
                         testing::Values("1000", "1000 ", "1000.html", "first.html", " 1000 a.html", "1000\ta.html",
                                         "1000  a.html", "-1000 a.html", "+1000 a.html", "0x3E8 a.html",
                                         "4294968296 a.html", "99999999999999999999 a.html", "# 1000 a.html",
                                         "1000 a.html ", "1000 a b.html"));

INSTANTIATE_TEST_SUITE_P(NamesThatLeadElsewhere, HelpPagesLineTest,
                         testing::Values("1000 ../a.html", "1000 /etc/a.html", "1000 b/a.html", "1000 .html",
                                         "1000 .hidden.html", "1000 a.desktop", "1000 a.htm", "1000 file:a.html",
                                         "1000 a%2F.html", "1000 a\\b.html", "1000 a.html#b", "1000 a.html?b",
                                         "1000 -\xC3\xA9.html"));

TEST(FileUrlTest, WhatIsNotPlainIsEscapedByteByByte)
{
    EXPECT_EQ(FileUrl("/usr/share/a-b_c.d~e/9.html"), "file:///usr/share/a-b_c.d~e/9.html");
    EXPECT_EQ(FileUrl("/a b/\xC3\xA9#?%&\\\"'<>;:.html"), "file:///a%20b/%C3%A9%23%3F%25%26%5C%22%27%3C%3E%3B%3A.html");
    EXPECT_EQ(FileUrl("/\x01\x7F\xFF"), "file:///%01%7F%FF");
}

class HelpPageUrlTest : public testing::Test
{
protected:
    HelpPageUrlTest() { MakeFolder(m_folder.File(L"help")); }

    void List(std::string_view text) { WriteBytes(m_folder.File(L"help/topics.txt"), text); }
    void Page(const std::wstring& name) { WriteBytes(m_folder.File(L"help/" + name), "<!DOCTYPE html>"); }
    std::optional<std::string> Url(unsigned int topic) const
    {
        return HelpPageUrl(NativePath(m_folder.File(L"vantrel.chm")).native(), topic);
    }
    std::string UrlOf(const std::wstring& name) const
    {
        return FileUrl(NativePath(m_folder.File(L"help/" + name)).native());
    }

    ::TemporaryFolder m_folder;
};

TEST_F(HelpPageUrlTest, ThePageOfATopicLiesInTheFolderBesideTheHelpFile)
{
    List("1000 first.html\n1012 editor.html\n");
    Page(L"first.html");
    Page(L"editor.html");
    EXPECT_EQ(Url(1012), UrlOf(L"editor.html"));
    EXPECT_EQ(Url(1), UrlOf(L"first.html"));
}

TEST_F(HelpPageUrlTest, AMissingPageGivesTheFirstOne)
{
    List("1000 first.html\n1012 editor.html\n");
    Page(L"first.html");
    EXPECT_EQ(Url(1012), UrlOf(L"first.html"));
}

TEST_F(HelpPageUrlTest, AFolderIsNoPage)
{
    List("1000 first.html\n");
    MakeFolder(m_folder.File(L"help/first.html"));
    EXPECT_EQ(Url(1000), std::nullopt);
}

TEST_F(HelpPageUrlTest, WithoutListOrPagesThereIsNone)
{
    Page(L"first.html");
    EXPECT_EQ(Url(1000), std::nullopt);
    List("1000 other.html\n");
    EXPECT_EQ(Url(1000), std::nullopt);
}

TEST_F(HelpPageUrlTest, AListOfNoSensibleSizeIsNotRead)
{
    Page(L"first.html");
    List("1000 first.html\n" + std::string(300 * 1024, '\n'));
    EXPECT_EQ(Url(1000), std::nullopt);
    List("1000 first.html\n" + std::string(200 * 1024, '\n'));
    EXPECT_EQ(Url(1000), UrlOf(L"first.html"));
}

TEST_F(HelpPageUrlTest, AListThatIsADeviceIsNotRead)
{
    Page(L"first.html");
    std::filesystem::create_symlink("/dev/zero", NativePath(m_folder.File(L"help/topics.txt")));
    EXPECT_EQ(Url(1000), std::nullopt);
}

} // namespace
