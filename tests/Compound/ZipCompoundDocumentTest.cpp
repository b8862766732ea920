#include "Compound/ZipCompoundDocument.h"

#include "Compound/ZipCompoundFile.h"
#include "tests/Compound/TestArchive.h"
#include "tests/Compound/TestDocument.h"
#include "tests/Compound/TestStreams.h"
#include "tests/Support/TestFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

namespace
{

using Names = std::vector<std::wstring>;

std::string Archive(const std::vector<std::string>& names)
{
    std::vector<TestEntry> entries;
    entries.reserve(names.size());
    for (const std::string& name : names)
    {
        entries.push_back(Deflated(name, "contents of " + name));
    }
    return MakeTestArchive(entries);
}

std::int32_t SizeOf(ICompoundFile* file, std::uint32_t& size)
{
    size = 12345;
    return file->GetSize(&size);
}

} // namespace

TEST(ZipCompoundDocumentTest, AFileInAFolderIsOneEntryAndTheFolderNone)
{
    TestDocument document;
    document.Write(L"a/b", "abc");
    const std::string archive = document.Finish();
    EXPECT_EQ(EntryNames(archive), Names{ L"a/b" });
    EXPECT_EQ(TestDocument(archive).Read(L"a/b"), "abc");
}

TEST(ZipCompoundDocumentTest, AnEmptyFolderLeavesNothing)
{
    TestDocument document;
    EXPECT_NE(document.Root()->OpenFolder(L"a", 10), nullptr);
    EXPECT_EQ(EntryNames(document.Finish()), Names{});
}

TEST(ZipCompoundDocumentTest, FoldersAreListedOnceAndByFirstAppearance)
{
    const TestDocument document(Archive({ "a/b", "a/c/d" }));
    EXPECT_EQ(document.List(document.Root()), Names{ L"a/" });
    EXPECT_EQ(document.List(L"a"), (Names{ L"b", L"c/" }));
    EXPECT_EQ(document.List(L"a/c"), Names{ L"d" });
}

TEST(ZipCompoundDocumentTest, AListingPicksUpSiblingsThatBeginAlike)
{
    const TestDocument document(Archive({ "a/c/d", "ab/x", "aE" }));
    EXPECT_EQ(document.List(L"a"), (Names{ L"c/", L"b/", L"E" }));
}

TEST(ZipCompoundDocumentTest, AFileKeepsASiblingsFolderOfItsNameOffTheList)
{
    EXPECT_EQ(TestDocument(Archive({ "a/b", "a/c/d", "ab/x" })).List(L"a"), (Names{ L"b", L"c/" }));
    EXPECT_EQ(TestDocument(Archive({ "ab/x", "a/b" })).List(L"a"), (Names{ L"b/", L"b" }));
}

TEST(ZipCompoundDocumentTest, FilesAreListedAsOftenAsTheyAreThere)
{
    const TestDocument document(Archive({ "a", "A", "a", "b/x", "B/y", "c", "c/x" }));
    EXPECT_EQ(document.List(document.Root()), (Names{ L"a", L"A", L"a", L"b/", L"c" }))
        << "a folder isn't listed where anything of its name was, a file always";
}

TEST(ZipCompoundDocumentTest, EntriesWithoutANameArentListed)
{
    const TestDocument document(Archive({ "", "/", "//", "a/", "/b", "c//d" }));
    EXPECT_EQ(document.List(document.Root()), (Names{ L"a", L"b", L"c/" }));
}

TEST(ZipCompoundDocumentTest, OpeningAFolderWithoutEntriesFailsOnlyWhenReading)
{
    const TestDocument reading(Archive({ "a/b", "ab" }));
    EXPECT_EQ(reading.Root()->OpenFolder(L"c", 5), nullptr);
    EXPECT_EQ(reading.Root()->OpenFolder(L"ab", 5), nullptr) << "a file is no folder";
    EXPECT_NE(reading.Root()->OpenFolder(L"A", 5), nullptr);
    TestDocument writing;
    EXPECT_NE(writing.Root()->OpenFolder(L"c", 10), nullptr);
}

