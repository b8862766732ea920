#pragma once

#include "Platform/Library.h"

#include <Vantrel/ModuleInterface.h>

#include <array>
#include <list>
#include <string>

/// Names of the exports that a rule module must have.
inline constexpr std::array RequiredOfRuleModules = { "GetAllRules", "GetRule", "SetXMLDoc", "SetDBModuleList" };

/// Names of the exports that a database module must have.
inline constexpr std::array RequiredOfDatabaseModules = { "GetDbInterface", "DeleteDbInterface" };

/// Calls into a loaded rule module. Every export is looked up at each use, and one that is
/// missing makes the call do nothing; nor does a failure inside a module come out.
class RuleModule
{
public:
    /// The handle stays the caller's.
    explicit RuleModule(Platform::LibraryHandle library) : m_library(library) {}

    /// Full path of the module's library.
    std::wstring Path() const { return Platform::LibraryPath(m_library); }

    /// Has the module change `name` to its own. False if it doesn't export `GetModuleName`.
    bool GetModuleName(std::wstring& name) const;

    /// Same for what it is for, by `GetModuleSummary`.
    bool GetModuleSummary(std::wstring& summary) const;

    /// What `GetModuleName` gives, else the file name of the library.
    std::wstring DisplayName() const;

    /// What `GetModuleSummary` gives, else nothing.
    std::wstring Summary() const;

    /// Appends the module's rules. False if the module doesn't export `GetAllRules`.
    bool GetAllRules(PointerArray& rules) const;

    /// A new rule for the element, or null if it isn't the module's. The rule carries the
    /// module's display name and path.
    CQoxRule* GetRule(QoxXMLNode* node) const;

    /// The module's `GetRule`, for one file: looked up before its first element and used for
    /// all of them. Null if it isn't exported.
    GetRuleFunction FindGetRule() const { return Find<GetRuleFunction>("GetRule"); }
    CQoxRule* GetRule(GetRuleFunction getRule, QoxXMLNode* node) const;

    void SetXMLDoc(QoxXMLDocument* document) const;
    void SetDBModuleList(const std::list<std::wstring>& databaseModules) const;

    /// True if the module takes rules back.
    bool TakesRulesBack() const { return Find<DeleteRuleFunction>("DeleteRule") != nullptr; }

    /// Gives a rule back to the module. False if the module doesn't export `DeleteRule`;
    /// otherwise the pointer is null afterwards.
    bool DeleteRule(CQoxRule*& rule) const;

private:
    template <typename Function>
    Function Find(const char* name) const
    {
        return reinterpret_cast<Function>(Platform::FindLibrarySymbol(m_library, name));
    }

    Platform::LibraryHandle m_library;
};

/// True if the library has every export that a rule module must have. Calls none.
bool IsValidRuleModule(Platform::LibraryHandle library);

/// Same for a database module.
bool IsValidDatabaseModule(Platform::LibraryHandle library);
