#pragma once

#include <cstddef>
#include <string>
#include <vector>

class CQoxRule;

/// Columns of the rule list.
enum class RuleColumn : int
{
    Name = 0,
    Category = 1,
    Module = 2,
    Criticality = 3,
};

inline constexpr int RuleColumnCount = 4;

/// Text of a rule's row in a column.
std::wstring RuleColumnText(const CQoxRule& rule, RuleColumn column);

/// The word for a criticality of 1 to 5; that of 3 for any other number.
std::wstring CriticalityText(int criticality);

/// True for the rules of a rule set that is kept out of the explorer, whatever is in the
/// rule files.
bool IsHiddenRule(const CQoxRule& rule);

/// Cuts a text into the rows of a pane. `paneWidth` and `textWidth`, the width of the whole
/// text, are in one unit. An empty text gives one empty row.
std::vector<std::wstring> WrapSummary(const std::wstring& text, int paneWidth, int textWidth);
