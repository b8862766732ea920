#pragma once

#include <Vantrel/PointerArray.h>

#include <functional>
#include <list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class ConcreteQOXRule;
class CQoxRule;
class IExplorerWindow;
class IRuleRows;
class ModuleSet;
class RuleDocument;

/// The logic of the rule explorer: the rules of all modules as rows, those of the document
/// ticked, and what ticking does to the document. Owns nothing that it is given.
class RuleExplorer
{
public:
    /// Whether VSTA rules work on this host; nothing if the framework can't tell.
    using VSTAQuery = std::function<std::optional<bool>()>;

    /// Has the user edit a user-defined rule, and returns when that is done.
    using UserRuleDialog = std::function<void(ConcreteQOXRule&)>;

    RuleExplorer(RuleDocument& document, const ModuleSet& modules, IRuleRows& rows, IExplorerWindow& window,
                 VSTAQuery areVSTARulesSupported);

    /// What edits user-defined rules in the place of their own editor. They have their own as
    /// long as there is none.
    void SetUserRuleDialog(UserRuleDialog dialog) { m_userRuleDialog = std::move(dialog); }

    /// Gathers the rules of modules that weren't asked yet, adds the user-defined ones and,
    /// if `fromDocument`, puts the document's rules in the place of those that they match;
    /// then brings the rows in line.
    void UpdateRuleList(bool fromDocument);

    /// The focus, the selection or the box of rows has changed: takes their rules into the
    /// document or out of it, in the order of the numbers given. The last of the rows is where
    /// a selection with the Shift key goes on. Numbers outside the list do nothing.
    void OnRowsChanged(const std::vector<int>& rows);

    /// Has the user edit the rule of a row. Does nothing while another one is being edited, or
    /// for a number outside the list. What a module throws from its editor ends the editing,
    /// and the user is told.
    void EditRow(int row);

    /// Shows how many rules are selected out of how many.
    void ShowCounts();

    /// Shows the summary of the one selected row. Does nothing for several rows or none.
    void ShowRuleSummary();

    /// Converts the rules that are new to the document to its units.
    void ApplyUnitsToNewRules();

    /// The document's units have changed: converts the rules of all rows.
    void OnRuleUnitsChanged();

    /// A user-defined rule has come to the end of the document's list.
    void OnUserRuleAdded();

    /// The user-defined rule with this one's name has been deleted.
    void OnUserRuleDeleted(const CQoxRule& rule);

    /// The user-defined rule with this one's name has become what this one is.
    void OnUserRuleChanged(CQoxRule& rule);

    /// The rules of all rows.
    std::vector<CQoxRule*> RulesOfRows() const;

    /// The rules of all rows and those of modules that got none, for giving them back when
    /// the view closes. The rows are to be removed then; the others are forgotten here.
    std::vector<CQoxRule*> TakeRulesToGiveBack();

private:
    void MergeDocumentRules();
    void ApplyUnitsToGatheredRules();
    void RemoveStaleRows();
    void FillRows();
    bool AddRow(CQoxRule* rule, std::optional<bool> areVSTARulesSupported);
    void OnRowChanged(int row);
    void MarkSingleSelection();
    void RunEditor(CQoxRule& rule);
    void RefreshRow(const CQoxRule& rule);
    CQoxRule* FindUserRule(const std::wstring& name) const;
    int RowOfRule(const CQoxRule* rule) const;

    RuleDocument& m_document;
    const ModuleSet& m_modules;
    IRuleRows& m_rows;
    IExplorerWindow& m_window;
    VSTAQuery m_areVSTARulesSupported;
    UserRuleDialog m_userRuleDialog;
    PointerArray m_ruleArray; // rules that a refill must still turn into rows
    std::list<std::wstring> m_askedModules;
    std::vector<CQoxRule*> m_rulesWithoutRow; // of modules; user-defined ones are the document's
    bool m_documentRulesMerged = false;
    int m_lastTickedRow = -1;
};
