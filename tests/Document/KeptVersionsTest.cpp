#include "Document/KeptVersions.h"

#include "Platform/Process.h"
#include "Platform/Text.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/VantrelLog.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <new>

namespace
{

/// What the clock of the tests shows; each look takes it a second further.
std::atomic<int> seconds = 0;

std::tm TestTime()
{
    std::tm time = {};
    time.tm_year = 126;
    time.tm_mon = 10;
    time.tm_mday = 9;
    time.tm_hour = 13;
    time.tm_min = 4;
    time.tm_sec = seconds++;
    return time;
}

class KeptVersionsTest : public testing::Test
{
protected:
    KeptVersionsTest() { seconds = 5; }

    /// Has the file go through contents as saves do, each time keeping what it replaces.
    void Save(const std::wstring& file, const std::string& contents) const
    {
        EXPECT_TRUE(kept.Keep(file));
        WriteBytes(file, contents);
    }

    std::vector<std::string> ContentsOf(const std::wstring& file) const
    {
        std::vector<std::string> contents;
        for (const std::wstring& version : kept.VersionsOf(file))
        {
            contents.push_back(ReadBytes(version));
        }
        return contents;
    }

    std::vector<std::wstring> NamesOf(const std::wstring& file) const
    {
        std::vector<std::wstring> names;
        for (const std::wstring& version : kept.VersionsOf(file))
        {
            names.push_back(Platform::FileNamePart(version));
        }
        return names;
    }

    std::size_t LogLines(const std::function<void()>& action) const
    {
        const std::wstring log = folder.File(L"log");
        CVantrelLog::OpenLogFile(log);
        action();
        CVantrelLog::CloseLogFile();
        const std::string text = ReadBytes(log);
        std::size_t lines = 0;
        for (std::size_t at = text.find("could not be"); at != std::string::npos;
             at = text.find("could not be", at + 1))
        {
            ++lines;
        }
        return lines;
    }

    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    std::wstring storage = folder.File(L"kept");
    KeptVersions kept{ storage, TestTime };
};

} // namespace

TEST_F(KeptVersionsTest, EachVersionThatIsReplacedIsKeptByteForByteWithItsTime)
{
    const std::string odd("\xff\0\r\n", 4);
    WriteBytes(path, "first");
    Save(path, odd);
    Save(path, "third");
    EXPECT_EQ(ContentsOf(path), (std::vector<std::string>{ "first", odd }));
    const std::vector<std::wstring> names = NamesOf(path);
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0], L"1 2026-11-09 13-04-05 8b04d5e3.vrf")
        << "md5 of the contents: 8b04d5e3775d298e78455efc5ca404d5";
    EXPECT_TRUE(names[1].starts_with(L"2 2026-11-09 13-04-06 "));
}

TEST_F(KeptVersionsTest, OfTwelveSavesTheLastTenVersionsAreKept)
{
    WriteBytes(path, "0");
    for (int save = 1; save <= 12; ++save)
    {
        Save(path, std::to_string(save));
    }
    EXPECT_EQ(ContentsOf(path), (std::vector<std::string>{ "2", "3", "4", "5", "6", "7", "8", "9", "10", "11" }));
    EXPECT_TRUE(NamesOf(path).back().starts_with(L"12 "));
}

TEST_F(KeptVersionsTest, AFileThatIsNotThereLeavesNothingToKeep)
{
    EXPECT_EQ(LogLines([this] { EXPECT_TRUE(kept.Keep(path)); }), 0U);
    EXPECT_FALSE(Platform::PathExists(storage));
}

TEST_F(KeptVersionsTest, ContentsThatAreThoseOfTheNewestVersionAreNotKeptTwice)
{
    WriteBytes(path, "a");
    EXPECT_TRUE(kept.Keep(path));
    EXPECT_TRUE(kept.Keep(path));
    Save(path, "b");
    Save(path, "a");
    Save(path, "c");
    EXPECT_EQ(ContentsOf(path), (std::vector<std::string>{ "a", "b", "a" }));
}

