#include "Explorer/RowSelection.h"

#include <cstddef>

RowSelection::RowSelection(const wxListCtrl& list)
    : m_focused(list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED))
{
    m_selected.reserve(static_cast<std::size_t>(list.GetSelectedItemCount()));
    for (long row = list.GetSelectedItemCount() > 0 ? list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED) : -1;
         row >= 0; row = list.GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
    {
        m_selected.push_back(row);
    }
}

void RowSelection::Restore(wxListCtrl& list, const std::vector<int>& formerRows) const
{
    std::vector<bool> wasSelected(formerRows.size());
    for (const long row : m_selected)
    {
        wasSelected.at(static_cast<std::size_t>(row)) = true;
    }
    // All at once: one by one, the list is slow for many.
    const bool all = !m_selected.empty() && m_selected.size() == formerRows.size();
    list.SetItemState(-1, all ? wxLIST_STATE_SELECTED : 0, wxLIST_STATE_SELECTED);
    for (std::size_t row = 0; row < formerRows.size(); ++row)
    {
        const auto former = static_cast<std::size_t>(formerRows[row]);
        const int state = (!all && wasSelected.at(former) ? wxLIST_STATE_SELECTED : 0) |
                          (formerRows[row] == m_focused ? wxLIST_STATE_FOCUSED : 0);
        if (state != 0)
        {
            list.SetItemState(static_cast<long>(row), state, state);
        }
    }
}
