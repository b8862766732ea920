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

/// What a database module gives the rule modules: tables of entries, each of which has a
/// name that no other entry of the table has, a group, and numeric properties.
///
/// | Table | Groups | Properties, among others |
/// |---|---|---|
/// | "materials" | "metal", "sheet", "plastic", "cast", "diecast", "additive", "weld", "tube" | "density",
/// "wall_thickness_min" | | "drills" | "metric", "inch" | "diameter", "flute_length" | | "end_mills" | "metric", "inch"
/// | "diameter", "cutting_length" | | "threads" | "metric-coarse", "metric-fine", "unified-coarse", "unified-fine" |
/// "diameter", "pitch", "tap_drill" | | "gauges" | "metric", "steel", "galvanized", "stainless", "aluminium" |
/// "thickness" | | "tubes" | "metric", "inch" | "diameter", "wall_thickness" | | "tolerance_grades" | "standard" |
/// "to_3", "to_6", ... "to_500" |
///
/// Lengths are in millimeters, angles in degrees, tolerances in thousandths of a millimeter.
class IRuleDatabase
{
public:
    /// Names of the entries of a group: materials in alphabetical order, others as the table
    /// lists them, which is by size. All entries for an empty group; none for a table or a
    /// group that the database doesn't have.
    virtual void GetNames(const std::wstring& table, const std::wstring& group, std::list<std::wstring>& names) = 0;

    /// A numeric property of an entry. False and an untouched `value` if it isn't known.
    virtual bool GetProperty(const std::wstring& table, const std::wstring& name, const std::wstring& property,
                             double& value) = 0;

protected:
    ~IRuleDatabase() = default;
};

/// `GetDbInterface`, required of a database module: a database, or null if it can't be
/// opened. Given back through `DeleteDbInterface`.
using GetDbInterfaceFunction = IRuleDatabase* (*)();

/// `DeleteDbInterface`, required of a database module.
using DeleteDbInterfaceFunction = void (*)(IRuleDatabase* database);
