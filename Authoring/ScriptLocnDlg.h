#pragma once

#include "Authoring/ScriptLocation.h"

#include <wx/dialog.h>

#include <functional>
#include <string>

class wxTextCtrl;

/// Lets the user change the folders of scripts and of the rule database.
class CQOXRMScriptLocnDlg : public wxDialog
{
public:
    /// `scriptFolder` belongs to the caller and has the new folder once the dialog has ended
    /// with OK; `prompt` outlives the dialog.
    CQOXRMScriptLocnDlg(wxWindow* parent, std::wstring& scriptFolder, std::function<bool()> areDocumentsOpen,
                        IUserPrompt& prompt);

    /// The database folder, once the dialog has ended with OK.
    const std::wstring& DatabaseFolder() const { return m_location.DatabaseFolder(); }

private:
    void MakeControls();
    void OnBrowseScript(wxCommandEvent& event);
    void OnBrowseDatabase(wxCommandEvent& event);
    void OnOK(wxCommandEvent& event);

    // All owned by the window system.
    wxTextCtrl* m_scriptFolder = nullptr;
    wxTextCtrl* m_databaseFolder = nullptr;

    ScriptLocation m_location;
    IUserPrompt& m_prompt;
};
