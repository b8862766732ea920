#pragma once

#include "Explorer/RuleOrder.h"
#include "Explorer/RuleRows.h"

#include <wx/listctrl.h>

#include <functional>
#include <string>
#include <utility>

/// The rule list: rows with boxes, each with its rule. The rules are not owned.
class CQOXRMListCtrlEx : public wxListCtrl, public IRuleRows
{
public:
    explicit CQOXRMListCtrlEx(wxWindow* parent);

    /// Called with the number of a row whose selection or box was changed by the user.
    void SetRowChangedHandler(std::function<void(int)> handler) { m_rowChanged = std::move(handler); }

    /// While set, changes of rows are the program's own and are not reported.
    void SetFilling(bool filling) { m_filling = filling; }

    /// Sorts the rows by the key of a column, or turns the order round if they are sorted by
    /// it. The header shows by which column and which way.
    void Sort(int key);

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
    void ReportChange(wxListEvent& event);
    void OnKey(wxKeyEvent& event);
    void ToggleSelected();
    void SelectAll();
    void NoteTickedRules();
    void FocusRow(const CQoxRule* rule);

    std::function<void(int)> m_rowChanged;
    bool m_filling = false;
    int m_anchor = -1;
    RuleOrder m_order;
};
