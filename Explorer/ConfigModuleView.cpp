#include "Explorer/ConfigModuleView.h"

#include "Application/Commands.h"
#include "Document/ConfigModuleDoc.h"
#include "Explorer/CutTextTips.h"
#include "Explorer/ListCtrlEx.h"
#include "Explorer/RuleColumns.h"
#include "Explorer/RuleText.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/FrameworkLibrary.h"
#include "Utilities/ScreenReader.h"
#include "Utilities/Texts.h"
#include "Utilities/UnmeasuredSize.h"
#include "Utilities/UserPrompt.h"

#include <Vantrel/FrameworkFunctions.h>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/stattext.h>

#include <algorithm>
#include <array>
#include <utility>

wxIMPLEMENT_DYNAMIC_CLASS(CQOXRMConfigModuleView, wxView);

IViewFrames* CQOXRMConfigModuleView::s_frames = nullptr;
UserRuleDialogFunction CQOXRMConfigModuleView::s_userRuleDialog = nullptr;

namespace
{

constexpr int Margin = 10;
constexpr int StartColumnWidth = 100;
constexpr int SummaryStartWidth = 500;
constexpr int SummaryScrollAllowance = 20;

std::optional<bool> QueryVSTASupport()
{
    const Platform::LibraryHandle framework = LoadFrameworkLibrary();
    const auto query = FindFrameworkFunction<AreVSTARulesSupportedFunction>(framework, "AreVSTARulesSupported");
    if (query == nullptr)
    {
        return std::nullopt;
    }
    int supported = 0;
    query(&supported);
    return supported != 0;
}

} // namespace

CQOXRMConfigModuleView::CQOXRMConfigModuleView() = default;

CQOXRMConfigModuleView::~CQOXRMConfigModuleView() = default;

CQOXRMConfigModuleDoc& CQOXRMConfigModuleView::Doc() const
{
    return *static_cast<CQOXRMConfigModuleDoc*>(GetDocument());
}

bool CQOXRMConfigModuleView::OnCreate(wxDocument* document, long flags)
{
    if (!wxView::OnCreate(document, flags))
    {
        return false;
    }
    wxWindow* const frame = s_frames->MakeFrame(document, this);
    SetFrame(frame);
    MakeControls();
    m_explorer = std::make_unique<RuleExplorer>(Doc().Rules(), g_pApp->Modules(), *m_ruleList, *this, QueryVSTASupport);
    if (s_userRuleDialog != nullptr)
    {
        m_explorer->SetUserRuleDialog([this, dialog = s_userRuleDialog](ConcreteQOXRule& rule)
                                      { dialog(m_form, rule); });
    }
    BindCommands();
    frame->Show();
    return true;
}

void CQOXRMConfigModuleView::BindCommands()
{
    Bind(wxEVT_MENU, &CQOXRMConfigModuleView::OnSetPassword, this, CommandSetPassword);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(!Doc().Rules().HasPassword()); },
        CommandSetPassword);
    for (const int command : EditRuleCommands)
    {
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { EditRow(m_ruleList->FirstSelected()); }, command);
    }
    Bind(
        wxEVT_MENU, [this](wxCommandEvent& event) { TickRow(RowOfCommands(), event.IsChecked()); }, CommandTickRule);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_ruleList->SelectAll(); }, CommandSelectAllRules);
}

void CQOXRMConfigModuleView::OnSetPassword(wxCommandEvent& /*event*/)
{
    if (Doc().Rules().HasPassword())
    {
        return;
    }
    const std::optional<std::wstring> password = g_pApp->Prompt().AskPassword(PasswordPurpose::Set);
    if (password && Doc().Rules().SetDocPassword(*password))
    {
        Doc().Modify(true); // a document that isn't modified would not be saved
    }
}

void CQOXRMConfigModuleView::EditRow(int row)
{
    m_explorer->EditRow(row);
    m_ruleList->SetFocus();
}

void CQOXRMConfigModuleView::TickRow(int row, bool ticked)
{
    if (row >= 0)
    {
        m_ruleList->SetTicked(row, ticked);
    }
}

