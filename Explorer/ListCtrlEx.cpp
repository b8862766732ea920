#include "Explorer/ListCtrlEx.h"

#include <Vantrel/QoxRule.h>

#include <wx/dcclient.h>
#include <wx/renderer.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace
{

// A column is widened once a text needs more than it has with this much air.
constexpr double ColumnAir = 1.2;

constexpr int SelectedAndFocused = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;

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

/// Gathers the rows that a command changes and reports them together at its end.
class CQOXRMListCtrlEx::Changes
{
public:
    explicit Changes(CQOXRMListCtrlEx& list) : m_list(list), m_outer(std::exchange(list.m_changes, this)) {}
    ~Changes()
    {
        m_list.m_changes = m_outer;
        if (m_outer != nullptr)
        {
            m_outer->m_rows.insert(m_outer->m_rows.end(), m_rows.begin(), m_rows.end());
        }
        else if (!m_rows.empty() && m_list.m_rowsChanged)
        {
            m_list.m_rowsChanged(m_rows);
        }
    }
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;

    void Add(int row) { m_rows.push_back(row); }

private:
    CQOXRMListCtrlEx& m_list;
    Changes* m_outer;
    std::vector<int> m_rows;
};

/// What is selected, has the focus and is the anchor, by rule. The control forgets the first
/// two when it sorts, and the third is a number.
class CQOXRMListCtrlEx::Selection
{
public:
    explicit Selection(CQOXRMListCtrlEx& list) : m_list(list)
    {
        m_focused = list.RuleOfRow(list.FocusedRow());
        m_anchor = list.RuleOfRow(list.m_anchor);
        for (int row = list.FirstSelected(); row >= 0;
             row = static_cast<int>(list.GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)))
        {
            m_selected.insert(list.RuleOfRow(row));
        }
    }

    void Restore() const
    {
        if (m_focused == nullptr && m_anchor == nullptr && m_selected.empty())
        {
            return;
        }
        for (int row = 0; row < m_list.RowCount(); ++row)
        {
            const CQoxRule* const rule = m_list.RuleOfRow(row);
            const int state = (m_selected.contains(rule) ? wxLIST_STATE_SELECTED : 0) |
                              (rule != nullptr && rule == m_focused ? wxLIST_STATE_FOCUSED : 0);
            if (state != 0)
            {
                m_list.SetItemState(row, state, state);
            }
            if (rule != nullptr && rule == m_anchor)
            {
                m_list.m_anchor = row;
            }
        }
    }

private:
    CQOXRMListCtrlEx& m_list;
    std::unordered_set<const CQoxRule*> m_selected;
    const CQoxRule* m_focused;
    const CQoxRule* m_anchor;
};

CQOXRMListCtrlEx::CQOXRMListCtrlEx(wxWindow* parent)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxLC_REPORT | wxBORDER_THEME),
      m_widths([this](const std::wstring& text) { return MeasureText(text); })
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
    Bind(wxEVT_LEFT_DOWN, &CQOXRMListCtrlEx::OnLeftDown, this);
    Bind(wxEVT_LEFT_DCLICK, &CQOXRMListCtrlEx::OnLeftDoubleClick, this);
    Bind(wxEVT_RIGHT_DOWN, &CQOXRMListCtrlEx::OnRightDown, this);
}

CQOXRMListCtrlEx::~CQOXRMListCtrlEx()
{
    // The control tells of its rows as they go with it, which is too late for whoever listens,
    // and must not be later than the end of this part of it.
    m_filling = true;
    m_measuring.reset();
    DestroyChildren();
}

void CQOXRMListCtrlEx::SetFilling(bool filling)
{
    m_filling = filling;
    m_widths.Forget();
    m_measuring.reset();
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
    m_anySelected = m_anySelected || event.GetEventType() == wxEVT_LIST_ITEM_SELECTED;
    if (m_filling || event.GetIndex() < 0) // no row has the focus any more
    {
        return;
    }
    Changes changes(*this);
    changes.Add(static_cast<int>(event.GetIndex()));
}

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
        }
        event.Skip();
    }
}

void CQOXRMListCtrlEx::ToggleSelected()
{
    const int focused = FocusedRow();
    if (focused < 0)
    {
        return;
    }
    {
        Changes changes(*this);
        const bool ticked = !IsTicked(focused);
        CheckItem(focused, ticked);
        // If the focus was moved away from what is selected, there is no row for the others
        // to follow, and each changes by itself.
        const bool follow = IsSelected(focused);
        for (int row = FirstSelected(); row >= 0;
             row = static_cast<int>(GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)))
        {
            const bool state = follow ? ticked : !IsTicked(row);
            if (row != focused && IsTicked(row) != state)
            {
                CheckItem(row, state);
            }
        }
    }
    m_anchor = focused;
}

