#include "Explorer/RuleEditorDlg.h"

#include "Explorer/RuleEditorRow.h"
#include "Explorer/RuleText.h"
#include "Modules/HelpKey.h"
#include "Platform/Locale.h"
#include "Utilities/DialogButtons.h"
#include "Utilities/ScreenReader.h"
#include "Utilities/Texts.h"

#include <Vantrel/QoxRule.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/display.h>
#include <wx/persist/toplevel.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/statline.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>

namespace
{

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int RowGap = 4;
constexpr int ScrollStep = 10;
constexpr int LeastListHeight = 150;
constexpr int LargestStartListHeight = 420;
constexpr int LeastWidth = 440;
constexpr int SummaryLines = 3;
constexpr int HelpLines = 4;
constexpr int FrameAllowance = 50; // for the title bar
constexpr int CriticalityCount = 5;

} // namespace

RuleEditorDlg::RuleEditorDlg(wxWindow* parent, CQoxRule& rule, wchar_t decimalSeparator)
    : wxDialog(parent, wxID_ANY, FormatText(TextId::EditorTitle, { rule.m_strDisplayName }), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      m_rule(rule), m_model(rule, decimalSeparator)
{
    MakeControls();
    ShowHelpOnF1(*this, HelpTopic::RuleEditor);
    Bind(wxEVT_BUTTON, &RuleEditorDlg::OnOK, this, wxID_OK);
    Bind(wxEVT_CHILD_FOCUS,
         [this](wxChildFocusEvent& event)
         {
             event.Skip();
             ShowHelpFor(event.GetWindow());
         });
    TakeStartSize();
    if (m_rows.empty())
    {
        m_criticality->SetFocus();
    }
    else
    {
        m_rows[m_model.FirstWrong().value_or(0)]->FocusField();
    }
}

RuleEditorDlg::~RuleEditorDlg()
{
    // What remembers the size asks for it now: later what is left is no dialog any more.
    SendDestroyEvent();
}

void RuleEditorDlg::MakeControls()
{
    auto* const rows = new wxBoxSizer(wxVERTICAL); // owned by the dialog, as all below
    AddHeader(*rows);
    AddParameters(*rows);
    AddHelp(*rows);
    AddButtons(*rows);
    SetSizer(rows);
    LabelStandardButtons(*this);
}

wxTextCtrl* RuleEditorDlg::MakeReading(const wxString& text, const wxString& name, long style, int lines)
{
    auto* const reading =
        new wxTextCtrl(this, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE | wxTE_READONLY | style);
    reading->SetName(name);
    NameForScreenReaders(*reading, name);
    reading->SetMargins(FromDIP(wxPoint(Gap / 2, Gap / 2)));
    reading->SetMinSize(wxSize(FromDIP(LeastWidth), lines * reading->GetCharHeight() + FromDIP(Gap)));
    return reading;
}

void RuleEditorDlg::AddHeader(wxSizer& rows)
{
    auto* const name =
        new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    name->SetLabelText(m_rule.m_strDisplayName);
    name->SetFont(GetFont().Bold().Larger());
    name->SetMinSize(wxSize(FromDIP(LeastWidth), -1));
    rows.Add(name, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Margin)));

    if (!m_rule.m_strSummary.empty())
    {
        wxTextCtrl* const summary =
            MakeReading(m_rule.m_strSummary, LoadText(TextId::SummaryLabel), wxBORDER_NONE, SummaryLines);
        summary->SetBackgroundColour(GetBackgroundColour());
        summary->DisableFocusFromKeyboard();
        rows.Add(summary, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Margin)));
    }

    auto* const label = new wxStaticText(this, wxID_ANY, LoadText(TextId::EditorCriticality));
    m_criticality =
        new wxComboBox(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, nullptr, wxCB_READONLY);
    for (int criticality = 1; criticality <= CriticalityCount; ++criticality)
    {
        m_criticality->Append(CriticalityText(criticality));
    }
    m_criticality->SetSelection(m_model.Criticality() - 1);
    m_criticality->SetName(wxControl::RemoveMnemonics(label->GetLabel()));
    NameForScreenReaders(*m_criticality, label->GetLabel());
    m_criticality->SetToolTip(LoadText(TextId::EditorCriticalityHelp));
    m_criticality->Bind(wxEVT_COMBOBOX,
                        [this](wxCommandEvent& event) { m_model.SetCriticality(event.GetSelection() + 1); });
    auto* const criticality = new wxBoxSizer(wxHORIZONTAL);
    criticality->Add(label, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(Gap)));
    criticality->Add(m_criticality, wxSizerFlags().CentreVertical());
    rows.Add(criticality, wxSizerFlags().Border(wxALL, FromDIP(Margin)));
}

