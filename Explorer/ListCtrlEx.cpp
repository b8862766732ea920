#include "Explorer/ListCtrlEx.h"

#include <Vantrel/QoxRule.h>

#include <unordered_map>

namespace
{

// A column is widened once a text needs more than it has with this much air.
constexpr double ColumnAir = 1.2;

/// What the control's sorting is handed. Rows that are equal keep their order.
struct SortData
{
    const RuleOrder& order;
    std::unordered_map<wxIntPtr, int> places;
};

int wxCALLBACK CompareRows(wxIntPtr first, wxIntPtr second, wxIntPtr data)
{
    const SortData& sort = *reinterpret_cast<const SortData*>(data);
    const auto* const firstRule = reinterpret_cast<const CQoxRule*>(first);
    const auto* const secondRule = reinterpret_cast<const CQoxRule*>(second);
    int result = 0;
    if (firstRule != nullptr && secondRule != nullptr)
    {
        result = sort.order.Compare(*firstRule, *secondRule);
    }
    else if (firstRule != secondRule)
    {
        result = firstRule == nullptr ? 1 : -1; // rows without a rule stand last
    }
    return result != 0 ? result : sort.places.at(first) - sort.places.at(second);
}

} // namespace

CQOXRMListCtrlEx::CQOXRMListCtrlEx(wxWindow* parent)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxBORDER_THEME)
{
    EnableCheckBoxes();
    Bind(wxEVT_LIST_ITEM_SELECTED, &CQOXRMListCtrlEx::ReportChange, this);
    Bind(wxEVT_LIST_ITEM_DESELECTED, &CQOXRMListCtrlEx::ReportChange, this);
    Bind(wxEVT_LIST_ITEM_CHECKED, &CQOXRMListCtrlEx::ReportChange, this);
    Bind(wxEVT_LIST_ITEM_UNCHECKED, &CQOXRMListCtrlEx::ReportChange, this);
    Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) { Sort(event.GetColumn() + 1); });
    // Ahead of the control, whose own keys differ between the systems.
    Bind(wxEVT_CHAR_HOOK, &CQOXRMListCtrlEx::OnKey, this);
}

void CQOXRMListCtrlEx::OnKey(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers())
    {
        ToggleSelected();
    }
    else if (event.GetKeyCode() == 'A' && event.GetModifiers() == wxMOD_CONTROL)
    {
        SelectAll();
    }
    else
    {
        event.Skip();
    }
}

void CQOXRMListCtrlEx::ToggleSelected()
{
    const long focused = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    if (focused == wxNOT_FOUND)
    {
        return;
    }
    const bool ticked = !IsItemChecked(focused);
    CheckItem(focused, ticked);
    if (GetItemState(focused, wxLIST_STATE_SELECTED) == 0)
    {
        return; // the focus was moved away from what is selected
    }
    // The other selected rows follow the one that has the focus.
    for (long row = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED); row != wxNOT_FOUND;
         row = GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
    {
        if (IsItemChecked(row) != ticked)
        {
            CheckItem(row, ticked);
        }
    }
}

void CQOXRMListCtrlEx::SelectAll()
{
    for (long row = 0; row < GetItemCount(); ++row)
    {
        SetItemState(row, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }
}

void CQOXRMListCtrlEx::Sort(int key)
{
    m_order.Choose(key);
    if (m_order.Column() + 1 == RuleOrder::KeyTicked)
    {
        NoteTickedRules();
    }
    const CQoxRule* const focused = RuleOfRow(static_cast<int>(GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED)));
    SortData data{ m_order, {} };
    for (int row = 0; row < RowCount(); ++row)
    {
        data.places.emplace(static_cast<wxIntPtr>(GetItemData(row)), row);
    }
    SortItems(&CompareRows, reinterpret_cast<wxIntPtr>(&data));
    ShowSortIndicator(m_order.Column(), m_order.IsAscending());
    FocusRow(focused);
}

void CQOXRMListCtrlEx::NoteTickedRules()
{
    for (int row = 0; row < RowCount(); ++row)
    {
        if (CQoxRule* const rule = RuleOfRow(row))
        {
            rule->m_nRuleState = IsTicked(row) ? 1 : 0;
        }
    }
}

void CQOXRMListCtrlEx::FocusRow(const CQoxRule* rule)
{
    for (int row = 0; rule != nullptr && row < RowCount(); ++row)
    {
        if (RuleOfRow(row) == rule)
        {
            SetItemState(row, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
            return;
        }
    }
}

void CQOXRMListCtrlEx::ReportChange(wxListEvent& event)
{
    event.Skip();
    if (!m_filling && m_rowChanged)
    {
        m_rowChanged(static_cast<int>(event.GetIndex()));
    }
}

int CQOXRMListCtrlEx::RowCount() const
{
    return GetItemCount();
}

CQoxRule* CQOXRMListCtrlEx::RuleOfRow(int row) const
{
    return row < 0 ? nullptr : reinterpret_cast<CQoxRule*>(GetItemData(row));
}

int CQOXRMListCtrlEx::InsertRow(CQoxRule* rule, const std::wstring& text)
{
    const long row = InsertItem(GetItemCount(), text);
    SetItemPtrData(row, reinterpret_cast<wxUIntPtr>(rule));
    return static_cast<int>(row);
}

void CQOXRMListCtrlEx::RemoveRow(int row)
{
    DeleteItem(row);
}

void CQOXRMListCtrlEx::SetText(int row, int column, const std::wstring& text)
{
    SetItem(row, column, text);
}

bool CQOXRMListCtrlEx::IsTicked(int row) const
{
    return IsItemChecked(row);
}

void CQOXRMListCtrlEx::SetTicked(int row, bool ticked)
{
    CheckItem(row, ticked);
}

void CQOXRMListCtrlEx::SetSelected(int row, bool selected)
{
    SetItemState(row, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

void CQOXRMListCtrlEx::DeselectAll()
{
    for (long row = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED); row != wxNOT_FOUND;
         row = GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
    {
        SetItemState(row, 0, wxLIST_STATE_SELECTED);
    }
}

int CQOXRMListCtrlEx::SelectedCount() const
{
    return GetSelectedItemCount();
}

int CQOXRMListCtrlEx::FirstSelected() const
{
    return static_cast<int>(GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED));
}

void CQOXRMListCtrlEx::WidenColumnFor(int column, const std::wstring& text)
{
    const int width = GetColumnWidth(column);
    // No text is wider than its length times the widest letter: most need no measuring.
    if (static_cast<double>(text.size()) * GetCharWidth() * 2 * ColumnAir <= width)
    {
        return;
    }
    const double needed = GetTextExtent(text).GetWidth() * ColumnAir;
    if (width < needed)
    {
        SetColumnWidth(column, static_cast<int>(needed));
    }
}
