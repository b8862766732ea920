#pragma once

#include "RuleModules/Kit/ChoiceLists.h"
#include "RuleModules/Kit/RuleTable.h"

#include <Vantrel/ParamStorage.h>

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// A rule as its table has it, with the texts of the language in use and with the choices
/// and defaults of the database. Rules of files share all of it, and a file may hold very
/// many of them.
struct RuleContent
{
    const RuleDefinition* definition; ///< Of the module's table; never null.
    std::wstring displayName;
    std::wstring category;
    std::wstring summary;
    std::wstring detail;
    SharedTextList categories;
    std::vector<CQoxParamStorage> parameters;        ///< With their defaults as values.
    std::vector<CQoxParamStorage> withoutTheNumbers; ///< To be filled from a file. Unset numbers are NaN.
};

/// What a module offers in one language and with one set of database modules. Stays as it is:
/// rules that were made of it keep it, while the module goes on to another.
class ModuleContent
{
public:
    /// The definition lives as long as the module.
    ModuleContent(const ModuleDefinition& module, const std::list<std::wstring>& databaseModules);
    ModuleContent(const ModuleContent&) = delete;
    ModuleContent& operator=(const ModuleContent&) = delete;

    const ModuleDefinition& Definition() const { return m_module; }

    /// In the order of the table.
    const std::vector<RuleContent>& Rules() const { return m_rules; }

    /// The rule by name without regard to case, or null.
    const RuleContent* FindRule(std::wstring_view name) const;

    /// The version of the texts that this was made with.
    std::uint32_t TextVersion() const { return m_textVersion; }

    const ChoiceList& ChoicesOf(const ParamDefinition& choice) const { return m_choices.Of(*choice.choices); }

    /// Default of a number, in millimeters or degrees, with this text in the choice that
    /// governs it.
    double DefaultOf(const RuleDefinition& rule, const ParamDefinition& parameter, const std::wstring& chosen) const;

private:
    struct NameHash
    {
        std::size_t operator()(std::wstring_view name) const;
    };
    struct NameEqual
    {
        bool operator()(std::wstring_view first, std::wstring_view second) const;
    };

    RuleContent MakeRule(const RuleDefinition& rule, const SharedTextList& categories) const;
    CQoxParamStorage MakeParameter(const RuleDefinition& rule, const ParamDefinition& parameter) const;
    std::wstring InitialChoice(const ParamDefinition& choice) const;

    const ModuleDefinition& m_module;
    std::uint32_t m_textVersion;
    ChoiceLists m_choices;
    std::vector<RuleContent> m_rules;
    std::unordered_map<std::wstring_view, std::size_t, NameHash, NameEqual> m_places;
};
