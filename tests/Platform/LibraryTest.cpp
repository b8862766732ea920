#include "Platform/Library.h"

#include "Platform/Files.h"
#include "Platform/Process.h"
#include "Platform/Text.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

using namespace Platform;

namespace
{

using NumberFunction = int (*)();

struct Releaser
{
    void operator()(void* library) const { ReleaseLibrary(library); }
};

using Library = std::unique_ptr<void, Releaser>;

std::wstring LibraryAt(const wchar_t* name)
{
    return std::wstring(TEST_LIBRARY_FOLDER) + PathSeparator + name;
}

int Call(LibraryHandle library, const char* name)
{
    const auto function = reinterpret_cast<NumberFunction>(FindLibrarySymbol(library, name));
    return function != nullptr ? function() : -1;
}

TEST(LibraryTest, LoadsByFullPathWithTheConfiguredSuffix)
{
    const Library library(OpenLibraryFile(LibraryAt(L"PlainLibrary.dll")));
    ASSERT_TRUE(library);
    EXPECT_EQ(Call(library.get(), "PlainNumber"), 7);
    EXPECT_EQ(LibraryPath(library.get()), LibraryAt(L"PlainLibrary.dll"));
}

TEST(LibraryTest, LoadsFromALowerCasedPathWhateverTheFilesAreCalled)
{
    const Library library(OpenLibraryFile(ToLower(LibraryAt(L"PlainLibrary.dll"))));
    ASSERT_TRUE(library);
    EXPECT_EQ(ToLower(LibraryPath(library.get())), ToLower(LibraryAt(L"PlainLibrary.dll")));
    EXPECT_EQ(FileNamePart(LibraryPath(library.get())), L"PlainLibrary.dll");
}

TEST(LibraryTest, NoLibraryGivesNull)
{
    const ::TemporaryFolder folder;
    WriteBytes(folder.File(L"text.dll"), "not a library");
    WriteBytes(folder.File(L"text.so"), "not a library");
    WriteBytes(folder.File(L"empty.so"), "");
    EXPECT_EQ(OpenLibraryFile(folder.File(L"text.dll")), nullptr);
    EXPECT_EQ(OpenLibraryFile(folder.File(L"empty.dll")), nullptr);
    EXPECT_EQ(OpenLibraryFile(folder.File(L"missing.dll")), nullptr);
    EXPECT_EQ(OpenLibraryFile(folder.Path()), nullptr);
    EXPECT_EQ(OpenLibraryFile(L""), nullptr);
    EXPECT_EQ(OpenLibraryFile(L"no such library anywhere.dll"), nullptr);
    EXPECT_EQ(OpenLibraryFileWithItsFolder(folder.File(L"text.dll")), nullptr);
    EXPECT_EQ(OpenLibraryFileWithItsFolder(folder.Path()), nullptr);
    EXPECT_EQ(OpenLibraryFileWithItsFolder(L""), nullptr);
}

TEST(LibraryTest, WithItsFolderFindsDependenciesBesideIt)
{
    EXPECT_EQ(OpenLibraryFile(LibraryAt(L"OuterLibrary.dll")), nullptr) << "the dependency is found without help";
    const Library library(OpenLibraryFileWithItsFolder(LibraryAt(L"OuterLibrary.dll")));
    ASSERT_TRUE(library);
    EXPECT_EQ(Call(library.get(), "OuterNumber"), 21);
}

TEST(LibraryTest, ExportOfADependencyIsNotTheLibrarysOwn)
{
    const Library library(OpenLibraryFileWithItsFolder(LibraryAt(L"OuterLibrary.dll")));
    ASSERT_TRUE(library);
    EXPECT_NE(FindLibrarySymbol(library.get(), "OuterNumber"), nullptr);
    EXPECT_EQ(FindLibrarySymbol(library.get(), "InnerNumber"), nullptr);
    EXPECT_EQ(FindLibrarySymbol(library.get(), "malloc"), nullptr);

    const LibraryHandle inner = FindLoadedLibrary(L"InnerLibrary.dll");
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(Call(inner, "InnerNumber"), 20);
}

TEST(LibraryTest, SymbolOfNoLibraryIsNull)
{
    EXPECT_EQ(FindLibrarySymbol(nullptr, "malloc"), nullptr);
    EXPECT_EQ(LibraryPath(nullptr), L"");
    ReleaseLibrary(nullptr);
}

TEST(LibraryTest, LoadedOneIsFoundByPathAndByNameWithoutCase)
{
    EXPECT_EQ(FindLoadedLibrary(LibraryAt(L"PlainLibrary.dll")), nullptr);
    EXPECT_EQ(FindLoadedLibrary(L"PlainLibrary.dll"), nullptr);
    const Library library(OpenLibraryFile(LibraryAt(L"PlainLibrary.dll")));
    ASSERT_TRUE(library);
    EXPECT_EQ(FindLoadedLibrary(LibraryAt(L"PlainLibrary.dll")), library.get());
    EXPECT_EQ(FindLoadedLibrary(ToLower(LibraryAt(L"PlainLibrary.dll"))), library.get());
    EXPECT_EQ(FindLoadedLibrary(L"PLAINLIBRARY.DLL"), library.get());
    EXPECT_EQ(FindLoadedLibrary(L"plainlibrary"), library.get());
    EXPECT_EQ(FindLoadedLibrary(L"plain.dll"), nullptr);
    EXPECT_EQ(FindLoadedLibrary(L""), nullptr);
    const std::wstring elsewhere = std::wstring(1, PathSeparator) + L"elsewhere" + PathSeparator;
    EXPECT_EQ(FindLoadedLibrary(elsewhere + L"PlainLibrary.dll"), nullptr);
}

TEST(LibraryTest, FindingTakesNoReference)
{
    Library library(OpenLibraryFile(LibraryAt(L"PlainLibrary.dll")));
    ASSERT_TRUE(library);
    ASSERT_NE(FindLoadedLibrary(L"PlainLibrary.dll"), nullptr);
    ASSERT_NE(FindLoadedLibrary(LibraryAt(L"PlainLibrary.dll")), nullptr);
    library.reset();
    EXPECT_EQ(FindLoadedLibrary(L"PlainLibrary.dll"), nullptr);
}

TEST(LibraryTest, EachLoadIsReleasedOnce)
{
    Library first(OpenLibraryFile(LibraryAt(L"PlainLibrary.dll")));
    const Library second(OpenLibraryFile(LibraryAt(L"PlainLibrary.dll")));
    EXPECT_EQ(first.get(), second.get());
    first.reset();
    EXPECT_EQ(FindLoadedLibrary(L"PlainLibrary.dll"), second.get());
    EXPECT_EQ(Call(second.get(), "PlainNumber"), 7);
}

TEST(LibraryTest, RunningProgramIsFoundByItsPathAndByItsName)
{
    const LibraryHandle program = FindLoadedLibrary(ProgramPath());
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(LibraryPath(program), ProgramPath());
    const std::wstring name = FileNamePart(ProgramPath());
    const bool hasSuffix = name.ends_with(L".exe");
    EXPECT_EQ(FindLoadedLibrary(ToLower(hasSuffix ? name : name + L".exe")), program);
    EXPECT_EQ(FindLoadedLibrary(L"SomeOtherProgram.exe"), nullptr);
}

void FunctionOfTheProgram() {}

TEST(LibraryTest, FunctionTellsItsLibrary)
{
    EXPECT_EQ(LibraryOfFunction(&FunctionOfTheProgram), FindLoadedLibrary(ProgramPath()));
    const Library library(OpenLibraryFile(LibraryAt(L"PlainLibrary.dll")));
    EXPECT_EQ(LibraryOfFunction(FindLibrarySymbol(library.get(), "PlainNumber")), library.get());
    EXPECT_EQ(LibraryOfFunction(nullptr), nullptr);
}

TEST(LibraryTest, ConfiguredNameHasTheOneSuffix)
{
    EXPECT_EQ(ConfiguredLibraryName(L"a.dll"), L"a.dll");
    EXPECT_EQ(ConfiguredLibraryName(L"a.txt"), L"a.txt");
    EXPECT_EQ(ConfiguredLibraryName(L""), L"");
}

} // namespace
