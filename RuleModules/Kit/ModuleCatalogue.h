#pragma once

#include "RuleModules/Kit/ModuleRule.h"

#include <Vantrel/PointerArray.h>

#include <list>
#include <memory>
#include <string>

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

    /// Paths of the database modules; copied. Null stands for none.
    void SetDatabaseModules(const std::list<std::wstring>* modules);

    /// The document of the newest operation that rules are read from or written to, null
    /// before the first. Not owned, and gone when the operation has ended.
    void SetDocument(QoxXMLDocument* document) { m_document = document; }
    QoxXMLDocument* Document() const { return m_document; }

    /// What the module is for, in the language in use.
    std::wstring Summary() const;

    const ModuleDefinition& Definition() const { return m_module; }

private:
    /// What the module offers at present. Made when it is first asked for.
    const std::shared_ptr<const ModuleContent>& Content();

    const ModuleDefinition& m_module;
    // Kept as strings, since every element of every file is asked for them.
    const std::wstring m_moduleAttribute = L"RuleModule";
    const std::wstring m_nameAttribute = L"RuleName";
    std::list<std::wstring> m_databaseModules;
    std::shared_ptr<const ModuleContent> m_content; // null until it is first asked for
    QoxXMLDocument* m_document = nullptr;           // owned by the operation that loads or saves
};
