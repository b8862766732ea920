#pragma once

#include "RuleModules/Kit/ModuleContent.h"

#include <Vantrel/QoxRule.h>

#include <memory>

class QoxXMLNode;

/// A rule of a module. Lengths and angles are in millimeters and degrees, or in the units of
/// the file that it was read from, until they are converted.
///
/// Its texts are always those of the module's table in the language in use: a file may have
/// been written in another language, or by a version with another wording, and rules of a
/// file are matched with those on offer by their second summary.
class ModuleRule : public CQoxRule
{
public:
    using CQoxRule::UpdateRule;

    /// A rule as it is defined. `rule` is one of the content's.
    static std::unique_ptr<ModuleRule> MakeNew(std::shared_ptr<const ModuleContent> content, const RuleContent& rule);

    /// The rule that the `Rule` element tells of. What the element lacks comes from the
    /// definition, in the units of the file.
    static std::unique_ptr<ModuleRule> MakeFromElement(std::shared_ptr<const ModuleContent> content,
                                                       const RuleContent& rule, QoxXMLNode& element);

    /// Parameters as the definition has them, with their defaults as values.
    void InitializeParamStorage() override;

    void UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits) override;

    /// Defaults that depend on a choice follow it when it has been changed in the editor, and
    /// so do values that were the default.
    void EditRule() override;

    CQoxRule& operator=(CQoxRule* rule) override;

private:
    ModuleRule(std::shared_ptr<const ModuleContent> content, const RuleContent& rule);

    void ReadElement(QoxXMLNode& element);
    void FillUnsetNumbers();
    void OfferChoices();
    void TakeTexts();
    std::wstring ChosenFor(const ParamDefinition& parameter) const;
    double DefaultInUnits(const ParamDefinition& parameter) const;

    std::shared_ptr<const ModuleContent> m_content;
    const RuleContent& m_rule;            // of m_content
    RuleUnitSystemStructure m_valueUnits; // that the parameters stand in
};