TEST(ZipCompoundDocumentTest, TheNameOfAnOpenFileOpensNoFolder)
{
    TestDocument document;
    ICompoundFile* const file = document.Root()->OpenFile(L"a", 10);
    EXPECT_EQ(document.Root()->OpenFolder(L"A", 10), nullptr);
    EXPECT_TRUE(document.Root()->CloseFile(file));
    EXPECT_NE(document.Root()->OpenFolder(L"A", 10), nullptr) << "once it is closed it does";
}

TEST(ZipCompoundDocumentTest, AFileBeingWrittenHasNoSize)
{
    TestDocument document;
    ICompoundFile* const file = document.Root()->OpenFile(L"a", 10);
    file->GetOutputStream()->Write("abc", 3);
    std::uint32_t size = 0;
    EXPECT_EQ(SizeOf(file, size), -1);
    EXPECT_EQ(size, 12345u);
}

TEST(ZipCompoundDocumentTest, ADocumentBeingWrittenListsNothing)
{
    TestDocument document;
    document.Write(L"a/b", "abc");
    document.Write(L"c", "abc");
    EXPECT_EQ(document.List(document.Root()), Names{});
    EXPECT_EQ(document.List(document.Root()->OpenFolder(L"a", 10)), Names{});
}

TEST(ZipCompoundDocumentTest, NamesAreFoundWhateverTheirCase)
{
    const TestDocument document(Archive({ "FOLDER/R\xc3\x89GLE.BAS" }));
    EXPECT_EQ(document.Read(L"folder/r\x00e9gle.bas"), "contents of FOLDER/R\xc3\x89GLE.BAS");
    EXPECT_EQ(document.Root()->OpenFile(L"folder/r\x00e9gle", 5), nullptr);
    EXPECT_NE(document.Root()->OpenFile(L"folder/r\x00e9gle.bas", 5), nullptr) << "a name may be a path";
}

TEST(ZipCompoundDocumentTest, TwoFilesOfOneNameAreTwoObjectsAndTwoFoldersOne)
{
    TestDocument document;
    ICompoundFolder* const root = document.Root();
    ICompoundFile* const first = root->OpenFile(L"a", 10);
    ICompoundFile* const second = root->OpenFile(L"a", 10);
    EXPECT_NE(first, second);
    EXPECT_EQ(root->OpenFolder(L"b", 10), root->OpenFolder(L"B", 10));
    first->GetOutputStream()->Write("first", 5);
    second->GetOutputStream()->Write("second", 6);
    EXPECT_TRUE(root->CloseFile(second));
    EXPECT_TRUE(root->CloseFile(first));
    const std::string archive = document.Finish();
    EXPECT_EQ(EntryNames(archive), (Names{ L"a", L"a" }));
    const TestDocument reading(archive);
    EXPECT_EQ(reading.Read(L"a"), "secondfirst") << "all entries of the name, in the order of closing";
    std::uint32_t size = 0;
    EXPECT_EQ(SizeOf(reading.Root()->OpenFile(L"a", 5), size), 0);
    EXPECT_EQ(size, 5u) << "the last one's";
}

TEST(ZipCompoundDocumentTest, TheOrderInTheArchiveIsThatOfClosing)
{
    TestDocument document;
    ICompoundFolder* const root = document.Root();
    ICompoundFile* const first = root->OpenFile(L"1", 10);
    ICompoundFile* const second = root->OpenFile(L"2", 10);
    second->GetOutputStream()->Write("x", 1);
    first->GetOutputStream()->Write("x", 1);
    root->CloseFile(second);
    root->CloseFile(first);
    EXPECT_EQ(EntryNames(document.Finish()), (Names{ L"2", L"1" }));
}

TEST(ZipCompoundDocumentTest, OnlyFilesWhoseStreamWasAskedForGetIn)
{
    TestDocument document;
    ICompoundFolder* const root = document.Root();
    ICompoundFile* const untouched = root->OpenFile(L"untouched", 10);
    ICompoundFile* const empty = root->OpenFile(L"empty", 10);
    EXPECT_NE(empty->GetOutputStream(), nullptr);
    root->CloseFile(untouched);
    root->CloseFile(empty);
    const std::string archive = document.Finish();
    EXPECT_EQ(EntryNames(archive), Names{ L"empty" });
    EXPECT_EQ(TestDocument(archive).Read(L"empty"), "");
}

