#pragma once

#include "Explorer/Controls/TipEntries.h"

#include <wx/combo.h>

#include <optional>
#include <string>

class CQOXRMTooltipListCtrl;

/// A drop-down list with a tip for each entry. What the user chooses is told by
/// `wxEVT_COMBOBOX`, with the index of the entry.
class CQOXRMTooltipComboBox : public wxComboCtrl
{
public:
    /// `name` is what a screen reader says.
    CQOXRMTooltipComboBox(wxWindow* parent, wxWindowID id, const wxString& name, const wxSize& size = wxDefaultSize);
    ~CQOXRMTooltipComboBox() override;

    /// Adds an entry at the end and gives its index. Without a tip, its text serves as one.
    int AddString(const std::wstring& text, std::optional<std::wstring> tip = std::nullopt);
    void DeleteString(int index);
    void ResetContent();

    int GetCount() const { return m_entries.Count(); }
    std::wstring GetLBText(int index) const { return m_entries.Text(index); }
    std::wstring TipText(int index) const { return m_entries.Tip(index); }
    int FindStringExact(const std::wstring& text) const { return m_entries.Find(text); }

    /// The index of the current entry; `TipEntries::None` for none.
    int GetCurSel() const { return m_entries.Current(); }
    /// Makes an entry the current one. Nobody is told.
    void SetCurSel(int index);

    /// Same for what the user does: whoever listens is told if the entry is another one.
    void ChooseByUser(int index);

    /// What is dropped down. Owned by the combo box.
    CQOXRMTooltipListCtrl& List() { return *m_list; }

protected:
    // The window of the list counts as a child, and whoever has one that takes the keyboard gets none itself.
    bool IsClientAreaChild(const wxWindow* /*child*/) const override { return false; }

private:
    void ShowCurrent();

    TipEntries m_entries;
    CQOXRMTooltipListCtrl* m_list;
};
