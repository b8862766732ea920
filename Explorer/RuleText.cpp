#include "Explorer/RuleText.h"

#include "Platform/Text.h"
#include "Utilities/Texts.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace
{

constexpr std::array HiddenRuleNames = {
    L"Minimum Distance Between Dimples",
    L"Minimum Distance Between Features",
    L"Minimum Distance From Dimple To Hole",
    L"Minimum Distance From Dimple To Part Edge",
    L"Minimum Draft for Ribs",
    L"Minimum Flange Size",
    L"Minimum Radius Of Curl",
    L"Radius at Base of Ribs",
    L"Spacing Between Holes",
    L"Feature To Bend Distance",
    L"Hole Depth to Diameter Ratio",
    L"Hole To Part Edge Distance",
    L"Maximum Depth Of Counterbore",
    L"Maximum Depth Of Countersink",
    L"Maximum Flange Length",
    L"Maximum Flange Length Inside Part",
};

} // namespace

std::wstring RuleColumnText(const CQoxRule& rule, RuleColumn column)
{
    switch (column)
    {
    case RuleColumn::Name:
        return rule.m_strDisplayName;
    case RuleColumn::Category:
        return rule.m_strCategory;
    case RuleColumn::Module:
        return rule.m_strRuleModule;
    case RuleColumn::Criticality:
        return CriticalityText(rule.m_nCriticality);
    }
    return {};
}

std::wstring CriticalityText(int criticality)
{
    constexpr std::array Texts = { TextId::Criticality1, TextId::Criticality2, TextId::Criticality3,
                                   TextId::Criticality4, TextId::Criticality5 };
    const bool known = criticality >= 1 && criticality <= static_cast<int>(Texts.size());
    return LoadText(known ? Texts[static_cast<std::size_t>(criticality - 1)] : TextId::Criticality3);
}

bool IsHiddenRule(const CQoxRule& rule)
{
    return Platform::EqualsNoCase(rule.m_strRuleModule, VSTARuleMark) &&
           std::any_of(HiddenRuleNames.begin(), HiddenRuleNames.end(),
                       [&rule](const wchar_t* name) { return Platform::EqualsNoCase(rule.m_strRuleName, name); });
}

std::vector<std::wstring> WrapSummary(const std::wstring& text, int paneWidth, int textWidth)
{
    // In 64 bits: a long text times a wide pane leaves 32.
    const std::int64_t lineLength =
        textWidth > 0 ? static_cast<std::int64_t>(text.size()) * std::max(paneWidth, 0) / textWidth : 0;
    std::vector<std::wstring> rows;
    std::size_t start = 0;
    // A pane too narrow for a single character would never come to an end; it gets the
    // text in one row.
    while (lineLength > 0 && static_cast<std::int64_t>(text.size() - start) > lineLength)
    {
        const std::wstring piece = text.substr(start, static_cast<std::size_t>(lineLength));
        const std::size_t blank = piece.rfind(L' ');
        const std::size_t cut = blank == std::wstring::npos || blank == 0 ? piece.size() : blank;
        rows.push_back(piece.substr(0, cut));
        start += cut;
    }
    rows.push_back(text.substr(start));
    return rows;
}