TEST_F(KeptVersionsTest, FilesOfOneNameInTwoFoldersHaveVersionsOfTheirOwn)
{
    ASSERT_TRUE(Platform::MakeFolder(folder.File(L"left")));
    ASSERT_TRUE(Platform::MakeFolder(folder.File(L"right")));
    const std::wstring left = folder.File(L"left") + Platform::PathSeparator + L"rules.vrf";
    const std::wstring right = folder.File(L"right") + Platform::PathSeparator + L"rules.vrf";
    WriteBytes(left, "left");
    WriteBytes(right, "right");
    Save(left, "x");
    Save(right, "x");
    EXPECT_NE(kept.FolderOf(left), kept.FolderOf(right));
    EXPECT_EQ(ContentsOf(left), std::vector<std::string>{ "left" });
    EXPECT_EQ(ContentsOf(right), std::vector<std::string>{ "right" });
}

TEST_F(KeptVersionsTest, EveryWayToAFileLeadsToItsVersions)
{
    WriteBytes(path, "a");
    const std::wstring link = folder.File(L"link.vrf");
    std::filesystem::create_symlink("rules.vrf", Platform::NativePath(link));
    Save(link, "b");
    EXPECT_EQ(kept.FolderOf(link), kept.FolderOf(path));
    EXPECT_EQ(ContentsOf(path), std::vector<std::string>{ "a" });
}

TEST_F(KeptVersionsTest, TheFolderHasTheNameOfTheFileAndANoteWithItsPath)
{
    const std::wstring japanese = folder.File(L"\u91d1\u578b \u00c4.vrf");
    WriteBytes(japanese, "a");
    Save(japanese, "b");
    EXPECT_TRUE(Platform::FileNamePart(kept.FolderOf(japanese)).starts_with(L"\u91d1\u578b \u00c4.vrf-"));
    EXPECT_EQ(ContentsOf(japanese), std::vector<std::string>{ "a" });
    const std::wstring note = kept.FolderOf(japanese) + Platform::PathSeparator + KeptVersions::NoteName;
    EXPECT_EQ(ReadBytes(note), Platform::WideToUtf8(Platform::ResolvedPath(japanese)) + "\n");
}

TEST_F(KeptVersionsTest, ANameThatIsLongOrHiddenGivesAFolderThatCanBeMadeAndSeen)
{
    // The longest name that the system takes, with characters of three bytes each.
    const std::wstring longName = folder.File(std::wstring(83, L'\u91d1') + L".vrf");
    WriteBytes(longName, "a");
    Save(longName, "b");
    EXPECT_EQ(ContentsOf(longName), std::vector<std::string>{ "a" });
    const std::wstring hidden = folder.File(L".rules.vrf");
    WriteBytes(hidden, "a");
    Save(hidden, "b");
    EXPECT_EQ(ContentsOf(hidden), std::vector<std::string>{ "a" });
    EXPECT_TRUE(Platform::FileNamePart(kept.FolderOf(hidden)).starts_with(L"_rules.vrf-"));
}

TEST_F(KeptVersionsTest, AClockThatIsPutBackChangesNothingAboutTheOrder)
{
    WriteBytes(path, "0");
    for (int save = 1; save <= 12; ++save)
    {
        seconds = 30 - save;
        Save(path, std::to_string(save));
    }
    EXPECT_EQ(ContentsOf(path), (std::vector<std::string>{ "2", "3", "4", "5", "6", "7", "8", "9", "10", "11" }));
}

TEST_F(KeptVersionsTest, WhatElseLiesInTheFolderIsNeitherAVersionNorRemoved)
{
    WriteBytes(path, "0");
    Save(path, "1");
    const std::vector<std::wstring> names = { L"mine.vrf", L"1.vrf", L" 2.vrf", L"99999999999999999999999 x.vrf",
                                              L"7 notes.txt" };
    for (const std::wstring& name : names)
    {
        WriteBytes(kept.FolderOf(path) + Platform::PathSeparator + name, "x");
    }
    for (int save = 2; save <= 12; ++save)
    {
        Save(path, std::to_string(save));
    }
    EXPECT_EQ(kept.VersionsOf(path).size(), KeptVersions::MostVersions);
    // The note is there too.
    EXPECT_EQ(Platform::NamesInFolder(kept.FolderOf(path))->size(), KeptVersions::MostVersions + names.size() + 1);
}

TEST_F(KeptVersionsTest, NobodyButTheUserCanReadVersions)
{
    WriteBytes(path, "a");
    namespace fs = std::filesystem;
    fs::permissions(Platform::NativePath(path), fs::perms::all);
    Save(path, "b");
    const fs::perms others = fs::perms::group_all | fs::perms::others_all;
    for (const std::wstring& made : { storage, kept.FolderOf(path), kept.VersionsOf(path).at(0) })
    {
        EXPECT_EQ(fs::status(Platform::NativePath(made)).permissions() & others, fs::perms::none) << made;
    }
}

