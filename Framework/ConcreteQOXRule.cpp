#include <Vantrel/ConcreteQOXRule.h>

ConcreteQOXRule::ConcreteQOXRule() = default;

ConcreteQOXRule::~ConcreteQOXRule() = default;

// The class is a name of its own in the contract with modules; what it does is the base's.

void ConcreteQOXRule::InitializeParamStorage()
{
    CQoxRule::InitializeParamStorage();
}

long ConcreteQOXRule::Execute(QOXICadSys* cadSystem, const CQoxData*& data, QOXResultSet*& results) const
{
    return CQoxRule::Execute(cadSystem, data, results);
}

void ConcreteQOXRule::PopulateParametersFromXML(QoxXMLNode* node)
{
    CQoxRule::PopulateParametersFromXML(node);
}

QoxXMLNode* ConcreteQOXRule::GetXML()
{
    return CQoxRule::GetXML();
}

void ConcreteQOXRule::RunRule()
{
    CQoxRule::RunRule();
}

void ConcreteQOXRule::UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits)
{
    CQoxRule::UpdateRule(oldUnits, newUnits);
}

bool ConcreteQOXRule::UpdateRule(CQoxRule* rule)
{
    return CQoxRule::UpdateRule(rule);
}

void ConcreteQOXRule::EditRule()
{
    CQoxRule::EditRule();
}

CQoxRule& ConcreteQOXRule::operator=(CQoxRule* rule)
{
    return CQoxRule::operator=(rule);
}
