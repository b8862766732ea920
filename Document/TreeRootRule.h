#pragma once

#include <Vantrel/QoxRule.h>

class IUserPrompt;

/// Root of a record's rule tree. No user sees it and no file holds it.
class CQOXRMTreeRootRule : public CQoxRule
{
public:
    /// `prompt` is asked to show the box of `EditRule`; null shows none. Not owned.
    explicit CQOXRMTreeRootRule(IUserPrompt* prompt = nullptr);

    using CQoxRule::operator=;

    void InitializeParamStorage() override;
    long Execute(QOXICadSys* cadSystem, const CQoxData*& data, QOXResultSet*& results) const override;
    void PopulateParametersFromXML(QoxXMLNode* node) override;
    QoxXMLNode* GetXML() override;
    void RunRule() override;
    void UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits) override;
    bool UpdateRule(CQoxRule* rule) override;
    void EditRule() override;

private:
    IUserPrompt* m_prompt; // owned by the program
};
