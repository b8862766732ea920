#include "Utilities/Texts.h"

#include "tests/Utilities/LanguageInUse.h"

#include <gtest/gtest.h>

namespace
{

constexpr const wchar_t* FrenchLibrary = FRENCH_LIBRARY;

} // namespace

TEST(TextsTest, WithoutALibraryTheProgramsOwnTextsStay)
{
    EXPECT_EQ(LoadText(TextId::ColumnName), L"Rule");
    EXPECT_EQ(LoadText(static_cast<std::uint32_t>(TextId::ColumnName)), L"Rule");
}

TEST(TextsTest, ANumberThatNoTextHasIsEmpty)
{
    EXPECT_TRUE(LoadText(0U).empty());
    EXPECT_TRUE(LoadText(1U).empty());
    EXPECT_TRUE(LoadText(0xFFFFFFFFU).empty());
    const LanguageInUse french(FrenchLibrary);
    EXPECT_TRUE(LoadText(1U).empty());
}

TEST(TextsTest, TextsComeFromTheLibraryInUse)
{
    {
        const LanguageInUse french(FrenchLibrary);
        ASSERT_TRUE(french.Library().IsLoaded());
        EXPECT_EQ(LoadText(TextId::ColumnName), L"R\u00E8gle");
        EXPECT_EQ(FormatText(TextId::RuleCount, { L"3", L"5" }), L"3 r\u00E8gles s\u00E9lectionn\u00E9es sur 5");
    }
    EXPECT_EQ(LoadText(TextId::ColumnName), L"Rule");
}

TEST(TextsTest, ALibraryThatIsNotThereLeavesTheOwnTexts)
{
    const LanguageInUse none(L"no-such-folder/VantrelRuleBuilderResu.dll");
    EXPECT_FALSE(none.Library().IsLoaded());
    EXPECT_EQ(LoadText(TextId::ColumnName), L"Rule");
}

TEST(TextsTest, ALibraryWithoutTextsIsNone)
{
    Platform::ResourceLibrary library;
    EXPECT_FALSE(library.Load(LIBRARY_WITHOUT_TEXTS));
    EXPECT_FALSE(library.IsLoaded());
    EXPECT_FALSE(library.Text(static_cast<std::uint32_t>(TextId::ColumnName)));
}

TEST(TextsTest, ArgumentsTakeThePlaceOfTheirNumbersAndAreNotReadForMore)
{
    EXPECT_EQ(FormatText(TextId::RuleCount, { L"%2", L"5" }), L"%2 of 5 rules selected");
    EXPECT_EQ(FormatText(TextId::RuleCount, { L"3" }), L"3 of %2 rules selected");
}

TEST(TextsTest, TheAttributeThatFilesAreReadByHasItsNameInEveryLanguage)
{
    EXPECT_EQ(LoadText(TextId::RuleModuleAttribute), L"RuleModule");
    const LanguageInUse french(FrenchLibrary);
    EXPECT_EQ(LoadText(TextId::RuleModuleAttribute), L"RuleModule");
}
