#pragma once

#include <Vantrel/ParamStorage.h>

#include <cstdint>
#include <span>
#include <string_view>

/// The tables that a rule module consists of. They are made at compile time and only
/// refer to literals. Lengths are in millimeters, angles in degrees.

/// One parameter of a rule.
struct ParamDefinition
{
    std::int32_t number = 0; ///< Unique within the rule; stands in files, so it never changes.
    ParamKind kind = ParamKind::Number;
    std::wstring_view name;
    std::wstring_view label;
    std::wstring_view help;
    double defaultValue = 0;
    double minimum = CQoxParamStorage::NoMinimum;
    double maximum = CQoxParamStorage::NoMaximum;
    std::wstring_view defaultText; ///< Of a material choice.
};

/// The allowed values of a number, with the one that a new rule has.
struct ValueRange
{
    double defaultValue;
    double minimum;
    double maximum;
};

constexpr ParamDefinition NumericParam(ParamKind kind, std::int32_t number, std::wstring_view name,
                                       std::wstring_view label, ValueRange range, std::wstring_view help)
{
    return { number, kind, name, label, help, range.defaultValue, range.minimum, range.maximum, {} };
}

constexpr ParamDefinition LengthParam(std::int32_t number, std::wstring_view name, std::wstring_view label,
                                      ValueRange range, std::wstring_view help)
{
    return NumericParam(ParamKind::Length, number, name, label, range, help);
}

constexpr ParamDefinition AngleParam(std::int32_t number, std::wstring_view name, std::wstring_view label,
                                     ValueRange range, std::wstring_view help)
{
    return NumericParam(ParamKind::Angle, number, name, label, range, help);
}

constexpr ParamDefinition NumberParam(std::int32_t number, std::wstring_view name, std::wstring_view label,
                                      ValueRange range, std::wstring_view help)
{
    return NumericParam(ParamKind::Number, number, name, label, range, help);
}

constexpr ParamDefinition IntegerParam(std::int32_t number, std::wstring_view name, std::wstring_view label,
                                       ValueRange range, std::wstring_view help)
{
    return NumericParam(ParamKind::Integer, number, name, label, range, help);
}

constexpr ParamDefinition YesNoParam(std::int32_t number, std::wstring_view name, std::wstring_view label,
                                     bool defaultValue, std::wstring_view help)
{
    return NumericParam(ParamKind::YesNo, number, name, label, { defaultValue ? 1.0 : 0.0, 0, 1 }, help);
}

/// A choice out of the materials of the module's group.
constexpr ParamDefinition MaterialParam(std::int32_t number, std::wstring_view name, std::wstring_view label,
                                        std::wstring_view defaultMaterial, std::wstring_view help)
{
    ParamDefinition result;
    result.number = number;
    result.kind = ParamKind::Choice;
    result.name = name;
    result.label = label;
    result.help = help;
    result.defaultText = defaultMaterial;
    return result;
}

/// One rule that a module offers.
struct RuleDefinition
{
    std::wstring_view name; ///< Unique among all modules; stands in files, so it never changes.
    std::wstring_view displayName;
    std::wstring_view category;
    std::wstring_view summary;
    std::wstring_view detailedSummary;
    std::int32_t criticality; ///< 1 to 5.
    std::wstring_view helpFile;
    std::span<const ParamDefinition> parameters;
};

/// A rule module.
struct ModuleDefinition
{
    std::wstring_view displayName; ///< `RuleModule` of its rules in files, so it never changes.
    std::wstring_view summary;
    std::wstring_view libraryFile;   ///< File name of the library as it stands in the configuration.
    std::wstring_view materialGroup; ///< Group of the rule database that its choices come from.
    std::span<const std::wstring_view> builtInMaterials; ///< The choices where there is no database.
    std::span<const std::wstring_view> categories;
    std::span<const RuleDefinition> rules;
};
