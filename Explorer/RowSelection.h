#pragma once

#include <vector>

#include <wx/listctrl.h>

/// Which rows of a list are selected and which has the focus, to be the same rows again once
/// they stand elsewhere. A list knows both only by the numbers of its rows.
class RowSelection
{
public:
    explicit RowSelection(const wxListCtrl& list);

    /// Numbers of the selected rows, from the top.
    const std::vector<long>& Selected() const { return m_selected; }

    /// Selects the same rows again; `formerRows` has the former number of each row.
    void Restore(wxListCtrl& list, const std::vector<int>& formerRows) const;

private:
    std::vector<long> m_selected;
    long m_focused;
};
