#include "Authoring/ScriptLocnDlg.h"

#include "Modules/HelpKey.h"
#include "Utilities/DialogButtons.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

namespace
{

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int FieldWidth = 380;

} // namespace

CQOXRMScriptLocnDlg::CQOXRMScriptLocnDlg(wxWindow* parent, std::wstring& scriptFolder,
                                         std::function<bool()> areDocumentsOpen, IUserPrompt& prompt)
    : wxDialog(parent, wxID_ANY, LoadText(TextId::ScriptLocationTitle), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_location(scriptFolder, std::move(areDocumentsOpen), prompt), m_prompt(prompt)
{
    MakeControls();
    m_scriptFolder->ChangeValue(m_location.ScriptFolder());
    m_databaseFolder->ChangeValue(m_location.DatabaseFolder());
    Bind(wxEVT_BUTTON, &CQOXRMScriptLocnDlg::OnOK, this, wxID_OK);
    ShowHelpOnF1(*this, HelpTopic::ScriptLocation);
    CentreOnParent();
    m_scriptFolder->SetFocus();
}

void CQOXRMScriptLocnDlg::MakeControls()
{
    // Everything is owned by the dialog.
    auto* const grid = new wxFlexGridSizer(3, wxSize(FromDIP(Gap), FromDIP(Gap)));
    grid->AddGrowableCol(1);
    const auto addRow =
        [this, grid](TextId label, TextId browse, void (CQOXRMScriptLocnDlg::*onBrowse)(wxCommandEvent&))
    {
        grid->Add(new wxStaticText(this, wxID_ANY, LoadText(label)), wxSizerFlags().CentreVertical());
        auto* const field =
            new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(FieldWidth, wxDefaultCoord)));
        grid->Add(field, wxSizerFlags().Expand().CentreVertical());
        auto* const button = new wxButton(this, wxID_ANY, LoadText(browse));
        button->Bind(wxEVT_BUTTON, onBrowse, this);
        grid->Add(button, wxSizerFlags().Expand());
        return field;
    };
    m_scriptFolder =
        addRow(TextId::ScriptFolderField, TextId::BrowseScriptFolder, &CQOXRMScriptLocnDlg::OnBrowseScript);
    m_databaseFolder =
        addRow(TextId::DatabaseFolderField, TextId::BrowseDatabaseFolder, &CQOXRMScriptLocnDlg::OnBrowseDatabase);

    wxSizer* const buttons = CreateStdDialogButtonSizer(wxOK | wxCANCEL);
    DropSpaceAroundButtons(*buttons);
    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(Margin)));
    rows->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM | wxRIGHT, FromDIP(Margin)));
    LabelStandardButtons(*this);
    SetSizerAndFit(rows);
    // Only the width is of use.
    SetMaxSize(wxSize(wxDefaultCoord, GetSize().GetHeight()));
}

void CQOXRMScriptLocnDlg::OnBrowseScript(wxCommandEvent& /*event*/)
{
    if (const auto folder =
            m_prompt.AskFolder({ LoadText(TextId::SelectScriptFolder), m_scriptFolder->GetValue().ToStdWstring() }))
    {
        m_scriptFolder->SetValue(*folder);
    }
}

void CQOXRMScriptLocnDlg::OnBrowseDatabase(wxCommandEvent& /*event*/)
{
    if (const auto folder =
            m_prompt.AskFolder({ LoadText(TextId::SelectDatabaseFolder), m_databaseFolder->GetValue().ToStdWstring() }))
    {
        m_databaseFolder->SetValue(*folder);
        m_location.TakeBrowsedDatabaseFolder(*folder);
    }
}

void CQOXRMScriptLocnDlg::OnOK(wxCommandEvent& event)
{
    switch (m_location.Accept(m_scriptFolder->GetValue().ToStdWstring(), m_databaseFolder->GetValue().ToStdWstring()))
    {
    case ScriptLocation::Refused::Nothing:
        event.Skip(); // ends the dialog
        break;
    case ScriptLocation::Refused::ScriptFolder:
        m_scriptFolder->SetValue(m_location.ScriptFolder());
        m_scriptFolder->SetFocus();
        break;
    case ScriptLocation::Refused::DatabaseFolder:
        m_databaseFolder->SetValue(m_location.DatabaseFolder());
        m_databaseFolder->SetFocus();
        break;
    }
}
