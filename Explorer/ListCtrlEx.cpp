#include "Explorer/ListCtrlEx.h"

#include "Explorer/RowSelection.h"
#include "Utilities/UnmeasuredSize.h"

#include <wx/dcclient.h>
#include <wx/renderer.h>

#include <algorithm>
#include <utility>

namespace
{

// A column is widened once a text needs more than it has with this much air.
constexpr double ColumnAir = 1.2;

// On either side.
constexpr int MarginOfBox = 5;
constexpr int MarginOfText = 8;

} // namespace

CQOXRMListCtrlEx::CQOXRMListCtrlEx(wxWindow* parent)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, UnmeasuredSize, wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_THEME),
      m_search(*this), m_widths([this](const std::wstring& text) { return MeasureText(text); })
{
    EnableCheckBoxes();
    for (const auto& event : { wxEVT_LIST_ITEM_FOCUSED, wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED,
                               wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED })
    {
        Bind(event, &CQOXRMListCtrlEx::OnRowChange, this);
    }
    Bind(wxEVT_LIST_ITEM_ACTIVATED, &CQOXRMListCtrlEx::OnActivated, this);
    Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) { Sort(event.GetColumn() + 1); });
    // Ahead of the control, whose own keys and clicks differ between the systems.
    Bind(wxEVT_CHAR_HOOK, &CQOXRMListCtrlEx::OnKey, this);
    Bind(wxEVT_CHAR, &CQOXRMListCtrlEx::OnLetter, this);
    Bind(wxEVT_KILL_FOCUS,
         [this](wxFocusEvent& event)
         {
             event.Skip();
             EndSearch();
         });
    Bind(wxEVT_LEFT_DOWN, &CQOXRMListCtrlEx::OnLeftDown, this);
    Bind(wxEVT_LEFT_DCLICK, &CQOXRMListCtrlEx::OnLeftDoubleClick, this);
    Bind(wxEVT_RIGHT_DOWN, &CQOXRMListCtrlEx::OnRightDown, this);
}

CQOXRMListCtrlEx::~CQOXRMListCtrlEx()
{
    // The control tells of its rows as they go with it, which is too late for whoever listens,
    // and must not be later than the end of this part of it.
    m_filling = true;
    m_search.SetHandler({});
    m_measuring.reset();
    DestroyChildren();
}

void CQOXRMListCtrlEx::SetFilling(bool filling)
{
    m_filling = filling;
    m_widths.Forget();
    m_measuring.reset();
    if (!filling)
    {
        Refresh(); // single rows aren't while they are filled
    }
}

wxString CQOXRMListCtrlEx::OnGetItemText(long row, long column) const
{
    return m_rows.Text(static_cast<int>(row), static_cast<int>(column));
}

bool CQOXRMListCtrlEx::OnGetItemIsChecked(long row) const
{
    return m_rows.IsTicked(static_cast<int>(row));
}

int CQOXRMListCtrlEx::MeasureText(const std::wstring& text)
{
    // One for all texts of a filling: to make one costs more than to measure.
    if (m_measuring == nullptr)
    {
        m_measuring = std::make_unique<wxClientDC>(this);
        m_measuring->SetFont(GetFont());
    }
    return m_measuring->GetTextExtent(text).GetWidth();
}

void CQOXRMListCtrlEx::OnRowChange(wxListEvent& event)
{
    event.Skip();
    const int row = static_cast<int>(event.GetIndex());
    if (row < 0) // no row has the focus any more
    {
        return;
    }
    if (event.GetEventType() == wxEVT_LIST_ITEM_CHECKED || event.GetEventType() == wxEVT_LIST_ITEM_UNCHECKED)
    {
        m_rows.SetTicked(row, event.GetEventType() == wxEVT_LIST_ITEM_CHECKED);
    }
    NoteChange(row);
}

void CQOXRMListCtrlEx::NoteChange(int row)
{
    if (m_filling)
    {
        return;
    }
    if (!m_searching)
    {
        EndSearch();
    }
    m_changes.Add(row);
}

void CQOXRMListCtrlEx::Sort(int key)
{
    m_order.Choose(key);
    SortAgain();
}

void CQOXRMListCtrlEx::SortAgain()
{
    FinishClick();
    EndSearch();
    if (m_order.Column() + 1 == RuleOrder::KeyTicked)
    {
        m_rows.NoteTickedRules();
    }
    const bool filling = std::exchange(m_filling, true);
    const RowSelection selection(*this);
    const std::vector<int> formerRows = m_rows.Sort(m_order);
    selection.Restore(*this, formerRows);
    m_filling = filling;
    const auto anchor = std::find(formerRows.begin(), formerRows.end(), m_anchor);
    m_anchor = anchor == formerRows.end() ? -1 : static_cast<int>(anchor - formerRows.begin());
    m_lastClicked = -1;
    ShowSortIndicator(m_order.Column(), m_order.IsAscending());
    Refresh();
}

int CQOXRMListCtrlEx::FocusedRow() const
{
    return static_cast<int>(GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED));
}

bool CQOXRMListCtrlEx::IsSelected(int row) const
{
    return GetItemState(row, wxLIST_STATE_SELECTED) != 0;
}

int CQOXRMListCtrlEx::RowCount() const
{
    return m_rows.Count();
}

