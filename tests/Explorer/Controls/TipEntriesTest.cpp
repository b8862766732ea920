#include "Explorer/Controls/TipEntries.h"

#include <gtest/gtest.h>

TEST(TipEntriesTest, WithoutATipOfItsOwnTheTextOfAnEntryServesAsItsTip)
{
    TipEntries entries;
    entries.Append(L"Steel");
    entries.Append(L"Brass", L"An alloy of copper and zinc");
    entries.Append(L"Lead", L"");
    EXPECT_EQ(entries.Tip(0), L"Steel");
    EXPECT_EQ(entries.Tip(1), L"An alloy of copper and zinc");
    EXPECT_EQ(entries.Tip(2), L"") << "an empty tip is one of its own";
    EXPECT_EQ(entries.Text(1), L"Brass");
}

TEST(TipEntriesTest, ATipOf100CharactersShowsItsFirst80)
{
    TipEntries entries;
    entries.Append(L"a", std::wstring(80, L'x') + std::wstring(20, L'y'));
    entries.Append(std::wstring(100, L'z'));
    EXPECT_EQ(entries.Tip(0), std::wstring(80, L'x'));
    EXPECT_EQ(entries.Tip(1), std::wstring(80, L'z'));
    EXPECT_EQ(entries.Text(1), std::wstring(100, L'z')) << "the text itself is not cut";
}

TEST(TipEntriesTest, AnIndexWithoutAnEntryHasNeitherTextNorTip)
{
    TipEntries entries;
    entries.Append(L"a");
    for (const int index : { -1, 1 })
    {
        EXPECT_EQ(entries.Text(index), L"");
        EXPECT_EQ(entries.Tip(index), L"");
    }
}

TEST(TipEntriesTest, AnIndexWithoutAnEntryLeavesNoneCurrent)
{
    TipEntries entries;
    EXPECT_EQ(entries.Current(), TipEntries::None);
    entries.Append(L"a");
    entries.SetCurrent(0);
    EXPECT_EQ(entries.Current(), 0);
    entries.SetCurrent(1);
    EXPECT_EQ(entries.Current(), TipEntries::None);
}

TEST(TipEntriesTest, TheCurrentEntryStaysSoWhileOthersGo)
{
    TipEntries entries;
    for (const wchar_t* const text : { L"a", L"b", L"c", L"d" })
    {
        entries.Append(text);
    }
    entries.SetCurrent(2);
    entries.Delete(3);
    entries.Delete(0);
    EXPECT_EQ(entries.Text(entries.Current()), L"c");
    entries.Delete(7);
    EXPECT_EQ(entries.Count(), 2);
    entries.Delete(entries.Current());
    EXPECT_EQ(entries.Current(), TipEntries::None);
    entries.SetCurrent(0);
    entries.Clear();
    EXPECT_EQ(entries.Count(), 0);
    EXPECT_EQ(entries.Current(), TipEntries::None);
}

TEST(TipEntriesTest, TheFirstEntryWithATextIsFound)
{
    TipEntries entries;
    entries.Append(L"a");
    entries.Append(L"b");
    entries.Append(L"b");
    EXPECT_EQ(entries.Find(L"b"), 1);
    EXPECT_EQ(entries.Find(L"B"), TipEntries::None);
}

TEST(TipEntriesTest, TheTipOfARowHasTheNumberOfTheRowPlusOne)
{
    EXPECT_EQ(TipToolOfRow(0), 1);
    EXPECT_EQ(TipToolOfRow(41), 42);
    EXPECT_EQ(TipToolOfRow(-1), 0);
}

TEST(DropDownSizeTest, RowsThatFitAreAllShownOverTheWholeWidth)
{
    const DropDownSize size = SizeOfDropDown(5, 20, 100, 300, 15);
    EXPECT_EQ(size.rows, 5);
    EXPECT_EQ(size.height, 104) << "with 4 for the borders";
    EXPECT_EQ(size.columnWidth, 300);
}

TEST(DropDownSizeTest, OfMoreRowsAWholeNumberIsShownBesideAScrollBar)
{
    const DropDownSize size = SizeOfDropDown(6, 20, 115, 300, 15);
    EXPECT_EQ(size.rows, 5);
    EXPECT_EQ(size.height, 104);
    EXPECT_EQ(size.columnWidth, 285);
}

TEST(DropDownSizeTest, AComboBoxWithoutEntriesShowsAnEmptyListOfHeight4)
{
    const DropDownSize size = SizeOfDropDown(0, 20, 100, 300, 15);
    EXPECT_EQ(size.rows, 0);
    EXPECT_EQ(size.height, 4);
    EXPECT_EQ(size.columnWidth, 300);
}

TEST(DropDownSizeTest, OneRowIsShownHoweverLittleRoomThereIs)
{
    const DropDownSize size = SizeOfDropDown(3, 20, 10, 12, 15);
    EXPECT_EQ(size.rows, 1);
    EXPECT_EQ(size.height, 24);
    EXPECT_EQ(size.columnWidth, 0);
}
