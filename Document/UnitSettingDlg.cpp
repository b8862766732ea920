#include "Document/UnitSettingDlg.h"

#include "Document/UnitChoice.h"
#include "Modules/HelpKey.h"
#include "Utilities/DialogButtons.h"
#include "Utilities/ScreenReader.h"
#include "Utilities/Texts.h"

#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <optional>
#include <string>

namespace
{

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int ListWidth = 220;

std::optional<std::wstring> ChosenText(const wxChoice& list)
{
    if (list.GetSelection() == wxNOT_FOUND)
    {
        return std::nullopt;
    }
    return list.GetStringSelection().ToStdWstring();
}

} // namespace

CQOXUnitSettingDlg::CQOXUnitSettingDlg(wxWindow* parent, structRulesUnit& units)
    : wxDialog(parent, wxID_ANY, LoadText(TextId::UnitSettingsTitle)), m_units(units)
{
    MakeControls();
    ShowHelpOnF1(*this, HelpTopic::UnitSettings);
    Bind(wxEVT_BUTTON, &CQOXUnitSettingDlg::OnOK, this, wxID_OK);
    CentreOnParent();
    // Once it is shown: some systems can't focus a list before, and take the default button.
    CallAfter([this] { m_linear->SetFocus(); });
}

void CQOXUnitSettingDlg::MakeControls()
{
    // A label stands before its list also in the order of the windows, which gives its
    // mnemonic to the list. All are owned by the dialog.
    auto* const fields = new wxFlexGridSizer(2, FromDIP(wxSize(Gap, Gap)));
    fields->AddGrowableCol(1);
    const auto addField = [this, fields](TextId label, const UnitList& list, std::int32_t unit)
    {
        fields->Add(new wxStaticText(this, wxID_ANY, LoadText(label)), wxSizerFlags().CentreVertical());
        wxChoice* const control = MakeList(list, unit);
        NameForScreenReaders(*control, LoadText(label));
        fields->Add(control, wxSizerFlags().Expand());
        return control;
    };
    m_linear = addField(TextId::LinearUnitField, OfferedLinearUnits(), m_units.linear);
    m_angular = addField(TextId::AngularUnitField, OfferedAngularUnits(), m_units.angular);

    wxSizer* const buttons = CreateStdDialogButtonSizer(wxOK | wxCANCEL);
    DropSpaceAroundButtons(*buttons);

    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(fields, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(Margin)));
    rows->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM | wxRIGHT, FromDIP(Margin)));
    LabelStandardButtons(*this);
    SetSizerAndFit(rows);
}

wxChoice* CQOXUnitSettingDlg::MakeList(const UnitList& list, std::int32_t unit)
{
    auto* const control = new wxChoice(this, wxID_ANY);
    for (const std::wstring& text : list.Texts())
    {
        control->Append(text);
    }
    if (const std::optional<std::size_t> place = list.PlaceOf(unit))
    {
        control->SetSelection(static_cast<int>(*place));
    }
    control->SetMinSize(wxSize(FromDIP(ListWidth), -1));
    return control;
}

void CQOXUnitSettingDlg::OnOK(wxCommandEvent& /*event*/)
{
    EndModal(wxID_OK);
    TakeUnitChoice(ChosenText(*m_linear), ChosenText(*m_angular), m_units);
}
