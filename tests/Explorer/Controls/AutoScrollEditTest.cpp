#include "Explorer/Controls/AutoScrollEdit.h"

#include "Platform/ScrollBars.h"
#include "tests/Explorer/Controls/ControlFixture.h"

#include <gtest/gtest.h>

namespace
{

class AutoScrollEditTest : public ControlFixture
{
protected:
    AutoScrollEditTest()
    {
        edit = new CQOXRMAutoScrollEdit(panel, wxID_ANY, "", "Notes", { 200, 100 }); // owned by the panel
        Show();
        edit->SetFocus();
        EXPECT_TRUE(WaitFor([this] { return edit->HasFocus(); }));
    }

    bool Becomes(bool horizontal, bool vertical)
    {
        return WaitFor(
            [&]
            {
                const Platform::ScrollBars shown = Platform::ShownScrollBars(edit->GetHandle());
                return edit->Bars() == ScrollBarNeed{ horizontal, vertical } && shown.horizontal == horizontal &&
                       shown.vertical == vertical;
            });
    }

    /// Presses a key and waits until it is in the text.
    void Type(int key)
    {
        const long before = edit->GetLastPosition();
        user.Char(key);
        ASSERT_TRUE(WaitFor([&] { return edit->GetLastPosition() != before; }));
    }

    CQOXRMAutoScrollEdit* edit = nullptr;
};

} // namespace

TEST_F(AutoScrollEditTest, AnEmptyFieldHasNoBars)
{
    EXPECT_TRUE(Becomes(false, false));
    EXPECT_EQ(edit->GetName(), "Notes");
}

TEST_F(AutoScrollEditTest, TypingALongLineBringsTheHorizontalBarAndDeletingTakesItAway)
{
    edit->ChangeValue(
        wxString('m', static_cast<size_t>(edit->GetClientSize().GetWidth() / edit->GetTextExtent("m").x)));
    edit->SetInsertionPointEnd();
    Type('m');
    EXPECT_TRUE(Becomes(true, false));
    for (int times = 0; times < 3; ++times)
    {
        Type(WXK_BACK);
    }
    EXPECT_TRUE(Becomes(false, false));
}

TEST_F(AutoScrollEditTest, TypingManyLinesBringsTheVerticalBarAndDeletingTakesItAway)
{
    const int lines = edit->GetClientSize().GetHeight() / edit->GetTextExtent("Ag").y;
    for (int line = 0; line <= lines; ++line)
    {
        Type(WXK_RETURN);
    }
    EXPECT_TRUE(Becomes(false, true));
    for (int times = 0; times < 3; ++times)
    {
        Type(WXK_BACK);
    }
    EXPECT_TRUE(Becomes(false, false));
}

TEST_F(AutoScrollEditTest, ATextThatTheProgramSetsIsLookedAtToo)
{
    edit->SetValue(wxString('m', 500) + wxString('\n', 50));
    EXPECT_TRUE(Becomes(true, true));
    edit->SetValue("short");
    EXPECT_TRUE(Becomes(false, false));
}

TEST_F(AutoScrollEditTest, ALargerFieldLosesItsBars)
{
    edit->SetValue("1\n2\n3\n4\n5\n6\n7\n8");
    EXPECT_TRUE(Becomes(false, true));
    edit->SetSize(200, 350);
    EXPECT_TRUE(Becomes(false, false));
}
