#pragma once

#include <Vantrel/RuleUnits.h>

#include <wx/dialog.h>

class UnitList;
class wxChoice;

/// Lets the user choose the units of the rules' values.
class CQOXUnitSettingDlg : public wxDialog
{
public:
    /// Changes `units`, which outlives the dialog, if it ends with OK, and stores them for new
    /// documents. A unit that isn't offered stays unless another is chosen.
    CQOXUnitSettingDlg(wxWindow* parent, structRulesUnit& units);

private:
    void MakeControls();
    wxChoice* MakeList(const UnitList& list, std::int32_t unit);
    void OnOK(wxCommandEvent& event);

    structRulesUnit& m_units;
    wxChoice* m_linear = nullptr; // both are owned by the window system
    wxChoice* m_angular = nullptr;
};
