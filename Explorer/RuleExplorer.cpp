#include "Explorer/RuleExplorer.h"

#include "Document/RuleDocument.h"
#include "Explorer/RuleRows.h"
#include "Explorer/RuleText.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/ModuleGuard.h"
#include "Modules/ModuleSet.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace
{

constexpr std::int32_t StateUnticked = 0;
constexpr std::int32_t StateTicked = 1;

/// The file name of a path of this system or the other: rule files travel between them.
std::wstring LibraryName(const std::wstring& path)
{
    return path.substr(path.find_last_of(L"\\/") + 1);
}

/// What two rules must have in common to be the same one, in a form that compares without
/// regard to case.
std::wstring MatchKey(const CQoxRule& rule)
{
    // Not a character of any name or summary.
    constexpr wchar_t Between = L'\x1f';
    // A user-defined rule never stands for a module's, whatever path the file gives it: the
    // module would get an object that it didn't make.
    return Platform::ToLower(rule.m_strRuleName) + Between + Platform::ToLower(rule.m_strSummary2) + Between +
           Platform::ToLower(LibraryName(rule.m_strModulePath)) + Between + (rule.IsUserDefined() ? L'1' : L'0');
}

std::wstring UnitKey(const CQoxRule& rule)
{
    constexpr wchar_t Between = L'\x1f';
    return Platform::ToLower(rule.m_strRuleName) + Between + Platform::ToLower(rule.m_strCategory);
}

/// Sets the mark that a rule is being edited, for as long as it lives.
class EditInProgress
{
public:
    EditInProgress() { g_bEditInProgress = true; }
    ~EditInProgress() { g_bEditInProgress = false; }
    EditInProgress(const EditInProgress&) = delete;
    EditInProgress& operator=(const EditInProgress&) = delete;
};

} // namespace

RuleExplorer::RuleExplorer(RuleDocument& document, const ModuleSet& modules, IRuleRows& rows, IExplorerWindow& window,
                           VSTAQuery areVSTARulesSupported)
    : m_document(document), m_modules(modules), m_rows(rows), m_window(window),
      m_areVSTARulesSupported(std::move(areVSTARulesSupported))
{
}

void RuleExplorer::UpdateRuleList(bool fromDocument)
{
    m_ruleArray.RemoveAll();
    m_documentRulesMerged = false;
    GatherRules(m_modules, m_askedModules, m_ruleArray, [this] { m_window.TellNoDatabaseModule(); });
    if (!fromDocument)
    {
        ApplyUnitsToGatheredRules();
    }
    for (CQoxRule* const rule : m_document.UserRules())
    {
        m_ruleArray.Add(rule);
    }
    if (fromDocument)
    {
        MergeDocumentRules();
    }
    RemoveStaleRows();
    m_window.ClearSummary();
    FillRows();
    if (m_documentRulesMerged)
    {
        m_window.SetDocumentModified(false); // reading a file is no change
    }
    MarkSingleSelection(); // the selected row may have gone
}

void RuleExplorer::MergeDocumentRules()
{
    std::unordered_map<std::wstring, std::int32_t> places; // of several the last, as a search from the end finds
    for (std::int32_t place = 0; place < m_ruleArray.GetSize(); ++place)
    {
        if (m_ruleArray[place] != nullptr)
        {
            places[MatchKey(*m_ruleArray[place])] = place;
        }
    }
    PointerArray documentRules;
    m_document.Header().GetRules(documentRules);
    for (CQoxRule* const documentRule : documentRules)
    {
        const auto found = places.find(MatchKey(*documentRule));
        if (found == places.end())
        {
            continue; // stays in the document's tree, without a row
        }
        CQoxRule* replaced = m_ruleArray[found->second];
        documentRule->m_strRuleModule = replaced->m_strRuleModule;
        m_document.Rules().Remove(replaced);
        m_ruleArray[found->second] = documentRule;
        documentRule->m_strModulePath = replaced->m_strModulePath;
        documentRule->m_nRuleState = StateTicked;
        m_document.Rules().Append(documentRule);
        m_documentRulesMerged = true;
        m_document.DeleteRuleFromDocument(replaced);
        if (documentRule->IsUserDefined())
        {
            m_document.UserRules().Add(documentRule);
        }
    }
}