TEST(ZipCompoundDocumentTest, WhatIsLeftOpenIsClosedWithTheDocument)
{
    TestDocument document;
    ICompoundFolder* const inner = OpenFolderByPath(document.Root(), L"a/b/c", 10);
    inner->OpenFile(L"1", 10)->GetOutputStream()->Write("one", 3);
    inner->OpenFile(L"2", 10)->GetOutputStream()->Write("two", 3);
    document.Root()->OpenFile(L"3", 10)->GetOutputStream()->Write("three", 5);
    const std::string archive = document.Finish();
    Names names = EntryNames(archive);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Names{ L"3", L"a/b/c/1", L"a/b/c/2" }));
    EXPECT_EQ(TestDocument(archive).Read(L"a/b/c/2"), "two");
}

TEST(ZipCompoundDocumentTest, ClosingAFolderClosesWhatIsInIt)
{
    TestDocument document;
    ICompoundFolder* const outer = document.Root()->OpenFolder(L"a", 10);
    outer->OpenFolder(L"b", 10)->OpenFile(L"c", 10)->GetOutputStream()->Write("x", 1);
    EXPECT_TRUE(document.Root()->CloseFolder(outer));
    document.Write(L"last", "x");
    EXPECT_EQ(EntryNames(document.Finish()), (Names{ L"a/b/c", L"last" }));
}

TEST(ZipCompoundDocumentTest, OnlyTheFolderThatOpenedAChildClosesIt)
{
    TestDocument document;
    ICompoundFolder* const root = document.Root();
    ICompoundFolder* const folder = root->OpenFolder(L"a", 10);
    ICompoundFile* const file = folder->OpenFile(L"b", 10);
    EXPECT_FALSE(root->CloseFile(file));
    file->GetOutputStream()->Write("abc", 3);
    ICompoundFolder* const inner = folder->OpenFolder(L"c", 10);
    EXPECT_FALSE(root->CloseFolder(inner));
    EXPECT_FALSE(root->CloseFolder(root));
    EXPECT_FALSE(root->CloseFile(nullptr));
    EXPECT_FALSE(root->CloseFolder(nullptr));
    EXPECT_TRUE(folder->CloseFile(file));
    EXPECT_TRUE(folder->CloseFolder(inner));
    EXPECT_EQ(EntryNames(document.Finish()), Names{ L"a/b" });
}

TEST(ZipCompoundDocumentTest, ModesWithoutACommonBitOpenNothing)
{
    TestDocument writing;
    EXPECT_EQ(writing.Root()->OpenFile(L"a", 5), nullptr);
    EXPECT_EQ(writing.Root()->OpenFolder(L"a", 5), nullptr);
    EXPECT_EQ(writing.Root()->OpenFile(L"a", 0), nullptr);
    const TestDocument reading(Archive({ "a" }));
    EXPECT_EQ(reading.Root()->OpenFile(L"a", 10), nullptr);
    EXPECT_NE(reading.Root()->OpenFile(L"a", 4), nullptr);
    EXPECT_NE(reading.Root()->OpenFile(L"a", 1), nullptr) << "any bit in common does";
}

TEST(ZipCompoundDocumentTest, AChildHasTheModeThatItWasOpenedWith)
{
    const TestDocument reading(Archive({ "a/b" }));
    ICompoundFile* const unreadable = reading.Root()->OpenFile(L"a/b", 1);
    EXPECT_EQ(unreadable->GetInputStream(), nullptr);
    EXPECT_EQ(unreadable->GetOutputStream(), nullptr);
    std::uint32_t size = 0;
    EXPECT_EQ(SizeOf(unreadable, size), 0);
    ICompoundFolder* const blind = reading.Root()->OpenFolder(L"a", 1);
    ASSERT_NE(blind, nullptr);
    EXPECT_EQ(blind->OpenFile(L"b", 4), nullptr);
    EXPECT_NE(blind->OpenFile(L"missing", 1), nullptr) << "without the bit for reading nothing is looked for";

    ICompoundFile* const both = reading.Root()->OpenFile(L"a/b", 13);
    ASSERT_NE(both, nullptr);
    EXPECT_NE(both->GetInputStream(), nullptr);
    ASSERT_NE(both->GetOutputStream(), nullptr);
    EXPECT_EQ(both->GetOutputStream()->Write("abc", 3), 3u);
}

