#include "Document/TreeRootRule.h"

#include "Utilities/UserPrompt.h"

CQOXRMTreeRootRule::CQOXRMTreeRootRule(IUserPrompt* prompt) : m_prompt(prompt)
{
    m_strRuleName.clear();
    m_strSummary.clear();
    m_strSummary2.clear();
    m_references = { std::wstring() };
    m_nReserved = 0;
    m_nCriticality = 5;
    CQOXRMTreeRootRule::InitializeParamStorage();
}

void CQOXRMTreeRootRule::InitializeParamStorage()
{
    m_bIsRoot = true;
}

long CQOXRMTreeRootRule::Execute(QOXICadSys* /*cadSystem*/, const CQoxData*& /*data*/, QOXResultSet*& /*results*/) const
{
    return 0;
}

void CQOXRMTreeRootRule::PopulateParametersFromXML(QoxXMLNode* /*node*/) {}

QoxXMLNode* CQOXRMTreeRootRule::GetXML()
{
    return nullptr;
}

void CQOXRMTreeRootRule::RunRule() {}

void CQOXRMTreeRootRule::UpdateRule(const RuleUnitSystemStructure* /*oldUnits*/,
                                    const RuleUnitSystemStructure* /*newUnits*/)
{
}

bool CQOXRMTreeRootRule::UpdateRule(CQoxRule* /*rule*/)
{
    return true;
}

void CQOXRMTreeRootRule::EditRule()
{
    if (m_prompt != nullptr)
    {
        m_prompt->ShowBox(BoxKind::Information, L"Yet to be implememted.", {});
    }
}
