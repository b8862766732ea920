#pragma once

#include <Vantrel/Export.h>
#include <Vantrel/PointerArray.h>

#include <list>
#include <string>

class CQoxRule;
class QoxXMLDocument;
class QoxXMLNode;

/// What a rule module and a database module export, by name, as plain functions.
///
/// A module defines the functions as `extern "C" QOX_MODULE_EXPORT` with these types; it
/// declares them itself, since `SetXMLDoc` is also the name of a framework function.

/// `GetAllRules`, required: appends one new rule object for every rule that the module
/// offers. The objects stay the module's, until it gets them back through `DeleteRule`.
using GetAllRulesFunction = void (*)(PointerArray& rules);

/// `GetRule`, required: if the `Rule` element is one of the module's, stores a new rule
/// made from it; otherwise leaves the argument null.
using GetRuleFunction = void (*)(QoxXMLNode* node, CQoxRule*& rule);

/// `SetXMLDoc`, required: the document that rules read themselves from or make their
/// elements in, told at the beginning of each operation. It is deleted when the operation
/// has ended, without another call: a module uses it only while it is being called.
using ModuleSetXMLDocFunction = void (*)(QoxXMLDocument* document);

/// `SetDBModuleList`, required: the paths of the database modules, in lower case. The
/// list is the caller's; it lasts until the next call.
using SetDBModuleListFunction = void (*)(const std::list<std::wstring>* databaseModules);

/// `GetModuleName`, optional: the name that people see.
using GetModuleNameFunction = void (*)(std::wstring& name);

/// `GetModuleSummary`, optional: what the module is for, in a sentence or two.
using GetModuleSummaryFunction = void (*)(std::wstring& summary);

/// `DeleteRule`, optional: destroys a rule that the module made and nulls the pointer.
using DeleteRuleFunction = void (*)(CQoxRule** rule);

/// What a database module gives the rule modules.
class IRuleDatabase
{
public:
    /// Names of the materials of a group ("metal", "sheet", "plastic", ...) in alphabetical
    /// order; all of them for an empty group. Empty if the database can't be read.
    virtual void GetMaterialNames(const std::wstring& group, std::list<std::wstring>& names) = 0;

    /// A numeric property of a material. False if it isn't known.
    virtual bool GetMaterialProperty(const std::wstring& material, const std::wstring& property, double& value) = 0;

protected:
    ~IRuleDatabase() = default;
};

/// `GetDbInterface`, required of a database module: a database, or null if it can't be
/// opened. Given back through `DeleteDbInterface`.
using GetDbInterfaceFunction = IRuleDatabase* (*)();

/// `DeleteDbInterface`, required of a database module.
using DeleteDbInterfaceFunction = void (*)(IRuleDatabase* database);