TEST(ZipCompoundDocumentTest, WhatIsBeingWrittenCantBeReadBack)
{
    TestDocument document;
    ICompoundFile* const file = document.Root()->OpenFile(L"a", 14);
    ASSERT_NE(file, nullptr);
    file->GetOutputStream()->Write("abc", 3);
    ASSERT_NE(file->GetInputStream(), nullptr);
    EXPECT_EQ(ReadToEnd(*file->GetInputStream()), "");
}

TEST(ZipCompoundDocumentTest, StreamsAreMadeOnce)
{
    const TestDocument document(Archive({ "a" }));
    ICompoundFile* const file = document.Root()->OpenFile(L"a", 5);
    IInputStream* const stream = file->GetInputStream();
    std::array<char, 8> buffer = {};
    EXPECT_EQ(stream->Read(buffer.data(), 8), 8u);
    EXPECT_EQ(file->GetInputStream(), stream);
    EXPECT_EQ(ReadToEnd(*stream), " of a");
    EXPECT_EQ(file->GetOutputStream(), nullptr);
}

TEST(ZipCompoundDocumentTest, OpenedNamesStayOnTheListAfterClosing)
{
    TestDocument document;
    ICompoundFolder* const root = document.Root();
    EXPECT_FALSE(root->HasChild(L"a"));
    EXPECT_TRUE(root->CloseFile(root->OpenFile(L"a", 10)));
    root->OpenFolder(L"b", 10);
    EXPECT_TRUE(root->HasChild(L"A"));
    EXPECT_TRUE(root->HasChild(L"b"));
    EXPECT_FALSE(root->HasChild(L"c"));
    EXPECT_FALSE(root->HasChild(nullptr));
    const TestDocument reading(Archive({ "x" }));
    EXPECT_FALSE(reading.Root()->HasChild(L"x")) << "it wasn't opened";
    EXPECT_EQ(reading.Root()->OpenFile(L"y", 5), nullptr);
    EXPECT_FALSE(reading.Root()->HasChild(L"y"));
}

TEST(ZipCompoundDocumentTest, NamesAndParentsAreThoseOfTheOpening)
{
    TestDocument document;
    ICompoundFolder* const root = document.Root();
    EXPECT_EQ(document.Root(), root);
    EXPECT_STREQ(root->GetName(), L"root:");
    EXPECT_EQ(root->GetParent(), nullptr);
    ICompoundFolder* const folder = root->OpenFolder(L"Folder", 10);
    EXPECT_STREQ(folder->GetName(), L"Folder");
    EXPECT_EQ(folder->GetParent(), root);
    ICompoundFile* const file = folder->OpenFile(L"File", 10);
    EXPECT_STREQ(file->GetName(), L"File");
    EXPECT_EQ(file->GetParent(), folder);
    EXPECT_EQ(root->OpenFile(nullptr, 10), nullptr);
    EXPECT_EQ(root->OpenFolder(nullptr, 10), nullptr);
}

TEST(ZipCompoundDocumentTest, AnEnumeratorWalksOnceAndIsReleasedByItsFolder)
{
    const TestDocument document(Archive({ "a", "b/c" }));
    ICompoundFolder* const root = document.Root();
    IFolderEnumerator* enumerator = root->GetEnumerator();
    const GDCompoundDefinition* const first = enumerator->Next();
    const GDCompoundDefinition* const second = enumerator->Next();
    EXPECT_EQ(enumerator->Next(), nullptr);
    EXPECT_EQ(enumerator->Next(), nullptr);
    EXPECT_STREQ(first->GetName(), L"a");
    EXPECT_EQ(first->GetKind(), CompoundEntryFile);
    EXPECT_STREQ(second->GetName(), L"b");
    EXPECT_EQ(second->GetKind(), CompoundEntryFolder);
    EXPECT_EQ(root->ReleaseEnumerator(&enumerator), &enumerator);
    EXPECT_EQ(enumerator, nullptr);
    EXPECT_EQ(root->ReleaseEnumerator(&enumerator), &enumerator);
    EXPECT_EQ(root->ReleaseEnumerator(nullptr), nullptr);
}

