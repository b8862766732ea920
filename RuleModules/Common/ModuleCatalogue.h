#pragma once

#include "RuleModules/Common/MaterialList.h"
#include "RuleModules/Common/ModuleRule.h"
#include "RuleModules/Common/RuleDefinition.h"

#include <Vantrel/PointerArray.h>

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

class QoxXMLDocument;
class QoxXMLNode;

/// The rules of a module, and what the program tells the module: all that the exports of
/// a rule module need. Each module has one.
class ModuleCatalogue
{
public:
    /// The definition lives as long as the module.
    explicit ModuleCatalogue(const ModuleDefinition& module);

    /// Appends a new object for every rule. The array owns nothing: the program gives each
    /// object back through `DeleteRule`.
    void GetAllRules(PointerArray& rules);

    /// A rule from its `Rule` element; null if the element is not of this module. The
    /// caller owns it and gives it back through `DeleteRule`.
    std::unique_ptr<CQoxRule> GetRule(QoxXMLNode& element);

    /// Destroys a rule of this module and nulls the pointer. Null is allowed, both for the
    /// address and for the pointer.
    static void DeleteRule(CQoxRule** rule);

    /// The definition by rule name without regard to case, or null.
    const PreparedRule* FindRule(std::wstring_view name) const;

    /// Paths of the database modules; copied. Null stands for none.
    void SetDatabaseModules(const std::list<std::wstring>* modules);

    /// The document of the newest operation that rules are read from or written to, null
    /// before the first. Not owned, and gone when the operation has ended.
    void SetDocument(QoxXMLDocument* document) { m_document = document; }
    QoxXMLDocument* Document() const { return m_document; }

    const ModuleDefinition& Definition() const { return m_module; }

private:
    struct NameHash
    {
        std::size_t operator()(std::wstring_view name) const;
    };
    struct NameEqual
    {
        bool operator()(std::wstring_view first, std::wstring_view second) const;
    };

    const ModuleDefinition& m_module;
    // Kept as strings, since every element of every file is asked for them.
    const std::wstring m_moduleAttribute = L"RuleModule";
    const std::wstring m_nameAttribute = L"RuleName";
    std::unordered_map<std::wstring_view, PreparedRule, NameHash, NameEqual> m_rulesByName;
    MaterialSource m_materials;
    QoxXMLDocument* m_document = nullptr; // owned by the operation that loads or saves
};
