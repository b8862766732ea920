#include "Application/DocumentManager.h"

#include "Application/ChildFrame.h"
#include "Application/RuleFileType.h"
#include "Document/ConfigModuleDoc.h"
#include "Modules/ApplicationGlobals.h"
#include "Platform/Files.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <wx/docview.h>

namespace
{

constexpr std::size_t RecentFileCount = 4;

} // namespace

RuleDocManager::RuleDocManager()
{
    // In place of the framework's own answer, which doesn't know of changed units.
    Bind(
        wxEVT_UPDATE_UI,
        [this](wxUpdateUIEvent& event)
        {
            const auto* const document = dynamic_cast<CQOXRMConfigModuleDoc*>(GetCurrentDocument());
            event.Enable(document != nullptr && document->CanBeSaved());
        },
        wxID_SAVE);
    Bind(wxEVT_MENU, &RuleDocManager::OnOpen, this, wxID_OPEN);
    Bind(wxEVT_MENU, &RuleDocManager::OnPageSetup, this, wxID_PAGE_SETUP);
    Bind(wxEVT_MENU, &RuleDocManager::OnRecentFile, this, wxID_FILE1, wxID_FILE9);
}

void RuleDocManager::OnOpen(wxCommandEvent& /*event*/)
{
    if (CreateDocument(wxString()) == nullptr)
    {
        OnOpenFileFailure();
    }
    TellFileOpened();
}

void RuleDocManager::OnRecentFile(wxCommandEvent& event)
{
    const auto entry = static_cast<std::size_t>(event.GetId() - wxID_FILE1);
    if (entry >= GetHistoryFilesCount())
    {
        return;
    }
    const wxString path = GetHistoryFile(entry);
    if (OpenFile(path) == nullptr)
    {
        RemoveRecentFile(path);
    }
    TellFileOpened();
}

void RuleDocManager::RemoveRecentFile(const wxString& path)
{
    // By its name: what was shown meanwhile may have changed the order.
    for (std::size_t entry = 0; entry < GetHistoryFilesCount(); ++entry)
    {
        if (GetHistoryFile(entry) == path)
        {
            RemoveFileFromHistory(entry);
            return;
        }
    }
}

void RuleDocManager::TellFileOpened()
{
    if (auto* const document = dynamic_cast<CQOXRMConfigModuleDoc*>(GetCurrentDocument()))
    {
        document->UpdateViews(ViewHint::FileOpened);
    }
}

wxDocTemplate* RuleDocManager::MakeRuleTemplate()
{
    const wxString extension = RuleFileExtension;
    // Registers itself with the manager, which owns it. File dialogs add the pattern to the name.
    return new wxDocTemplate(this, LoadText(TextId::DocumentFilterName), "*." + extension, wxString(), extension,
                             "Rule document", "Rule explorer", wxCLASSINFO(CQOXRMConfigModuleDoc),
                             wxCLASSINFO(CQOXRMConfigModuleView));
}

wxFileHistory* RuleDocManager::OnCreateFileHistory()
{
    return new wxFileHistory(RecentFileCount); // owned by the manager
}

wxDocTemplate* RuleDocManager::SelectDocumentPath(wxDocTemplate** templates, int templateCount, wxString& path,
                                                  long /*flags*/, bool /*save*/)
{
    const auto file = templateCount > 0
                        ? g_pApp->Prompt().AskFile(QuestionAboutRuleFile(
                              *templates[0], LoadText(TextId::ToolkitOpenFile), GetLastDirectory().ToStdWstring()))
                        : std::nullopt;
    path = file.value_or(std::wstring());
    if (!file)
    {
        return nullptr;
    }
    SetLastDirectory(wxPathOnly(path));
    return FindTemplateForPath(path);
}

wxDocTemplate* RuleDocManager::FindTemplateForPath(const wxString& path)
{
    wxDocTemplate* const matching = wxDocManager::FindTemplateForPath(path);
    if (matching != nullptr || GetTemplatesVector().empty())
    {
        return matching;
    }
    return GetTemplatesVector().front();
}

wxDocument* RuleDocManager::OpenFile(const wxString& path)
{
    // Not the toolkit's way, which takes `..` behind a link for the folder before the link.
    return CreateDocument(Platform::AbsolutePath(path.ToStdWstring()), wxDOC_SILENT);
}

wxDocument* RuleDocManager::NewFile()
{
    return CreateNewDocument();
}

wxWindow* MdiViewFrames::MakeFrame(wxDocument* document, wxView* view)
{
    return new CQOXRMChildFrame(document, view, m_parent, m_currentFile); // owned by the window system
}

void MdiViewFrames::SetStatusText(const wxString& text)
{
    m_parent->SetStatusText(text);
}

void MdiViewFrames::SetActiveTitle(const wxString& title)
{
    const wxString program = LoadText(TextId::ApplicationTitle);
    m_parent->SetTitle(title.empty() ? program : title + " - " + program);
}
