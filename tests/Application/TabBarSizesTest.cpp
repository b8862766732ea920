#include "Application/TabBarSizes.h"

#include <gtest/gtest.h>

#include <vector>

TEST(TabBarSizesTest, AButtonIsAtLeast120Wide)
{
    EXPECT_EQ(TabBarButtonWidth({}, {}), 120);
    EXPECT_EQ(TabBarButtonWidth(std::vector{ 1, 99 }, std::vector{ 100 }), 120);
}

TEST(TabBarSizesTest, AButtonIsAsWideAsTheWidestLabelOfTheFirstAndTheThirdTabAnd20More)
{
    EXPECT_EQ(TabBarButtonWidth(std::vector{ 40, 150, 60 }, std::vector{ 130 }), 170);
    EXPECT_EQ(TabBarButtonWidth(std::vector{ 40 }, std::vector{ 101, 180, 20 }), 200);
    EXPECT_EQ(TabBarButtonWidth(std::vector{ 101 }, {}), 121);
}

TEST(TabBarSizesTest, ButtonsOfATabThatWasJustShownAreNarrowerThanAfterTheNextResize)
{
    EXPECT_EQ(ButtonSizeOfShownTab(150), (BarSize{ 100, 24 }));
    EXPECT_EQ(ButtonSizeOfLayout(150), (BarSize{ 170, 24 }));
}

TEST(TabBarSizesTest, TheStripWantsTheHeightOfItsFrame)
{
    EXPECT_EQ(WantedStripSize(150, 600), (BarSize{ 128, 600 }));
}

TEST(TabBarSizesTest, TheTabsFillTheStripBelowALine)
{
    EXPECT_EQ(TabControlRect({ 300, 80 }), (BarRect{ 0, 2, 302, 80 }));
}

TEST(TabBarSizesTest, ALabelHasNeitherAccessKeyNorShortcutNorDots)
{
    EXPECT_EQ(ButtonLabel(L"Save &As...\tCtrl+Shift+S"), L"Save As");
    EXPECT_EQ(ButtonLabel(L"&Help\tF1"), L"Help");
    EXPECT_EQ(ButtonLabel(L"Set Password\u2026"), L"Set Password");
    EXPECT_EQ(ButtonLabel(L"Plain"), L"Plain");
    EXPECT_EQ(ButtonLabel(L""), L"");
    EXPECT_EQ(ButtonLabel(L"\tCtrl+X"), L"");
}

TEST(TabBarSizesTest, AnAccessKeyInBracketsGoesWithThem)
{
    EXPECT_EQ(ButtonLabel(L"\u958b\u304f(&O)...\tCtrl+O"), L"\u958b\u304f");
    EXPECT_EQ(ButtonLabel(L"\u5225\u540d (&A)"), L"\u5225\u540d");
    EXPECT_EQ(ButtonLabel(L"f(&x"), L"f(x"); // no bracket that closes
    EXPECT_EQ(ButtonLabel(L"(&"), L"(");
}

TEST(TabBarSizesTest, ADoubledAmpersandIsOne)
{
    EXPECT_EQ(ButtonLabel(L"Rules && &Units"), L"Rules & Units");
    EXPECT_EQ(ButtonLabel(L"End&"), L"End");
}
