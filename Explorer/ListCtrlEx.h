#pragma once

#include "Explorer/RuleOrder.h"
#include "Explorer/RuleRows.h"
#include "Explorer/TextWidths.h"

#include <wx/listctrl.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class wxClientDC;

/// The rule list: rows with boxes, each with its rule. The rules are not owned.
///
/// A click selects a row, with Ctrl one more, with Shift all from the anchor on. Space sets the
/// boxes of the selected rows, Ctrl+A selects all.
class CQOXRMListCtrlEx : public wxListCtrl, public IRuleRows
{
public:
    explicit CQOXRMListCtrlEx(wxWindow* parent);
    ~CQOXRMListCtrlEx() override;

    /// Called with the numbers of rows whose focus, selection or box the user has changed: once
    /// for all rows of a command.
    void SetRowsChangedHandler(std::function<void(const std::vector<int>&)> handler)
    {
        m_rowsChanged = std::move(handler);
    }

    /// Called with the number of a row that the user wants to edit: after a double click beside
    /// its box, or Enter, with no more than one row selected.
    void SetEditHandler(std::function<void(int)> handler) { m_edit = std::move(handler); }

    /// While set, changes of rows are the program's own and are not reported.
    void SetFilling(bool filling);

    /// Sorts the rows by the key of a column, or turns the order round if they are sorted by
    /// it. The header shows by which column and which way. What is selected stays so.
    void Sort(int key);

    /// Brings the rows into the order again that they were sorted in last.
    void SortAgain();

    /// The row from which a selection with Shift goes on, or -1.
    int Anchor() const { return m_anchor; }

    /// The row with the focus, or -1.
    int FocusedRow() const;

    bool IsSelected(int row) const;

    /// Selects all rows, as Ctrl+A does.
    void SelectAll();

    int RowCount() const override;
    CQoxRule* RuleOfRow(int row) const override;
    int InsertRow(CQoxRule* rule, const std::wstring& text) override;
    void RemoveRow(int row) override;
    void SetText(int row, int column, const std::wstring& text) override;
    bool IsTicked(int row) const override;
    void SetTicked(int row, bool ticked) override;
    void SetSelected(int row, bool selected) override;
    void DeselectAll() override;
    int SelectedCount() const override;
    int FirstSelected() const override;
    void WidenColumnFor(int column, const std::wstring& text) override;
    void SetAnchor(int row) override { m_anchor = row; }

private:
    class Changes;
    class Selection;

    void OnRowChange(wxListEvent& event);
    void OnActivated(wxListEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftDoubleClick(wxMouseEvent& event);
    void OnRightDown(wxMouseEvent& event);

    int RowAt(const wxMouseEvent& event) const;
    bool IsOnBox(const wxMouseEvent& event, int row) const;
    void FinishClick();
    void SelectTo(int row, bool keepOthers);
    void ScrollIntoView(int row);
    void ToggleSelected();
    void FocusAnyRow();
    void SortRows();
    void NoteTickedRules();
    int MeasureText(const std::wstring& text);

    std::function<void(const std::vector<int>&)> m_rowsChanged;
    std::function<void(int)> m_edit;
    bool m_filling = false;
    bool m_anySelected = false;   // some row may be
    Changes* m_changes = nullptr; // those of the command that runs, else null
    int m_anchor = -1;
    bool m_ctrlClick = false;
    int m_lastClicked = -1;
    const CQoxRule* m_clickToFinish = nullptr; // the rule of the row that was clicked; not owned
    bool m_boxDoubleClicked = false;
    RuleOrder m_order;
    TextWidths m_widths;
    std::unique_ptr<wxClientDC> m_measuring; // while rows are filled
};
