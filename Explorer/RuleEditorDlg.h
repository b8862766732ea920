#pragma once

#include "Explorer/RuleEditModel.h"

#include <wx/dialog.h>

#include <memory>
#include <vector>

class CQoxRule;
class RuleEditorRow;
class wxComboBox;
class wxScrolledWindow;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

/// The editor of a rule: its criticality and its parameters, in the units of its document.
/// OK gives the rule what was typed; any other end leaves it as it is.
class RuleEditorDlg : public wxDialog
{
public:
    /// The rule outlives the dialog. Typed decimals follow a point or `decimalSeparator`.
    RuleEditorDlg(wxWindow* parent, CQoxRule& rule, wchar_t decimalSeparator);
    ~RuleEditorDlg() override;

private:
    void MakeControls();
    void AddHeader(wxSizer& rows);
    void AddParameters(wxSizer& rows);
    void AddHelp(wxSizer& rows);
    void AddButtons(wxSizer& rows);
    void TakeStartSize();
    wxTextCtrl* MakeReading(const wxString& text, const wxString& name, long style, int lines);

    void LayOutParameters();
    void ShowHelpFor(const wxWindow* window);
    void ResetAll();
    void OnOK(wxCommandEvent& event);

    CQoxRule& m_rule;
    RuleEditModel m_model;
    std::vector<std::unique_ptr<RuleEditorRow>> m_rows;

    // Owned by the window system.
    wxComboBox* m_criticality = nullptr;
    wxScrolledWindow* m_list = nullptr; // null for a rule without parameters
    wxTextCtrl* m_help = nullptr;
};

/// Lets the user edit the rule in a window over that of the program, and returns when it is
/// closed. To be registered as the program's rule editor.
void EditRuleInWindow(CQoxRule& rule);
