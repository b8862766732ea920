#include "Document/Lumeq.h"

#include "Document/UnitSettings.h"

#include <Vantrel/QoxRule.h>

#include <vector>

namespace
{

constexpr std::int32_t StateInFile = 1;
constexpr std::int32_t StateDeleted = 2;

/// Walks a rule and its children, each level's first two. Without recursion, since a rule
/// may have as long a chain below it as it likes.
void FindBelow(CQoxRule* top, std::int32_t index, CQoxRule*& out)
{
    std::vector<CQoxRule*> waiting{ top };
    while (!waiting.empty())
    {
        CQoxRule* const rule = waiting.back();
        waiting.pop_back();
        if (rule == nullptr)
        {
            continue;
        }
        if (rule->m_nTreeIndex == index)
        {
            out = rule; // and on: a later match takes its place
        }
        waiting.push_back(rule->m_children[1]);
        waiting.push_back(rule->m_children[0]);
    }
}

} // namespace

CQOXRMLumeq::CQOXRMLumeq(IUserPrompt* prompt, LocalClock clock)
    : m_treeRoot(std::make_unique<CQOXRMTreeRootRule>(prompt)), m_prompt(prompt), m_clock(clock)
{
    UnitSettings(newRuleUnits.linear, newRuleUnits.angular, true);
}

CQOXRMLumeq::~CQOXRMLumeq() = default;

void CQOXRMLumeq::AddRule(CQoxRule* rule, std::int32_t& index)
{
    index = m_rules.Add(rule);
}

void CQOXRMLumeq::AddRuleInFile(CQoxRule* rule, std::int32_t& index)
{
    AddRule(rule, index);
    rule->m_nRuleState = StateInFile;
}

void CQOXRMLumeq::FindRule(CQoxRule* node, std::int32_t index, CQoxRule*& out) const
{
    if (node != m_treeRoot.get())
    {
        FindBelow(node, index, out);
        return;
    }
    if (index == 0)
    {
        out = node;
        return;
    }
    if (CQoxRule* const found = m_rules.Find(index))
    {
        out = found;
    }
}

void CQOXRMLumeq::GetRules(PointerArray& rules) const
{
    m_rules.List(rules);
}

void CQOXRMLumeq::GetLiveRules(PointerArray& rules) const
{
    PointerArray all;
    m_rules.List(all);
    for (CQoxRule* const rule : all)
    {
        if (rule->m_nRuleState != StateDeleted)
        {
            rules.Add(rule);
        }
    }
}

void CQOXRMLumeq::MarkDeleted(std::int32_t index)
{
    if (CQoxRule* const rule = m_rules.Find(index))
    {
        rule->m_nRuleState = StateDeleted;
    }
}

void CQOXRMLumeq::DestroyRule(std::int32_t index)
{
    const std::unique_ptr<CQoxRule> rule(m_rules.Find(index));
    m_rules.Remove(rule.get());
}

bool CQOXRMLumeq::ForgetRule(const CQoxRule* rule)
{
    return m_rules.Remove(rule);
}
