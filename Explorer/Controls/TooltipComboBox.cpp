#include "Explorer/Controls/TooltipComboBox.h"

#include "Explorer/Controls/TooltipListCtrl.h"
#include "Utilities/ScreenReader.h"

#include <utility>

CQOXRMTooltipComboBox::CQOXRMTooltipComboBox(wxWindow* parent, wxWindowID id, const wxString& name, const wxSize& size)
    : wxComboCtrl(parent, id, wxString(), wxDefaultPosition, size, wxCB_READONLY | wxWANTS_CHARS, wxDefaultValidator,
                  name),
      m_list(new CQOXRMTooltipListCtrl(*this)) // owned by the base class, from the next line on
{
    SetPopupControl(m_list);
    ShowCurrent();
}

CQOXRMTooltipComboBox::~CQOXRMTooltipComboBox()
{
    // The base class ends the list, at a time when there are no entries any more.
    m_list->ForgetCombo();
}

int CQOXRMTooltipComboBox::AddString(const std::wstring& text, std::optional<std::wstring> tip)
{
    m_entries.Append(text, std::move(tip));
    return m_entries.Count() - 1;
}

void CQOXRMTooltipComboBox::DeleteString(int index)
{
    m_entries.Delete(index);
    ShowCurrent();
}

void CQOXRMTooltipComboBox::ResetContent()
{
    m_entries.Clear();
    ShowCurrent();
}

void CQOXRMTooltipComboBox::SetCurSel(int index)
{
    m_entries.SetCurrent(index);
    ShowCurrent();
}

void CQOXRMTooltipComboBox::ChooseByUser(int index)
{
    const int former = GetCurSel();
    SetCurSel(index);
    if (GetCurSel() == former)
    {
        return;
    }
    wxCommandEvent event(wxEVT_COMBOBOX, GetId());
    event.SetEventObject(this);
    event.SetInt(GetCurSel());
    event.SetString(GetLBText(GetCurSel()));
    GetEventHandler()->ProcessEvent(event); // it may end the combo box
}

void CQOXRMTooltipComboBox::ShowCurrent()
{
    const std::wstring text = GetLBText(GetCurSel());
    SetText(text);
    NameForScreenReaders(*this, GetName() + " " + text); // the toolkit draws the text and tells nobody
    const std::wstring tip = TipText(GetCurSel());
    if (tip.empty())
    {
        UnsetToolTip();
    }
    else
    {
        SetToolTip(tip);
    }
}
