#pragma once

#include <string>

class CQoxRule;

/// The rows of the rule list, as the explorer's logic sees them.
class IRuleRows
{
public:
    virtual ~IRuleRows() = default;

    virtual int RowCount() const = 0;
    virtual CQoxRule* RuleOfRow(int row) const = 0;

    /// Adds a row at the end and returns its number.
    virtual int InsertRow(CQoxRule* rule, const std::wstring& text) = 0;
    virtual void RemoveRow(int row) = 0;
    virtual void SetText(int row, int column, const std::wstring& text) = 0;

    virtual bool IsTicked(int row) const = 0;
    virtual void SetTicked(int row, bool ticked) = 0;

    virtual void SetSelected(int row, bool selected) = 0;
    virtual void DeselectAll() = 0;
    virtual int SelectedCount() const = 0;
    /// Number of the first selected row, or -1.
    virtual int FirstSelected() const = 0;

    /// Widens a column whose width is less than 1.2 times that of the text.
    virtual void WidenColumnFor(int column, const std::wstring& text) = 0;

    /// The row from which a selection with the Shift key goes on.
    virtual void SetAnchor(int row) = 0;
};

/// What the explorer's logic needs of its window.
class IExplorerWindow
{
public:
    virtual ~IExplorerWindow() = default;

    /// Marks the document as modified or not.
    virtual void SetDocumentModified(bool modified) = 0;
    /// Exactly one row is selected, or not.
    virtual void SetSingleSelection(bool single) = 0;
    virtual void ClearSummary() = 0;
    /// Shows the text, wrapped to the pane, in place of what it shows.
    virtual void ShowSummary(const std::wstring& text) = 0;
    virtual void SetStatus(const std::wstring& text) = 0;
    /// Tells the user that no database module is loaded.
    virtual void TellNoDatabaseModule() = 0;
    /// Tells all views of the document that a rule was edited.
    virtual void TellRuleEdited() = 0;
    /// Tells the user that the editor of a rule failed.
    virtual void TellEditorFailed(const std::wstring& ruleName) = 0;
};
