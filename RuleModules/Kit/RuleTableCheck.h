#pragma once

#include "RuleModules/Kit/RuleTable.h"

#include <algorithm>

/// What can be wrong with the tables of a module.
enum class TableMistake
{
    None,
    ModuleIncomplete,   ///< A name, summary or library is missing, or there are too few rules.
    CategoryIncomplete, ///< The place is that of the category.
    RuleIncomplete,
    RuleNameNotPlain, ///< Something but ASCII letters and digits.
    RuleNameRepeated,
    HelpFileRepeated,
    CategoryUnknown,
    CriticalityOutOfRange,
    ParameterIncomplete,
    ParameterNumberRepeated,
    ParameterNameRepeated,
    RangeEmpty,
    DefaultOutOfRange,
    ChoicesIncomplete,
    DefaultNotOffered,
    GoverningChoiceUnknown,
    GovernedKindWrong,
};

/// A mistake and where it is: the place of the rule in the module and of the parameter in
/// the rule, from 0 on.
struct FoundMistake
{
    TableMistake mistake = TableMistake::None;
    std::size_t rule = 0;
    std::size_t parameter = 0;

    friend constexpr bool operator==(const FoundMistake&, const FoundMistake&) = default;
};

namespace RuleTableCheck
{

constexpr std::size_t FewestRules = 10;
constexpr std::uint32_t FirstTextNumber = 62000;
constexpr std::uint32_t LastTextNumber = 65199;

constexpr bool IsComplete(const RuleText& text)
{
    return text.number >= FirstTextNumber && text.number <= LastTextNumber && !text.english.empty();
}

constexpr bool IsPlain(std::wstring_view name)
{
    return !name.empty() &&
           std::all_of(name.begin(), name.end(),
                       [](wchar_t c)
                       { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9'); });
}

constexpr bool IsFinite(double number)
{
    return number - number == 0;
}

constexpr bool IsNumeric(const ParamDefinition& parameter)
{
    return parameter.kind != ParamKind::Choice && parameter.kind != ParamKind::Text;
}

/// True if an entry before the last one of the span has the same value of the member.
template <typename Entry, typename Value>
constexpr bool LastIsRepeated(std::span<const Entry> entries, Value Entry::*member)
{
    const Entry& last = entries.back();
    return std::any_of(entries.begin(), entries.end() - 1,
                       [&last, member](const Entry& entry) { return entry.*member == last.*member; });
}

constexpr TableMistake MistakeOfChoice(const ParamDefinition& parameter)
{
    if (parameter.choices == nullptr || parameter.choices->builtIn.empty())
    {
        return TableMistake::ChoicesIncomplete;
    }
    const auto& choices = parameter.choices->builtIn;
    return std::find(choices.begin(), choices.end(), parameter.defaultChoice) == choices.end()
             ? TableMistake::DefaultNotOffered
             : TableMistake::None;
}

constexpr TableMistake MistakeOfGoverning(const RuleDefinition& rule, const ParamDefinition& parameter)
{
    if (parameter.governingChoice == 0)
    {
        return TableMistake::None;
    }
    if (parameter.kind != ParamKind::Length && parameter.kind != ParamKind::Angle &&
        parameter.kind != ParamKind::Number)
    {
        return TableMistake::GovernedKindWrong;
    }
    const bool known = std::any_of(rule.parameters.begin(), rule.parameters.end(),
                                   [&parameter](const ParamDefinition& other) {
                                       return other.number == parameter.governingChoice && other.choices != nullptr &&
                                              !other.choices->table.empty();
                                   });
    return known && !parameter.governedProperty.empty() && parameter.propertyFactor > 0
             ? TableMistake::None
             : TableMistake::GoverningChoiceUnknown;
}

constexpr TableMistake MistakeOfParameter(const RuleDefinition& rule, std::size_t place)
{
    const ParamDefinition& parameter = rule.parameters[place];
    const std::span<const ParamDefinition> upToHere = rule.parameters.first(place + 1);
    if (parameter.number < 1 || !IsPlain(parameter.name) || !IsComplete(parameter.texts.label) ||
        !IsComplete(parameter.texts.help))
    {
        return TableMistake::ParameterIncomplete;
    }
    if (LastIsRepeated(upToHere, &ParamDefinition::number))
    {
        return TableMistake::ParameterNumberRepeated;
    }
    if (LastIsRepeated(upToHere, &ParamDefinition::name))
    {
        return TableMistake::ParameterNameRepeated;
    }
    if (parameter.kind == ParamKind::Choice)
    {
        return MistakeOfChoice(parameter);
    }
    if (IsNumeric(parameter))
    {
        if (!(parameter.minimum < parameter.maximum))
        {
            return TableMistake::RangeEmpty;
        }
        if (!IsFinite(parameter.defaultValue) || parameter.defaultValue < parameter.minimum ||
            parameter.defaultValue > parameter.maximum)
        {
            return TableMistake::DefaultOutOfRange;
        }
    }
    return MistakeOfGoverning(rule, parameter);
}

constexpr TableMistake MistakeOfRule(const ModuleDefinition& module, std::size_t place)
{
    const RuleDefinition& rule = module.rules[place];
    const std::span<const RuleDefinition> upToHere = module.rules.first(place + 1);
    if (!IsPlain(rule.name))
    {
        return TableMistake::RuleNameNotPlain;
    }
    if (!IsComplete(rule.texts.name) || !IsComplete(rule.texts.summary) || !IsComplete(rule.texts.detail) ||
        rule.helpFile.empty() || rule.parameters.empty())
    {
        return TableMistake::RuleIncomplete;
    }
    if (LastIsRepeated(upToHere, &RuleDefinition::name))
    {
        return TableMistake::RuleNameRepeated;
    }
    if (LastIsRepeated(upToHere, &RuleDefinition::helpFile))
    {
        return TableMistake::HelpFileRepeated;
    }
    if (std::none_of(module.categories.begin(), module.categories.end(),
                     [&rule](const RuleText& category) { return category.number == rule.category.number; }))
    {
        return TableMistake::CategoryUnknown;
    }
    return rule.criticality >= 1 && rule.criticality <= 5 ? TableMistake::None : TableMistake::CriticalityOutOfRange;
}

} // namespace RuleTableCheck

/// The first mistake in the tables of a module.
constexpr FoundMistake FindMistake(const ModuleDefinition& module)
{
    if (module.displayName.empty() || module.libraryFile.empty() || !RuleTableCheck::IsComplete(module.summary) ||
        module.rules.size() < RuleTableCheck::FewestRules)
    {
        return { TableMistake::ModuleIncomplete };
    }
    for (std::size_t category = 0; category < module.categories.size(); ++category)
    {
        if (!RuleTableCheck::IsComplete(module.categories[category]))
        {
            return { TableMistake::CategoryIncomplete, category };
        }
    }
    for (std::size_t rule = 0; rule < module.rules.size(); ++rule)
    {
        if (const TableMistake mistake = RuleTableCheck::MistakeOfRule(module, rule); mistake != TableMistake::None)
        {
            return { mistake, rule };
        }
        for (std::size_t parameter = 0; parameter < module.rules[rule].parameters.size(); ++parameter)
        {
            const TableMistake mistake = RuleTableCheck::MistakeOfParameter(module.rules[rule], parameter);
            if (mistake != TableMistake::None)
            {
                return { mistake, rule, parameter };
            }
        }
    }
    return {};
}

/// Fails to compile unless the tables are in order. The compiler's message names the mistake
/// and its place: `TablesAreInOrder<FoundMistake{...}>`.
template <FoundMistake Found>
constexpr bool TablesAreInOrder()
{
    static_assert(Found == FoundMistake{}, "The tables of the module hold a mistake.");
    return true;
}