TEST(ZipCompoundDocumentTest, WhatIsNoArchiveReadsAsAnEmptyDocument)
{
    for (const std::string bytes : { "", "no archive" })
    {
        const TestDocument document(bytes);
        ASSERT_NE(document.Root(), nullptr);
        EXPECT_EQ(document.Root()->OpenFile(L"a", 5), nullptr);
        EXPECT_EQ(document.Root()->OpenFolder(L"a", 5), nullptr);
        EXPECT_EQ(document.List(document.Root()), Names{});
    }
}

TEST(ZipCompoundDocumentTest, ADamagedEntryReadsShortWithoutAReport)
{
    std::string archive = MakeTestArchive({ Deflated("a", SampleText(400'000)), Deflated("b", "whole") });
    archive[20'000] = static_cast<char>(~archive[20'000]);
    const TestDocument document(archive);
    EXPECT_GE(document.Read(L"a").size(), 16384u);
    EXPECT_EQ(document.Read(L"b"), "whole");
    std::uint32_t size = 0;
    EXPECT_EQ(SizeOf(document.Root()->OpenFile(L"a", 5), size), 0);
    EXPECT_EQ(size, 400'000u);
}

TEST(ZipCompoundDocumentTest, OnlyModeTenWrites)
{
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.zip");
    WriteBytes(path, Archive({ "a" }));
    const std::string before = ReadBytes(path);
    for (const std::uint32_t mode : { 0u, 2u, 8u, 11u, 14u, 15u })
    {
        ZipCompoundDocument document(path.c_str(), mode);
        EXPECT_EQ(document.GetRootFolder() != nullptr, (mode & CompoundModeRead) != 0) << mode;
        document.Close();
    }
    EXPECT_EQ(ReadBytes(path), before);
}

TEST(ZipCompoundDocumentTest, ADocumentDestroyedWithoutClosingLosesItsOpenFiles)
{
    TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.zip");
    {
        ZipCompoundDocument document(path.c_str(), 10);
        ICompoundFolder* const root = document.GetRootFolder();
        ICompoundFile* const closed = root->OpenFile(L"closed", 10);
        closed->GetOutputStream()->Write("x", 1);
        root->CloseFile(closed);
        root->OpenFolder(L"folder", 10)->OpenFile(L"open", 10)->GetOutputStream()->Write("x", 1);
    }
    EXPECT_EQ(EntryNames(ReadBytes(path)), Names{ L"closed" });
}

TEST(ZipCompoundDocumentTest, AThousandNestedFoldersAreOpenedListedAndClosed)
{
    std::string name;
    for (int level = 0; level < 32'000; ++level)
    {
        name += "a/";
    }
    const TestDocument document(Archive({ name + "b" }));
    ICompoundFolder* folder = document.Root();
    for (int level = 0; level < 1000; ++level)
    {
        folder = folder->OpenFolder(L"A", 5);
        ASSERT_NE(folder, nullptr);
    }
    EXPECT_EQ(document.List(folder), Names{ L"a/" });
    EXPECT_EQ(folder->OpenFile((std::wstring(62'000, L'x') + L"b").c_str(), 5), nullptr);
}

TEST(ZipCompoundDocumentTest, FoldersInFoldersTakeNoStackWhenTheyAreClosed)
{
    TestDocument document;
    ICompoundFolder* folder = document.Root();
    for (int level = 0; level < 200'000; ++level)
    {
        folder = folder->OpenFolder(L"a", 10);
    }
    EXPECT_TRUE(document.Root()->CloseFolder(document.Root()->OpenFolder(L"a", 10)));
    EXPECT_EQ(EntryNames(document.Finish()), Names{});
}

TEST(ZipCompoundDocumentTest, AMemoryFileOfTheFlavourIsEmpty)
{
    const std::unique_ptr<IMemoryFile> memory = std::make_unique<ZipMemoryFile>();
    EXPECT_EQ(memory->GetSize(), 0u);
}
