#pragma once

#include "RuleModules/Kit/RuleText.h"

#include <Vantrel/ParamStorage.h>

#include <cstdint>
#include <span>
#include <string_view>

/// The tables that a rule module consists of. They are made at compile time and only
/// refer to literals. Lengths are in millimeters, angles in degrees.

/// Where the texts of a choice come from. They stand in files, so they are the same in
/// every language: designations of materials and sizes, not words.
struct ChoiceSource
{
    std::wstring_view table; ///< Of the rule database; empty for a list that is always the built-in one.
    std::wstring_view group; ///< Of the table; empty for all of it.
    std::span<const std::wstring_view> builtIn; ///< The choices where there is no database.
};

/// One parameter of a rule. Made by the functions below.
struct ParamDefinition
{
    std::int32_t number = 0; ///< Unique within the rule; stands in files, so it never changes.
    ParamKind kind = ParamKind::Number;
    std::wstring_view name; ///< Unique within the rule; never changes either.
    ParamTextSet texts;
    double defaultValue = 0;
    double minimum = CQoxParamStorage::NoMinimum;
    double maximum = CQoxParamStorage::NoMaximum;

    const ChoiceSource* choices = nullptr; ///< Of a choice.
    std::wstring_view defaultChoice;       ///< Of a choice; one of the built-in ones.

    std::int32_t governingChoice = 0;   ///< Number of the choice that the default depends on; 0 for none.
    std::wstring_view governedProperty; ///< The property of the chosen entry that the default comes from.
    double propertyFactor = 1;          ///< What the property is multiplied with.
};

/// The allowed values of a number, with the one that a new rule has.
struct ValueRange
{
    double defaultValue;
    double minimum;
    double maximum;
};

constexpr ParamDefinition NumericParam(ParamKind kind, std::int32_t number, std::wstring_view name,
                                       const ParamTextSet& texts, ValueRange range)
{
    ParamDefinition result;
    result.number = number;
    result.kind = kind;
    result.name = name;
    result.texts = texts;
    result.defaultValue = range.defaultValue;
    result.minimum = range.minimum;
    result.maximum = range.maximum;
    return result;
}

constexpr ParamDefinition LengthParam(std::int32_t number, std::wstring_view name, const ParamTextSet& texts,
                                      ValueRange range)
{
    return NumericParam(ParamKind::Length, number, name, texts, range);
}

constexpr ParamDefinition AngleParam(std::int32_t number, std::wstring_view name, const ParamTextSet& texts,
                                     ValueRange range)
{
    return NumericParam(ParamKind::Angle, number, name, texts, range);
}

constexpr ParamDefinition NumberParam(std::int32_t number, std::wstring_view name, const ParamTextSet& texts,
                                      ValueRange range)
{
    return NumericParam(ParamKind::Number, number, name, texts, range);
}

constexpr ParamDefinition IntegerParam(std::int32_t number, std::wstring_view name, const ParamTextSet& texts,
                                       ValueRange range)
{
    return NumericParam(ParamKind::Integer, number, name, texts, range);
}

constexpr ParamDefinition YesNoParam(std::int32_t number, std::wstring_view name, const ParamTextSet& texts,
                                     bool defaultValue)
{
    return NumericParam(ParamKind::YesNo, number, name, texts, { defaultValue ? 1.0 : 0.0, 0, 1 });
}

/// `source` lives as long as the module (see StandardChoices.h).
constexpr ParamDefinition ChoiceParam(std::int32_t number, std::wstring_view name, const ParamTextSet& texts,
                                      const ChoiceSource& source, std::wstring_view defaultChoice)
{
    ParamDefinition result;
    result.number = number;
    result.kind = ParamKind::Choice;
    result.name = name;
    result.texts = texts;
    result.choices = &source;
    result.defaultChoice = defaultChoice;
    return result;
}

/// Lets the default of a length, angle or number be a property of what is chosen in another
/// parameter of the rule, times the factor, as far as the range allows. The default of the
/// range stands where the database has no such property.
constexpr ParamDefinition DefaultByChoice(ParamDefinition parameter, std::int32_t choiceNumber,
                                          std::wstring_view property, double factor = 1)
{
    parameter.governingChoice = choiceNumber;
    parameter.governedProperty = property;
    parameter.propertyFactor = factor;
    return parameter;
}

/// One rule that a module offers.
struct RuleDefinition
{
    std::wstring_view name; ///< Unique among all modules; stands in files, so it never changes.
    RuleTextSet texts;
    RuleText category;        ///< One of the module's.
    std::int32_t criticality; ///< 1 to 5.
    std::wstring_view helpFile;
    std::span<const ParamDefinition> parameters;
};

/// A rule module.
struct ModuleDefinition
{
    std::wstring_view displayName; ///< `RuleModule` of its rules in files, so it never changes.
    RuleText summary;
    std::wstring_view libraryFile; ///< File name of the library as it stands in the configuration.
    std::span<const RuleText> categories;
    std::span<const RuleDefinition> rules;
};
