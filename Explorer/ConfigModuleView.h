#pragma once

#include "Document/RuleView.h"
#include "Explorer/RuleExplorer.h"
#include "Explorer/RuleRows.h"

#include <wx/docview.h>

#include <memory>
#include <string>
#include <vector>

class ConcreteQOXRule;
class CQOXRMConfigModuleDoc;
class CQOXRMListCtrlEx;
class CutTextTips;
class RuleColumns;
class wxListCtrl;
class wxMenu;
class wxPanel;
class wxStaticText;
class wxWindow;

/// Makes the frame of a view inside the main window and knows the main window's status bar.
/// The program registers one before the first view is made.
class IViewFrames
{
public:
    virtual ~IViewFrames() = default;

    /// A frame for the view; owned by the window system.
    virtual wxWindow* MakeFrame(wxDocument* document, wxView* view) = 0;
    virtual void SetStatusText(const wxString& text) = 0;
    /// Shows the title of the active document in that of the main window; empty for none.
    virtual void SetActiveTitle(const wxString& title) = 0;
};

/// Has the user edit a user-defined rule, over the window, and returns when that is done.
using UserRuleDialogFunction = void (*)(wxWindow* parent, ConcreteQOXRule& rule);

/// The main window of a rule document: all rules of all modules with boxes, and the summary
/// of the selected one.
class CQOXRMConfigModuleView : public wxView, public IRuleView, public IExplorerWindow
{
public:
    CQOXRMConfigModuleView();
    ~CQOXRMConfigModuleView() override;

    /// Who makes the frames; not owned.
    static void SetFrames(IViewFrames* frames) { s_frames = frames; }

    /// What edits user-defined rules in views that are made from now on; they have their own
    /// editor as long as there is none.
    static void SetUserRuleDialog(UserRuleDialogFunction dialog) { s_userRuleDialog = dialog; }

    bool OnCreate(wxDocument* document, long flags) override;
    void OnDraw(wxDC* dc) override;
    void OnUpdate(wxView* sender, wxObject* hint) override;
    void OnChangeFilename() override;
    bool OnClose(bool deleteWindow) override;
    void OnActivateView(bool activate, wxView* activeView, wxView* deactiveView) override;

    void OnInitialUpdate() override;
    std::vector<CQoxRule*> TakeRulesToGiveBack() override;
    void ClearRows() override;

    /// Brings the rows into the order again that they were sorted in last.
    void SortAgain();

    /// What a right click on the rule list offers, for the row with the focus.
    std::unique_ptr<wxMenu> MakeContextMenu() const;

    /// What a right click on the headings of the rule list offers.
    std::unique_ptr<wxMenu> MakeHeadingsMenu();

    CQOXRMListCtrlEx& RuleListCtrl() { return *m_ruleList; }
    wxListCtrl& SummaryListCtrl() { return *m_summaryList; }

private:
    void SetDocumentModified(bool modified) override;
    void SetSingleSelection(bool single) override;
    void ClearSummary() override;
    void ShowSummary(const std::wstring& text) override;
    void SetStatus(const std::wstring& text) override;
    void TellNoDatabaseModule() override;
    void TellRuleEdited() override;
    void TellEditorFailed(const std::wstring& ruleName) override;

    CQOXRMConfigModuleDoc& Doc() const;

    /// Whether the program's state is this view's to show. Hints reach views behind the current one too.
    bool IsInFront() const;

    void MakeControls();
    void BindCommands();
    void OnSetPassword(wxCommandEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void EditRow(int row);
    void TickRow(int row, bool ticked);
    int RowOfCommands() const;
    void Layout();
    void UpdateRuleList(bool fromDocument);
    void ShowSearch(const std::wstring& text, bool found);

    static IViewFrames* s_frames; // owned by the program
    static UserRuleDialogFunction s_userRuleDialog;

    wxPanel* m_form = nullptr; // these four are owned by the window system
    CQOXRMListCtrlEx* m_ruleList = nullptr;
    wxStaticText* m_summaryLabel = nullptr;
    wxListCtrl* m_summaryList = nullptr;
    std::unique_ptr<RuleColumns> m_ruleColumns;
    std::unique_ptr<CutTextTips> m_ruleTips;
    std::unique_ptr<CutTextTips> m_summaryTips;
    std::unique_ptr<RuleExplorer> m_explorer;
    std::wstring m_status;
    bool m_searching = false; // the user looks for a rule by letters

    wxDECLARE_DYNAMIC_CLASS(CQOXRMConfigModuleView);
};
