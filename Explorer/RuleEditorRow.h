#pragma once

#include "Explorer/RuleEditModel.h"

#include <wx/string.h>

#include <cstddef>
#include <functional>

class wxButton;
class wxCheckBox;
class wxComboBox;
class wxSizer;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

/// One parameter in the rule editor: its label, field, unit, range and reset button, and
/// what is wrong with what was typed.
class RuleEditorRow
{
public:
    /// Columns of the grid that rows are made in.
    static constexpr int ColumnCount = 4;

    /// Makes the controls, children of `parent`, at the end of `grid`. `onHeightChanged` is
    /// called when the row needs more room or less. The model and the window outlive the row.
    RuleEditorRow(wxWindow& parent, wxSizer& grid, RuleEditModel& model, std::size_t index,
                  std::function<void()> onHeightChanged);
    RuleEditorRow(const RuleEditorRow&) = delete;
    RuleEditorRow& operator=(const RuleEditorRow&) = delete;

    /// Sets the parameter to its default.
    void Reset();

    /// Shows the model's text in the field, after a reset.
    void TakeText();

    /// Puts the keyboard into the field, with what it holds selected.
    void FocusField();

    /// True if the window is one of the row's.
    bool Has(const wxWindow* window) const;

    /// What there is to know about the parameter, for a pane beside.
    wxString HelpText() const;

private:
    wxWindow* MakeField(wxWindow& parent);
    wxTextCtrl* MakeTextField(wxWindow& parent);
    wxComboBox* MakeChoice(wxWindow& parent);
    wxCheckBox* MakeCheckBox(wxWindow& parent);
    /// The sizer of the field itself, with its unit.
    wxSizer* MakeFieldCell(wxWindow& parent, wxSizer& grid);

    /// Shows whether the value is the default and what is wrong with it.
    void ShowState();
    void ShowLabel(bool isDefault);
    bool ShowMessage();

    RuleEditModel& m_model;
    std::size_t m_index;
    std::function<void()> m_onHeightChanged;
    bool m_shownAsDefault = true;
    wxString m_shownMessage;

    // Owned by the window system. Of the three fields there is one.
    wxStaticText* m_label = nullptr; // null beside a check box, which is its own label
    wxTextCtrl* m_edit = nullptr;
    wxComboBox* m_choice = nullptr;
    wxCheckBox* m_check = nullptr;
    wxStaticText* m_message = nullptr; // null while there is none
    wxButton* m_reset = nullptr;
    wxSizer* m_cell = nullptr; // owned by the grid
};
