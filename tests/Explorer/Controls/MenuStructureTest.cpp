#include "Explorer/Controls/MenuStructure.h"

#include "tests/Support/ScopedLocale.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr std::uint32_t Executes(std::uint32_t index)
{
    return MenuCharExecutes << 16U | index;
}

class MenuCharTest : public testing::Test
{
protected:
    std::uint32_t Find(wchar_t character, std::uint32_t flags = MenuFlag::Popup) const
    {
        std::vector<const MenuCaption*> items;
        for (const MenuCaption& caption : captions)
        {
            items.push_back(&caption);
        }
        return FindMenuChar(character, flags, items);
    }

    std::vector<MenuCaption> captions = { SplitMenuCaption(L"&New\tCtrl+N"), SplitMenuCaption(L"Save &As..."),
                                          SplitMenuCaption(L""), SplitMenuCaption(L"&Open...\tCtrl+O"),
                                          SplitMenuCaption(L"&Another") };
};

} // namespace

TEST(MenuCaptionTest, ACaptionWithoutATabGetsAnEmptyKeyTextAndTheKeyCodeMinusOne)
{
    const MenuCaption caption = SplitMenuCaption(L"Save &As...");
    EXPECT_EQ(caption.text, L"Save &As...");
    EXPECT_EQ(caption.keyText, L"");
    EXPECT_EQ(caption.keyCode, -1);
}

TEST(MenuCaptionTest, WhatStandsBehindTheTabIsTheKeyAndItsLastLetterTheControlCode)
{
    const MenuCaption caption = SplitMenuCaption(L"&Save\tCtrl+S");
    EXPECT_EQ(caption.text, L"&Save");
    EXPECT_EQ(caption.keyText, L"Ctrl+S");
    EXPECT_EQ(caption.keyCode, 19);
}

TEST(MenuCaptionTest, OnlyTheFirstTabSplitsTheCaption)
{
    const MenuCaption caption = SplitMenuCaption(L"a\tb\tC");
    EXPECT_EQ(caption.text, L"a");
    EXPECT_EQ(caption.keyText, L"b\tC");
    EXPECT_EQ(caption.keyCode, 3);
}

TEST(MenuCaptionTest, ATabAtTheEndGivesNoKey)
{
    const MenuCaption caption = SplitMenuCaption(L"&Help\t");
    EXPECT_EQ(caption.text, L"&Help");
    EXPECT_EQ(caption.keyText, L"");
    EXPECT_EQ(caption.keyCode, -1);
}

TEST(MenuCaptionTest, TheKeyCodeOfAFunctionKeyIsThatOfItsDigit)
{
    EXPECT_EQ(SplitMenuCaption(L"&Help\tF1").keyCode, L'1' - 64);
}

TEST_F(MenuCharTest, ALetterBehindTheAmpersandExecutesItsItemWhateverItsCase)
{
    EXPECT_EQ(Find(L'n'), Executes(0));
    EXPECT_EQ(Find(L'N'), Executes(0));
    EXPECT_EQ(Find(L'o'), Executes(3));
}

TEST_F(MenuCharTest, TheFirstOfSeveralItemsIsFound)
{
    EXPECT_EQ(Find(L'A'), Executes(1));
}

TEST_F(MenuCharTest, TheControlCodeOfAKeyExecutesItsItem)
{
    EXPECT_EQ(Find(L'O' - 64), Executes(3));
}

TEST_F(MenuCharTest, ALetterThatChoosesNothingGivesZero)
{
    EXPECT_EQ(Find(L's'), 0U) << "it stands in a text, but not behind the ampersand";
    EXPECT_EQ(Find(static_cast<wchar_t>(-1)), 0U) << "that an item has no key is no key";
}

TEST_F(MenuCharTest, WithoutThePopupFlagNothingIsFound)
{
    EXPECT_EQ(Find(L'n', 0), 0U);
    EXPECT_EQ(Find(L'n', MenuFlag::OwnerDrawn | MenuFlag::Grayed), 0U);
}

TEST_F(MenuCharTest, LettersBeyondAsciiAreFoundInBothCases)
{
    captions = { SplitMenuCaption(L"\u00C9&dition"), SplitMenuCaption(L"&\u00C9cran") };
    const ScopedLocale locale("C.UTF-8");
    ASSERT_TRUE(locale.IsTaken());
    EXPECT_EQ(Find(L'\u00E9'), Executes(1));
    EXPECT_EQ(Find(L'\u00C9'), Executes(1));
}

TEST(MenuMeasureTest, AnItemHasRoomForTheStripAndForTheKeyIfItHasOne)
{
    EXPECT_EQ(MenuItemWidth(100, false), 120);
    EXPECT_EQ(MenuItemWidth(100, true), 150);
}

TEST(MenuMeasureTest, TheHeightFollowsTheResolutionOfTheScreen)
{
    EXPECT_EQ(MenuItemHeight(96, 96), 20);
    EXPECT_EQ(MenuItemHeight(120, 120), 22);
    EXPECT_EQ(MenuItemHeight(96, 120), 22) << "96 / 4.36, since the axes differ";
    EXPECT_EQ(MenuItemHeight(120, 96), 27);
    EXPECT_EQ(MenuItemHeight(192, 192), 44);
}

TEST(MenuMeasureTest, With144DotsPerInchAnItemIs33High)
{
    EXPECT_EQ(MenuItemHeight(144, 144), 33);
}

TEST(MenuLooksTest, WhatIsDrawnFollowsWhatHasChanged)
{
    EXPECT_EQ(LooksToDraw({ true, false }, false), (MenuLooks{ true, false, false }));
    EXPECT_EQ(LooksToDraw({ true, false }, true), (MenuLooks{ true, true, false }));
    EXPECT_EQ(LooksToDraw({ false, true }, true), (MenuLooks{ false, true, false }));
    EXPECT_EQ(LooksToDraw({ false, true }, false), (MenuLooks{ false, false, true }));
    EXPECT_EQ(LooksToDraw({ true, true }, false), (MenuLooks{ true, false, true }));
    EXPECT_EQ(LooksToDraw({ false, false }, true), (MenuLooks{}));
}
