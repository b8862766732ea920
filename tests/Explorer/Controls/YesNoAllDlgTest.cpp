#include "Explorer/Controls/YesNoAllDlg.h"

#include "tests/Explorer/Controls/ControlFixture.h"
#include "tests/Support/ShownDialog.h"
#include "Utilities/Texts.h"

#include <wx/button.h>
#include <wx/stattext.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace
{

class YesNoAllDlgTest : public ControlFixture
{
protected:
    /// The dialog's end and the answer that it leaves.
    std::pair<int, YesNoAllAnswer> Run(const std::function<void(CYesNoAllDlg&)>& act)
    {
        CYesNoAllDlg dialog("The rule \"A & B\" is there already. Replace it?", nullptr);
        const int result = RunDialog(dialog, [&] { act(dialog); });
        return { result, dialog.Answer() };
    }

    std::pair<int, YesNoAllAnswer> Click(int id)
    {
        return Run([id](CYesNoAllDlg& dialog) { ClickOn(dialog, id); });
    }

    std::pair<int, YesNoAllAnswer> Press(int key, int modifiers = 0)
    {
        return Run([&](CYesNoAllDlg&) { user.Char(key, modifiers); });
    }
};

using End = std::pair<int, YesNoAllAnswer>;

wxString Repeated(const wxString& text, int times)
{
    wxString result;
    for (int time = 0; time < times; ++time)
    {
        result += text;
    }
    return result;
}

} // namespace

TEST_F(YesNoAllDlgTest, EachOfTheFourButtonsStoresItsAnswerAndEndsTheDialogWithOk)
{
    EXPECT_EQ(Click(wxID_YES), (End{ wxID_OK, YesNoAllAnswer::Yes }));
    EXPECT_EQ(Click(wxID_YESTOALL), (End{ wxID_OK, YesNoAllAnswer::YesToAll }));
    EXPECT_EQ(Click(wxID_NO), (End{ wxID_OK, YesNoAllAnswer::No }));
    EXPECT_EQ(Click(wxID_NOTOALL), (End{ wxID_OK, YesNoAllAnswer::NoToAll }));
}

TEST_F(YesNoAllDlgTest, TheAnswersHaveTheNumbers1To4AndItStartsAt1)
{
    const CYesNoAllDlg dialog("Replace?", nullptr);
    EXPECT_EQ(static_cast<int>(dialog.Answer()), 1);
    EXPECT_EQ(static_cast<int>(YesNoAllAnswer::YesToAll), 2);
    EXPECT_EQ(static_cast<int>(YesNoAllAnswer::No), 3);
    EXPECT_EQ(static_cast<int>(YesNoAllAnswer::NoToAll), 4);
}

TEST_F(YesNoAllDlgTest, TheReturnKeyIsYes)
{
    EXPECT_EQ(Press(WXK_RETURN), (End{ wxID_OK, YesNoAllAnswer::Yes }));
}

TEST_F(YesNoAllDlgTest, TheEscapeKeyAndClosingTheWindowAreNo)
{
    EXPECT_EQ(Press(WXK_ESCAPE), (End{ wxID_OK, YesNoAllAnswer::No }));
    EXPECT_EQ(Run([](CYesNoAllDlg& dialog) { dialog.Close(); }), (End{ wxID_OK, YesNoAllAnswer::No }));
}

TEST_F(YesNoAllDlgTest, EachButtonHasALetter)
{
    EXPECT_EQ(Press('Y', wxMOD_ALT).second, YesNoAllAnswer::Yes);
    EXPECT_EQ(Press('A', wxMOD_ALT).second, YesNoAllAnswer::YesToAll);
    EXPECT_EQ(Press('N', wxMOD_ALT).second, YesNoAllAnswer::No);
    EXPECT_EQ(Press('O', wxMOD_ALT).second, YesNoAllAnswer::NoToAll);
}

TEST_F(YesNoAllDlgTest, TabGoesThroughTheButtonsFromTheFirstToTheLast)
{
    EXPECT_EQ(Run(
                  [this](CYesNoAllDlg& dialog)
                  {
                      EXPECT_TRUE(dialog.FindWindow(wxID_YES)->HasFocus());
                      for (const int id : { wxID_YESTOALL, wxID_NO, wxID_NOTOALL })
                      {
                          user.Char(WXK_TAB);
                          EXPECT_TRUE(WaitFor([&] { return dialog.FindWindow(id)->HasFocus(); })) << id;
                      }
                      user.Char(WXK_SPACE);
                  })
                  .second,
              YesNoAllAnswer::NoToAll);
}

TEST_F(YesNoAllDlgTest, ANameThatIsTooLongForTheScreenLeavesTheQuestionAndTheButtonsInSight)
{
    const CYesNoAllDlg usual("The rule \"A\" is there already, with other parameters and another name. Replace it?",
                             nullptr);
    for (const wxString& name : { wxString('m', 70), wxString('m', 20000), Repeated("m ", 5000) })
    {
        const CYesNoAllDlg dialog("The rule \"" + name + "\" is there already. Replace it?", nullptr);
        EXPECT_LE(dialog.GetSize().GetWidth(), usual.GetSize().GetWidth() + dialog.FromDIP(40));
        EXPECT_LE(dialog.GetSize().GetHeight(), 4 * usual.GetSize().GetHeight());
        wxString text = ControlsOf<wxStaticText>(dialog).at(0)->GetLabelText();
        text.Replace("\n", " ");
        EXPECT_TRUE(text.StartsWith("The rule \"m")) << text;
        EXPECT_TRUE(text.EndsWith("\" is there already. Replace it?")) << text;
    }
}

TEST_F(YesNoAllDlgTest, TheQuestionStandsThereAsItIs)
{
    const CYesNoAllDlg dialog("Replace \"A & B\"?", nullptr);
    const std::vector<wxStaticText*> texts = ControlsOf<wxStaticText>(dialog);
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0]->GetLabelText(), "Replace \"A & B\"?");
    EXPECT_EQ(dialog.GetTitle(), LoadText(TextId::ApplicationTitle));
}

TEST_F(YesNoAllDlgTest, ALongQuestionInAScriptWithoutBlanksIsBrokenAndNotCut)
{
    const wxString question = Repeated(wxString(L"\u898f\u5247"), 50);
    const CYesNoAllDlg dialog(question, nullptr);
    wxString text = ControlsOf<wxStaticText>(dialog).at(0)->GetLabelText();
    EXPECT_GT(text.Replace("\n", ""), 0U);
    EXPECT_EQ(text, question);
}
