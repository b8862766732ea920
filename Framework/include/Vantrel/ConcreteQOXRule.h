#pragma once

#include <Vantrel/QoxRule.h>

/// Class of every user-defined rule and of every copy of a rule that a document owns.
class VANTREL_API ConcreteQOXRule : public CQoxRule
{
public:
    ConcreteQOXRule();
    ~ConcreteQOXRule() override;

    void InitializeParamStorage() override;
    long Execute(QOXICadSys* cadSystem, const CQoxData*& data, QOXResultSet*& results) const override;
    void PopulateParametersFromXML(QoxXMLNode* node) override;
    QoxXMLNode* GetXML() override;
    void RunRule() override;
    void UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits) override;
    bool UpdateRule(CQoxRule* rule) override;
    void EditRule() override;
    CQoxRule& operator=(CQoxRule* rule) override;
};
