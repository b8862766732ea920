#include "Modules/RuleRegDlg.h"

#include "Modules/HelpKey.h"
#include "Platform/Files.h"
#include "Platform/Library.h"
#include "Utilities/DialogButtons.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/ScreenReader.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <string>
#include <tuple>
#include <utility>

namespace
{

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr int LabelGap = 3;
constexpr int ListHeight = 150;
constexpr int ConfiguredColumn = 150;
constexpr int DefaultColumn = 100;
constexpr int ConfiguredWidth = 300;
constexpr int DefaultWidth = 230;
constexpr int SummaryHeight = 110;
constexpr double ColumnRoom = 1.1;

void WidenFirstColumn(wxListCtrl& list, const std::wstring& text)
{
    const int textWidth = list.GetTextExtent(text).GetWidth();
    if (textWidth > list.GetColumnWidth(0))
    {
        list.SetColumnWidth(0, static_cast<int>(textWidth * ColumnRoom));
    }
}

/// Rows say which module they are by its handle.
Platform::LibraryHandle ModuleOfRow(const wxListCtrl& list, long row)
{
    return reinterpret_cast<Platform::LibraryHandle>(list.GetItemData(row));
}

long FirstSelected(const wxListCtrl& list)
{
    return list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
}

void SelectAlone(wxListCtrl& list, long row)
{
    for (long other = FirstSelected(list); other != -1;
         other = list.GetNextItem(other, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED))
    {
        if (other != row)
        {
            list.SetItemState(other, 0, wxLIST_STATE_SELECTED);
        }
    }
    constexpr long Chosen = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
    list.SetItemState(row, Chosen, Chosen);
    list.EnsureVisible(row);
}

/// The folder that a path names or lies in; empty if there is none. A library's path may be as the
/// dialog shows it.
std::wstring FolderOf(const std::wstring& path)
{
    if (Platform::FolderExists(path))
    {
        return path;
    }
    const bool isThere = Platform::PathExists(path) || Platform::LibraryFileExists(path);
    std::wstring folder = Platform::FolderPart(path);
    // Libraries are found in any case of their path, folders aren't.
    return isThere && Platform::FolderExists(folder) ? folder : std::wstring();
}

} // namespace

CQOXRuleRegDlg::CQOXRuleRegDlg(wxWindow* parent, ModuleRegistration& registration, IUserPrompt& prompt)
    : wxDialog(parent, wxID_ANY, LoadText(registration.Kind().title), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_registration(registration), m_prompt(prompt)
{
    MakeControls();
    m_configured->Bind(wxEVT_LIST_ITEM_SELECTED, &CQOXRuleRegDlg::OnConfiguredSelection, this);
    m_configured->Bind(wxEVT_LIST_ITEM_DESELECTED, &CQOXRuleRegDlg::OnConfiguredSelection, this);
    m_defaults->Bind(wxEVT_LIST_ITEM_SELECTED, &CQOXRuleRegDlg::OnDefaultSelected, this);
    m_newModule->Bind(wxEVT_TEXT, &CQOXRuleRegDlg::OnNewModuleText, this);
    m_add->Bind(wxEVT_BUTTON, &CQOXRuleRegDlg::OnAdd, this);
    m_remove->Bind(wxEVT_BUTTON, &CQOXRuleRegDlg::OnRemove, this);
    m_reset->Bind(wxEVT_BUTTON, &CQOXRuleRegDlg::OnReset, this);
    ShowHelpOnF1(*this, m_registration.Kind().helpTopic);
    Bind(wxEVT_HELP,
         [this](wxHelpEvent& /*event*/)
         {
             m_prompt.ShowBox(BoxKind::Information, LoadText(TextId::HelpOfControlMissing),
                              LoadText(m_registration.Kind().title));
         });
    CentreOnParent();
    Open();
}

void CQOXRuleRegDlg::MakeControls()
{
    auto* const rows = new wxBoxSizer(wxVERTICAL); // owned by the dialog, as all below
    const auto sides = [this] { return wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, FromDIP(Margin)); };
    rows->Add(MakeLists(), sides().Proportion(2));
    rows->Add(MakeNewModuleRow(), sides());
    rows->Add(MakeDetails(), sides().Proportion(1));

    wxSizer* const buttons = CreateStdDialogButtonSizer(wxOK | wxCANCEL | wxHELP);
    DropSpaceAroundButtons(*buttons);
    rows->Add(buttons, wxSizerFlags().Expand().Border(wxALL, FromDIP(Margin)));
    m_ok = static_cast<wxButton*>(FindWindow(wxID_OK));
    m_cancel = static_cast<wxButton*>(FindWindow(wxID_CANCEL));
    m_ok->Disable();
    LabelStandardButtons(*this);
    SetSizerAndFit(rows);
}