int CQOXRMConfigModuleView::RowOfCommands() const
{
    return m_ruleList->SelectedCount() == 1 ? m_ruleList->FirstSelected() : -1;
}

std::unique_ptr<wxMenu> CQOXRMConfigModuleView::MakeContextMenu() const
{
    const int row = RowOfCommands();
    auto menu = std::make_unique<wxMenu>();
    menu->Append(CommandEditRuleHere, LoadText(TextId::CommandEditRuleHere));
    menu->AppendCheckItem(CommandTickRule, LoadText(TextId::CommandTickRule));
    menu->AppendSeparator();
    menu->Append(CommandSelectAllRules, LoadText(TextId::CommandSelectAllRules));
    menu->Enable(CommandEditRuleHere, row >= 0);
    menu->Enable(CommandTickRule, row >= 0);
    menu->Check(CommandTickRule, row >= 0 && m_ruleList->IsTicked(row));
    menu->Enable(CommandSelectAllRules, m_ruleList->RowCount() > 0);
    return menu;
}

std::unique_ptr<wxMenu> CQOXRMConfigModuleView::MakeHeadingsMenu()
{
    return m_ruleColumns->MakeMenu();
}

void CQOXRMConfigModuleView::OnContextMenu(wxContextMenuEvent& event)
{
    if (m_ruleList->SelectedCount() > 1)
    {
        return;
    }
    wxPoint place = m_ruleList->ScreenToClient(event.GetPosition());
    if (event.GetPosition() == wxDefaultPosition) // asked for by a key
    {
        place = { 0, 0 };
        const int row = std::max(RowOfCommands(), 0);
        wxRect rect;
        if (row < m_ruleList->RowCount())
        {
            m_ruleList->EnsureVisible(row);
            m_ruleList->GetItemRect(row, rect);
            place = { rect.GetLeft() + Margin, rect.GetBottom() };
        }
    }
    const std::unique_ptr<wxMenu> menu = MakeContextMenu();
    m_ruleList->PopupMenu(menu.get(), place);
}

void CQOXRMConfigModuleView::SortAgain()
{
    m_ruleList->SortAgain();
}

void CQOXRMConfigModuleView::MakeControls()
{
    m_form = new wxPanel(GetFrame());
    m_ruleList = new CQOXRMListCtrlEx(m_form);
    m_summaryLabel = new wxStaticText(m_form, wxID_ANY, LoadText(TextId::SummaryLabel));
    m_summaryList = new wxListCtrl(m_form, wxID_ANY, wxDefaultPosition, UnmeasuredSize,
                                   wxLC_REPORT | wxLC_NO_HEADER | wxLC_SINGLE_SEL | wxBORDER_THEME);

    NameForScreenReaders(*m_ruleList, LoadText(TextId::RuleListName));
    NameForScreenReaders(*m_summaryList, LoadText(TextId::SummaryLabel));

    constexpr std::array Headings = { TextId::ColumnName, TextId::ColumnCategory, TextId::ColumnModule,
                                      TextId::ColumnCriticality };
    for (int column = 0; column < RuleColumnCount; ++column)
    {
        m_ruleList->AppendColumn(LoadText(Headings[static_cast<std::size_t>(column)]), wxLIST_FORMAT_LEFT,
                                 StartColumnWidth);
    }
    m_summaryList->AppendColumn(wxString(), wxLIST_FORMAT_LEFT, SummaryStartWidth);

    m_ruleList->SetRowsChangedHandler([this](const std::vector<int>& rows) { m_explorer->OnRowsChanged(rows); });
    m_ruleList->SetEditHandler([this](int row) { EditRow(row); });
    m_ruleList->SetSearchHandler([this](const std::wstring& text, bool found) { ShowSearch(text, found); });
    m_ruleList->Bind(wxEVT_CONTEXT_MENU, &CQOXRMConfigModuleView::OnContextMenu, this);
    m_ruleColumns = std::make_unique<RuleColumns>(*m_ruleList);
    m_ruleTips = std::make_unique<CutTextTips>(*m_ruleList);
    m_summaryTips = std::make_unique<CutTextTips>(*m_summaryList);
    m_form->Bind(wxEVT_SIZE,
                 [this](wxSizeEvent& event)
                 {
                     event.Skip();
                     Layout();
                 });
    m_form->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent&) { m_ruleList->SetFocus(); });
}

