#include <Vantrel/QoxRule.h>

#include "Framework/CurrentDocument.h"
#include "Framework/RuleXml.h"
#include "Framework/XmlState.h"
#include "Platform/Text.h"

#include <Vantrel/QoxXml.h>
#include <Vantrel/RuleEditor.h>

#include <algorithm>
#include <utility>

CQoxRule::CQoxRule() = default;

CQoxRule::~CQoxRule() = default;

void CQoxRule::InitializeParamStorage() {}

long CQoxRule::Execute(QOXICadSys* /*cadSystem*/, const CQoxData*& /*data*/, QOXResultSet*& /*results*/) const
{
    return 0;
}

void CQoxRule::PopulateParametersFromXML(QoxXMLNode* node)
{
    if (node != nullptr)
    {
        RuleXml::Read(*this, VantrelXml::NodeAccess::NodeOf(*node));
    }
}

QoxXMLNode* CQoxRule::GetXML()
{
    QoxXMLDocument* const document = CurrentDocument();
    if (document == nullptr)
    {
        return nullptr;
    }
    const auto& state = VantrelXml::NodeAccess::StateOf(*document);
    return VantrelXml::NodeAccess::MakeNode(state, RuleXml::Write(*this, *state));
}

void CQoxRule::RunRule() {}

void CQoxRule::UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits)
{
    if (oldUnits == nullptr || newUnits == nullptr || *oldUnits == *newUnits)
    {
        return;
    }
    for (CQoxParamStorage& parameter : m_parameters)
    {
        parameter.ConvertUnits(*oldUnits, *newUnits);
    }
}

bool CQoxRule::UpdateRule(CQoxRule* rule)
{
    if (rule == nullptr)
    {
        return false;
    }
    for (const CQoxParamStorage& theirs : rule->m_parameters)
    {
        CQoxParamStorage* const ours = FindParameterInArray(theirs.nNumber);
        if (ours != nullptr && ours->eKind == theirs.eKind)
        {
            ours->dValue = theirs.dValue;
            ours->strValue = theirs.strValue;
        }
    }
    return true;
}

void CQoxRule::EditRule()
{
    if (const RuleEditorFunction editor = RegisteredRuleEditor())
    {
        editor(*this);
    }
}

long CQoxRule::Import(QoxXMLDocument* /*document*/, QoxXMLNode* /*node*/, const CQoxData*& /*data*/,
                      QOXICadSys* /*cadSystem*/, QOXResultSet*& /*results*/) const
{
    return 0;
}

CQoxRule& CQoxRule::operator=(CQoxRule* rule)
{
    if (rule == nullptr || rule == this)
    {
        return *this;
    }
    m_strRuleName = rule->m_strRuleName;
    m_strDisplayName = rule->m_strDisplayName;
    m_strSummary = rule->m_strSummary;
    m_strSummary2 = rule->m_strSummary2;
    m_strCategory = rule->m_strCategory;
    m_categoryList = rule->m_categoryList;
    m_strRuleModule = rule->m_strRuleModule;
    m_strModulePath = rule->m_strModulePath;
    m_references = rule->m_references;
    m_nReserved = rule->m_nReserved;
    m_nCriticality = rule->m_nCriticality;
    m_nRuleState = rule->m_nRuleState;
    m_strHelpFile = rule->m_strHelpFile;
    m_units = rule->m_units;
    m_parameters = rule->m_parameters;
    m_unknownMarkup = rule->m_unknownMarkup;
    return *this;
}

CQoxParamStorage* CQoxRule::FindParameterInArray(long number)
{
    const auto found =
        std::find_if(m_parameters.begin(), m_parameters.end(),
                     [number](const CQoxParamStorage& parameter) { return parameter.nNumber == number; });
    return found != m_parameters.end() ? &*found : nullptr;
}

void CQoxRule::SetRuleStatusForAssemblyModel(int /*status*/) {}

bool CQoxRule::ValidateInputData()
{
    return std::all_of(m_parameters.begin(), m_parameters.end(),
                       [](const CQoxParamStorage& parameter) { return parameter.IsValid(); });
}

std::wstring CQoxRule::GetRequiredInputData() const
{
    return {};
}

void CQoxRule::SetInputData(std::wstring& /*data*/) {}

void CQoxRule::SetPreExecutionData(CQoxData*& /*data*/) {}

int CQoxRule::GetRuleId() const
{
    return 0;
}

int CQoxRule::GetMaterialStatus() const
{
    return 0;
}

void CQoxRule::PostPopulate() {}

int CQoxRule::GetCutterStatus() const
{
    return 0;
}

void CQoxRule::Heal(QOXICadSys* /*cadSystem*/, const CQoxData*& /*data*/, const QOXResultSet*& /*results*/) const {}

bool CQoxRule::IsUserDefined() const
{
    return Platform::EqualsNoCase(m_strRuleModule, InteractiveRuleMark) ||
           Platform::EqualsNoCase(m_strRuleModule, VSTARuleMark);
}