void RuleExplorer::RemoveStaleRows()
{
    for (int row = m_rows.RowCount() - 1; row >= 0; --row)
    {
        CQoxRule* rule = m_rows.RuleOfRow(row);
        if (rule == nullptr)
        {
            continue;
        }
        if (rule->IsUserDefined())
        {
            m_rows.RemoveRow(row); // comes again with the user-defined rules of the array
            continue;
        }
        if (m_modules.IsConfigured(rule->m_strModulePath))
        {
            continue;
        }
        m_rows.RemoveRow(row);
        rule->m_nRuleState = StateUnticked;
        if (m_document.Rules().Remove(rule))
        {
            m_window.SetDocumentModified(true);
        }
        m_document.DeleteRuleFromDocument(rule);
    }
    std::erase_if(m_rulesWithoutRow,
                  [this](CQoxRule* rule)
                  {
                      const bool isStale = rule != nullptr && !m_modules.IsConfigured(rule->m_strModulePath);
                      if (isStale)
                      {
                          m_document.DeleteRuleFromDocument(rule);
                      }
                      return isStale;
                  });
}

void RuleExplorer::FillRows()
{
    m_lastTickedRow = -1;
    const std::optional<bool> areVSTARulesSupported = m_areVSTARulesSupported();
    for (CQoxRule* const rule : m_ruleArray)
    {
        const bool hasRow = rule == nullptr || (!IsHiddenRule(*rule) && AddRow(rule, areVSTARulesSupported));
        if (!hasRow && !rule->IsUserDefined())
        {
            m_rulesWithoutRow.push_back(rule);
        }
    }
    if (m_lastTickedRow >= 0)
    {
        m_rows.SetSelected(m_lastTickedRow, false);
    }
}

bool RuleExplorer::AddRow(CQoxRule* rule, std::optional<bool> areVSTARulesSupported)
{
    if (!areVSTARulesSupported ||
        (!*areVSTARulesSupported && Platform::EqualsNoCase(rule->m_strRuleModule, VSTARuleMark)))
    {
        return false;
    }
    const int row = m_rows.InsertRow(rule, rule->m_strDisplayName);
    // Measured on the name though the display name is shown: the widths that users know the
    // list with depend on it.
    m_rows.WidenColumnFor(static_cast<int>(RuleColumn::Name), rule->m_strRuleName);
    for (const RuleColumn column : { RuleColumn::Category, RuleColumn::Module, RuleColumn::Criticality })
    {
        const std::wstring text = RuleColumnText(*rule, column);
        m_rows.SetText(row, static_cast<int>(column), text);
        m_rows.WidenColumnFor(static_cast<int>(column), text);
    }
    if (rule->m_nRuleState == StateTicked)
    {
        m_rows.DeselectAll();
        m_rows.SetTicked(row, true);
        m_lastTickedRow = row;
    }
    rule->m_units = m_document.Header().newRuleUnits;
    return true;
}

void RuleExplorer::OnRowsChanged(const std::vector<int>& rows)
{
    const int count = m_rows.RowCount();
    bool anyChanged = false;
    for (const int row : rows)
    {
        if (row >= 0 && row < count)
        {
            OnRowChanged(row);
            anyChanged = true;
        }
    }
    if (!anyChanged)
    {
        return;
    }
    m_window.ClearSummary();
    ShowRuleSummary();
    MarkSingleSelection();
    ShowCounts();
}

void RuleExplorer::MarkSingleSelection()
{
    m_window.SetSingleSelection(m_rows.SelectedCount() == 1);
}

