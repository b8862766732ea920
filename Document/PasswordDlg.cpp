#include "Document/PasswordDlg.h"

#include "Document/RulePassword.h"
#include "Modules/HelpKey.h"
#include "Utilities/DialogButtons.h"
#include "Utilities/Texts.h"
#include "Utilities/WrappedLabel.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace
{

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int TextWidth = 340;

wxString TitleFor(PasswordPurpose purpose)
{
    return LoadText(purpose == PasswordPurpose::Set ? TextId::SetPasswordTitle : TextId::EnterPasswordTitle);
}

HelpTopic TopicFor(PasswordPurpose purpose)
{
    return purpose == PasswordPurpose::Set ? HelpTopic::SetPassword : HelpTopic::EnterPassword;
}

wxString LabelFor(PasswordPurpose purpose)
{
    return LoadText(purpose == PasswordPurpose::Set ? TextId::SetPasswordLabel : TextId::EnterPasswordLabel);
}

} // namespace

CPasswordDlg::CPasswordDlg(wxWindow* parent, PasswordPurpose purpose, IUserPrompt& prompt)
    : wxDialog(parent, wxID_ANY, TitleFor(purpose)), m_prompt(prompt)
{
    MakeControls(purpose);
    Bind(wxEVT_BUTTON, &CPasswordDlg::OnOK, this, wxID_OK);
    ShowHelpOnF1(*this, TopicFor(purpose));
    CentreOnParent();
    m_edit->SetFocus();
}

void CPasswordDlg::MakeControls(PasswordPurpose purpose)
{
    auto* const label = new wxStaticText(this, wxID_ANY, LabelFor(purpose)); // owned by the dialog, as all below
    WrapLabel(*label, FromDIP(TextWidth));
    auto* const fieldLabel = new wxStaticText(this, wxID_ANY, LoadText(TextId::PasswordField));
    m_edit = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_PASSWORD);

    auto* const field = new wxBoxSizer(wxHORIZONTAL);
    field->Add(fieldLabel, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(Gap)));
    field->Add(m_edit, wxSizerFlags(1).CentreVertical());

    wxSizer* const buttons = CreateStdDialogButtonSizer(wxOK | wxCANCEL);
    DropSpaceAroundButtons(*buttons);

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(label, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Margin)));
    rows->Add(field, wxSizerFlags().Expand().Border(wxALL, FromDIP(Margin)));
    rows->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM | wxRIGHT, FromDIP(Margin)));
    LabelStandardButtons(*this);
    SetSizerAndFit(rows);
}

void CPasswordDlg::OnOK(wxCommandEvent& event)
{
    const wxString typed = m_edit->GetValue();
    if (!RulePassword::Fits(typed.ToStdWstring()))
    {
        m_prompt.ShowBox(BoxKind::Warning,
                         FormatText(TextId::PasswordTooLong, { std::to_wstring(RulePassword::MostUnits) }),
                         GetTitle().ToStdWstring());
        m_edit->SetFocus();
        return;
    }
    strPassword = typed;
    event.Skip(); // ends the dialog
}
