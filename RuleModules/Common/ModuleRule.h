#pragma once

#include "RuleModules/Common/MaterialList.h"
#include "RuleModules/Common/RuleDefinition.h"

#include <Vantrel/QoxRule.h>

#include <memory>
#include <vector>

/// A rule's definition with what is made of it once for all rules of files: those share
/// its texts and lists, and a file may hold very many of them.
struct PreparedRule
{
    const RuleDefinition& definition;
    SharedTextList categories;
    std::vector<CQoxParamStorage> parameters; ///< Without their numbers, which a file gives.
};

/// A rule of a module, made from its definition. Lengths and angles are in millimeters
/// and degrees, or in the units of the file that it was read from.
class ModuleRule : public CQoxRule
{
public:
    using CQoxRule::operator=;

    /// A rule as it is defined. The definitions live as long as the module.
    static std::unique_ptr<ModuleRule> MakeNew(const ModuleDefinition& module, const RuleDefinition& rule,
                                               std::shared_ptr<const MaterialList> materials);

    /// The rule that the `Rule` element tells of. What the element lacks comes from the
    /// definition, in the units of the file.
    static std::unique_ptr<ModuleRule> MakeFromElement(const ModuleDefinition& module, const PreparedRule& rule,
                                                       std::shared_ptr<const MaterialList> materials,
                                                       QoxXMLNode& element);

    /// Makes what the rules of files share.
    static PreparedRule Prepare(const ModuleDefinition& module, const RuleDefinition& rule);

    /// Parameters as the definition has them, with their defaults as values.
    void InitializeParamStorage() override;

private:
    enum class Numbers
    {
        AsDefined,
        Unset,
    };

    ModuleRule(const ModuleDefinition& module, const RuleDefinition& rule,
               std::shared_ptr<const MaterialList> materials);

    void ReadElement(const PreparedRule& prepared, QoxXMLNode& element);
    static CQoxParamStorage MakeParameter(const ParamDefinition& definition, Numbers numbers);
    void FillUnsetNumbers(const QoxXMLNode& element);
    void OfferMaterials();

    const ModuleDefinition& m_module;
    const RuleDefinition& m_definition;
    std::shared_ptr<const MaterialList> m_materials;
};