void RuleExplorer::OnRowChanged(int row)
{
    m_rows.SetAnchor(row);
    CQoxRule* const rule = m_rows.RuleOfRow(row);
    if (rule == nullptr)
    {
        return;
    }
    RuleList& rules = m_document.Rules();
    const bool ticked = m_rows.IsTicked(row);
    if (!ticked && rules.Remove(rule))
    {
        m_window.SetDocumentModified(true);
        rule->m_nRuleState = StateUnticked;
        LogMessage(L"%s Rule is Deselected", rule->m_strRuleName);
    }
    else if (ticked && !rules.Contains(rule))
    {
        rules.Append(rule);
        m_window.SetDocumentModified(true);
        rule->m_nRuleState = StateTicked;
        LogMessage(L"%s Rule is Selected", rule->m_strRuleName);
    }
}

void RuleExplorer::EditRow(int row)
{
    CQoxRule* const rule = row >= 0 && row < m_rows.RowCount() ? m_rows.RuleOfRow(row) : nullptr;
    if (rule == nullptr || g_bEditInProgress)
    {
        return;
    }
    auto* const userDefined = rule->IsUserDefined() ? dynamic_cast<ConcreteQOXRule*>(rule) : nullptr;
    if (userDefined != nullptr && m_userRuleDialog)
    {
        m_userRuleDialog(*userDefined);
    }
    else
    {
        RunEditor(*rule);
    }
    m_window.TellRuleEdited();
    RefreshRow(*rule);
    LogMessage(L"Edit Rule Command Received for %s Rule", rule->m_strRuleName);
}

void RuleExplorer::RunEditor(CQoxRule& rule)
{
    bool worked = false;
    {
        const EditInProgress mark;
        worked = GuardModuleCall(rule.m_strModulePath, [&] { rule.EditRule(); });
    }
    if (!worked)
    {
        m_window.TellEditorFailed(rule.m_strDisplayName);
    }
}

void RuleExplorer::RefreshRow(const CQoxRule& rule)
{
    const int row = RowOfRule(&rule);
    if (row < 0)
    {
        return;
    }
    const auto refresh = [&](RuleColumn column)
    { m_rows.SetText(row, static_cast<int>(column), RuleColumnText(rule, column)); };
    refresh(RuleColumn::Criticality);
    if (m_rows.IsTicked(row))
    {
        m_window.SetDocumentModified(true);
    }
    if (rule.IsUserDefined())
    {
        refresh(RuleColumn::Category);
    }
}

void RuleExplorer::ShowCounts()
{
    m_window.SetStatus(FormatText(TextId::RuleCount,
                                  { std::to_wstring(m_document.Rules().Size()), std::to_wstring(m_rows.RowCount()) }));
}

void RuleExplorer::ShowRuleSummary()
{
    if (m_rows.SelectedCount() != 1)
    {
        return;
    }
    const CQoxRule* const rule = m_rows.RuleOfRow(m_rows.FirstSelected());
    if (rule != nullptr)
    {
        m_window.ShowSummary(rule->m_strSummary);
    }
}

void RuleExplorer::ApplyUnitsToNewRules()
{
    const structRulesUnit& oldUnits = m_document.Header().oldRuleUnits;
    const structRulesUnit& newUnits = m_document.Header().newRuleUnits;
    std::unordered_set<std::wstring> documentRules;
    for (const CQoxRule* const rule : m_document.Rules().Rules())
    {
        documentRules.insert(UnitKey(*rule));
    }
    for (CQoxRule* const rule : RulesOfRows())
    {
        // A rule of the file stands in the file's units already.
        const bool isNew = !documentRules.contains(UnitKey(*rule));
        GuardModuleCall(rule->m_strModulePath, [&] { rule->UpdateRule(isNew ? &oldUnits : &newUnits, &newUnits); });
    }
}

