// The rule editor as a real window.

#include "Explorer/RuleEditorDlg.h"
#include "tests/Support/WindowTest.h"
#include "Utilities/Texts.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/RuleEditor.h>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/config.h>
#include <wx/frame.h>
#include <wx/memconf.h>
#include <wx/persist.h>
#include <wx/scrolwin.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

class RuleEditorDlgTest : public WindowTest
{
protected:
    RuleEditorDlgTest()
    {
        delete wxConfigBase::Set(new wxMemoryConfig);
        rule.m_strDisplayName = L"Corners & Radii";
        rule.m_strSummary = L"Finds corners that are sharp.";
        AddNumber(ParamKind::Length, L"Radius", 1.5, 0.1, 100);
        AddNumber(ParamKind::Integer, L"Directions", 3, 1, 6);
        AddNumber(ParamKind::YesNo, L"Reliefs", 1, 0, 1);
        CQoxParamStorage& material = Add(ParamKind::Choice, L"Material");
        material.choices = { L"brass", L"steel" };
        material.strValue = L"steel";
        material.strDefault = L"steel";
        Add(ParamKind::Text, L"Remark");
    }
    ~RuleEditorDlgTest() override
    {
        dialog.reset();
        delete wxConfigBase::Set(nullptr);
    }

    CQoxParamStorage& Add(ParamKind kind, const std::wstring& label)
    {
        CQoxParamStorage& parameter = rule.Parameters().emplace_back();
        parameter.nNumber = static_cast<std::int32_t>(rule.Parameters().size());
        parameter.eKind = kind;
        parameter.strLabel = label;
        parameter.strHelp = L"Help on " + label;
        return parameter;
    }
    void AddNumber(ParamKind kind, const std::wstring& label, double value, double minimum, double maximum)
    {
        CQoxParamStorage& parameter = Add(kind, label);
        parameter.dValue = value;
        parameter.dDefault = value;
        parameter.dMinimum = minimum;
        parameter.dMaximum = maximum;
    }

    void Make() { dialog = std::make_unique<RuleEditorDlg>(nullptr, rule, L'.'); }

    /// Shows the dialog to its end; `act` runs once it has the keyboard.
    int Run(const std::function<void()>& act)
    {
        if (dialog == nullptr)
        {
            Make();
        }
        dialog->Bind(wxEVT_IDLE,
                     [this, act, done = false](wxIdleEvent& event) mutable
                     {
                         if (done || !dialog->IsActive() || wxWindow::FindFocus() == nullptr)
                         {
                             event.RequestMore(!done);
                             return;
                         }
                         done = true;
                         act();
                     });
        return dialog->ShowModal();
    }

    /// The field of the parameter with the label.
    template <typename Control>
    Control& Field(const wxString& label)
    {
        auto* const field = dynamic_cast<Control*>(wxWindow::FindWindowByName(label, dialog.get()));
        return field != nullptr ? *field : throw std::runtime_error("no field");
    }
    wxTextCtrl& Edit(const wxString& label) { return Field<wxTextCtrl>(label); }
    wxTextCtrl& HelpPane() { return Edit(LoadText(TextId::EditorHelpName)); }
    wxButton& ResetButton(const std::wstring& label, const std::wstring& defaultText)
    {
        return Field<wxButton>(FormatText(TextId::EditorTipReset, { label, defaultText }));
    }

    void Click(wxButton& button)
    {
        ASSERT_TRUE(button.IsEnabled());
        wxCommandEvent event(wxEVT_BUTTON, button.GetId());
        event.SetEventObject(&button);
        button.GetEventHandler()->ProcessEvent(event);
    }
    void Click(int id) { Click(dynamic_cast<wxButton&>(*dialog->FindWindow(id))); }
    void ClickResetAll()
    {
        Click(dynamic_cast<wxButton&>(*wxWindow::FindWindowByLabel(LoadText(TextId::EditorResetAll), dialog.get())));
    }

    /// True if a label with the text is to be seen.
    static bool IsShown(const wxWindow& within, const std::wstring& text)
    {
        for (const wxWindow* const child : within.GetChildren())
        {
            wxString label = child->GetLabel();
            label.Replace("\n", " "); // where it is wrapped
            const bool isIt = dynamic_cast<const wxStaticText*>(child) != nullptr && child->IsShown() &&
                              wxControl::RemoveMnemonics(label) == text;
            if (isIt || IsShown(*child, text))
            {
                return true;
            }
        }
        return false;
    }
    bool IsShown(const std::wstring& text) const { return IsShown(*dialog, text); }

    void Choose(const wxString& label, const wxString& option)
    {
        wxComboBox& choice = Field<wxComboBox>(label);
        choice.SetStringSelection(option);
        wxCommandEvent event(wxEVT_COMBOBOX, choice.GetId());
        event.SetEventObject(&choice);
        event.SetInt(choice.GetSelection());
        choice.GetEventHandler()->ProcessEvent(event);
    }
    static wxString CriticalityField() { return wxControl::RemoveMnemonics(LoadText(TextId::EditorCriticality)); }

