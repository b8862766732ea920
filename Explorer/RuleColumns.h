#pragma once

#include "Explorer/ColumnShares.h"

#include <wx/event.h>

#include <memory>

class CQOXRMListCtrlEx;
class wxListEvent;
class wxMenu;

/// Keeps the widths that the user has given to the columns of the rule list, for the next list
/// and the next start of the program.
class RuleColumns : public wxEvtHandler
{
public:
    /// The list isn't owned. It has its columns.
    explicit RuleColumns(CQOXRMListCtrlEx& list);
    ~RuleColumns() override;

    /// Divides the width of the list among its columns.
    void Layout(int listWidth);

    /// What a right click on the headings offers.
    std::unique_ptr<wxMenu> MakeMenu();

private:
    class Kept;

    void OnSized(wxListEvent& event);
    void OnIdle(wxIdleEvent& event);
    void OnRightClick(wxListEvent& event);
    void TakeWidths();
    void Reset();

    CQOXRMListCtrlEx& m_list;
    ColumnShares m_shares;
    int m_listWidth = 1;
    int m_idlesToWait = 0; // until a column has the width that the user gave it
};