void RuleExplorer::ApplyUnitsToGatheredRules()
{
    // Modules make their rules in these, whatever the units of the open document are.
    const structRulesUnit unitsOfModules;
    for (CQoxRule* const rule : m_ruleArray)
    {
        if (rule != nullptr)
        {
            GuardModuleCall(rule->m_strModulePath,
                            [&] { rule->UpdateRule(&unitsOfModules, &m_document.Header().newRuleUnits); });
        }
    }
}

void RuleExplorer::OnRuleUnitsChanged()
{
    for (CQoxRule* const rule : RulesOfRows())
    {
        GuardModuleCall(rule->m_strModulePath, [&]
                        { rule->UpdateRule(&m_document.Header().oldRuleUnits, &m_document.Header().newRuleUnits); });
    }
}

void RuleExplorer::OnUserRuleAdded()
{
    const PointerArray& rules = m_document.UserRules();
    if (rules.GetSize() > 0)
    {
        m_lastTickedRow = -1;
        if (CQoxRule* const rule = rules[rules.GetSize() - 1])
        {
            AddRow(rule, m_areVSTARulesSupported());
        }
        if (m_lastTickedRow >= 0)
        {
            m_rows.SetSelected(m_lastTickedRow, false);
        }
    }
    ShowCounts();
}

void RuleExplorer::OnUserRuleDeleted(const CQoxRule& rule)
{
    CQoxRule* deleted = FindUserRule(rule.m_strRuleName);
    const int row = RowOfRule(deleted);
    if (row >= 0)
    {
        m_rows.RemoveRow(row);
        m_window.SetDocumentModified(true);
        m_document.DeleteRuleFromDocument(deleted);
        MarkSingleSelection(); // the row may have been the selected one
        if (m_rows.SelectedCount() == 0)
        {
            m_window.ClearSummary();
        }
    }
    ShowCounts();
}

void RuleExplorer::OnUserRuleChanged(CQoxRule& rule)
{
    CQoxRule* const changed = FindUserRule(rule.m_strRuleName);
    if (changed == nullptr)
    {
        return;
    }
    // Whether this document has the rule is not what was changed.
    const std::int32_t state = changed->m_nRuleState;
    *changed = &rule;
    changed->m_nRuleState = state;
    m_window.SetDocumentModified(true);
    if (const int row = RowOfRule(changed); row >= 0)
    {
        m_rows.SetText(row, static_cast<int>(RuleColumn::Name), changed->m_strRuleName);
        for (const RuleColumn column : { RuleColumn::Category, RuleColumn::Criticality })
        {
            m_rows.SetText(row, static_cast<int>(column), RuleColumnText(*changed, column));
        }
    }
    ShowRuleSummary();
}

CQoxRule* RuleExplorer::FindUserRule(const std::wstring& name) const
{
    const PointerArray& rules = m_document.UserRules();
    const auto found = std::find_if(rules.begin(), rules.end(),
                                    [&name](const CQoxRule* rule)
                                    { return rule != nullptr && Platform::EqualsNoCase(rule->m_strRuleName, name); });
    return found == rules.end() ? nullptr : *found;
}

int RuleExplorer::RowOfRule(const CQoxRule* rule) const
{
    for (int row = rule == nullptr ? -1 : m_rows.RowCount() - 1; row >= 0; --row)
    {
        if (m_rows.RuleOfRow(row) == rule)
        {
            return row;
        }
    }
    return -1;
}

std::vector<CQoxRule*> RuleExplorer::RulesOfRows() const
{
    std::vector<CQoxRule*> rules;
    const int count = m_rows.RowCount();
    for (int row = 0; row < count; ++row)
    {
        if (CQoxRule* const rule = m_rows.RuleOfRow(row))
        {
            rules.push_back(rule);
        }
    }
    return rules;
}

std::vector<CQoxRule*> RuleExplorer::TakeRulesToGiveBack()
{
    std::vector<CQoxRule*> rules = RulesOfRows();
    rules.insert(rules.end(), m_rulesWithoutRow.begin(), m_rulesWithoutRow.end());
    m_rulesWithoutRow.clear();
    return rules;
}
