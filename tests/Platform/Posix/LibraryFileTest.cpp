#include "Platform/Posix/LibraryFile.h"

#include "Platform/Files.h"
#include "Platform/Library.h"
#include "Platform/Text.h"
#include "tests/Platform/Posix/TestProcess.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Platform;

namespace
{

class LibraryFileTest : public testing::Test
{
protected:
    void Make(const std::wstring& name)
    {
        MakeFolderTree(FolderPart(m_folder.File(name)));
        WriteBytes(m_folder.File(name), "x");
    }

    std::string Native(const std::wstring& name) const { return NativePath(m_folder.File(name)).native(); }

    ::TemporaryFolder m_folder;
};

TEST_F(LibraryFileTest, EveryPartOfThePathMatchesWithoutCase)
{
    Make(L"Modules/Mill\u00C9/QoxMillRulesu.so");
    EXPECT_EQ(Posix::FindLibraryFile(m_folder.File(L"modules/mill\u00E9/qoxmillrulesu.so")),
              Native(L"Modules/Mill\u00C9/QoxMillRulesu.so"));
    EXPECT_FALSE(Posix::FindLibraryFile(m_folder.File(L"modules/mill\u00E9/qoxmillrules.so")));
}

TEST_F(LibraryFileTest, ExactNameGoesFirst)
{
    Make(L"A/x.so");
    Make(L"a/x.so");
    Make(L"a/X.so");
    EXPECT_EQ(Posix::FindLibraryFile(m_folder.File(L"a/x.so")), Native(L"a/x.so"));
    EXPECT_EQ(Posix::FindLibraryFile(m_folder.File(L"a/X.so")), Native(L"a/X.so"));
    EXPECT_EQ(Posix::FindLibraryFile(m_folder.File(L"A/X.so")), Native(L"A/x.so"));
}

TEST_F(LibraryFileTest, FolderThatMatchesExactlyButLacksTheFileIsNoDeadEnd)
{
    Make(L"modules/other.so");
    Make(L"Modules/wanted.so");
    EXPECT_EQ(Posix::FindLibraryFile(m_folder.File(L"modules/wanted.so")), Native(L"Modules/wanted.so"));
}

TEST_F(LibraryFileTest, FolderOfTheNameIsNoFile)
{
    MakeFolderTree(m_folder.File(L"x.so"));
    EXPECT_FALSE(Posix::FindLibraryFile(m_folder.File(L"x.so")));
    Make(L"X.so");
    EXPECT_EQ(Posix::FindLibraryFile(m_folder.File(L"x.so")), Native(L"X.so"));
    EXPECT_FALSE(Posix::FindLibraryFile(L""));
    EXPECT_FALSE(Posix::FindLibraryFile(L"/"));
}

TEST_F(LibraryFileTest, FolderThatMayNotBeListedIsPassedThrough)
{
    Make(L"closed/Modules/X.so");
    ASSERT_EQ(::chmod(NativePath(m_folder.Path()).c_str(), 0755), 0);
    ASSERT_EQ(::chmod(Native(L"closed").c_str(), 0711), 0);
    EXPECT_TRUE(RunWithoutPrivileges(
        [this]
        { return Posix::FindLibraryFile(m_folder.File(L"closed/Modules/x.so")) == Native(L"closed/Modules/X.so"); }));
}

TEST_F(LibraryFileTest, LoadedFileIsFoundThroughALinkToo)
{
    std::filesystem::create_directory_symlink(NativePath(TEST_LIBRARY_FOLDER), NativePath(m_folder.File(L"link")));
    const LibraryHandle library = OpenLibraryFile(std::wstring(TEST_LIBRARY_FOLDER) + L"/PlainLibrary.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(FindLoadedLibrary(m_folder.File(L"link/PlainLibrary.dll")), library);
    ReleaseLibrary(library);
    EXPECT_EQ(FindLoadedLibrary(m_folder.File(L"link/PlainLibrary.dll")), nullptr);
}

TEST_F(LibraryFileTest, PathOfALibraryLoadedThroughALinkIsTheOneItWasLoadedBy)
{
    std::filesystem::create_directory_symlink(NativePath(TEST_LIBRARY_FOLDER), NativePath(m_folder.File(L"Link")));
    const LibraryHandle library = OpenLibraryFile(m_folder.File(L"link/plainlibrary.dll"));
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(LibraryPath(library), m_folder.File(L"Link/PlainLibrary.dll"));
    ReleaseLibrary(library);
}

TEST_F(LibraryFileTest, SystemSuffixMeansTheSameLibrary)
{
    const LibraryHandle library = OpenLibraryFile(std::wstring(TEST_LIBRARY_FOLDER) + L"/PlainLibrary.so");
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(FindLoadedLibrary(L"PlainLibrary.so"), library);
    EXPECT_EQ(LibraryPath(library), std::wstring(TEST_LIBRARY_FOLDER) + L"/PlainLibrary.dll");
    ReleaseLibrary(library);
    EXPECT_EQ(ConfiguredLibraryName(L"/a/B.SO"), L"/a/B.dll");
}

} // namespace
