#include "Document/PasswordDlg.h"
#include "tests/Document/TestApplication.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/init.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

namespace
{

/// Shows the dialog to the user's end of it: `act` runs once it is on the screen and has the
/// keyboard.
class ShownDialog
{
public:
    explicit ShownDialog(PasswordPurpose purpose = PasswordPurpose::Set) : dialog(nullptr, purpose, prompt) {}

    int Run(const std::function<void()>& act)
    {
        dialog.Bind(wxEVT_IDLE,
                    [this, act, done = false](wxIdleEvent& event) mutable
                    {
                        if (done || !dialog.IsActive() || wxWindow::FindFocus() == nullptr)
                        {
                            event.RequestMore(!done);
                            return;
                        }
                        done = true;
                        act();
                    });
        return dialog.ShowModal();
    }

    wxTextCtrl& Edit()
    {
        for (wxWindow* const child : dialog.GetChildren())
        {
            if (auto* const edit = dynamic_cast<wxTextCtrl*>(child))
            {
                return *edit;
            }
        }
        throw std::runtime_error("no edit");
    }

    void Click(int id)
    {
        wxCommandEvent event(wxEVT_BUTTON, id);
        event.SetEventObject(dialog.FindWindow(id));
        dialog.GetEventHandler()->ProcessEvent(event);
    }

    RecordingPrompt prompt;
    CPasswordDlg dialog;
};

} // namespace

TEST(PasswordDlgTest, WhatWasTypedIsThereAfterOk)
{
    ShownDialog shown;
    EXPECT_EQ(shown.Run(
                  [&shown]
                  {
                      shown.Edit().SetValue(L" R\u00E8gle ");
                      shown.Click(wxID_OK);
                  }),
              wxID_OK);
    EXPECT_EQ(shown.dialog.strPassword, L" R\u00E8gle ");
}

TEST(PasswordDlgTest, CancelLeavesNoPassword)
{
    ShownDialog shown;
    EXPECT_EQ(shown.Run(
                  [&shown]
                  {
                      shown.Edit().SetValue("secret");
                      shown.Click(wxID_CANCEL);
                  }),
              wxID_CANCEL);
    EXPECT_TRUE(shown.dialog.strPassword.empty());
}

TEST(PasswordDlgTest, TheFieldHasTheKeyboardAndTheReturnKeyIsOk)
{
    ShownDialog shown(PasswordPurpose::Save);
    const int result = shown.Run(
        [&shown]
        {
            EXPECT_EQ(wxWindow::FindFocus(), &shown.Edit());
            wxUIActionSimulator keys;
            keys.Text("secret");
            keys.Char(WXK_RETURN);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(shown.dialog.strPassword, "secret");
}

TEST(PasswordDlgTest, TheEscapeKeyIsCancel)
{
    ShownDialog shown;
    EXPECT_EQ(shown.Run([] { wxUIActionSimulator().Char(WXK_ESCAPE); }), wxID_CANCEL);
}

TEST(PasswordDlgTest, F1ShowsTheHelpOfThePurposeAndLeavesTheDialogOpen)
{
    TestApplication application;
    for (const PasswordPurpose purpose : { PasswordPurpose::Set, PasswordPurpose::Save })
    {
        ShownDialog shown(purpose);
        const int result = shown.Run(
            []
            {
                wxUIActionSimulator keys;
                keys.Char(WXK_F1, wxMOD_SHIFT); // no key for help
                keys.Char(WXK_F1);
                keys.Char(WXK_ESCAPE);
            });
        EXPECT_EQ(result, wxID_CANCEL);
    }
    EXPECT_EQ(application.helpTopics, (std::vector{ HelpTopic::SetPassword, HelpTopic::EnterPassword }));
}

TEST(PasswordDlgTest, ThePasswordIsMasked)
{
    ShownDialog shown;
    EXPECT_TRUE(shown.Edit().HasFlag(wxTE_PASSWORD));
}

TEST(PasswordDlgTest, APasswordThatIsTooLongIsToldAndTheDialogStaysWithTheText)
{
    ShownDialog shown;
    const std::wstring tooLong(189, L'k');
    const int result = shown.Run(
        [&]
        {
            shown.Edit().SetValue(tooLong);
            shown.Click(wxID_OK);
            EXPECT_TRUE(shown.dialog.IsShown());
            EXPECT_TRUE(shown.dialog.IsModal());
            EXPECT_EQ(shown.Edit().GetValue(), tooLong);
            EXPECT_EQ(shown.prompt.texts.size(), 1u);
            EXPECT_TRUE(shown.dialog.strPassword.empty());
            shown.Edit().SetValue(tooLong.substr(1));
            shown.Click(wxID_OK);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(shown.dialog.strPassword, tooLong.substr(1));
    EXPECT_EQ(shown.prompt.texts.size(), 1u);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new wxApp); // owned by the toolkit
    const wxInitializer toolkit(argc, argv);
    return toolkit.IsOk() ? RUN_ALL_TESTS() : 1;
}
