#pragma once

#include <Vantrel/Export.h>
#include <Vantrel/RuleUnits.h>
#include <Vantrel/SharedText.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

/// What a parameter's value is.
enum class ParamKind : std::uint8_t
{
    Length,  ///< In the rule's length unit.
    Angle,   ///< In the rule's angle unit.
    Number,  ///< A plain number.
    Integer, ///< A whole number.
    YesNo,   ///< 0 or 1.
    Choice,  ///< A text out of a list.
    Text,    ///< Any text.
};

/// One parameter of a rule.
///
/// Values of the kinds Length, Angle, Number, Integer and YesNo are numbers, in
/// `dValue` and `dDefault`; Choice and Text are texts, in `strValue` and `strDefault`.
class VANTREL_API CQoxParamStorage
{
public:
    static constexpr double NoMinimum = -std::numeric_limits<double>::infinity();
    static constexpr double NoMaximum = std::numeric_limits<double>::infinity();

    std::int32_t nNumber = 0; ///< Unique within its rule.
    ParamKind eKind = ParamKind::Number;
    double dValue = 0;
    double dDefault = 0;
    double dMinimum = NoMinimum; ///< Smallest allowed value.
    double dMaximum = NoMaximum; ///< Largest allowed value.
    SharedText strName;          ///< Name for programs; never translated.
    SharedText strLabel;         ///< Name for people.
    std::wstring strValue;
    SharedText strDefault;
    SharedText strHelp;     ///< One or two sentences for the editor.
    SharedTextList choices; ///< The allowed texts of a Choice.
    /// What a newer version wrote into the element, as markup; written back as it was read.
    std::string strUnknownMarkup;

    /// True for the kinds whose value is a number.
    bool IsNumeric() const;

    /// True if the present value is of the kind, within the range or among the choices.
    bool IsValid() const;

    /// True if the value is the default.
    bool IsDefault() const;

    /// The value, range and default go from one pair of units to another. Other kinds
    /// than Length and Angle stay as they are.
    void ConvertUnits(const RuleUnitSystemStructure& from, const RuleUnitSystemStructure& to);
};

/// The word for a kind in files.
VANTREL_API std::string_view ParamKindName(ParamKind kind);

/// A number as people see it: at most 12 significant digits, no trailing zeros, decimal
/// point whatever the locale.
VANTREL_API std::wstring FormatShownNumber(double value);
