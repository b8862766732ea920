#include "Utilities/Texts.h"

#include <gtest/gtest.h>

TEST(TextsTest, EveryNumberHasAText)
{
    for (auto number = static_cast<std::uint32_t>(TextId::ApplicationTitle);
         number <= static_cast<std::uint32_t>(TextId::DiskFull); ++number)
    {
        EXPECT_FALSE(LoadText(static_cast<TextId>(number)).empty()) << number;
    }
    EXPECT_TRUE(LoadText(static_cast<TextId>(1)).empty());
    EXPECT_TRUE(LoadText(static_cast<TextId>(static_cast<std::uint32_t>(TextId::DiskFull) + 1)).empty());
}

TEST(TextsTest, ArgumentsTakeThePlaceOfTheirNumbersAndAreNotReadForMore)
{
    EXPECT_EQ(FormatText(TextId::RuleCount, { L"%2", L"5" }), L"%2 of 5 rules selected");
    EXPECT_EQ(FormatText(TextId::RuleCount, { L"3" }), L"3 of %2 rules selected");
}

TEST(TextsTest, TheAttributeThatFilesAreReadByHasItsName)
{
    EXPECT_EQ(LoadText(TextId::RuleModuleAttribute), L"RuleModule");
}