wxSizer* CQOXRuleRegDlg::MakeLists()
{
    const auto addColumn = [this](wxSizer& columns, TextId label, int width, int style)
    {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        column->Add(new wxStaticText(this, wxID_ANY, LoadText(label)),
                    wxSizerFlags().Border(wxBOTTOM, FromDIP(LabelGap)));
        auto* const list = new wxListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(width, ListHeight)),
                                          wxLC_REPORT | wxBORDER_THEME | style);
        list->EnableSystemTheme();
        list->Bind(wxEVT_KEY_DOWN, &CQOXRuleRegDlg::OnKeyInList, this);
        NameForScreenReaders(*list, LoadText(label));
        column->Add(list, wxSizerFlags(1).Expand());
        columns.Add(column, wxSizerFlags(1).Expand());
        return std::pair{ list, column };
    };
    auto* const columns = new wxBoxSizer(wxHORIZONTAL);
    wxBoxSizer* configuredColumn = nullptr;
    std::tie(m_configured, configuredColumn) = addColumn(*columns, TextId::ConfiguredModules, ConfiguredWidth, 0);

    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    m_remove = new wxButton(this, wxID_ANY, LoadText(TextId::RemoveModules));
    m_reset = new wxButton(this, wxID_ANY, LoadText(TextId::ResetModules));
    m_remove->Disable();
    buttons->Add(m_remove, wxSizerFlags().Border(wxRIGHT, FromDIP(Gap)));
    buttons->Add(m_reset);
    configuredColumn->Add(buttons, wxSizerFlags().Border(wxTOP, FromDIP(Gap)));

    columns->AddSpacer(FromDIP(Margin));
    std::tie(m_defaults, std::ignore) = addColumn(*columns, TextId::DefaultModules, DefaultWidth, wxLC_SINGLE_SEL);
    return columns;
}

wxSizer* CQOXRuleRegDlg::MakeNewModuleRow()
{
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(this, wxID_ANY, LoadText(TextId::NewModuleField)), wxSizerFlags().CentreVertical());
    m_newModule = new wxTextCtrl(this, wxID_ANY);
    row->Add(m_newModule, wxSizerFlags(1).CentreVertical().Border(wxLEFT, FromDIP(Gap)));
    auto* const browse = new wxButton(this, wxID_ANY, LoadText(TextId::BrowseModule));
    browse->Bind(wxEVT_BUTTON, &CQOXRuleRegDlg::OnBrowse, this);
    row->Add(browse, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(Gap)));
    m_add = new wxButton(this, wxID_ANY, LoadText(TextId::AddModule));
    m_add->Disable();
    row->Add(m_add, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(Gap)));
    return row;
}

wxSizer* CQOXRuleRegDlg::MakeDetails()
{
    auto* const grid = new wxFlexGridSizer(2, wxSize(FromDIP(Gap), FromDIP(Gap)));
    grid->AddGrowableCol(1);
    grid->AddGrowableRow(1);
    grid->Add(new wxStaticText(this, wxID_ANY, LoadText(TextId::ModulePath)), wxSizerFlags().CentreVertical());
    m_path = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    grid->Add(m_path, wxSizerFlags().Expand());
    grid->Add(new wxStaticText(this, wxID_ANY, LoadText(TextId::ModuleSummary)));
    m_summary = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition,
                               FromDIP(wxSize(wxDefaultCoord, SummaryHeight)), wxTE_READONLY | wxTE_MULTILINE);
    grid->Add(m_summary, wxSizerFlags().Expand());
    return grid;
}

void CQOXRuleRegDlg::Open()
{
    m_configured->DeleteAllItems();
    m_remove->Disable(); // the list doesn't tell that its selection went along
    ClearDetails();
    if (m_configured->GetColumnCount() == 0)
    {
        m_configured->AppendColumn(LoadText(TextId::ColumnModuleName), wxLIST_FORMAT_LEFT, FromDIP(ConfiguredColumn));
    }
    if (m_defaults->GetColumnCount() == 0)
    {
        m_defaults->AppendColumn(LoadText(TextId::ColumnModuleName), wxLIST_FORMAT_LEFT, FromDIP(DefaultColumn));
    }
    for (const Platform::LibraryHandle module : m_registration.Modules())
    {
        AddModuleRow(module);
    }
    LogMessage(L"Rule Register Dialog initialized");
    m_reset->Disable();
    FillDefaults();
    m_newModule->SetFocus();
    // The rows were chosen by the program; the key Return is to remove none of them.
    m_add->SetDefault();
}

void CQOXRuleRegDlg::FillDefaults()
{
    m_defaults->DeleteAllItems();
    for (const std::wstring& name : m_registration.DefaultNames())
    {
        m_defaults->InsertItem(m_defaults->GetItemCount(), name);
        WidenFirstColumn(*m_defaults, name);
    }
}

