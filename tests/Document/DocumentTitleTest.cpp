#include "Document/DocumentTitle.h"

#include <gtest/gtest.h>

using namespace DocumentTitle;

TEST(DocumentTitleTest, AModifiedReadOnlyTitleEndsInItsMarkAndThenAStar)
{
    EXPECT_EQ(ForModified(ForName(L"bracket.vrf", true), true), L"bracket.vrf [Read-Only] *");
}

TEST(DocumentTitleTest, ATitleOfOneStarBecomesEmptyWhenTheModificationGoes)
{
    EXPECT_EQ(ForModified(L"*", false), L"");
}

TEST(DocumentTitleTest, TheStarComesOnceAndGoesOnce)
{
    EXPECT_EQ(ForModified(L"a", true), L"a*");
    EXPECT_EQ(ForModified(L"a*", true), L"a*");
    EXPECT_EQ(ForModified(L"a*", false), L"a");
    EXPECT_EQ(ForModified(L"a", false), L"a");
    EXPECT_EQ(ForModified(L"", false), L"");
    EXPECT_EQ(ForModified(L"", true), L"*");
}

TEST(DocumentTitleTest, AnOrdinaryNameStaysAsItIs)
{
    EXPECT_EQ(ForName(L"bracket.vrf", false), L"bracket.vrf");
}
