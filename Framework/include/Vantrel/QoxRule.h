#pragma once

#include <Vantrel/Export.h>
#include <Vantrel/ParamStorage.h>
#include <Vantrel/PointerArray.h>
#include <Vantrel/RuleUnits.h>

#include <cstdint>
#include <string>
#include <vector>

class CQoxData;
class QOXICadSys;
class QOXResultSet;
class QoxXMLDocument;
class QoxXMLNode;

/// `m_strRuleModule` of an interactive user-defined rule.
inline constexpr const wchar_t* InteractiveRuleMark = L"Interactive User Defined Rule";

/// `m_strRuleModule` of a user-defined rule that is a VSTA project.
inline constexpr const wchar_t* VSTARuleMark = L"VSTA Rule";

/// Base class of every rule. The order of the virtual operations and of the data members
/// is fixed: rule modules are built against it.
class VANTREL_API CQoxRule
{
public:
    CQoxRule();
    CQoxRule(const CQoxRule&) = delete;
    CQoxRule& operator=(const CQoxRule&) = delete;

    /// Builds the rule's parameters. Called by the class that knows them, not by the base.
    virtual void InitializeParamStorage();

    /// Runs the rule against a model in the CAD host. 0 here.
    virtual long Execute(QOXICadSys* cadSystem, const CQoxData*& data, QOXResultSet*& results) const;

    /// Fills the rule from a `Rule` element. What the element lacks stays as it was;
    /// attributes and children that the rule doesn't know are kept for `GetXML`.
    virtual void PopulateParametersFromXML(QoxXMLNode* node);

    /// A new `Rule` element with the whole rule, made in the document that `SetXMLDoc`
    /// named. The caller deletes it. Null if there is no document or on failure.
    virtual QoxXMLNode* GetXML();

    virtual void RunRule();

    /// Converts the values of all parameters between two pairs of units.
    virtual void UpdateRule(const RuleUnitSystemStructure* oldUnits, const RuleUnitSystemStructure* newUnits);

    /// Takes over the parameter values of another rule, matched by number and kind.
    /// False for a null rule.
    virtual bool UpdateRule(CQoxRule* rule);

    /// Shows the editor that the program registered (see RuleEditor.h); nothing without one.
    virtual void EditRule();

    virtual long Import(QoxXMLDocument* document, QoxXMLNode* node, const CQoxData*& data, QOXICadSys* cadSystem,
                        QOXResultSet*& results) const;

    /// Does not delete `m_children`: one rule may stand in the trees of several records.
    virtual ~CQoxRule();

    /// Deep copy of the given rule into this one. The place in a rule tree (index,
    /// children, root mark) stays this rule's own. A null rule changes nothing.
    virtual CQoxRule& operator=(CQoxRule* rule);

    /// The parameter with the number, or null. Owned by the rule.
    virtual CQoxParamStorage* FindParameterInArray(long number);

    virtual void SetRuleStatusForAssemblyModel(int status);
    /// True if every parameter has an allowed value.
    virtual bool ValidateInputData();
    virtual std::wstring GetRequiredInputData() const;
    virtual void SetInputData(std::wstring& data);
    virtual void SetPreExecutionData(CQoxData*& data);
    virtual int GetRuleId() const;
    virtual int GetMaterialStatus() const;
    /// Called after a rule was filled from a file.
    virtual void PostPopulate();
    virtual int GetCutterStatus() const;
    virtual void Heal(QOXICadSys* cadSystem, const CQoxData*& data, const QOXResultSet*& results) const;

    std::wstring m_strRuleName;    ///< Rules are matched by it, without regard to case.
    std::wstring m_strDisplayName; ///< The name that people see.
    std::wstring m_strSummary;
    std::wstring m_strSummary2;
    std::wstring m_strCategory;
    SharedTextList m_categoryList;   ///< Categories offered for the rule.
    std::wstring m_strRuleModule;    ///< Display name of the owning module, or one of the two marks.
    std::wstring m_strModulePath;    ///< Path of the module's library; name of a user-defined rule's file.
    SharedTextList m_references;     ///< Paths of the script's type libraries.
    std::int32_t m_nTreeIndex = 0;   ///< Given by the record that the rule was added to last.
    std::int32_t m_nReserved = 0;    ///< 0 in a tree root; no other meaning.
    std::int32_t m_nCriticality = 3; ///< 1 to 5.
    std::int32_t m_nRuleState = 0;   ///< 0 fresh, 1 in a rule file, 2 deleted.
    bool m_bIsRoot = false;
    PointerArray m_children; ///< Not owned.
    std::wstring m_strHelpFile;
    RuleUnitSystemStructure m_units; ///< Units of the document that lists the rule.

    /// The rule's parameters in the order of their making.
    const std::vector<CQoxParamStorage>& Parameters() const { return m_parameters; }
    std::vector<CQoxParamStorage>& Parameters() { return m_parameters; }

    /// True if `m_strRuleModule` is one of the two marks of user-defined rules, without
    /// regard to case.
    bool IsUserDefined() const;

protected:
    std::vector<CQoxParamStorage> m_parameters;

private:
    /// Attributes and children of the `Rule` element that this version doesn't know, as
    /// the markup of one element. Empty for nearly every rule.
    std::string m_unknownMarkup;

    friend class RuleXml;
};
