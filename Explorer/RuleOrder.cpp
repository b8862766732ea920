#include "Explorer/RuleOrder.h"

#include <Vantrel/QoxRule.h>

namespace
{

int CompareTicked(const CQoxRule& first, const CQoxRule& second)
{
    const bool firstTicked = first.m_nRuleState == 1;
    const bool secondTicked = second.m_nRuleState == 1;
    if (firstTicked != secondTicked)
    {
        return firstTicked ? -1 : 1;
    }
    // Those that aren't ticked keep no order of names.
    return firstTicked ? first.m_strDisplayName.compare(second.m_strDisplayName) : 0;
}

int CompareBy(int key, const CQoxRule& first, const CQoxRule& second)
{
    switch (key)
    {
    case RuleOrder::KeyTicked:
        return CompareTicked(first, second);
    case RuleOrder::KeyCategory:
        return first.m_strCategory.compare(second.m_strCategory);
    case RuleOrder::KeyModule:
        return first.m_strRuleModule.compare(second.m_strRuleModule);
    default:
        return first.m_nCriticality < second.m_nCriticality ? -1 : first.m_nCriticality > second.m_nCriticality;
    }
}

} // namespace

void RuleOrder::Choose(int key)
{
    if (key >= KeyTicked && key <= KeyCriticality)
    {
        m_state = m_state == key ? -key : key;
    }
}

int RuleOrder::Compare(const CQoxRule& first, const CQoxRule& second) const
{
    const int result = CompareBy(Column() + 1, first, second);
    return IsAscending() ? result : -result;
}
