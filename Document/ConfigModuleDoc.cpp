#include "Document/ConfigModuleDoc.h"

#include "Document/DocumentTitle.h"
#include "Modules/ApplicationGlobals.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <wx/filename.h>
#include <wx/utils.h>

wxIMPLEMENT_DYNAMIC_CLASS(CQOXRMConfigModuleDoc, wxDocument);

namespace
{

void ShowFailure(TextId id, const wxString& path)
{
    g_pApp->Prompt().ShowBox(BoxKind::Warning, FormatText(id, { path.ToStdWstring() }),
                             LoadText(TextId::ApplicationTitle));
}

} // namespace

FileQuestion QuestionAboutRuleFile(const wxDocTemplate& fileType, const std::wstring& title, const std::wstring& folder)
{
    const std::wstring pattern = fileType.GetFileFilter().ToStdWstring();
    FileQuestion question;
    question.title = title;
    question.filterName = fileType.GetDescription().ToStdWstring() + L" (" + pattern + L")";
    question.pattern = pattern;
    question.folder = folder;
    question.extension = fileType.GetDefaultExtension().ToStdWstring();
    return question;
}

CQOXRMConfigModuleDoc::CQOXRMConfigModuleDoc() : m_rules(&g_pApp->Prompt()) {}

bool CQOXRMConfigModuleDoc::OnNewDocument()
{
    if (!wxDocument::OnNewDocument())
    {
        return false;
    }
    const wxString title = GetTitle();
    SetFilename(title, true);
    GetDocumentManager()->AddFileToHistory(title);
    m_rules.LoadUserRules();
    InitialUpdateViews();
    return true;
}

bool CQOXRMConfigModuleDoc::OnOpenDocument(const wxString& path)
{
    const wxBusyCursor busy;
    switch (m_rules.Open(path.ToStdWstring()))
    {
    case RuleDocument::OpenFailure::None:
        break;
    case RuleDocument::OpenFailure::Told:
        return false;
    case RuleDocument::OpenFailure::NotRead:
        ShowFailure(TextId::FileNotOpened, path);
        return false;
    }
    SetDocumentTitle(wxFileName(path).GetFullName());
    SetFilename(path, true);
    SetDocumentSaved(true);
    Modify(false);
    InitialUpdateViews();
    return true;
}

bool CQOXRMConfigModuleDoc::OnSaveDocument(const wxString& path)
{
    const wxBusyCursor busy;
    switch (m_rules.Save(path.ToStdWstring()))
    {
    case RuleDocument::SaveFailure::None:
        break;
    case RuleDocument::SaveFailure::NotWritable:
        ShowFailure(TextId::FileNotSaved, path);
        return false;
    case RuleDocument::SaveFailure::Told:
        return false;
    case RuleDocument::SaveFailure::NotWritten:
        ShowFailure(TextId::RulesNotLoaded, path);
        return false;
    }
    Modify(false);
    SetFilename(path);
    SetDocumentTitle(wxFileName(path).GetFullName()); // it may have been read-only
    SetDocumentSaved(true);
    return true;
}

bool CQOXRMConfigModuleDoc::OnSaveModified()
{
    if (!IsModified())
    {
        return true;
    }
    // The toolkit's own question would name the document with the mark of its modification.
    const std::wstring name = DocumentTitle::ForModified(GetTitle().ToStdWstring(), false);
    switch (g_pApp->Prompt().AskSaveChanges(name))
    {
    case SaveAnswer::Save:
        return Save();
    case SaveAnswer::Discard:
        Modify(false);
        return true;
    case SaveAnswer::Cancel:
        break;
    }
    return false;
}

bool CQOXRMConfigModuleDoc::Save()
{
    // The framework would take the document for saved.
    if (AlreadySaved() && HasMoreThanFile())
    {
        return OnSaveDocument(GetFilename());
    }
    return wxDocument::Save();
}

bool CQOXRMConfigModuleDoc::SaveAs()
{
    wxString folder = wxPathOnly(GetFilename());
    if (folder.empty())
    {
        folder = GetDocumentManager()->GetLastDirectory();
    }
    FileQuestion question =
        QuestionAboutRuleFile(*GetDocumentTemplate(), LoadText(TextId::ToolkitSaveAs), folder.ToStdWstring());
    question.purpose = FilePurpose::Save;
    question.fileName = wxFileNameFromPath(GetFilename()).ToStdWstring();
    const auto path = g_pApp->Prompt().AskFile(question);
    if (!path || !OnSaveDocument(*path))
    {
        return false;
    }
    SetTitle(wxFileNameFromPath(*path));
    SetFilename(*path, true); // lets the views take over the title
    GetDocumentManager()->AddFileToHistory(*path);
    return true;
}

bool CQOXRMConfigModuleDoc::Close()
{
    // A module's own editor needn't keep the user from the program's windows.
    return !g_bEditInProgress && wxDocument::Close();
}

bool CQOXRMConfigModuleDoc::OnCloseDocument()
{
    if (IRuleView* const view = FirstRuleView())
    {
        m_rules.ReleaseRules(view->TakeRulesToGiveBack());
        view->ClearRows();
    }
    const bool closed = wxDocument::OnCloseDocument();
    // This one is still among the open ones; its window goes after it.
    if (GetDocumentManager()->GetDocumentsVector().size() <= 1)
    {
        g_pApp->SetDocOpenState(0);
    }
    return closed;
}

void CQOXRMConfigModuleDoc::Modify(bool modified)
{
    if (modified == IsModified())
    {
        return;
    }
    // The mark is put on the title as it stands: a read-only suffix must not come twice.
    SetTitle(DocumentTitle::ForModified(GetTitle().ToStdWstring(), modified));
    wxDocument::Modify(modified); // lets the views take over the title
}

void CQOXRMConfigModuleDoc::SetDocumentTitle(const wxString& name)
{
    SetTitle(DocumentTitle::ForName(name.ToStdWstring(), m_rules.IsReadOnly()));
    TellTitle();
}

void CQOXRMConfigModuleDoc::ChangeUnits(const structRulesUnit& units)
{
    m_rules.ChangeUnits(units);
    UpdateViews(ViewHint::UnitsChanged);
}

void CQOXRMConfigModuleDoc::UpdateViews(ViewHint hint, CQoxRule* rule)
{
    RuleViewHint object(hint, rule);
    UpdateAllViews(nullptr, &object);
}

IRuleView* CQOXRMConfigModuleDoc::FirstRuleView() const
{
    return dynamic_cast<IRuleView*>(GetFirstView());
}

void CQOXRMConfigModuleDoc::InitialUpdateViews()
{
    if (IRuleView* const view = FirstRuleView())
    {
        view->OnInitialUpdate();
    }
}

void CQOXRMConfigModuleDoc::TellTitle()
{
    for (wxView* const view : GetViewsVector())
    {
        view->OnChangeFilename();
    }
}
