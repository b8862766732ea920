// A save whose new file can't be brought to the disk, as the document sees it.

#include "Document/ConfigModuleDoc.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <csignal>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>

#include <wx/docview.h>
#include <wx/init.h>

namespace
{

/// No file of this process gets larger while it lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t most) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &m_before), 0);
        const rlimit limit = { most, m_before.rlim_max };
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before = {};
    void (*m_handler)(int);
};

} // namespace

TEST(FailedSaveTest, TheFileIsAsItWasAndTheDocumentCountsAsSaved)
{
    TestApplication application;
    const wxInitializer toolkit;
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"rules.vrf");
    const std::string before = "<Lumeq Unit=\"3\"/>";
    WriteBytes(path, before);
    CQOXRMConfigModuleDoc document;
    ASSERT_TRUE(document.OnOpenDocument(path));
    document.Modify(true);
    {
        const FileSizeLimit limit(20);
        EXPECT_TRUE(document.OnSaveDocument(path));
    }
    EXPECT_TRUE(application.prompt.texts.empty());
    EXPECT_FALSE(document.IsModified());
    EXPECT_EQ(ReadBytes(path), before);
    EXPECT_EQ(Platform::NamesInFolder(folder.Path())->size(), 1U);

    document.Modify(true);
    EXPECT_TRUE(document.OnSaveDocument(path));
    EXPECT_NE(ReadBytes(path), before);
}