TEST_F(KeptVersionsTest, TwoProgramsAtOnceLeaveTheNewestTenAndEachVersionWhole)
{
    constexpr int Saves = 40;
    const auto program = [this](char first)
    {
        // Each has a file of its own that leads to the same versions, as if both had saved
        // the one file in turn.
        const KeptVersions own(storage, TestTime,
                               [this, first](const std::wstring&, const std::wstring& to)
                               { return Platform::CopyFileWhole(folder.File(std::wstring(1, first)), to); });
        for (int save = 0; save < Saves; ++save)
        {
            WriteBytes(folder.File(std::wstring(1, first)), std::string(10'000, static_cast<char>(first + save % 20)));
            EXPECT_TRUE(own.Keep(path));
        }
    };
    WriteBytes(path, "what both have");
    std::future<void> other = std::async(std::launch::async, program, 'A');
    program('a');
    other.get();
    const std::vector<std::string> contents = ContentsOf(path);
    EXPECT_EQ(contents.size(), KeptVersions::MostVersions);
    for (const std::string& version : contents)
    {
        ASSERT_EQ(version.size(), 10'000U);
        EXPECT_EQ(version.find_first_not_of(version.front()), std::string::npos);
    }
}

TEST_F(KeptVersionsTest, ACopyThatFailsIsOneLineInTheLogAndRemovesNothing)
{
    WriteBytes(path, "0");
    for (int save = 1; save <= 11; ++save)
    {
        Save(path, std::to_string(save));
    }
    const std::vector<std::wstring> before = NamesOf(path);
    const KeptVersions failing(storage, TestTime, [](const std::wstring&, const std::wstring&) { return false; });
    EXPECT_EQ(LogLines([&] { EXPECT_FALSE(failing.Keep(path)); }), 1U);
    EXPECT_EQ(NamesOf(path), before);
    EXPECT_EQ(ReadBytes(path), "11");
}

TEST_F(KeptVersionsTest, AnExceptionStaysInside)
{
    WriteBytes(path, "a");
    const KeptVersions failing(storage, TestTime,
                               [](const std::wstring&, const std::wstring&) -> bool { throw std::bad_alloc(); });
    EXPECT_EQ(LogLines([&] { EXPECT_FALSE(failing.Keep(path)); }), 1U);
}

TEST_F(KeptVersionsTest, AFolderThatCannotBeMadeOrListedIsAFailureAndNoMore)
{
    WriteBytes(path, "a");
    WriteBytes(storage, "a file where the folder should be");
    EXPECT_EQ(LogLines([this] { EXPECT_FALSE(kept.Keep(path)); }), 1U);
    EXPECT_EQ(ReadBytes(path), "a");
    EXPECT_TRUE(kept.VersionsOf(path).empty());
}

TEST_F(KeptVersionsTest, AVersionThatCannotBeRemovedStaysAndTheNextIsKept)
{
    WriteBytes(path, "0");
    for (int save = 1; save <= 10; ++save)
    {
        Save(path, std::to_string(save));
    }
    // A folder in the place of the oldest version can't be deleted as a file.
    const std::wstring oldest = kept.VersionsOf(path).front();
    ASSERT_TRUE(Platform::DeleteFileAt(oldest));
    ASSERT_TRUE(Platform::MakeFolder(oldest));
    EXPECT_EQ(LogLines([this] { EXPECT_TRUE(kept.Keep(path)); }), 1U);
    EXPECT_EQ(kept.VersionsOf(path).size(), KeptVersions::MostVersions + 1);
}

TEST_F(KeptVersionsTest, ANoteThatCannotBeWrittenKeepsNoVersionOut)
{
    WriteBytes(path, "a");
    ASSERT_TRUE(Platform::MakeFolderTree(kept.FolderOf(path) + Platform::PathSeparator + KeptVersions::NoteName));
    Save(path, "b");
    EXPECT_EQ(ContentsOf(path), std::vector<std::string>{ "a" });
}

TEST_F(KeptVersionsTest, VersionsAreKeptInTheUsersDataFolderNotBesideTheFile)
{
    EXPECT_EQ(KeptVersions::DefaultFolder(), Platform::UserDataFolder() + L"KeptVersions");
    WriteBytes(path, "a");
    Save(path, "b");
    EXPECT_EQ(Platform::NamesInFolder(folder.Path())->size(), 2U) << "the file and the folder of this test";
}
