#include "Explorer/TypedSearch.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using std::chrono::milliseconds;

class TypedSearchTest : public testing::Test
{
protected:
    /// Types the letters, each soon after the one before, and goes where they lead.
    int Type(const std::wstring& text)
    {
        int row = -1;
        for (const wchar_t letter : text)
        {
            now += milliseconds(300);
            row = Go(search.Type(letter, Rows(), now));
        }
        return row;
    }
    int Shorten()
    {
        now += milliseconds(300);
        return Go(search.Shorten(Rows(), now));
    }
    int Go(int row)
    {
        focused = row >= 0 ? row : focused;
        return row;
    }
    TypedSearch::Rows Rows() const
    {
        return { static_cast<int>(names.size()), focused,
                 [this](int row) { return names.at(static_cast<std::size_t>(row)); } };
    }

    std::vector<std::wstring> names = {
        L"Bend radius", L"Depth of holes", L"Distance of holes", L"Draft", L"Épaisseur", L"Hole diameter", L"bosses",
    };
    int focused = 0;
    TypedSearch search;
    TypedSearch::Time now{};
};

} // namespace

TEST_F(TypedSearchTest, LettersLeadToTheNextNameThatStartsWithThem)
{
    EXPECT_EQ(Type(L"d"), 1);
    EXPECT_EQ(Type(L"i"), 2);
    EXPECT_EQ(search.Text(), L"di");
    EXPECT_TRUE(search.HasFound());
}

TEST_F(TypedSearchTest, TheSearchStartsBelowTheRowWithTheFocus)
{
    focused = 1;
    EXPECT_EQ(Type(L"d"), 2);
}

TEST_F(TypedSearchTest, WithoutAFocusTheSearchStartsAtTheTop)
{
    focused = -1;
    EXPECT_EQ(Type(L"b"), 0);
}

TEST_F(TypedSearchTest, AtTheEndTheSearchGoesOnAtTheTop)
{
    focused = 5;
    EXPECT_EQ(Type(L"dr"), 3);
    search.End();
    focused = 3;
    EXPECT_EQ(Type(L"dep"), 1);
}

TEST_F(TypedSearchTest, ARowWithTheFocusIsFoundAsTheLast)
{
    focused = 3;
    EXPECT_EQ(Type(L"draft"), 3);
}

TEST_F(TypedSearchTest, ANameThatStartsWithTheLettersComesBeforeOneThatHasThemWithin)
{
    EXPECT_EQ(Type(L"hole"), 5) << "not the depth of holes, which stands above";
}

TEST_F(TypedSearchTest, WithoutANameThatStartsWithThemLettersLeadToOneThatHasThem)
{
    EXPECT_EQ(Type(L"of"), 1);
    EXPECT_EQ(Type(L" hole"), 1);
    search.End();
    EXPECT_EQ(Type(L"of"), 2) << "the next";
}

TEST_F(TypedSearchTest, CaseAndAccentsDoNotMatter)
{
    EXPECT_EQ(Type(L"EPAIS"), 4);
    search.End();
    focused = 0;
    EXPECT_EQ(Type(L"épais"), 4);
    search.End();
    focused = 0;
    EXPECT_EQ(Type(L"Bos"), 6);
}

TEST_F(TypedSearchTest, WhatIsNowhereIsNotFoundAndLeadsNowhere)
{
    EXPECT_EQ(Type(L"dx"), -1);
    EXPECT_EQ(search.Text(), L"dx");
    EXPECT_FALSE(search.HasFound());
    EXPECT_EQ(focused, 1) << "where the first letter led";
}

TEST_F(TypedSearchTest, TakingALetterBackLeadsToWhereTheSearchWasWithoutIt)
{
    EXPECT_EQ(Type(L"dr"), 3);
    EXPECT_EQ(Shorten(), 1);
    EXPECT_EQ(search.Text(), L"d");
    EXPECT_EQ(Type(L"x"), -1);
    EXPECT_EQ(Shorten(), 1);
    EXPECT_TRUE(search.HasFound());
}

TEST_F(TypedSearchTest, TakingTheLastLetterBackEndsTheSearch)
{
    Type(L"d");
    EXPECT_EQ(Shorten(), -1);
    EXPECT_EQ(search.Text(), L"");
    EXPECT_FALSE(search.IsRunning(now));
    EXPECT_EQ(Shorten(), -1);
}

TEST_F(TypedSearchTest, ALetterTypedAgainGoesFromOneRowToTheNextAndRound)
{
    EXPECT_EQ(Type(L"d"), 1);
    EXPECT_EQ(Type(L"d"), 2);
    EXPECT_EQ(Type(L"D"), 3);
    EXPECT_EQ(Type(L"d"), 1);
    EXPECT_TRUE(search.HasFound());
    EXPECT_EQ(Shorten(), 1) << "the first of them";
}

TEST_F(TypedSearchTest, ADoubleLetterThatANameStartsWithIsThatName)
{
    names.emplace_back(L"AA rule");
    names.emplace_back(L"Angle");
    EXPECT_EQ(Type(L"a"), 7);
    EXPECT_EQ(Type(L"a"), 7);
}

TEST_F(TypedSearchTest, AfterTheTimeLimitASearchStartsAnew)
{
    EXPECT_EQ(Type(L"d"), 1);
    now += TypedSearch::TimeLimit - milliseconds(1);
    EXPECT_TRUE(search.IsRunning(now));
    now += milliseconds(1);
    EXPECT_FALSE(search.IsRunning(now));
    EXPECT_EQ(Go(search.Type(L'i', Rows(), now)), 2) << "the i of Distance: no name starts with it";
    EXPECT_EQ(search.Text(), L"i");
}

TEST_F(TypedSearchTest, ABlankIsFoundOnlyWhereANameHasIt)
{
    Type(L"draft");
    EXPECT_FALSE(search.WouldFind(L' ', Rows()));
    search.End();
    Type(L"bend");
    EXPECT_TRUE(search.WouldFind(L' ', Rows()));
    EXPECT_EQ(search.Text(), L"bend");
}

TEST_F(TypedSearchTest, AnEmptyListHasNothing)
{
    names.clear();
    focused = -1;
    EXPECT_EQ(Type(L"a"), -1);
    EXPECT_FALSE(search.HasFound());
}

TEST_F(TypedSearchTest, AnAccentAloneLeadsNowhere)
{
    EXPECT_EQ(Type(L"\u0301"), -1);
}

TEST_F(TypedSearchTest, TheOrderOfTheRowsAsTheyAreShownCounts)
{
    names = { L"Hole 3", L"Hole 1", L"Hole 2" };
    EXPECT_EQ(Type(L"hole"), 1);
}

TEST_F(TypedSearchTest, JapaneseIsFoundByEitherSyllables)
{
    names = { L"最小肉厚", L"穴の直径", L"リブの高さ" };
    EXPECT_EQ(Type(L"穴"), 1);
    search.End();
    EXPECT_EQ(Type(L"りぶ"), 2);
}
