#pragma once

#include "Document/RuleDocument.h"
#include "Document/RuleView.h"

#include <wx/docview.h>

#include <memory>
#include <string>

/// What goes with `UpdateAllViews`.
class RuleViewHint : public wxObject
{
public:
    explicit RuleViewHint(ViewHint hint, CQoxRule* rule = nullptr) : m_hint(hint), m_rule(rule) {}

    ViewHint Hint() const { return m_hint; }
    CQoxRule* Rule() const { return m_rule; }

private:
    ViewHint m_hint;
    CQoxRule* m_rule; // not owned
};

struct FileQuestion;

/// What the user is asked to choose a file of the template with.
FileQuestion QuestionAboutRuleFile(const wxDocTemplate& fileType, const std::wstring& title,
                                   const std::wstring& folder);

/// One open rule file, as the document/view framework sees it. What is in it and what is
/// done to it is the rule document's.
class CQOXRMConfigModuleDoc : public wxDocument
{
public:
    CQOXRMConfigModuleDoc();

    bool OnNewDocument() override;
    bool OnOpenDocument(const wxString& path) override;
    bool OnSaveDocument(const wxString& path) override;
    bool OnSaveModified() override;
    bool OnCloseDocument() override;
    bool Save() override;
    bool SaveAs() override;

    /// True if there is something that a save would put into the file.
    bool CanBeSaved() const { return !AlreadySaved() || HasMoreThanFile(); }

    /// Refused while the editor of a rule is open.
    bool Close() override;

    /// Sets the modified state and the mark of it in the title.
    void Modify(bool modified) override;

    /// Sets the title from a name; a read-only document says so in it.
    void SetDocumentTitle(const wxString& name);

    RuleDocument& Rules() { return m_rules; }

    /// Takes the units of the rules' values and has the views convert them. That doesn't
    /// make the document a modified one, but it can be saved.
    void ChangeUnits(const structRulesUnit& units);

    /// Tells all views.
    void UpdateViews(ViewHint hint, CQoxRule* rule = nullptr);

private:
    /// True if a save would change the file although the document doesn't count as modified.
    bool HasMoreThanFile() const { return m_rules.HaveUnitsChanged() || m_rules.IsFileBehind(); }

    IRuleView* FirstRuleView() const;
    void InitialUpdateViews();
    void TellTitle();

    RuleDocument m_rules;

    wxDECLARE_DYNAMIC_CLASS(CQOXRMConfigModuleDoc);
};