void CQOXRMConfigModuleView::OnInitialUpdate()
{
    m_ruleList->SetKeepsWidths(true);
    UpdateRuleList(true);
    m_ruleList->SetKeepsWidths(false);
    Layout();
    m_ruleList->Sort(RuleOrder::KeyTicked);
    SetSingleSelection(false);
    m_explorer->ApplyUnitsToNewRules();
    m_explorer->ShowRuleSummary();
    m_explorer->ShowCounts();
    m_ruleList->SetFocus();
}

void CQOXRMConfigModuleView::UpdateRuleList(bool fromDocument)
{
    m_ruleList->SetFilling(true);
    m_ruleList->Freeze();
    m_explorer->UpdateRuleList(fromDocument);
    m_ruleList->Thaw();
    m_ruleList->SetFilling(false);
}

void CQOXRMConfigModuleView::OnDraw(wxDC* /*dc*/) {}

void CQOXRMConfigModuleView::OnUpdate(wxView* /*sender*/, wxObject* hint)
{
    const auto* const ruleHint = dynamic_cast<RuleViewHint*>(hint);
    if (ruleHint == nullptr || m_explorer == nullptr)
    {
        return;
    }
    m_ruleList->SetFilling(true); // rows that come and go here are no choice of the user's
    switch (ruleHint->Hint())
    {
    case ViewHint::Reload:
        m_ruleList->SetFocus();
        UpdateRuleList(false);
        m_explorer->ShowCounts(); // modules may have brought rules or taken some along
        break;
    case ViewHint::UnitsChanged:
        m_explorer->OnRuleUnitsChanged();
        m_explorer->ShowRuleSummary();
        break;
    case ViewHint::RuleEdited:
        m_explorer->ShowRuleSummary();
        break;
    case ViewHint::UserRuleAdded:
        m_explorer->OnUserRuleAdded();
        break;
    case ViewHint::UserRuleDeleted:
        if (ruleHint->Rule() != nullptr)
        {
            m_explorer->OnUserRuleDeleted(*ruleHint->Rule());
        }
        break;
    case ViewHint::UserRuleChanged:
        if (ruleHint->Rule() != nullptr)
        {
            m_explorer->OnUserRuleChanged(*ruleHint->Rule());
        }
        break;
    case ViewHint::FileOpened:
        break;
    }
    m_ruleList->SetFilling(false);
}

void CQOXRMConfigModuleView::OnChangeFilename()
{
    if (GetFrame() != nullptr)
    {
        GetFrame()->SetLabel(GetDocument()->GetTitle());
        if (GetDocumentManager()->GetCurrentView() == this)
        {
            s_frames->SetActiveTitle(GetDocument()->GetTitle());
        }
    }
}

bool CQOXRMConfigModuleView::OnClose(bool deleteWindow)
{
    if (!wxView::OnClose(deleteWindow))
    {
        return false;
    }
    const bool wasInFront = IsInFront();
    Activate(false);
    if (wasInFront)
    {
        s_frames->SetStatusText({}); // it told of this document
    }
    if (deleteWindow)
    {
        if (m_ruleList != nullptr)
        {
            m_ruleList->SetSearchHandler({}); // the list outlives the view, and may end a search then
        }
        GetFrame()->Destroy();
        SetFrame(nullptr);
    }
    return true;
}

void CQOXRMConfigModuleView::OnActivateView(bool activate, wxView* /*activeView*/, wxView* /*deactiveView*/)
{
    if (activate || IsInFront())
    {
        s_frames->SetActiveTitle(activate ? GetDocument()->GetTitle() : wxString());
    }
    if (!activate && m_ruleList != nullptr && GetFrame() != nullptr)
    {
        m_ruleList->EndSearch(); // the status is for another view to show
    }
    if (activate && m_ruleList != nullptr && m_explorer != nullptr && GetFrame() != nullptr)
    {
        // The manager takes a view for the current one only after this, and no other shows its state.
        GetDocumentManager()->ActivateView(this);
        SetSingleSelection(m_ruleList->SelectedCount() == 1);
        m_explorer->ShowCounts();
    }
}

