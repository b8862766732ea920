// The rule list's mouse and keyboard.

#include "Explorer/ListCtrlEx.h"
#include "Explorer/RowSelection.h"

#include <algorithm>
#include <utility>

namespace
{

bool MovesFocus(int key)
{
    switch (key)
    {
    case WXK_UP:
    case WXK_DOWN:
    case WXK_PAGEUP:
    case WXK_PAGEDOWN:
    case WXK_HOME:
    case WXK_END:
        return true;
    default:
        return false;
    }
}

} // namespace

void CQOXRMListCtrlEx::OnActivated(wxListEvent& event)
{
    if (std::exchange(m_boxDoubleClicked, false))
    {
        return; // the user sets and clears a box, and wants no editor
    }
    if (m_edit && SelectedCount() <= 1)
    {
        m_edit(static_cast<int>(event.GetIndex()));
    }
}

void CQOXRMListCtrlEx::OnKey(wxKeyEvent& event)
{
    FinishClick();
    if (m_search.TakeKey(event))
    {
        return;
    }
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
        if (MovesFocus(event.GetKeyCode()))
        {
            FocusAnyRow();
            // What the control selects with Shift, it tells of before it is selected.
            CallAfter(
                [this]
                {
                    if (const int row = FocusedRow(); row >= 0)
                    {
                        NoteChange(row);
                    }
                });
        }
        event.Skip();
    }
}

void CQOXRMListCtrlEx::OnLetter(wxKeyEvent& event)
{
    if (m_search.TakeLetter(event))
    {
        return;
    }
    if (event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers())
    {
        ToggleSelected(); // an input method had it first
        return;
    }
    event.Skip();
}

void CQOXRMListCtrlEx::ToggleSelected()
{
    const int focused = FocusedRow();
    if (focused < 0)
    {
        return;
    }
    {
        const RowChanges::Command command(m_changes);
        const bool ticked = !IsTicked(focused);
        SetTicked(focused, ticked);
        // If the focus was moved away from what is selected, there is no row for the others
        // to follow, and each changes by itself.
        const bool follow = IsSelected(focused);
        const RowSelection selection(*this);
        for (const long selected : selection.Selected())
        {
            const int row = static_cast<int>(selected);
            if (row != focused)
            {
                SetTicked(row, follow ? ticked : !IsTicked(row));
            }
        }
    }
    m_anchor = focused;
}

void CQOXRMListCtrlEx::FocusAnyRow()
{
    // A row that Ctrl and a click deselect loses the focus, and without one the control
    // doesn't answer keys.
    if (FocusedRow() < 0 && RowCount() > 0)
    {
        const int row = m_anchor >= 0 && m_anchor < RowCount() ? m_anchor : std::max(FirstSelected(), 0);
        SetItemState(row, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    }
}

void CQOXRMListCtrlEx::OnLeftDown(wxMouseEvent& event)
{
    FinishClick();
    const int row = RowAt(event);
    m_lastClicked = row;
    m_ctrlClick = event.ControlDown();
    m_boxDoubleClicked = false;
    if (event.ShiftDown())
    {
        // The control doesn't see it, so it sets no box.
        if (row >= 0)
        {
            SelectTo(row, m_ctrlClick);
        }
        SetFocus();
        return;
    }
    if (!m_ctrlClick)
    {
        const RowChanges::Command command(m_changes);
        DeselectAll();
    }
    m_clickToFinish = RuleOfRow(row);
    CallAfter(&CQOXRMListCtrlEx::FinishClick);
    event.Skip();
}

void CQOXRMListCtrlEx::OnLeftDoubleClick(wxMouseEvent& event)
{
    FinishClick();
    const int row = RowAt(event);
    if (row != m_lastClicked || event.ShiftDown())
    {
        OnLeftDown(event); // two clicks rather than a double one
        return;
    }
    if (event.ControlDown())
    {
        // Nor is this one: the row is selected and deselected again.
        if (row >= 0)
        {
            const RowChanges::Command command(m_changes);
            SetItemState(row, IsSelected(row) ? 0 : SelectedAndFocused, SelectedAndFocused);
        }
        return;
    }
    m_boxDoubleClicked = row >= 0 && IsOnBox(event, row);
    event.Skip();
}

void CQOXRMListCtrlEx::OnRightDown(wxMouseEvent& event)
{
    FinishClick();
    const int row = RowAt(event);
    if (row >= 0 && !IsSelected(row))
    {
        const RowChanges::Command command(m_changes);
        DeselectAll();
    }
    event.Skip();
}

int CQOXRMListCtrlEx::RowAt(const wxMouseEvent& event) const
{
    int flags = 0;
    return static_cast<int>(HitTest(event.GetPosition(), flags));
}

bool CQOXRMListCtrlEx::IsOnBox(const wxMouseEvent& event, int row) const
{
    wxRect rect;
    GetItemRect(row, rect);
    return event.GetX() < rect.GetLeft() + BoxWidth();
}

void CQOXRMListCtrlEx::FinishClick()
{
    const CQoxRule* const rule = std::exchange(m_clickToFinish, nullptr);
    const int row = m_lastClicked;
    if (rule == nullptr || row >= RowCount() || RuleOfRow(row) != rule)
    {
        return;
    }
    const bool selected = !m_ctrlClick || IsSelected(row);
    {
        const RowChanges::Command command(m_changes);
        SetItemState(row, selected ? SelectedAndFocused : 0, SelectedAndFocused);
    }
    ScrollIntoView(row);
}

void CQOXRMListCtrlEx::SelectTo(int row, bool keepOthers)
{
    const int anchor = m_anchor >= 0 && m_anchor < RowCount() ? m_anchor : row;
    {
        const RowChanges::Command command(m_changes);
        const auto [first, last] = std::minmax(anchor, row);
        if (!keepOthers)
        {
            for (int other = FirstSelected(); other >= 0;
                 other = static_cast<int>(GetNextItem(other, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)))
            {
                if (other < first || other > last)
                {
                    SetSelected(other, false);
                }
            }
        }
        const int step = row < anchor ? -1 : 1;
        for (int between = anchor + step; between * step < row * step; between += step)
        {
            SetSelected(between, true);
        }
        SetItemState(row, SelectedAndFocused, SelectedAndFocused);
    }
    // The next click with Shift starts from the same row.
    m_anchor = anchor;
    ScrollIntoView(row);
}
