#include "Platform/Files.h"
#include "Platform/Library.h"
#include "tests/Support/FakeDesktop.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/DataHelper.h>
#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/FrameworkUtils.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

TEST(FrameworkFunctionsTest, AllPlainFunctionsAreFoundByNameUnderEverySpellingOfTheLibrary)
{
    for (const wchar_t* const spelling :
         { L"vantrelframeworku.dll", L"VantrelFrameworku.dll", L"VantrelFrameWorku.dll" })
    {
        const Platform::LibraryHandle library = Platform::FindLoadedLibrary(spelling);
        ASSERT_NE(library, nullptr) << spelling;
        for (const char* const name : { "OnStartApplication", "ShowQOXHelp", "GetDataSettingsFolderPath",
                                        "AreVSTARulesSupported", "SetXMLDoc", "SetXMLDoc2" })
        {
            EXPECT_NE(Platform::FindLibrarySymbol(library, name), nullptr) << name;
        }
    }
}

TEST(FrameworkFunctionsTest, TheSettingsFolderFollowsTheVariableIsMadeAndEndsInASeparator)
{
    const TemporaryFolder folder;
    const ScopedEnvironment variable("vantrel_data_dir", folder.Path());
    std::array<wchar_t, 1024> buffer{};
    std::size_t size = buffer.size();
    const std::size_t length = GetDataSettingsFolderPath(buffer.data(), &size);
    const std::wstring expected = folder.Path() + Platform::PathSeparator + L"Settings" + Platform::PathSeparator;
    EXPECT_EQ(length, expected.size());
    EXPECT_EQ(size, expected.size());
    EXPECT_STREQ(buffer.data(), expected.c_str());
    EXPECT_TRUE(Platform::FolderExists(expected));
}

TEST(FrameworkFunctionsTest, AShortBufferIsFilledToItsEndAndTheWholeLengthTold)
{
    const TemporaryFolder folder;
    const ScopedEnvironment variable("vantrel_data_dir", folder.Path());
    std::array<wchar_t, 4> buffer{ L'x', L'x', L'x', L'x' };
    std::size_t size = 3;
    EXPECT_GT(GetDataSettingsFolderPath(buffer.data(), &size), 3u);
    EXPECT_EQ(std::wstring(buffer.data(), 3), folder.Path().substr(0, 3));
    EXPECT_EQ(buffer[3], L'x');
    EXPECT_GT(GetDataSettingsFolderPath(nullptr, nullptr), 3u);
}

TEST(FrameworkFunctionsTest, VSTARulesAreSupported)
{
    int supported = 0;
    AreVSTARulesSupported(&supported);
    EXPECT_EQ(supported, 1);
    AreVSTARulesSupported(nullptr);
}

TEST(FrameworkFunctionsTest, HelpThatDoesNotExistIsNotShown)
{
    const TemporaryFolder folder;
    int result = 7;
    ShowQOXHelp(folder.File(L"vantrel.chm"), 1000, &result);
    EXPECT_EQ(result, 0);
}

TEST(FrameworkFunctionsTest, TheFirstTopicOfHelpIsShownForANumberThatNoneHas)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"vantrel.chm"), "ITSF");
    Platform::MakeFolder(folder.File(L"help"));
    WriteBytes(folder.File(L"help/topics.txt"), "1000 first.html\n1100 second.html\n");
    WriteBytes(folder.File(L"help/first.html"), "<!DOCTYPE html>");
    WriteBytes(folder.File(L"help/second.html"), "<!DOCTYPE html>");
    FakeDesktop desktop;
    int result = 7;
    ShowQOXHelp(folder.File(L"vantrel.chm"), 1100, &result);
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(desktop.WaitForTarget().ends_with("/help/second.html"));
    desktop.Forget();
    ShowQOXHelp(folder.File(L"vantrel.chm"), 4711, nullptr);
    EXPECT_TRUE(desktop.WaitForTarget().ends_with("/help/first.html"));
}

TEST(FrameworkFunctionsTest, CategoriesAreOfferedOnceEach)
{
    std::vector<std::wstring> categories = { L"left over" };
    CQOXFrameWrkUtils::GetRuleCategoryStringList(categories);
    EXPECT_GE(categories.size(), 5u);
    EXPECT_EQ(std::set<std::wstring>(categories.begin(), categories.end()).size(), categories.size());
    EXPECT_EQ(std::count(categories.begin(), categories.end(), L"left over"), 0);
}

TEST(FrameworkFunctionsTest, TheDatabaseHelperIsOneAndItsCollectorMayBeMissing)
{
    qox_db::QOXDataHelper& helper = qox_db::QOXDataHelper::getInstance();
    EXPECT_EQ(&helper, &qox_db::QOXDataHelper::getInstance());
    IDatabaseCollector* const collector = helper;
    EXPECT_EQ(collector, nullptr);
}