std::vector<CQoxRule*> CQOXRMConfigModuleView::TakeRulesToGiveBack()
{
    return m_explorer->TakeRulesToGiveBack();
}

void CQOXRMConfigModuleView::ClearRows()
{
    m_ruleList->SetFilling(true);
    m_ruleList->DeleteAllItems();
    m_ruleList->SetFilling(false);
}

void CQOXRMConfigModuleView::SetDocumentModified(bool modified)
{
    Doc().Modify(modified);
}

bool CQOXRMConfigModuleView::IsInFront() const
{
    const wxView* const current = GetDocumentManager()->GetCurrentView();
    return current == nullptr || current == this; // the only one may not have been activated yet
}

void CQOXRMConfigModuleView::SetSingleSelection(bool single)
{
    if (IsInFront())
    {
        g_pApp->SetDocOpenState(single ? 1 : 0);
    }
}

void CQOXRMConfigModuleView::ClearSummary()
{
    if (m_summaryList->GetItemCount() > 0)
    {
        m_summaryList->DeleteAllItems();
    }
}

void CQOXRMConfigModuleView::ShowSummary(const std::wstring& text)
{
    m_summaryList->DeleteAllItems();
    const int width = std::max(m_summaryList->GetClientSize().GetWidth() - SummaryScrollAllowance, 0);
    m_summaryList->SetColumnWidth(0, width);
    const int textWidth = m_summaryList->GetTextExtent(text).GetWidth();
    for (const std::wstring& line : WrapSummary(text, width, textWidth))
    {
        m_summaryList->InsertItem(m_summaryList->GetItemCount(), line);
    }
}

void CQOXRMConfigModuleView::SetStatus(const std::wstring& text)
{
    m_status = text;
    if (!m_searching && IsInFront())
    {
        s_frames->SetStatusText(text);
    }
}

void CQOXRMConfigModuleView::ShowSearch(const std::wstring& text, bool found)
{
    m_searching = !text.empty();
    if (m_searching)
    {
        s_frames->SetStatusText(FormatText(found ? TextId::FindTyping : TextId::FindTypingNothing, { text }));
    }
    else
    {
        s_frames->SetStatusText(m_status);
    }
}

void CQOXRMConfigModuleView::TellNoDatabaseModule()
{
    g_pApp->Prompt().ShowBox(BoxKind::Warning, LoadText(TextId::NoDatabaseModule), LoadText(TextId::ApplicationTitle));
}

void CQOXRMConfigModuleView::TellRuleEdited()
{
    Doc().UpdateViews(ViewHint::RuleEdited);
}

void CQOXRMConfigModuleView::TellEditorFailed(const std::wstring& ruleName)
{
    g_pApp->Prompt().ShowBox(BoxKind::Error, FormatText(TextId::RuleEditorFailed, { ruleName }),
                             LoadText(TextId::ApplicationTitle));
}

void CQOXRMConfigModuleView::Layout()
{
    const wxSize size = m_form->GetClientSize();
    const int width = std::max(size.GetWidth() - 2 * Margin, 1);
    const int height = size.GetHeight();
    const int labelTop = Margin + height * 3 / 4;

    m_ruleList->SetSize(Margin, Margin, width, std::max(height * 3 / 4 - Margin, 1));
    const wxSize labelSize = m_summaryLabel->GetBestSize();
    m_summaryLabel->SetSize(Margin, labelTop, labelSize.GetWidth(), labelSize.GetHeight());
    m_summaryList->SetSize(Margin, labelTop + labelSize.GetHeight() + 5, width, std::max(height / 4 - 40, 1));

    m_ruleColumns->Layout(width);
    if (m_explorer != nullptr)
    {
        m_explorer->ShowRuleSummary();
    }
}
