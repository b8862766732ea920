#include "Platform/Help.h"

#include "Platform/Files.h"
#include "Platform/Posix/HelpPages.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/FakeDesktop.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

using namespace Platform;

namespace
{

class HelpTest : public testing::Test
{
protected:
    HelpTest()
    {
        MakeFolderTree(m_folder.File(L"Lang/the lang/help"));
        WriteBytes(m_folder.File(L"Lang/the lang/vantrel.chm"), "ITSF");
    }

    void MakePages()
    {
        WriteBytes(m_folder.File(L"Lang/the lang/help/topics.txt"), "1000 first.html\n1014 set-password.html\n");
        WriteBytes(m_folder.File(L"Lang/the lang/help/first.html"), "<!DOCTYPE html>");
        WriteBytes(m_folder.File(L"Lang/the lang/help/set-password.html"), "<!DOCTYPE html>");
    }

    std::string PathOf(const std::wstring& name) const { return NativePath(m_folder.File(name)).native(); }

    ::TemporaryFolder m_folder;
};

TEST_F(HelpTest, TheBrowserGetsThePageOfTheTopicByItsAddress)
{
    MakePages();
    FakeDesktop desktop;
    EXPECT_TRUE(ShowHelpTopic(m_folder.File(L"Lang/the lang/vantrel.chm"), 1014));
    const std::string url = desktop.WaitForTarget();
    EXPECT_EQ(url, Posix::FileUrl(PathOf(L"Lang/the lang/help/set-password.html")));
    EXPECT_NE(url.find("/Lang/the%20lang/help/set-password.html"), std::string::npos);
}

TEST_F(HelpTest, ThePathIsMatchedWithoutRegardToCase)
{
    MakePages();
    FakeDesktop desktop;
    EXPECT_TRUE(ShowHelpTopic(m_folder.File(L"lang/THE Lang/Vantrel.chm"), 1));
    EXPECT_EQ(desktop.WaitForTarget(), Posix::FileUrl(PathOf(L"Lang/the lang/help/first.html")));
}

TEST_F(HelpTest, AHelpFileWithoutPagesIsOpenedItself)
{
    FakeDesktop desktop;
    EXPECT_TRUE(ShowHelpTopic(m_folder.File(L"Lang/the lang/vantrel.chm"), 1000));
    EXPECT_EQ(desktop.WaitForTarget(), PathOf(L"Lang/the lang/vantrel.chm"));
}

TEST_F(HelpTest, AFileThatDoesNotExistIsNotShownEvenWithPages)
{
    MakePages();
    const FakeDesktop desktop;
    EXPECT_FALSE(ShowHelpTopic(m_folder.File(L"Lang/the lang/other.chm"), 1000));
    EXPECT_FALSE(ShowHelpTopic(m_folder.File(L"Lang/the lang"), 1000));
    EXPECT_FALSE(ShowHelpTopic(L"", 1000));
}

TEST_F(HelpTest, WithoutAProgramToShowItHelpIsNotShown)
{
    MakePages();
    const ScopedVariable path("PATH", m_folder.Path());
    EXPECT_FALSE(ShowHelpTopic(m_folder.File(L"Lang/the lang/vantrel.chm"), 1000));
}

} // namespace