void CQOXRMListCtrlEx::SelectAll()
{
    const int anchor = m_anchor >= 0 ? m_anchor : FocusedRow();
    {
        Changes changes(*this);
        for (int row = 0; row < RowCount(); ++row)
        {
            SetSelected(row, true);
        }
    }
    m_anchor = anchor;
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
        Changes changes(*this);
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
            Changes changes(*this);
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
        Changes changes(*this);
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
    constexpr int MarginOfBox = 5; // on either side
    wxRect rect;
    GetItemRect(row, rect);
    const int boxWidth = wxRendererNative::Get().GetCheckBoxSize(const_cast<CQOXRMListCtrlEx*>(this)).GetWidth();
    return event.GetX() < rect.GetLeft() + boxWidth + 2 * MarginOfBox;
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
        Changes changes(*this);
        SetItemState(row, selected ? SelectedAndFocused : 0, SelectedAndFocused);
    }
    ScrollIntoView(row);
}

void CQOXRMListCtrlEx::SelectTo(int row, bool keepOthers)
{
    const int anchor = m_anchor >= 0 && m_anchor < RowCount() ? m_anchor : row;
    {
        Changes changes(*this);
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

void CQOXRMListCtrlEx::ScrollIntoView(int row)
{
    wxRect rect;
    // A row that is all there stays where it is, under the mouse.
    if (GetItemRect(row, rect) && !wxRect(GetClientSize()).Contains(wxRect(0, rect.y, 1, rect.height)))
    {
        EnsureVisible(row);
    }
}

void CQOXRMListCtrlEx::Sort(int key)
{
    m_order.Choose(key);
    SortRows();
}

void CQOXRMListCtrlEx::SortAgain()
{
    SortRows();
}

void CQOXRMListCtrlEx::SortRows()
{
    FinishClick();
    if (m_order.Column() + 1 == RuleOrder::KeyTicked)
    {
        NoteTickedRules();
    }
    const bool filling = std::exchange(m_filling, true);
    const Selection selection(*this);
    SortData data{ m_order, {} };
    data.places.reserve(static_cast<std::size_t>(RowCount()));
    for (int row = 0; row < RowCount(); ++row)
    {
        data.places.emplace(static_cast<wxIntPtr>(GetItemData(row)), row);
    }
    SortItems(&CompareRows, reinterpret_cast<wxIntPtr>(&data));
    selection.Restore();
    m_filling = filling;
    m_lastClicked = -1;
    ShowSortIndicator(m_order.Column(), m_order.IsAscending());
    Refresh();
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
    return GetItemCount();
}

CQoxRule* CQOXRMListCtrlEx::RuleOfRow(int row) const
{
    return row < 0 || row >= RowCount() ? nullptr : reinterpret_cast<CQoxRule*>(GetItemData(row));
}

int CQOXRMListCtrlEx::InsertRow(CQoxRule* rule, const std::wstring& text)
{
    if (RowCount() == 0)
    {
        DeleteAllItems(); // has the control measure anew when the user fits a column to its texts
    }
    wxListItem item;
    item.SetId(RowCount());
    item.SetText(text);
    item.SetData(reinterpret_cast<void*>(rule));
    // Given a width, the control doesn't measure the text.
    item.SetWidth(0);
    return static_cast<int>(InsertItem(item));
}

void CQOXRMListCtrlEx::RemoveRow(int row)
{
    SetSelected(row, false); // else the control goes on counting it
    DeleteItem(row);
    if (m_anchor >= row)
    {
        m_anchor = m_anchor == row ? -1 : m_anchor - 1;
    }
}

void CQOXRMListCtrlEx::SetText(int row, int column, const std::wstring& text)
{
    wxListItem item;
    item.SetId(row);
    item.SetColumn(column);
    item.SetText(text);
    item.SetWidth(0); // as above
    SetItem(item);
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
    // The control looks at every row to tell.
    for (int row = std::exchange(m_anySelected, false) ? FirstSelected() : -1; row >= 0;
         row = static_cast<int>(GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)))
    {
        SetSelected(row, false);
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
    const int needed = static_cast<int>(m_widths.WidthIfAbove(text, width / ColumnAir) * ColumnAir);
    if (width < needed)
    {
        SetColumnWidth(column, needed);
    }
}
