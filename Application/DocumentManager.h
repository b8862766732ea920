#pragma once

#include "Application/CurrentRuleFile.h"
#include "Explorer/ConfigModuleView.h"

#include <wx/docmdi.h>

/// The open documents and the one kind of document there is.
class RuleDocManager : public wxDocManager
{
public:
    RuleDocManager();

    /// Makes the template of rule documents. Null if that fails.
    wxDocTemplate* MakeRuleTemplate();

    wxFileHistory* OnCreateFileHistory() override;

    /// Has the user choose a rule file to open. Null, with an empty path, if the user gives up.
    wxDocTemplate* SelectDocumentPath(wxDocTemplate** templates, int templateCount, wxString& path, long flags,
                                      bool save) override;

    /// Every file that isn't told apart at start goes to the one template, whatever it is
    /// called.
    wxDocTemplate* FindTemplateForPath(const wxString& path) override;

    /// Opens a file, or brings its window forward if it is open. Null if it can't be opened.
    wxDocument* OpenFile(const wxString& path);

    /// Makes a new, empty document. Null on failure.
    wxDocument* NewFile();

private:
    void OnOpen(wxCommandEvent& event);
    void OnRecentFile(wxCommandEvent& event);
    void RemoveRecentFile(const wxString& path);
    void TellFileOpened();
};

/// Makes the windows of views within the main window.
class MdiViewFrames : public IViewFrames
{
public:
    /// The main window, owned by the window system; set before the first view is made.
    void SetParent(wxDocMDIParentFrame* parent) { m_parent = parent; }

    wxWindow* MakeFrame(wxDocument* document, wxView* view) override;
    void SetStatusText(const wxString& text) override;
    void SetActiveTitle(const wxString& title) override;

private:
    wxDocMDIParentFrame* m_parent = nullptr;
    CurrentRuleFile m_currentFile;
};
