#include "Application/ResourceLanguage.h"

#include "Platform/Files.h"
#include "Platform/Registry.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"
#include "Utilities/Texts.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

constexpr const wchar_t* OptionsKey = L"SOFTWARE\\Orvane\\YBK_PRODUCT\\Vantrel\\Add-in";

void SetOptionsLanguage(std::uint32_t value)
{
    Platform::WriteRegistryNumber(Platform::RegistryRoot::CurrentUser, OptionsKey, L"OptionsLanguage", value);
}

void SetHostEnglish(const std::wstring& version, std::uint32_t value)
{
    Platform::WriteRegistryNumber(Platform::RegistryRoot::CurrentUser,
                                  L"SOFTWARE\\Solidworks\\SolidWorks " + version + L"\\General",
                                  L"Use English language", value);
}

/// A registry of its own, and a locale by the variables that tests set.
class ResourceLanguageTest : public testing::Test
{
protected:
    std::wstring Root() const { return m_folder.Path(); }

    /// A copy of a language's library where an installed one would be.
    void Install(const std::wstring& folder, const std::wstring& library)
    {
        const std::filesystem::path path = std::filesystem::path(Root()) / L"Lang" / folder;
        std::filesystem::create_directories(path);
        std::filesystem::copy_file(library, path / std::filesystem::path(library).filename());
    }

    /// Language folder that a start finds.
    LanguageResources& Start()
    {
        InitResourceLibrary(m_resources, Root() + L"/bin/VantrelRuleBuilderu");
        return m_resources;
    }

    void TearDown() override { UseTextLibrary(nullptr); }

private:
    TemporaryFolder m_folder;
    ScopedEnvironment m_configuration{ "XDG_CONFIG_HOME", m_folder.Path() };
    ScopedEnvironment m_all{ "LC_ALL", L"" };
    ScopedEnvironment m_messages{ "LC_MESSAGES", L"" };
    ScopedEnvironment m_language{ "LANG", L"" };
    LanguageResources m_resources;
};

} // namespace

TEST_F(ResourceLanguageTest, NoSettingFollowsTheUser)
{
    const ScopedEnvironment language("LANG", L"ja_JP.UTF-8");
    EXPECT_EQ(GetResourceLanguage(), L"japanese");
    const ScopedEnvironment messages("LC_MESSAGES", L"ko_KR.UTF-8");
    EXPECT_EQ(GetResourceLanguage(), L"korean");
    const ScopedEnvironment all("LC_ALL", L"fr_FR");
    EXPECT_EQ(GetResourceLanguage(), L"french");
}

TEST_F(ResourceLanguageTest, ZeroIsEnglishWhateverTheHostAndUserSay)
{
    const ScopedEnvironment language("LANG", L"ja_JP.UTF-8");
    SetOptionsLanguage(0);
    SetHostEnglish(L"2007", 0);
    EXPECT_EQ(GetResourceLanguage(), L"english");
}

TEST_F(ResourceLanguageTest, AnIdentifierIsTakenWithoutLookingAtTheHost)
{
    SetOptionsLanguage(1041);
    SetHostEnglish(L"2007", 1);
    EXPECT_EQ(GetResourceLanguage(), L"japanese");
}

TEST_F(ResourceLanguageTest, AHostSetToEnglishComesBeforeTheUser)
{
    const ScopedEnvironment language("LANG", L"ja_JP.UTF-8");
    SetHostEnglish(L"2008", 1);
    EXPECT_EQ(GetResourceLanguage(), L"english");
    SetHostEnglish(L"2008", 2);
    EXPECT_EQ(GetResourceLanguage(), L"japanese");
    SetHostEnglish(L"2007", 1);
    EXPECT_EQ(GetResourceLanguage(), L"english");
    SetOptionsLanguage(1);
    EXPECT_EQ(GetResourceLanguage(), L"english");
}

TEST_F(ResourceLanguageTest, MinusOneIsLikeNoSetting)
{
    const ScopedEnvironment language("LANG", L"ko_KR");
    SetOptionsLanguage(0xFFFFFFFF);
    EXPECT_EQ(GetResourceLanguage(), L"korean");
}

TEST_F(ResourceLanguageTest, IdentifiersBeyondTheTableAreEnglish)
{
    for (const std::uint32_t identifier : { 2U, 1030U, 2053U, 3084U, 0x7FFFFFFFU })
    {
        SetOptionsLanguage(identifier);
        EXPECT_EQ(GetResourceLanguage(), L"english") << identifier;
    }
}

