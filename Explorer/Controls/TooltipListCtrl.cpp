#include "Explorer/Controls/TooltipListCtrl.h"

#include "Explorer/Controls/TooltipComboBox.h"
#include "Utilities/ScreenReader.h"

#include <wx/settings.h>
#include <wx/utils.h>

#include <algorithm>

CQOXRMTooltipListCtrl::CQOXRMTooltipListCtrl(CQOXRMTooltipComboBox& combo) : m_combo(&combo) {}

bool CQOXRMTooltipListCtrl::Create(wxWindow* parent)
{
    if (!wxListCtrl::Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                            wxLC_REPORT | wxLC_NO_HEADER | wxLC_VIRTUAL | wxLC_SINGLE_SEL | wxBORDER_SIMPLE))
    {
        return false;
    }
    SetName(m_combo->GetName());
    NameForScreenReaders(*this, GetName());
    AppendColumn(wxString());
    Bind(wxEVT_KEY_DOWN, &CQOXRMTooltipListCtrl::OnKeyDown, this);
    Bind(wxEVT_MOTION, &CQOXRMTooltipListCtrl::OnMotion, this);
    Bind(wxEVT_LEFT_UP,
         [this](wxMouseEvent& event)
         {
             int flags = 0;
             const long row = HitTest(event.GetPosition(), flags);
             if (row != wxNOT_FOUND)
             {
                 SelectRow(static_cast<int>(row));
                 Accept();
             }
         });
    return true;
}

wxString CQOXRMTooltipListCtrl::OnGetItemText(long item, long /*column*/) const
{
    return m_combo != nullptr ? m_combo->GetLBText(static_cast<int>(item)) : std::wstring();
}

int CQOXRMTooltipListCtrl::SelectedRow() const
{
    return static_cast<int>(GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED));
}

void CQOXRMTooltipListCtrl::SelectRow(int row)
{
    constexpr long Chosen = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
    const int former = SelectedRow();
    if (former != TipEntries::None && former != row)
    {
        SetItemState(former, 0, Chosen);
    }
    if (row >= 0 && row < GetItemCount())
    {
        SetItemState(row, Chosen, Chosen);
        EnsureVisible(row);
    }
}

wxString CQOXRMTooltipListCtrl::GetStringValue() const
{
    return m_combo != nullptr ? m_combo->GetLBText(m_combo->GetCurSel()) : std::wstring();
}

void CQOXRMTooltipListCtrl::SetStringValue(const wxString& /*value*/)
{
    // The combo box says which entry is current; several may have one text.
}

wxSize CQOXRMTooltipListCtrl::GetAdjustedSize(int minWidth, int preferredHeight, int maximumHeight)
{
    SetItemCount(m_combo->GetCount());
    wxRect row;
    const int rowHeight = GetItemCount() > 0 && GetItemRect(0, row) ? row.GetHeight() : GetCharHeight();
    const int room = preferredHeight > 0 ? std::min(preferredHeight, maximumHeight) : maximumHeight;
    const DropDownSize size = SizeOfDropDown(m_combo->GetCount(), rowHeight, room, minWidth,
                                             wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this));
    const int borders = GetSize().GetWidth() - GetClientSize().GetWidth();
    SetColumnWidth(0, std::max(size.columnWidth - borders, 0));
    return { minWidth, size.height };
}

void CQOXRMTooltipListCtrl::OnPopup()
{
    m_isDropped = true;
    m_givenUp = false;
    ShowTipOf(TipEntries::None);
    SelectRow(m_combo->GetCurSel());
    SetFocus();
}

void CQOXRMTooltipListCtrl::OnDismiss()
{
    if (!m_isDropped || m_combo == nullptr)
    {
        return;
    }
    m_isDropped = false;
    if (!m_givenUp)
    {
        m_combo->ChooseByUser(SelectedRow());
    }
    m_combo->SetFocus();
}

void CQOXRMTooltipListCtrl::Accept()
{
    m_combo->Dismiss();
}

void CQOXRMTooltipListCtrl::OnKeyDown(wxKeyEvent& event)
{
    const int last = GetItemCount() - 1;
    const int row = SelectedRow();
    switch (event.GetKeyCode())
    {
    case WXK_ESCAPE:
        m_givenUp = true;
        m_combo->Dismiss();
        break;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        Accept();
        break;
    case WXK_LEFT:
    case WXK_UP:
        SelectRow(std::max(row - 1, 0));
        break;
    case WXK_RIGHT:
    case WXK_DOWN:
        SelectRow(std::min(row + 1, last));
        break;
    default:
        event.Skip();
    }
}

void CQOXRMTooltipListCtrl::OnComboKeyEvent(wxKeyEvent& event)
{
    const int last = m_combo->GetCount() - 1;
    const int row = m_combo->GetCurSel();
    switch (event.GetKeyCode())
    {
    case WXK_LEFT:
    case WXK_UP:
        m_combo->ChooseByUser(std::min(std::max(row - 1, 0), last));
        break;
    case WXK_RIGHT:
    case WXK_DOWN:
        m_combo->ChooseByUser(std::min(row + 1, last));
        break;
    case WXK_HOME:
        m_combo->ChooseByUser(std::min(0, last));
        break;
    case WXK_END:
        m_combo->ChooseByUser(last);
        break;
    default:
        event.Skip();
    }
}

void CQOXRMTooltipListCtrl::OnMotion(wxMouseEvent& event)
{
    event.Skip();
    int flags = 0;
    const int row = static_cast<int>(HitTest(event.GetPosition(), flags));
    ShowTipOf(row);
    if (row != wxNOT_FOUND && row != SelectedRow())
    {
        SelectRow(row);
    }
}

void CQOXRMTooltipListCtrl::ShowTipOf(int row)
{
    const int tool = TipToolOfRow(row);
    if (tool == m_tipTool)
    {
        return; // a tip that is set anew vanishes for a moment
    }
    m_tipTool = tool;
    const std::wstring tip = m_combo->TipText(row);
    if (tip.empty())
    {
        UnsetToolTip();
    }
    else
    {
        SetToolTip(tip);
    }
}
