#include "Explorer/ValueNotation.h"
#include "Explorer/ValueTokens.h"

#include <Vantrel/RuleUnits.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace
{

enum class TypedUnit : std::uint8_t
{
    None,
    Millimeters,
    Centimeters,
    Meters,
    Inches,
    Feet,
    Angstroms,
    Nanometers,
    Microns,
    Mils,
    Microinches,
    Degrees,
    Minutes,
    Seconds,
    Radians,
};

struct UnitWord
{
    std::wstring_view word;
    TypedUnit unit;
};

constexpr std::array LengthWords = {
    UnitWord{ L"mm", TypedUnit::Millimeters },
    UnitWord{ L"millimeter", TypedUnit::Millimeters },
    UnitWord{ L"millimeters", TypedUnit::Millimeters },
    UnitWord{ L"millimetre", TypedUnit::Millimeters },
    UnitWord{ L"millimetres", TypedUnit::Millimeters },
    UnitWord{ L"cm", TypedUnit::Centimeters },
    UnitWord{ L"centimeter", TypedUnit::Centimeters },
    UnitWord{ L"centimeters", TypedUnit::Centimeters },
    UnitWord{ L"centimetre", TypedUnit::Centimeters },
    UnitWord{ L"centimetres", TypedUnit::Centimeters },
    UnitWord{ L"m", TypedUnit::Meters },
    UnitWord{ L"meter", TypedUnit::Meters },
    UnitWord{ L"meters", TypedUnit::Meters },
    UnitWord{ L"metre", TypedUnit::Meters },
    UnitWord{ L"metres", TypedUnit::Meters },
    UnitWord{ L"\"", TypedUnit::Inches },
    UnitWord{ L"in", TypedUnit::Inches },
    UnitWord{ L"inch", TypedUnit::Inches },
    UnitWord{ L"inches", TypedUnit::Inches },
    UnitWord{ L"'", TypedUnit::Feet },
    UnitWord{ L"ft", TypedUnit::Feet },
    UnitWord{ L"foot", TypedUnit::Feet },
    UnitWord{ L"feet", TypedUnit::Feet },
    UnitWord{ L"\u00E5", TypedUnit::Angstroms },
    UnitWord{ L"angstrom", TypedUnit::Angstroms },
    UnitWord{ L"angstroms", TypedUnit::Angstroms },
    UnitWord{ L"nm", TypedUnit::Nanometers },
    UnitWord{ L"nanometer", TypedUnit::Nanometers },
    UnitWord{ L"nanometers", TypedUnit::Nanometers },
    UnitWord{ L"nanometre", TypedUnit::Nanometers },
    UnitWord{ L"nanometres", TypedUnit::Nanometers },
    UnitWord{ L"\u00B5m", TypedUnit::Microns },
    UnitWord{ L"um", TypedUnit::Microns },
    UnitWord{ L"micron", TypedUnit::Microns },
    UnitWord{ L"microns", TypedUnit::Microns },
    UnitWord{ L"mil", TypedUnit::Mils },
    UnitWord{ L"mils", TypedUnit::Mils },
    UnitWord{ L"thou", TypedUnit::Mils },
    UnitWord{ L"\u00B5in", TypedUnit::Microinches },
    UnitWord{ L"uin", TypedUnit::Microinches },
    UnitWord{ L"microinch", TypedUnit::Microinches },
    UnitWord{ L"microinches", TypedUnit::Microinches },
};

constexpr std::array AngleWords = {
    UnitWord{ L"\u00B0", TypedUnit::Degrees },  UnitWord{ L"d", TypedUnit::Degrees },
    UnitWord{ L"deg", TypedUnit::Degrees },     UnitWord{ L"degree", TypedUnit::Degrees },
    UnitWord{ L"degrees", TypedUnit::Degrees }, UnitWord{ L"'", TypedUnit::Minutes },
    UnitWord{ L"m", TypedUnit::Minutes },       UnitWord{ L"min", TypedUnit::Minutes },
    UnitWord{ L"minute", TypedUnit::Minutes },  UnitWord{ L"minutes", TypedUnit::Minutes },
    UnitWord{ L"\"", TypedUnit::Seconds },      UnitWord{ L"s", TypedUnit::Seconds },
    UnitWord{ L"sec", TypedUnit::Seconds },     UnitWord{ L"second", TypedUnit::Seconds },
    UnitWord{ L"seconds", TypedUnit::Seconds }, UnitWord{ L"rad", TypedUnit::Radians },
    UnitWord{ L"radian", TypedUnit::Radians },  UnitWord{ L"radians", TypedUnit::Radians },
};

/// What may be typed together, largest first, and how many of each make one of the one before.
constexpr std::array LengthChain = { TypedUnit::Feet, TypedUnit::Inches };
constexpr std::array AngleChain = { TypedUnit::Degrees, TypedUnit::Minutes, TypedUnit::Seconds };

/// What a field takes.
struct FieldGrammar
{
    std::span<const UnitWord> words;
    std::span<const TypedUnit> chain;
    double chainFactor = 1;
    bool marksMayLack = false;                       ///< Parts without any mark are those of the chain.
    ValueToken::Kind joint = ValueToken::Kind::Dash; ///< What may stand between parts.
};

/// An amount with its unit.
struct Part
{
    double amount = 0;
    bool whole = false;        ///< Without decimals or fraction.
    bool bareFraction = false; ///< A fraction with no number before it.
    bool jointBefore = false;
    TypedUnit unit = TypedUnit::None;
};

class ValueReader
{
public:
    ValueReader(const std::vector<ValueToken>& tokens, const FieldGrammar& grammar)
        : m_tokens(tokens), m_grammar(grammar)
    {
    }

    bool IsNegative() const { return m_negative; }
    const std::vector<Part>& Parts() const { return m_parts; }
    const std::wstring& UnknownUnit() const { return m_unknownUnit; }

    TypingError Read()
    {
        if (Is(ValueToken::Kind::Dash) || Is(ValueToken::Kind::Plus))
        {
            m_negative = Is(ValueToken::Kind::Dash);
            ++m_position;
        }
        bool more = true;
        while (more)
        {
            Part part;
            if (!m_parts.empty())
            {
                part.jointBefore = Is(m_grammar.joint);
                m_position += part.jointBefore ? 1 : 0;
                const bool standsOff = part.jointBefore || m_parts.back().unit != TypedUnit::None ||
                                       (Is(ValueToken::Kind::Number) && m_tokens[m_position].blankBefore);
                if (!standsOff)
                {
                    return TypingError::NotUnderstood;
                }
            }
            if (!ReadAmount(part))
            {
                return TypingError::NotUnderstood;
            }
            if (!ReadUnit(part))
            {
                return TypingError::UnknownUnit;
            }
            m_parts.push_back(part);
            more = m_position < m_tokens.size();
        }
        return TypingError::None;
    }

private:
    bool Is(ValueToken::Kind kind, std::size_t distance = 0) const
    {
        return m_position + distance < m_tokens.size() && m_tokens[m_position + distance].kind == kind;
    }

    bool IsFraction(std::size_t distance) const
    {
        return Is(ValueToken::Kind::Number, distance) && Is(ValueToken::Kind::Slash, distance + 1) &&
               Is(ValueToken::Kind::Number, distance + 2);
    }

    /// Takes `3.5`, `1/2` or `3 1/2`.
    bool ReadAmount(Part& part)
    {
        if (!Is(ValueToken::Kind::Number))
        {
            return false;
        }
        if (IsFraction(0))
        {
            part.bareFraction = true;
            const std::optional<double> fraction = ReadFraction();
            part.amount = fraction.value_or(0);
            return fraction.has_value();
        }
        const ValueToken& number = m_tokens[m_position++];
        part.amount = number.number;
        part.whole = number.whole;
        if (number.whole && IsFraction(0) && m_tokens[m_position].blankBefore)
        {
            const std::optional<double> fraction = ReadFraction();
            if (!fraction || *fraction >= 1)
            {
                return false;
            }
            part.amount += *fraction;
            part.whole = false;
        }
        return true;
    }

    std::optional<double> ReadFraction()
    {
        const ValueToken& numerator = m_tokens[m_position];
        const ValueToken& denominator = m_tokens[m_position + 2];
        m_position += 3;
        if (!numerator.whole || !denominator.whole || denominator.number == 0)
        {
            return std::nullopt;
        }
        return numerator.number / denominator.number;
    }

    /// True without a unit, too.
    bool ReadUnit(Part& part)
    {
        if (!Is(ValueToken::Kind::Word))
        {
            return true;
        }
        const std::wstring& word = m_tokens[m_position].word;
        const auto found = std::find_if(m_grammar.words.begin(), m_grammar.words.end(),
                                        [&word](const UnitWord& entry) { return entry.word == word; });
        if (found == m_grammar.words.end())
        {
            m_unknownUnit = word;
            return false;
        }
        part.unit = found->unit;
        ++m_position;
        return true;
    }

    const std::vector<ValueToken>& m_tokens;
    const FieldGrammar& m_grammar;
    std::size_t m_position = 0;
    bool m_negative = false;
    std::vector<Part> m_parts;
    std::wstring m_unknownUnit;
};

/// An amount in one unit.
struct Amount
{
    TypingError error = TypingError::None;
    double amount = 0;
    TypedUnit unit = TypedUnit::None;
};

/// Puts parts such as feet and inches together, in the unit of the last one: all that goes
/// before it is whole, so nothing is rounded here.
Amount JoinParts(const std::vector<Part>& parts, const FieldGrammar& grammar)
{
    const std::span<const TypedUnit> chain = grammar.chain;
    const bool anyJoint = std::any_of(parts.begin(), parts.end(), [](const Part& part) { return part.jointBefore; });
    const bool firstMayLackMark = grammar.marksMayLack || (anyJoint && grammar.joint == ValueToken::Kind::Colon);
    Amount result;
    std::size_t place = 0; // in the chain
    for (std::size_t index = 0; index < parts.size(); ++index)
    {
        const Part& part = parts[index];
        const std::size_t next = index == 0 ? 0 : place + 1;
        const auto marked = static_cast<std::size_t>(std::find(chain.begin(), chain.end(), part.unit) - chain.begin());
        const bool unmarked = part.unit == TypedUnit::None;
        const std::size_t found = unmarked ? next : marked;
        const bool last = index + 1 == parts.size();
        // `5-1/2` may as well mean five and a half.
        const bool unclear = part.bareFraction && part.jointBefore && parts[index - 1].unit == TypedUnit::None;
        if (found < next || found >= chain.size() || (unmarked && index == 0 && !firstMayLackMark) ||
            (!part.whole && !last) || unclear)
        {
            return { TypingError::NotUnderstood };
        }
        if (index != 0 && part.amount >= grammar.chainFactor)
        {
            return { TypingError::PartTooLarge };
        }
        for (std::size_t step = index == 0 ? found : place; step < found; ++step)
        {
            result.amount *= grammar.chainFactor;
        }
        result.amount += part.amount;
        place = found;
    }
    result.unit = chain[place];
    return result;
}

TypedValue ReadField(std::wstring_view text, wchar_t decimalSeparator, const FieldGrammar& grammar,
                     double (*toField)(double, TypedUnit, std::int32_t), std::int32_t fieldUnit)
{
    std::vector<ValueToken> tokens;
    switch (CutIntoTokens(text, decimalSeparator, tokens))
    {
    case TokenError::ForeignComma:
        return { TypingError::DecimalComma, 0, {} };
    case TokenError::Malformed:
        return { TypingError::NotUnderstood, 0, {} };
    case TokenError::None:
        break;
    }
    if (tokens.empty())
    {
        return { TypingError::Empty, 0, {} };
    }
    ValueReader reader(tokens, grammar);
    if (const TypingError error = reader.Read(); error != TypingError::None)
    {
        return { error, 0, reader.UnknownUnit() };
    }
    const std::vector<Part>& parts = reader.Parts();
    const Amount amount =
        parts.size() == 1 ? Amount{ TypingError::None, parts[0].amount, parts[0].unit } : JoinParts(parts, grammar);
    if (amount.error != TypingError::None)
    {
        return { amount.error, 0, {} };
    }
    const double magnitude =
        amount.unit == TypedUnit::None ? amount.amount : toField(amount.amount, amount.unit, fieldUnit);
    if (!std::isfinite(magnitude))
    {
        return { TypingError::NotUnderstood, 0, {} };
    }
    return { TypingError::None, reader.IsNegative() && magnitude != 0 ? -magnitude : magnitude, {} };
}

std::int32_t NumberOf(LinearUnit unit)
{
    return static_cast<std::int32_t>(unit);
}

std::int32_t NumberOf(AngularUnit unit)
{
    return static_cast<std::int32_t>(unit);
}

double LengthToField(double amount, TypedUnit unit, std::int32_t fieldUnit)
{
    const auto from = [unit]
    {
        switch (unit)
        {
        case TypedUnit::Centimeters:
            return LinearUnit::Centimeters;
        case TypedUnit::Meters:
            return LinearUnit::Meters;
        case TypedUnit::Inches:
            return LinearUnit::Inches;
        case TypedUnit::Feet:
            return LinearUnit::Feet;
        case TypedUnit::Angstroms:
            return LinearUnit::Angstroms;
        case TypedUnit::Nanometers:
            return LinearUnit::Nanometers;
        case TypedUnit::Microns:
            return LinearUnit::Microns;
        case TypedUnit::Mils:
            return LinearUnit::Mils;
        case TypedUnit::Microinches:
            return LinearUnit::Microinches;
        default:
            return LinearUnit::Millimeters;
        }
    };
    return ConvertLength(amount, NumberOf(from()), fieldUnit);
}

double AngleToField(double amount, TypedUnit unit, std::int32_t fieldUnit)
{
    constexpr double PerDegree = 60;
    switch (unit)
    {
    case TypedUnit::Radians:
        return ConvertAngle(amount, NumberOf(AngularUnit::Radians), fieldUnit);
    case TypedUnit::Minutes:
        return ConvertAngle(amount / PerDegree, NumberOf(AngularUnit::Degrees), fieldUnit);
    case TypedUnit::Seconds:
        return ConvertAngle(amount / (PerDegree * PerDegree), NumberOf(AngularUnit::Degrees), fieldUnit);
    default:
        return ConvertAngle(amount, NumberOf(AngularUnit::Degrees), fieldUnit);
    }
}

double NumberToField(double amount, TypedUnit /*unit*/, std::int32_t /*fieldUnit*/)
{
    return amount;
}

} // namespace

TypedValue ParseLength(std::wstring_view text, std::int32_t unit, wchar_t decimalSeparator)
{
    constexpr double InchesPerFoot = 12;
    const FieldGrammar grammar{ LengthWords, LengthChain, InchesPerFoot, IsSplitLengthUnit(unit),
                                ValueToken::Kind::Dash };
    return ReadField(text, decimalSeparator, grammar, LengthToField, unit);
}

TypedValue ParseAngle(std::wstring_view text, std::int32_t unit, wchar_t decimalSeparator)
{
    constexpr double PartsPerPart = 60;
    const FieldGrammar grammar{ AngleWords, AngleChain, PartsPerPart, IsSplitAngleUnit(unit), ValueToken::Kind::Colon };
    return ReadField(text, decimalSeparator, grammar, AngleToField, unit);
}

TypedValue ParseNumber(std::wstring_view text, wchar_t decimalSeparator)
{
    return ReadField(text, decimalSeparator, {}, NumberToField, 0);
}