CQoxRule* CQOXRMListCtrlEx::RuleOfRow(int row) const
{
    return row < 0 || row >= RowCount() ? nullptr : m_rows.RuleOf(row);
}

int CQOXRMListCtrlEx::InsertRow(CQoxRule* rule, const std::wstring& text)
{
    EndSearch();
    const int row = m_rows.Insert(rule, text);
    SetItemCount(RowCount());
    return row;
}

void CQOXRMListCtrlEx::RemoveRow(int row)
{
    EndSearch();
    SetSelected(row, false); // else the control goes on counting it
    DeleteItem(row);
    m_rows.Remove(row);
    if (m_anchor >= row)
    {
        m_anchor = m_anchor == row ? -1 : m_anchor - 1;
    }
}

void CQOXRMListCtrlEx::DeleteAllItems()
{
    EndSearch();
    wxListCtrl::DeleteAllItems();
    m_rows.Clear();
}

void CQOXRMListCtrlEx::SetText(int row, int column, const std::wstring& text)
{
    m_rows.SetText(row, column, text);
    if (!m_filling)
    {
        RefreshItem(row);
    }
}

bool CQOXRMListCtrlEx::SetColumnWidth(int column, int width)
{
    if (width != wxLIST_AUTOSIZE)
    {
        return wxListCtrl::SetColumnWidth(column, width);
    }
    // The control would go by what it measured when it did so for the first time.
    const bool set = wxListCtrl::SetColumnWidth(column, FittingWidth(column));
    if (m_fitted)
    {
        m_fitted();
    }
    return set;
}

int CQOXRMListCtrlEx::FittingWidth(int column)
{
    int widest = 0;
    for (int row = 0; row < RowCount(); ++row)
    {
        widest = std::max(widest, m_widths.WidthIfAbove(m_rows.Text(row, column), widest));
    }
    m_widths.Forget(); // the font may be another next time
    m_measuring.reset();
    return widest + (column == 0 ? BoxWidth() : 0) + 2 * MarginOfText;
}

int CQOXRMListCtrlEx::BoxWidth() const
{
    // Asked for the size of what it draws, the toolkit takes no window that it may not change.
    auto* const window = const_cast<CQOXRMListCtrlEx*>(this);
    return wxRendererNative::Get().GetCheckBoxSize(window).GetWidth() + 2 * MarginOfBox;
}

bool CQOXRMListCtrlEx::IsTicked(int row) const
{
    return m_rows.IsTicked(row);
}

void CQOXRMListCtrlEx::SetTicked(int row, bool ticked)
{
    if (m_rows.IsTicked(row) == ticked)
    {
        return;
    }
    m_rows.SetTicked(row, ticked);
    if (!m_filling)
    {
        RefreshItem(row);
        NoteChange(row);
    }
}

void CQOXRMListCtrlEx::SetSelected(int row, bool selected)
{
    SetItemState(row, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
}

void CQOXRMListCtrlEx::DeselectAll()
{
    if (SelectedCount() == 0)
    {
        return;
    }
    const RowSelection selection(*this);
    SetAllSelected(false);
    const RowChanges::Command command(m_changes);
    for (const long row : selection.Selected())
    {
        NoteChange(static_cast<int>(row));
    }
}

void CQOXRMListCtrlEx::SetAllSelected(bool selected)
{
    // All at once, without an event for each.
    const bool filling = std::exchange(m_filling, true);
    SetItemState(-1, selected ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
    m_filling = filling;
}

int CQOXRMListCtrlEx::SelectedCount() const
{
    return GetSelectedItemCount();
}

int CQOXRMListCtrlEx::FirstSelected() const
{
    return static_cast<int>(GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED));
}

void CQOXRMListCtrlEx::SelectAll()
{
    const int anchor = m_anchor >= 0 ? m_anchor : FocusedRow();
    const RowSelection selection(*this);
    std::vector<bool> wasSelected(static_cast<std::size_t>(RowCount()));
    for (const long row : selection.Selected())
    {
        wasSelected.at(static_cast<std::size_t>(row)) = true;
    }
    SetAllSelected(true);
    {
        const RowChanges::Command command(m_changes);
        for (int row = 0; row < RowCount(); ++row)
        {
            if (!wasSelected.at(static_cast<std::size_t>(row)))
            {
                NoteChange(row);
            }
        }
    }
    m_anchor = anchor;
}

void CQOXRMListCtrlEx::GoToRow(int row)
{
    const bool outer = std::exchange(m_searching, true);
    {
        const RowChanges::Command command(m_changes);
        DeselectAll();
        SetItemState(row, SelectedAndFocused, SelectedAndFocused);
    }
    m_searching = outer;
    ScrollIntoView(row);
}

void CQOXRMListCtrlEx::ScrollIntoView(int row)
{
    wxRect rect;
    // A row that is all there stays where it is, under the mouse.
    if (GetItemRect(row, rect) && !wxRect(GetClientSize()).Contains(wxRect(0, rect.y, 1, rect.height)))
    {
        EnsureVisible(row);
    }
}

void CQOXRMListCtrlEx::WidenColumnFor(int column, const std::wstring& text)
{
    if (m_keepsWidths)
    {
        return;
    }
    const int width = GetColumnWidth(column);
    const int needed = static_cast<int>(m_widths.WidthIfAbove(text, width / ColumnAir) * ColumnAir);
    if (width < needed)
    {
        SetColumnWidth(column, needed);
    }
}
