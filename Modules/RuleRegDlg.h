#pragma once

#include "Modules/ModuleRegistration.h"

#include <wx/dialog.h>

class wxButton;
class wxListCtrl;
class wxListEvent;
class wxTextCtrl;

/// Shows the configured modules of a kind and lets the user add and remove some. What the
/// changes are and do is the registration's.
class CQOXRuleRegDlg : public wxDialog
{
public:
    /// Both must outlive the dialog.
    CQOXRuleRegDlg(wxWindow* parent, ModuleRegistration& registration, IUserPrompt& prompt);

private:
    void MakeControls();
    wxSizer* MakeLists();
    wxSizer* MakeNewModuleRow();
    wxSizer* MakeDetails();

    /// The opening sequence, run again by Reset.
    void Open();
    void FillDefaults();
    void AddModuleRow(Platform::LibraryHandle module);
    void ClearDetails();
    void ShowModule(Platform::LibraryHandle module);
    void NoteChange();

    void OnConfiguredSelection(wxListEvent& event);
    void OnKeyInList(wxKeyEvent& event);
    void OnDefaultSelected(wxListEvent& event);
    void OnNewModuleText(wxCommandEvent& event);
    void OnBrowse(wxCommandEvent& event);
    void OnAdd(wxCommandEvent& event);
    void OnRemove(wxCommandEvent& event);
    void OnReset(wxCommandEvent& event);

    ModuleRegistration& m_registration;
    IUserPrompt& m_prompt;

    // All owned by the window system.
    wxListCtrl* m_configured = nullptr;
    wxListCtrl* m_defaults = nullptr;
    wxTextCtrl* m_newModule = nullptr;
    wxButton* m_add = nullptr;
    wxButton* m_remove = nullptr;
    wxButton* m_reset = nullptr;
    wxButton* m_ok = nullptr;
    wxButton* m_cancel = nullptr;
    wxTextCtrl* m_path = nullptr;
    wxTextCtrl* m_summary = nullptr;
};