    ConcreteQOXRule rule;
    std::unique_ptr<RuleEditorDlg> dialog;
};

} // namespace

TEST_F(RuleEditorDlgTest, OkGivesTheRuleWhatWasTyped)
{
    EXPECT_EQ(Run(
                  [this]
                  {
                      Edit("Radius").SetValue("0.25 in");
                      Edit("Directions").SetValue("6");
                      wxCheckBox& reliefs = Field<wxCheckBox>("Reliefs");
                      reliefs.SetValue(false);
                      wxCommandEvent clicked(wxEVT_CHECKBOX, reliefs.GetId());
                      clicked.SetEventObject(&reliefs);
                      clicked.SetInt(0);
                      reliefs.GetEventHandler()->ProcessEvent(clicked);
                      Choose("Material", "brass");
                      Edit("Remark").SetValue("checked");
                      Choose(CriticalityField(), LoadText(TextId::Criticality5));
                      EXPECT_EQ(rule.Parameters()[0].dValue, 1.5);
                      Click(wxID_OK);
                  }),
              wxID_OK);
    EXPECT_EQ(rule.Parameters()[0].dValue, 6.35);
    EXPECT_EQ(rule.Parameters()[1].dValue, 6);
    EXPECT_EQ(rule.Parameters()[2].dValue, 0);
    EXPECT_EQ(rule.Parameters()[3].strValue, L"brass");
    EXPECT_EQ(rule.Parameters()[4].strValue, L"checked");
    EXPECT_EQ(rule.m_nCriticality, 5);
}

TEST_F(RuleEditorDlgTest, CancelLeavesTheRuleAsItIs)
{
    EXPECT_EQ(Run(
                  [this]
                  {
                      Edit("Radius").SetValue("7");
                      Choose("Material", "brass");
                      Choose(CriticalityField(), LoadText(TextId::Criticality5));
                      Click(wxID_CANCEL);
                  }),
              wxID_CANCEL);
    EXPECT_EQ(rule.Parameters()[0].dValue, 1.5);
    EXPECT_EQ(rule.Parameters()[3].strValue, L"steel");
    EXPECT_EQ(rule.m_nCriticality, 3);
}

TEST_F(RuleEditorDlgTest, TheFirstFieldHasTheKeyboardAndTheReturnKeyIsOk)
{
    EXPECT_EQ(Run(
                  [this]
                  {
                      EXPECT_EQ(wxWindow::FindFocus(), &Edit("Radius"));
                      wxUIActionSimulator keys;
                      keys.Text("2.5"); // in the place of what was selected
                      keys.Char(WXK_RETURN);
                  }),
              wxID_OK);
    EXPECT_EQ(rule.Parameters()[0].dValue, 2.5);
}

TEST_F(RuleEditorDlgTest, TheEscapeKeyIsCancel)
{
    EXPECT_EQ(Run(
                  []
                  {
                      wxUIActionSimulator keys;
                      keys.Text("2.5");
                      keys.Char(WXK_ESCAPE);
                  }),
              wxID_CANCEL);
    EXPECT_EQ(rule.Parameters()[0].dValue, 1.5);
}

TEST_F(RuleEditorDlgTest, WhatIsWrongIsToldWhileTyping)
{
    Make();
    const std::wstring tooLarge = FormatText(TextId::EditorAboveMaximum, { L"100 mm" });
    EXPECT_FALSE(IsShown(tooLarge));
    Edit("Radius").SetValue("101");
    EXPECT_TRUE(IsShown(tooLarge));
    Edit("Radius").SetValue("x");
    EXPECT_FALSE(IsShown(tooLarge));
    EXPECT_TRUE(IsShown(LoadText(TextId::EditorNotALength)));
    Edit("Radius").SetValue("99");
    EXPECT_FALSE(IsShown(LoadText(TextId::EditorNotALength)));
}

