// The rule list as a real control: finding rules by their first letters.

#include "tests/Explorer/ListCtrlExFixture.h"

#include <chrono>

namespace
{

class ListCtrlExSearchTest : public ListCtrlExTest
{
protected:
    ListCtrlExSearchTest()
    {
        list->SetSearchLimit(std::chrono::minutes(10)); // so that a busy machine doesn't end it
        list->SetSearchHandler(
            [this](const std::wstring& text, bool found)
            {
                shown = text;
                shownFound = found;
                ++shows;
            });
    }

    /// The window that goes may end a search, and the handler isn't for that.
    ~ListCtrlExSearchTest() override { list->SetSearchHandler({}); }

    /// A list with these names that has the keyboard, and the focus on the first.
    void Make(const std::vector<std::wstring>& names)
    {
        for (const std::wstring& name : names)
        {
            Add(name, false);
        }
        list->SetFocus();
        WaitFor([this] { return frame->IsActive(); });
        Settle();
        list->GoToRow(0);
        reported.clear();
        reports = 0;
    }

    /// Presses the keys one right after the other, as a search waits for none for long.
    void Type(const std::vector<int>& keys)
    {
        for (const int key : keys)
        {
            user.Char(key);
        }
        Settle();
    }

    std::wstring shown;
    bool shownFound = false;
    int shows = 0;
};

const std::vector<std::wstring> Names = { L"Bend", L"Draft", L"Hole depth", L"Hole distance", L"Ribs" };

} // namespace

TEST_F(ListCtrlExSearchTest, LettersSelectAndFocusTheRuleWhoseNameStartsWithThem)
{
    Make(Names);
    Press('H');
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
    EXPECT_EQ(list->FocusedRow(), 2);
    EXPECT_EQ(list->Anchor(), 2);
    EXPECT_EQ(shown, L"h");
    EXPECT_TRUE(shownFound);
    Press('O');
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
    EXPECT_EQ(shown, L"ho");
}

TEST_F(ListCtrlExSearchTest, ABlankOfANameIsPartOfTheSearchAndSetsNoBox)
{
    Make(Names);
    Type({ 'H', 'O', 'L', 'E', WXK_SPACE, 'D', 'I' });
    EXPECT_EQ(shown, L"hole di");
    EXPECT_EQ(Selected(), RowNumbers{ 3 });
    EXPECT_EQ(Ticked(), RowNumbers{});
}

TEST_F(ListCtrlExSearchTest, ABlankThatNoNameHasSetsTheBoxOfTheRuleThatWasFound)
{
    Make(Names);
    Type({ 'D', 'R', WXK_SPACE });
    EXPECT_EQ(Ticked(), RowNumbers{ 1 });
    EXPECT_EQ(shown, L"") << "that ends the search";
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{});
}

TEST_F(ListCtrlExSearchTest, BackspaceTakesTheLastLetterBackAndWithItWhereItLed)
{
    Make(Names);
    Press('R');
    ASSERT_EQ(Selected(), RowNumbers{ 4 });
    Press('X');
    EXPECT_FALSE(shownFound);
    EXPECT_EQ(shown, L"rx");
    EXPECT_EQ(Selected(), RowNumbers{ 4 });
    Press(WXK_BACK);
    EXPECT_TRUE(shownFound);
    EXPECT_EQ(shown, L"r");
    Press(WXK_BACK);
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(Selected(), RowNumbers{ 4 });
}

TEST_F(ListCtrlExSearchTest, EscapeEndsTheSearchWhereItIs)
{
    Make(Names);
    Press('H');
    Press(WXK_ESCAPE);
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(Selected(), RowNumbers{ 2 });
    Press('D');
    EXPECT_EQ(shown, L"d") << "a new one";
}

TEST_F(ListCtrlExSearchTest, TheSearchEndsByItselfAfterAWhile)
{
    Make(Names);
    list->SetSearchLimit(std::chrono::milliseconds(300));
    Press('H');
    EXPECT_TRUE(WaitFor([this] { return shown.empty(); }));
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{ 2 });
}

TEST_F(ListCtrlExSearchTest, ArrowsClicksAndCtrlAEndTheSearchAndDoWhatTheyAlwaysDo)
{
    Make(Names);
    Press('H');
    Press(WXK_DOWN);
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(Selected(), RowNumbers{ 3 });
    Press('B');
    ASSERT_EQ(Selected(), RowNumbers{ 0 });
    Click(4);
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(Selected(), RowNumbers{ 4 });
    Press('B');
    Press('A', wxMOD_CONTROL);
    EXPECT_EQ(shown, L"");
    EXPECT_EQ(list->SelectedCount(), 5);
}

