#pragma once

#include <wx/combo.h>
#include <wx/listctrl.h>

class CQOXRMTooltipComboBox;

/// The list that `CQOXRMTooltipComboBox` drops down: one column, whose rows it takes from the
/// combo box as they are needed. The row under the mouse is selected and has its tip.
///
/// A click on a row and Enter choose it, as does turning to another window; Escape leaves
/// everything as it was.
class CQOXRMTooltipListCtrl : public wxListCtrl, public wxComboPopup
{
public:
    /// `combo` is not owned; it owns the list, and says when it goes ahead of it.
    explicit CQOXRMTooltipListCtrl(CQOXRMTooltipComboBox& combo);

    /// From now on there are no rows and nothing is chosen.
    void ForgetCombo() { m_combo = nullptr; }

    /// Of the selected row; `TipEntries::None` for none.
    int SelectedRow() const;
    /// Selects and focuses a row, and scrolls to it; with `TipEntries::None` none is selected.
    void SelectRow(int row);

    /// The number of the row whose tip is shown, from 1; 0 for none.
    int TipTool() const { return m_tipTool; }

    // --- wxComboPopup

    bool Create(wxWindow* parent) override;
    wxWindow* GetControl() override { return this; }
    wxString GetStringValue() const override;
    void SetStringValue(const wxString& value) override;
    void OnPopup() override;
    void OnDismiss() override;
    wxSize GetAdjustedSize(int minWidth, int preferredHeight, int maximumHeight) override;
    /// Keys while the list is not dropped.
    void OnComboKeyEvent(wxKeyEvent& event) override;

protected:
    wxString OnGetItemText(long item, long column) const override;

private:
    void OnKeyDown(wxKeyEvent& event);
    void OnMotion(wxMouseEvent& event);
    void ShowTipOf(int row);
    void Accept();

    CQOXRMTooltipComboBox* m_combo;
    bool m_isDropped = false;
    bool m_givenUp = false; ///< The list goes and the choice stays as it was.
    int m_tipTool = 0;
};
