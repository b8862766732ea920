#include "tests/Document/RecordTest.h"

#include "Utilities/QOXUIUtils.h"

ConcreteQOXRule& RecordTest::Add(const std::wstring& name)
{
    ConcreteQOXRule& rule = m_rules.emplace_back();
    rule.m_strRuleName = name;
    rule.m_strRuleModule = VSTARuleMark;
    std::int32_t index = 0;
    record.AddRule(&rule, index);
    return rule;
}
