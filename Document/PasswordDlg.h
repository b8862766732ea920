#pragma once

#include "Utilities/UserPrompt.h"

#include <wx/dialog.h>

class wxTextCtrl;

/// Asks for a password that fits into a rule file.
class CPasswordDlg : public wxDialog
{
public:
    /// `prompt` tells the user of a password that is too long; it outlives the dialog.
    CPasswordDlg(wxWindow* parent, PasswordPurpose purpose, IUserPrompt& prompt);

    /// What was typed, once the dialog has ended with OK.
    wxString strPassword;

private:
    void MakeControls(PasswordPurpose purpose);
    void OnOK(wxCommandEvent& event);

    IUserPrompt& m_prompt;
    wxTextCtrl* m_edit = nullptr; // owned by the window system
};