void RuleEditorDlg::AddParameters(wxSizer& rows)
{
    if (m_model.Count() == 0)
    {
        rows.Add(new wxStaticText(this, wxID_ANY, LoadText(TextId::EditorNoParameters)),
                 wxSizerFlags(1).Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(Margin)));
        return;
    }
    // Lines in the colours of the theme show where the list begins and ends: a border would be black on some systems.
    const auto addLine = [this, &rows]
    { rows.Add(new wxStaticLine(this), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, FromDIP(Margin))); };
    addLine();
    m_list = new wxScrolledWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxVSCROLL | wxBORDER_NONE | wxTAB_TRAVERSAL);
    m_list->SetScrollRate(0, FromDIP(ScrollStep));
    auto* const grid = new wxFlexGridSizer(RuleEditorRow::ColumnCount, FromDIP(RowGap), FromDIP(Margin));
    grid->AddGrowableCol(1);
    for (std::size_t index = 0; index < m_model.Count(); ++index)
    {
        m_rows.push_back(
            std::make_unique<RuleEditorRow>(*m_list, *grid, m_model, index, [this] { LayOutParameters(); }));
    }
    auto* const frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(grid, wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM | wxRIGHT, FromDIP(Gap)));
    m_list->SetSizer(frame);
    m_list->SetMinSize(wxSize(-1, FromDIP(LeastListHeight)));
    rows.Add(m_list, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, FromDIP(Margin)));
    addLine();

    rows.Add(new wxStaticText(this, wxID_ANY, LoadText(TextId::EditorDiffers)),
             wxSizerFlags().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Margin)));
}

void RuleEditorDlg::AddHelp(wxSizer& rows)
{
    m_help = MakeReading(wxString(), LoadText(TextId::EditorHelpName), wxBORDER_THEME, HelpLines);
    rows.Add(m_help, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Margin)));
}

void RuleEditorDlg::AddButtons(wxSizer& rows)
{
    auto* const line = new wxBoxSizer(wxHORIZONTAL);
    if (!m_rows.empty())
    {
        auto* const resetAll = new wxButton(this, wxID_ANY, LoadText(TextId::EditorResetAll));
        resetAll->SetToolTip(LoadText(TextId::EditorTipResetAll));
        resetAll->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ResetAll(); });
        line->Add(resetAll, wxSizerFlags().CentreVertical());
    }
    line->AddStretchSpacer();
    wxSizer* const buttons = CreateStdDialogButtonSizer(wxOK | wxCANCEL);
    DropSpaceAroundButtons(*buttons);
    line->Add(buttons, wxSizerFlags().CentreVertical());
    rows.Add(line, wxSizerFlags().Expand().Border(wxALL, FromDIP(Margin)));
}

void RuleEditorDlg::TakeStartSize()
{
    GetSizer()->SetSizeHints(this);
    SetName("RuleEditor");
    if (wxPersistenceManager::Get().RegisterAndRestore(this))
    {
        return;
    }
    // The inner size: what the system puts around it is known only once the window is shown.
    wxSize size = GetSizer()->GetMinSize();
    if (m_list != nullptr)
    {
        const int least = m_list->GetMinHeight();
        const int wanted = m_list->GetSizer()->GetMinSize().GetHeight() + FromDIP(Gap);
        size.IncBy(0, std::clamp(wanted, least, FromDIP(LargestStartListHeight)) - least);
    }
    const wxWindow* const over = GetParent() != nullptr ? GetParent() : this;
    size.DecTo(wxDisplay(over).GetClientArea().GetSize() - FromDIP(wxSize(FrameAllowance, FrameAllowance)));
    SetClientSize(size);
    CentreOnParent();
}

void RuleEditorDlg::LayOutParameters()
{
    if (m_list->GetSizer() == nullptr)
    {
        return; // not all rows are there yet
    }
    m_list->FitInside();
    m_list->Layout();
}

void RuleEditorDlg::ShowHelpFor(const wxWindow* window)
{
    const auto row =
        std::find_if(m_rows.begin(), m_rows.end(), [window](const auto& candidate) { return candidate->Has(window); });
    if (row != m_rows.end())
    {
        m_help->ChangeValue((*row)->HelpText());
    }
    else if (window == m_criticality)
    {
        m_help->ChangeValue(LoadText(TextId::EditorCriticalityHelp));
    }
}

void RuleEditorDlg::ResetAll()
{
    m_model.ResetAll();
    for (const auto& row : m_rows)
    {
        row->TakeText();
    }
}

void RuleEditorDlg::OnOK(wxCommandEvent& event)
{
    if (const std::optional<std::size_t> wrong = m_model.FirstWrong())
    {
        wxBell();
        m_rows[*wrong]->FocusField();
        return;
    }
    event.Skip(m_model.ApplyTo(m_rule)); // ends the dialog
}

void EditRuleInWindow(CQoxRule& rule)
{
    RuleEditorDlg(wxTheApp->GetTopWindow(), rule, Platform::UserDecimalSeparator()).ShowModal();
}