void CQOXRuleRegDlg::AddModuleRow(Platform::LibraryHandle module)
{
    const std::optional<std::wstring> name = ModuleRegistration::NameOf(module);
    if (!name)
    {
        return;
    }
    const long row = m_configured->InsertItem(m_configured->GetItemCount(), *name);
    m_configured->SetItemPtrData(row, reinterpret_cast<wxUIntPtr>(module));
    WidenFirstColumn(*m_configured, *name);
    SelectAlone(*m_configured, row);
}

void CQOXRuleRegDlg::ClearDetails()
{
    m_path->Clear();
    m_summary->Clear();
}

void CQOXRuleRegDlg::ShowModule(Platform::LibraryHandle module)
{
    wxString summary = ModuleRegistration::SummaryOf(module);
    summary.Replace("\r\n", "\n"); // the control's own line ends
    m_summary->ChangeValue(summary);
    m_path->ChangeValue(ModuleRegistration::PathOf(module));
    m_summary->ShowPosition(0);
}

void CQOXRuleRegDlg::NoteChange()
{
    m_ok->Enable();
    m_reset->Enable();
    m_ok->SetDefault();
}

void CQOXRuleRegDlg::OnConfiguredSelection(wxListEvent& event)
{
    // The toolkit's count still has rows that were selected when they were deleted.
    const bool anySelected = FirstSelected(*m_configured) != -1;
    m_remove->Enable(anySelected);
    (anySelected ? m_remove : m_cancel)->SetDefault();
    if (event.GetEventType() == wxEVT_LIST_ITEM_SELECTED)
    {
        ShowModule(ModuleOfRow(*m_configured, event.GetIndex()));
        m_configured->EnsureVisible(event.GetIndex());
    }
}

void CQOXRuleRegDlg::OnKeyInList(wxKeyEvent& event)
{
    const bool isReturn = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
    if (!isReturn || event.HasAnyModifiers())
    {
        event.Skip();
        return;
    }
    // A list keeps the key for itself, and the rows that are selected are what the button is for.
    auto* const button = wxDynamicCast(GetDefaultItem(), wxButton);
    if (button != nullptr && button->IsEnabled())
    {
        wxCommandEvent click(wxEVT_BUTTON, button->GetId());
        click.SetEventObject(button);
        button->Command(click);
    }
}

void CQOXRuleRegDlg::OnDefaultSelected(wxListEvent& /*event*/)
{
    m_add->Enable();
    m_add->SetDefault();
}

void CQOXRuleRegDlg::OnNewModuleText(wxCommandEvent& /*event*/)
{
    if (!m_newModule->IsEmpty())
    {
        m_add->Enable();
        m_add->SetDefault();
    }
}

void CQOXRuleRegDlg::OnBrowse(wxCommandEvent& /*event*/)
{
    const std::wstring pattern = std::wstring(L"*") + Platform::LibrarySuffix;
    std::wstring folder = FolderOf(m_newModule->GetValue().ToStdWstring());
    if (folder.empty())
    {
        folder = m_registration.ProgramFolder();
    }
    if (const auto file = m_prompt.AskFile(
            { LoadText(TextId::SelectModule), FormatText(TextId::ModuleFilterName, { pattern }), pattern, folder }))
    {
        m_newModule->SetValue(*file);
    }
}

void CQOXRuleRegDlg::OnAdd(wxCommandEvent& /*event*/)
{
    const long chosen = FirstSelected(*m_defaults);
    const auto name = chosen != -1 ? std::optional(m_defaults->GetItemText(chosen).ToStdWstring()) : std::nullopt;
    const Platform::LibraryHandle module = m_registration.Add(m_newModule->GetValue().ToStdWstring(), name);
    if (module != nullptr)
    {
        AddModuleRow(module);
        NoteChange();
    }
    m_newModule->Clear();
}

void CQOXRuleRegDlg::OnRemove(wxCommandEvent& /*event*/)
{
    for (long row = m_configured->GetItemCount() - 1; row >= 0; --row)
    {
        if (m_configured->GetItemState(row, wxLIST_STATE_SELECTED) != 0)
        {
            m_registration.Remove(ModuleOfRow(*m_configured, row));
            m_configured->DeleteItem(row);
        }
    }
    m_remove->Disable();
    m_configured->SetFocus();
    const long rows = m_configured->GetItemCount();
    if (rows == 0)
    {
        ClearDetails();
    }
    else
    {
        SelectAlone(*m_configured, rows - 1);
    }
    NoteChange();
}

void CQOXRuleRegDlg::OnReset(wxCommandEvent& /*event*/)
{
    m_registration.Discard();
    m_ok->Disable();
    Open();
}
