#include "Explorer/ColumnShares.h"

#include <gtest/gtest.h>

#include <string>

using Widths = ColumnShares::Widths;

TEST(ColumnSharesTest, TheListsOwnAreCutToWholePixels)
{
    const ColumnShares shares;
    EXPECT_FALSE(shares.AreOfUser());
    EXPECT_EQ(shares.In(1000), (Widths{ 395, 200, 200, 200 }));
    EXPECT_EQ(shares.In(679), (Widths{ 268, 135, 135, 135 }));
    EXPECT_EQ(shares.ToText(), L"");
}

TEST(ColumnSharesTest, WhatTheUserGaveComesBackAtTheSameWidthAndGrowsWithTheList)
{
    ColumnShares shares;
    shares.Take({ 301, 99, 77, 203 }, 680);
    EXPECT_TRUE(shares.AreOfUser());
    EXPECT_EQ(shares.In(680), (Widths{ 301, 99, 77, 203 }));
    EXPECT_EQ(shares.In(1360), (Widths{ 602, 198, 154, 406 }));
}

TEST(ColumnSharesTest, ATextKeepsThemToThePixel)
{
    for (const int width : { 333, 1000, 3840 })
    {
        ColumnShares shares;
        shares.Take({ width / 3, width / 7, 11, width / 2 }, width);
        ColumnShares kept;
        kept.FromText(shares.ToText());
        EXPECT_TRUE(kept.AreOfUser());
        EXPECT_EQ(kept.In(width), (Widths{ width / 3, width / 7, 11, width / 2 }));
    }
}

TEST(ColumnSharesTest, AColumnNeverGetsTooNarrowToBeTakenHoldOf)
{
    ColumnShares shares;
    shares.Take({ 0, 500, -3, 200 }, 700);
    EXPECT_EQ(shares.In(700), (Widths{ 10, 500, 10, 200 }));
}

TEST(ColumnSharesTest, ResettingGoesBackToTheListsOwn)
{
    ColumnShares shares;
    shares.Take({ 1, 2, 3, 4 }, 10);
    shares.Reset();
    EXPECT_FALSE(shares.AreOfUser());
    EXPECT_EQ(shares.In(1000), (Widths{ 395, 200, 200, 200 }));
}

TEST(ColumnSharesTest, ATextFromElsewhereStandsForTheListsOwn)
{
    for (const wchar_t* const text : { L"", L"1 2 3", L"1 2 3 4 5", L"1 2 x 4", L"-1 2 3 4", L"1 2 3 99999999999",
                                       L"1 2 3 2000000000", L"0,5 1 1 1" })
    {
        ColumnShares shares;
        shares.Take({ 1, 2, 3, 4 }, 10);
        shares.FromText(text);
        EXPECT_FALSE(shares.AreOfUser()) << text;
    }
}

TEST(ColumnSharesTest, AListWithoutAWidthHarmsNothing)
{
    ColumnShares shares;
    shares.Take({ 100, 100, 100, 100 }, 0);
    EXPECT_EQ(shares.In(0), (Widths{ 10, 10, 10, 10 }));
}