TEST_F(ResourceLanguageTest, NamesAndIdentifiersBelongTogether)
{
    for (const std::uint32_t identifier :
         { 1028U, 1029U, 1031U, 1033U, 1034U, 1036U, 1040U, 1041U, 1042U, 1045U, 1046U, 1049U, 2052U })
    {
        EXPECT_EQ(LanguageIdOf(LanguageNameOf(identifier)), identifier);
    }
    EXPECT_EQ(LanguageNameOf(1046), L"portuguese-brazilian");
    EXPECT_EQ(LanguageIdOf(L"Chinese-SIMPLIFIED"), 2052U);
    EXPECT_EQ(LanguageIdOf(L"klingon"), 1033U);
}

TEST_F(ResourceLanguageTest, OnlyFiveLanguagesHaveAFolder)
{
    EXPECT_EQ(GetLanguageFolder(L"japanese"), L"japanese");
    EXPECT_EQ(GetLanguageFolder(L"korean"), L"korean");
    EXPECT_EQ(GetLanguageFolder(L"french"), L"french");
    EXPECT_EQ(GetLanguageFolder(L"german"), L"english");
    EXPECT_EQ(GetLanguageFolder(L"russian"), L"english");
    EXPECT_EQ(GetLanguageFolder(L"French"), L"english");
    EXPECT_EQ(GetLanguageFolder(L""), L"english");
}

TEST_F(ResourceLanguageTest, BothChineseLanguagesTakeTheFolderOfTheSystemsLocale)
{
    const ScopedEnvironment language("LANG", L"zh_TW.UTF-8");
    EXPECT_EQ(GetLanguageFolder(L"chinese"), L"zh_TW");
    EXPECT_EQ(GetLanguageFolder(L"chinese-simplified"), L"zh_TW");
}

TEST_F(ResourceLanguageTest, AChineseUserOfAJapaneseSystemGetsItsFolderOrElseEnglish)
{
    Install(L"english", ENGLISH_LIBRARY);
    const ScopedEnvironment language("LANG", L"ja_JP.UTF-8");
    const ScopedEnvironment messages("LC_MESSAGES", L"zh_CN.UTF-8");
    EXPECT_EQ(GetLanguageFolder(GetResourceLanguage()), L"ja_JP");
    EXPECT_EQ(Start().strLanguageFolder, L"english");
    Install(L"ja_JP", JAPANESE_LIBRARY);
    EXPECT_EQ(Start().strLanguageFolder, L"ja_JP");
}

TEST_F(ResourceLanguageTest, AStartKeepsWhereTheLanguageIs)
{
    Install(L"french", FRENCH_LIBRARY);
    SetOptionsLanguage(1036);
    const LanguageResources& resources = Start();
    EXPECT_EQ(resources.strExeFolder, Root() + L"/bin");
    EXPECT_EQ(resources.strLanguageFolder, L"french");
    EXPECT_EQ(resources.strLanguageFolderPath, Root() + L"/Lang/french");
    EXPECT_EQ(resources.strHelpFilePath, Root() + L"/Lang/french/vantrel.chm");
    EXPECT_EQ(resources.strResDllPath, Root() + L"/Lang/french/VantrelRuleBuilderResu.dll");
    EXPECT_TRUE(resources.library.IsLoaded());
    EXPECT_EQ(LoadText(TextId::ColumnName), L"R\u00E8gle");
}

TEST_F(ResourceLanguageTest, TheNameOfTheLanguageIsGoneAfterLoading)
{
    SetOptionsLanguage(1036);
    EXPECT_TRUE(Start().strLanguage.empty());
}

TEST_F(ResourceLanguageTest, AMissingLibraryGivesEnglishInEveryRespect)
{
    Install(L"english", ENGLISH_LIBRARY);
    SetOptionsLanguage(1042);
    const LanguageResources& resources = Start();
    EXPECT_EQ(resources.strLanguageFolder, L"english");
    EXPECT_EQ(resources.strLanguageFolderPath, Root() + L"/Lang/english");
    EXPECT_EQ(resources.strHelpFilePath, Root() + L"/Lang/english/vantrel.chm");
    EXPECT_EQ(resources.strResDllPath, Root() + L"/Lang/english/VantrelRuleBuilderResu.dll");
    EXPECT_TRUE(resources.library.IsLoaded());
}

TEST_F(ResourceLanguageTest, WithoutAnyLibraryTheStartGoesOnWithTheProgramsOwnTexts)
{
    SetOptionsLanguage(1042);
    const LanguageResources& resources = Start();
    EXPECT_FALSE(resources.library.IsLoaded());
    EXPECT_EQ(resources.strLanguageFolder, L"english");
    EXPECT_EQ(LoadText(TextId::ColumnName), L"Rule");
}

TEST_F(ResourceLanguageTest, AVeryLongProgramPathIsCut)
{
    LanguageResources resources;
    InitResourceLibrary(resources, L"/" + std::wstring(1200, L'x') + L"/bin/VantrelRuleBuilderu");
    EXPECT_EQ(resources.strExeFolder, L"");
    EXPECT_EQ(resources.strLanguageFolderPath, L"/Lang/english");
}
