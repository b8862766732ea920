#include "Application/ToolTipText.h"

#include "Platform/Text.h"
#include "tests/Support/ScopedLocale.h"

#include <gtest/gtest.h>

TEST(ToolTipTextTest, ATextThatFitsIsWhole)
{
    EXPECT_EQ(ToolTipUnits(L""), u"");
    EXPECT_EQ(ToolTipBytes(L""), "");
    EXPECT_EQ(ToolTipUnits(L"Opens a rule file"), u"Opens a rule file");
    EXPECT_EQ(ToolTipBytes(L"Opens a rule file"), "Opens a rule file");
}

TEST(ToolTipTextTest, ALongTextIsCutAt160WideCharactersOr80Bytes)
{
    EXPECT_EQ(ToolTipUnits(std::wstring(160, L'a')), std::u16string(160, u'a'));
    EXPECT_EQ(ToolTipUnits(std::wstring(161, L'a')), std::u16string(160, u'a'));
    EXPECT_EQ(ToolTipBytes(std::wstring(80, L'a')), std::string(80, 'a'));
    EXPECT_EQ(ToolTipBytes(std::wstring(81, L'a')), std::string(80, 'a'));
    EXPECT_EQ(ToolTipUnits(std::wstring(5000, L'a')).size(), 160U);
}

TEST(ToolTipTextTest, ACharacterOfTwoUnitsIsNotCutInTwo)
{
    const std::wstring pair = Platform::Utf16ToWide(u"\U0001F600");
    EXPECT_EQ(ToolTipUnits(std::wstring(158, L'a') + pair).size(), 160U);
    EXPECT_EQ(ToolTipUnits(std::wstring(159, L'a') + pair), std::u16string(159, u'a'));
}

TEST(ToolTipTextTest, ACharacterOfSeveralBytesIsNotCutInTwo)
{
    const ScopedLocale locale("C.UTF-8");
    EXPECT_EQ(ToolTipBytes(std::wstring(79, L'a') + L"\u00e9"), std::string(79, 'a'));
    EXPECT_EQ(ToolTipBytes(std::wstring(78, L'a') + L"\u00e9"), std::string(78, 'a') + "\xC3\xA9");
    EXPECT_EQ(ToolTipBytes(std::wstring(40, L'\u898f')).size(), 78U); // 26 characters of three bytes
}