TEST_F(ListCtrlExSearchTest, SortingEndsTheSearchAndTheNextOneGoesByTheNewOrder)
{
    Make(Names);
    Press('H');
    list->Sort(RuleOrder::KeyCategory);
    list->Sort(RuleOrder::KeyCategory); // from Z to A
    EXPECT_EQ(shown, L"");
    ASSERT_EQ(Selected(), RowNumbers{ 2 });
    Press('H');
    EXPECT_EQ(list->RuleOfRow(list->FocusedRow())->m_strDisplayName, L"Hole distance") << "it goes round";
}

TEST_F(ListCtrlExSearchTest, TheSearchEndsWhenRowsComeOrGo)
{
    Make(Names);
    Press('H');
    Add(L"Holes", false);
    EXPECT_EQ(shown, L"");
    Press('R');
    list->RemoveRow(0);
    EXPECT_EQ(shown, L"");
}

TEST_F(ListCtrlExSearchTest, TheSearchEndsWhenTheKeyboardGoesElsewhere)
{
    Make(Names);
    Press('H');
    ASSERT_EQ(shown, L"h");
    wxWindow* const focused = wxWindow::FindFocus(); // the list, or the part of it that has its rows
    ASSERT_NE(focused, nullptr);
    wxFocusEvent event(wxEVT_KILL_FOCUS, focused->GetId());
    event.SetEventObject(focused);
    focused->ProcessWindowEvent(event);
    EXPECT_EQ(shown, L"");
}

TEST_F(ListCtrlExSearchTest, AFoundRuleIsScrolledIntoViewAndReportedOnce)
{
    std::vector<std::wstring> names(200, L"a");
    names.emplace_back(L"z");
    Make(names);
    Press('Z');
    EXPECT_EQ(Selected(), RowNumbers{ 200 });
    EXPECT_EQ(reports, 1);
    wxRect rect;
    list->GetItemRect(200, rect);
    EXPECT_LE(rect.GetBottom(), list->GetClientSize().GetHeight());
    EXPECT_GE(rect.GetTop(), 0);
}

TEST_F(ListCtrlExSearchTest, LettersAreForTheInputMethodUntilItGivesText)
{
    Make({ L"穴の直径", L"リブの高さ" });
    // As with an input method that composes: keys are pressed and no letter comes of them.
    const auto press = [this](int key)
    {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = key;
        event.m_uniChar = key < WXK_START ? key : 0;
        return list->ProcessWindowEvent(event) && !event.GetSkipped();
    };
    const auto commit = [this](wchar_t letter)
    {
        wxKeyEvent event(wxEVT_CHAR);
        event.m_uniChar = letter;
        list->ProcessWindowEvent(event);
    };
    for (const int key : std::vector<int>{ 'R', 'I', 'B', 'U', WXK_SPACE, WXK_BACK })
    {
        EXPECT_FALSE(press(key)) << "taken from the input method: " << key;
    }
    EXPECT_EQ(Ticked(), RowNumbers{});
    EXPECT_EQ(shows, 0);
    EXPECT_FALSE(press(WXK_RETURN));
    commit(L'リ');
    commit(L'ブ');
    EXPECT_EQ(shown, L"リブ");
    EXPECT_EQ(Selected(), RowNumbers{ 1 });
    EXPECT_TRUE(press(WXK_SPACE));
    EXPECT_EQ(Ticked(), RowNumbers{ 1 }) << "no name has a blank there";
}

TEST_F(ListCtrlExSearchTest, ASpaceThatAnInputMethodDidNotWantSetsTheBox)
{
    Make(Names);
    wxKeyEvent letter(wxEVT_CHAR_HOOK);
    letter.m_keyCode = 'X'; // a composition that is given up
    letter.m_uniChar = L'X';
    list->ProcessWindowEvent(letter);
    Press(WXK_SPACE);
    EXPECT_EQ(Ticked(), RowNumbers{ 0 });
}

TEST_F(ListCtrlExSearchTest, LettersWithCtrlOrAltAreCommandsAndNoSearch)
{
    Make(Names);
    Press('H', wxMOD_CONTROL);
    Press('H', wxMOD_ALT);
    EXPECT_EQ(shows, 0);
    EXPECT_EQ(Selected(), RowNumbers{ 0 });
}