TEST_F(RuleEditorDlgTest, OkGoesToTheFirstWrongFieldAndStays)
{
    const int result = Run(
        [this]
        {
            Edit("Directions").SetValue("7");
            Edit("Remark").SetFocus();
            Click(wxID_OK);
            EXPECT_TRUE(dialog->IsModal());
            EXPECT_EQ(wxWindow::FindFocus(), &Edit("Directions"));
            EXPECT_EQ(Edit("Directions").GetStringSelection(), "7");
            EXPECT_TRUE(IsShown(FormatText(TextId::EditorAboveMaximum, { L"6" })));
            EXPECT_EQ(rule.Parameters()[1].dValue, 3);
            Edit("Directions").SetValue("5");
            Click(wxID_OK);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(rule.Parameters()[1].dValue, 5);
}

TEST_F(RuleEditorDlgTest, AValueThatDiffersFromTheDefaultIsMarkedAndCanBeReset)
{
    Make();
    wxButton& reset = ResetButton(L"Radius", L"1.5 mm");
    EXPECT_FALSE(reset.IsEnabled());
    EXPECT_TRUE(IsShown(L"Radius"));
    Edit("Radius").SetValue("2");
    EXPECT_TRUE(reset.IsEnabled());
    EXPECT_TRUE(IsShown(L"Radius *"));
    EXPECT_FALSE(IsShown(L"Radius"));
    Click(reset);
    EXPECT_EQ(Edit("Radius").GetValue(), "1.5");
    EXPECT_TRUE(IsShown(L"Radius"));
    EXPECT_FALSE(reset.IsEnabled());
}

TEST_F(RuleEditorDlgTest, ABoxThatDiffersFromTheDefaultIsMarkedOnItsOwnLabel)
{
    rule.Parameters()[2].dValue = 0;
    Make();
    wxCheckBox& reliefs = Field<wxCheckBox>("Reliefs");
    EXPECT_FALSE(reliefs.GetValue());
    EXPECT_EQ(reliefs.GetLabel(), "Reliefs *");
    Click(ResetButton(L"Reliefs", LoadText(TextId::EditorYes)));
    EXPECT_TRUE(reliefs.GetValue());
    EXPECT_EQ(reliefs.GetLabel(), "Reliefs");
}

TEST_F(RuleEditorDlgTest, ResetAllTakesEveryFieldToItsDefault)
{
    rule.Parameters()[0].dValue = 50;
    rule.Parameters()[3].strValue = L"brass";
    const int result = Run(
        [this]
        {
            Edit("Directions").SetValue("junk");
            Edit("Remark").SetValue("much");
            ClickResetAll();
            EXPECT_EQ(Edit("Radius").GetValue(), "1.5");
            EXPECT_EQ(Edit("Directions").GetValue(), "3");
            EXPECT_EQ(Field<wxComboBox>("Material").GetStringSelection(), "steel");
            EXPECT_EQ(Edit("Remark").GetValue(), "");
            EXPECT_FALSE(IsShown(LoadText(TextId::EditorNotANumber)));
            Click(wxID_OK);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(rule.Parameters()[0].dValue, 1.5);
    EXPECT_EQ(rule.Parameters()[3].strValue, L"steel");
}

TEST_F(RuleEditorDlgTest, ThePaneHelpsWithTheParameterThatHasTheKeyboard)
{
    Run(
        [this]
        {
            EXPECT_TRUE(HelpPane().GetValue().StartsWith("Help on Radius"));
            Edit("Directions").SetFocus();
            wxYield();
            EXPECT_TRUE(HelpPane().GetValue().StartsWith("Help on Directions"));
            EXPECT_TRUE(HelpPane().GetValue().Contains(FormatText(TextId::EditorDefault, { L"3" })));
            Click(wxID_CANCEL);
        });
}

TEST_F(RuleEditorDlgTest, TheTabKeyGoesFromFieldToFieldPastButtonsOutOfUse)
{
    Run(
        [this]
        {
            const std::vector<wxWindow*> order = { &Edit("Directions"), &Field<wxCheckBox>("Reliefs"),
                                                   &Field<wxComboBox>("Material"), &Edit("Remark"), &HelpPane() };
            for (wxWindow* const expected : order)
            {
                wxUIActionSimulator keys;
                keys.Char(WXK_TAB);
                wxYield();
                if (wxWindow::FindFocus() == nullptr)
                {
                    keys.Char(WXK_TAB); // off the arrow that a choice has on some systems
                    wxYield();
                }
                const wxWindow* const focus = wxWindow::FindFocus();
                EXPECT_EQ(focus, expected) << expected->GetName() << " expected, "
                                           << (focus != nullptr ? focus->GetName() : "nothing") << " found";
            }
            Click(wxID_CANCEL);
        });
}

TEST_F(RuleEditorDlgTest, ARuleWithoutParametersShowsItsCriticalityAlone)
{
    rule.Parameters().clear();
    const int result = Run(
        [this]
        {
            EXPECT_TRUE(IsShown(LoadText(TextId::EditorNoParameters)));
            EXPECT_EQ(wxWindow::FindFocus(), &Field<wxComboBox>(CriticalityField()));
            Choose(CriticalityField(), LoadText(TextId::Criticality1));
            Click(wxID_OK);
        });
    EXPECT_EQ(result, wxID_OK);
    EXPECT_EQ(rule.m_nCriticality, 1);
}

TEST_F(RuleEditorDlgTest, SixtyParametersWithLongTextsStayOnTheScreen)
{
    std::wstring longText;
    for (int word = 0; word < 30; ++word)
    {
        longText += L"many words ";
    }
    rule.m_strDisplayName = longText;
    rule.m_strSummary = longText;
    for (int count = 0; count < 60; ++count)
    {
        AddNumber(ParamKind::Length, L"p" + std::to_wstring(count) + L" " + longText, 1, 0, 10);
    }
    Add(ParamKind::Choice, L"last").choices = { longText, L"" };
    const int result = Run(
        [this]
        {
            EXPECT_LE(dialog->GetSize().GetWidth(), 1280);
            EXPECT_LE(dialog->GetSize().GetHeight(), 1024);
            // The keyboard brings the last one into sight.
            wxWindow& last = Field<wxComboBox>("last");
            auto& list = dynamic_cast<wxScrolledWindow&>(*last.GetParent());
            const auto isInSight = [&list, &last] { return wxRect(list.GetClientSize()).Contains(last.GetRect()); };
            EXPECT_FALSE(isInSight());
            last.SetFocus();
            wxYield();
            EXPECT_TRUE(isInSight());
            Click(wxID_OK);
        });
    EXPECT_EQ(result, wxID_OK);
}

TEST_F(RuleEditorDlgTest, ATextOfSeveralLinesKeepsThem)
{
    rule.Parameters()[4].strValue = L"first\nsecond";
    Run(
        [this]
        {
            EXPECT_EQ(Edit("Remark").GetValue(), "first\nsecond");
            Edit("Remark").SetValue("first\nsecond\nthird");
            Click(wxID_OK);
        });
    EXPECT_EQ(rule.Parameters()[4].strValue, L"first\nsecond\nthird");
}

TEST_F(RuleEditorDlgTest, AChoiceThatIsNotOfferedHereIsShownWithANote)
{
    rule.Parameters()[3].strValue = L"unobtainium";
    Make();
    EXPECT_EQ(Field<wxComboBox>("Material").GetStringSelection(), "unobtainium");
    EXPECT_TRUE(IsShown(FormatText(TextId::EditorKeptChoice, { L"unobtainium" })));
    Choose("Material", "brass");
    EXPECT_FALSE(IsShown(FormatText(TextId::EditorKeptChoice, { L"unobtainium" })));
}

TEST_F(RuleEditorDlgTest, TheWheelOverAChoiceDoesNotChooseAnother)
{
    Make();
    wxComboBox& material = Field<wxComboBox>("Material");
    wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
    wheel.SetEventObject(&material);
    wheel.m_wheelRotation = -120;
    wheel.m_wheelDelta = 120;
    EXPECT_TRUE(material.GetEventHandler()->ProcessEvent(wheel)) << "left to the system, which would choose";
    EXPECT_EQ(material.GetStringSelection(), "steel");
}

TEST_F(RuleEditorDlgTest, TheSizeIsRemembered)
{
    wxSize taken;
    Run(
        [this, &taken]
        {
            dialog->SetSize(dialog->GetSize() + wxSize(57, 43));
            wxYield();
            taken = dialog->GetSize();
            Click(wxID_CANCEL);
        });
    dialog.reset();
    Run(
        [this, &taken]
        {
            EXPECT_EQ(dialog->GetSize().GetWidth(), taken.GetWidth());
            EXPECT_EQ(dialog->GetSize().GetHeight(), taken.GetHeight());
            Click(wxID_CANCEL);
        });
}

TEST_F(RuleEditorDlgTest, ARuleOpensTheEditorThatIsRegistered)
{
    // The editor is modal; it is answered from within.
    wxFrame* const frame = new wxFrame(nullptr, wxID_ANY, "program"); // destroyed with the test
    wxTheApp->SetTopWindow(frame);
    frame->Show();
    SetRuleEditor(EditRuleInWindow);
    bool answered = false;
    frame->Bind(wxEVT_IDLE,
                [&answered, frame](wxIdleEvent& event)
                {
                    for (wxWindow* const child : frame->GetChildren())
                    {
                        auto* const editor = dynamic_cast<RuleEditorDlg*>(child);
                        if (!answered && editor != nullptr && editor->IsModal())
                        {
                            answered = true;
                            dynamic_cast<wxTextCtrl&>(*wxWindow::FindWindowByName("Radius", editor)).SetValue("4");
                            wxCommandEvent ok(wxEVT_BUTTON, wxID_OK);
                            editor->GetEventHandler()->ProcessEvent(ok);
                        }
                    }
                    event.RequestMore(!answered);
                });
    rule.EditRule();
    SetRuleEditor(nullptr);
    EXPECT_TRUE(answered);
    EXPECT_EQ(rule.Parameters()[0].dValue, 4);
    rule.EditRule(); // nothing is registered any more
    frame->Destroy();
    wxTheApp->ProcessIdle(); // deletes what is to be destroyed
}
