#pragma once

#include "Explorer/RowChanges.h"
#include "Explorer/RuleOrder.h"
#include "Explorer/RuleRows.h"
#include "Explorer/RuleRowTable.h"
#include "Explorer/TextWidths.h"
#include "Explorer/TypedSearchKeys.h"

#include <wx/listctrl.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class wxClientDC;

/// The rule list: rows with boxes, each with its rule. The rules are not owned.
///
/// A click selects a row, with Ctrl one more, with Shift all from the anchor on. Space sets the
/// boxes of the selected rows, Ctrl+A selects all. Letters lead to the rule whose name has them.
///
/// The control is a virtual one: it shows what the table of rows holds and measures no text that
/// isn't in view.
class CQOXRMListCtrlEx : public wxListCtrl, public IRuleRows
{
public:
    explicit CQOXRMListCtrlEx(wxWindow* parent);
    ~CQOXRMListCtrlEx() override;

    /// Called with the numbers of rows whose focus, selection or box the user has changed: once
    /// for all rows of a command.
    void SetRowsChangedHandler(RowChanges::Handler handler) { m_changes.SetHandler(std::move(handler)); }

    /// Called with the number of a row that the user wants to edit: after a double click beside
    /// its box, or Enter, with no more than one row selected.
    void SetEditHandler(std::function<void(int)> handler) { m_edit = std::move(handler); }

    /// Called with what the user has typed to find a rule, and whether a row has it; with an
    /// empty text when the search has ended.
    void SetSearchHandler(TypedSearchKeys::Handler handler) { m_search.SetHandler(std::move(handler)); }

    /// How long a search waits for the next letter.
    void SetSearchLimit(std::chrono::milliseconds limit) { m_search.SetLimit(limit); }

    /// Ends the search by letters, if one is running.
    void EndSearch() { m_search.End(); }

    /// Selects the row alone, gives it the focus and scrolls it into view.
    void GoToRow(int row);

    /// Called after a column was fitted to its texts.
    void SetFittedHandler(std::function<void()> handler) { m_fitted = std::move(handler); }

    /// While set, changes of rows are the program's own and are not reported.
    void SetFilling(bool filling);

    /// While set, no text widens its column: for a fill after which the columns are laid out
    /// anyway. To tell how wide texts are is nearly all the work of a large one.
    void SetKeepsWidths(bool keeps) { m_keepsWidths = keeps; }

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

    /// What a row shows in a column.
    const std::wstring& Text(int row, int column) const { return m_rows.Text(row, column); }

    /// Removes all rows.
    void DeleteAllItems();

    /// Gives a column a width in pixels, or one that has room for each of its texts
    /// (`wxLIST_AUTOSIZE`), in view or not.
    bool SetColumnWidth(int column, int width) override;

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
    wxString OnGetItemText(long row, long column) const override;
    bool OnGetItemIsChecked(long row) const override;

    void OnRowChange(wxListEvent& event);
    void OnActivated(wxListEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnLetter(wxKeyEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftDoubleClick(wxMouseEvent& event);
    void OnRightDown(wxMouseEvent& event);

    void NoteChange(int row);
    int RowAt(const wxMouseEvent& event) const;
    bool IsOnBox(const wxMouseEvent& event, int row) const;
    int BoxWidth() const;
    void FinishClick();
    void SelectTo(int row, bool keepOthers);
    void SetAllSelected(bool selected);
    void ScrollIntoView(int row);
    void ToggleSelected();
    void FocusAnyRow();
    int FittingWidth(int column);
    int MeasureText(const std::wstring& text);

    static constexpr int SelectedAndFocused = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;

    RuleRowTable m_rows;
    RowChanges m_changes;
    std::function<void(int)> m_edit;
    std::function<void()> m_fitted;
    TypedSearchKeys m_search;
    bool m_filling = false;
    bool m_keepsWidths = false;
    bool m_searching = false; // what changes is what the search goes to
    int m_anchor = -1;
    bool m_ctrlClick = false;
    int m_lastClicked = -1;
    const CQoxRule* m_clickToFinish = nullptr; // the rule of the row that was clicked; not owned
    bool m_boxDoubleClicked = false;
    RuleOrder m_order;
    TextWidths m_widths;
    std::unique_ptr<wxClientDC> m_measuring; // while rows are filled
};
