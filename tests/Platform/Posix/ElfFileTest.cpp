#include "Platform/Posix/ElfFile.h"

#include "Platform/Files.h"
#include "Platform/Library.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

using namespace Platform;

namespace
{

std::wstring LibraryAt(const wchar_t* name)
{
    return std::wstring(TEST_LIBRARY_FOLDER) + L"/" + name;
}

std::string Native(const std::wstring& path)
{
    return NativePath(path).native();
}

TEST(ElfFileTest, TellsWhatALibraryNeeds)
{
    const auto library = Posix::ReadElfLibrary(Native(LibraryAt(L"OuterLibrary.so")));
    ASSERT_TRUE(library);
    EXPECT_NE(std::find(library->needed.begin(), library->needed.end(), "InnerLibrary.so"), library->needed.end());
}

TEST(ElfFileTest, OtherThingsAreNoLibraries)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"a"), "\x7F"
                                  "ELF and no more");
    EXPECT_FALSE(Posix::ReadElfLibrary(Native(folder.File(L"a"))));
    EXPECT_FALSE(Posix::ReadElfLibrary(Native(folder.Path())));
    EXPECT_FALSE(Posix::ReadElfLibrary("/dev/zero"));
    EXPECT_FALSE(Posix::ReadElfLibrary(""));
    ASSERT_EQ(::mkfifo(Native(folder.File(L"pipe")).c_str(), 0600), 0);
    EXPECT_FALSE(Posix::ReadElfLibrary(Native(folder.File(L"pipe"))));
}

TEST(ElfFileTest, TruncatedLibraryIsRefusedWhereLoadingItWouldEndTheProcess)
{
    const ::TemporaryFolder folder;
    const std::string whole = ReadBytes(LibraryAt(L"PlainLibrary.so"));
    ASSERT_TRUE(Posix::ReadElfLibrary(Native(LibraryAt(L"PlainLibrary.so"))));
    const std::size_t step = whole.size() / 300 + 1;
    for (std::size_t size = 0; size < whole.size(); size += size < 400 ? 1 : step)
    {
        WriteBytes(folder.File(L"cut.so"), whole.substr(0, size));
        // The tables for the debugger lie at the end; without them it loads as well.
        ReleaseLibrary(OpenLibraryFile(folder.File(L"cut.dll")));
    }
    WriteBytes(folder.File(L"cut.so"), whole.substr(0, 1024));
    EXPECT_FALSE(Posix::ReadElfLibrary(Native(folder.File(L"cut.so"))));
    EXPECT_EQ(OpenLibraryFile(folder.File(L"cut.dll")), nullptr);
}

TEST(ElfFileTest, WrongBytesInTheHeadersAreReadWithoutHarm)
{
    const ::TemporaryFolder folder;
    const std::string whole = ReadBytes(LibraryAt(L"OuterLibrary.so"));
    std::mt19937 random(1);
    int libraries = 0;
    for (int round = 0; round < 500; ++round)
    {
        std::string changed = whole;
        for (int change = 0; change < 3; ++change)
        {
            changed[random() % 1024] = static_cast<char>(random());
        }
        WriteBytes(folder.File(L"wrong.so"), changed);
        libraries += Posix::ReadElfLibrary(Native(folder.File(L"wrong.so"))) ? 1 : 0;
    }
    EXPECT_GT(libraries, 0);
    EXPECT_LT(libraries, 500);
}

} // namespace
