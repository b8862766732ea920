#include "Explorer/RuleEditModel.h"

#include "Explorer/ValueNotation.h"
#include "Utilities/Texts.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr int LowestCriticality = 1;
constexpr int HighestCriticality = 5;
constexpr int CriticalityOfOthers = 3;

bool Contains(const SharedTextList& choices, const std::wstring& text)
{
    return std::find(choices.begin(), choices.end(), text) != choices.end();
}

/// True if a few digits tell the ends of the range apart.
bool IsRoomy(const CQoxParamStorage& parameter)
{
    constexpr double LeastShare = 1e-3;
    const double larger = std::max(std::abs(parameter.dMinimum), std::abs(parameter.dMaximum));
    return parameter.dMaximum - parameter.dMinimum > LeastShare * larger;
}

} // namespace

RuleEditModel::RuleEditModel(const CQoxRule& rule, wchar_t decimalSeparator)
    : m_units(rule.m_units), m_decimalSeparator(decimalSeparator), m_originalCriticality(rule.m_nCriticality),
      m_criticality(rule.m_nCriticality)
{
    for (const CQoxParamStorage& parameter : rule.Parameters())
    {
        Entry& entry = m_entries.emplace_back();
        entry.parameter = parameter;
        entry.original = ShownValue(parameter);
        entry.text = entry.original;
        Evaluate(entry);
    }
}

std::wstring RuleEditModel::Shown(const CQoxParamStorage& parameter, double value) const
{
    switch (parameter.eKind)
    {
    case ParamKind::Length:
        return FormatLength(value, m_units.linear);
    case ParamKind::Angle:
        return FormatAngle(value, m_units.angular);
    case ParamKind::YesNo:
        return value != 0 ? YesText : NoText;
    default:
        return FormatShownNumber(value);
    }
}

std::wstring RuleEditModel::ShownValue(const CQoxParamStorage& parameter) const
{
    return parameter.IsNumeric() ? Shown(parameter, parameter.dValue) : parameter.strValue;
}

std::wstring RuleEditModel::ShownDefault(const CQoxParamStorage& parameter) const
{
    return parameter.IsNumeric() ? Shown(parameter, parameter.dDefault) : parameter.strDefault.Get();
}

std::wstring RuleEditModel::Label(std::size_t index) const
{
    const CQoxParamStorage& parameter = m_entries[index].parameter;
    return parameter.strLabel.empty() ? parameter.strName.Get() : parameter.strLabel.Get();
}

std::wstring RuleEditModel::UnitSymbol(std::size_t index) const
{
    switch (Kind(index))
    {
    case ParamKind::Length:
        return LengthSymbol(m_units.linear);
    case ParamKind::Angle:
        return AngleSymbol(m_units.angular);
    default:
        return {};
    }
}

std::wstring RuleEditModel::WithUnit(const Entry& entry, const std::wstring& shown) const
{
    switch (entry.parameter.eKind)
    {
    case ParamKind::Length:
        return IsSplitLengthUnit(m_units.linear) ? shown : shown + L" " + LengthSymbol(m_units.linear);
    case ParamKind::Angle:
        return IsSplitAngleUnit(m_units.angular) ? shown : shown + L" " + AngleSymbol(m_units.angular);
    default:
        return shown;
    }
}

std::wstring RuleEditModel::LowerLimit(const CQoxParamStorage& parameter) const
{
    const double limit = parameter.eKind == ParamKind::Integer ? std::ceil(parameter.dMinimum) : parameter.dMinimum;
    if (parameter.eKind == ParamKind::Integer || !IsRoomy(parameter))
    {
        return Shown(parameter, limit);
    }
    switch (parameter.eKind)
    {
    case ParamKind::Length:
        return FormatLengthLimit(limit, m_units.linear, LimitEnd::Lower);
    case ParamKind::Angle:
        return FormatAngleLimit(limit, m_units.angular, LimitEnd::Lower);
    default:
        return FormatNumberLimit(limit, LimitEnd::Lower);
    }
}

std::wstring RuleEditModel::UpperLimit(const CQoxParamStorage& parameter) const
{
    const double limit = parameter.eKind == ParamKind::Integer ? std::floor(parameter.dMaximum) : parameter.dMaximum;
    if (parameter.eKind == ParamKind::Integer || !IsRoomy(parameter))
    {
        return Shown(parameter, limit);
    }
    switch (parameter.eKind)
    {
    case ParamKind::Length:
        return FormatLengthLimit(limit, m_units.linear, LimitEnd::Upper);
    case ParamKind::Angle:
        return FormatAngleLimit(limit, m_units.angular, LimitEnd::Upper);
    default:
        return FormatNumberLimit(limit, LimitEnd::Upper);
    }
}

std::wstring RuleEditModel::RangeText(std::size_t index) const
{
    const CQoxParamStorage& parameter = m_entries[index].parameter;
    if (!parameter.IsNumeric() || parameter.eKind == ParamKind::YesNo)
    {
        return {};
    }
    const bool hasMinimum = std::isfinite(parameter.dMinimum);
    const bool hasMaximum = std::isfinite(parameter.dMaximum);
    if (hasMinimum && hasMaximum)
    {
        return FormatText(TextId::EditorRange, { LowerLimit(parameter), UpperLimit(parameter) });
    }
    if (hasMinimum)
    {
        return FormatText(TextId::EditorRangeFrom, { LowerLimit(parameter) });
    }
    return hasMaximum ? FormatText(TextId::EditorRangeUpTo, { UpperLimit(parameter) }) : std::wstring();
}

std::wstring RuleEditModel::DefaultText(std::size_t index) const
{
    const Entry& entry = m_entries[index];
    if (entry.parameter.eKind == ParamKind::YesNo)
    {
        return LoadText(entry.parameter.dDefault != 0 ? TextId::EditorYes : TextId::EditorNo);
    }
    return WithUnit(entry, ShownDefault(entry.parameter));
}

void RuleEditModel::SetText(std::size_t index, const std::wstring& text)
{
    Entry& entry = m_entries[index];
    entry.text = text;
    Evaluate(entry);
}

std::vector<std::wstring> RuleEditModel::Options(std::size_t index) const
{
    const CQoxParamStorage& parameter = m_entries[index].parameter;
    std::vector<std::wstring> options = parameter.choices;
    for (const std::wstring& text : { parameter.strValue, parameter.strDefault.Get() })
    {
        if (std::find(options.begin(), options.end(), text) == options.end())
        {
            options.push_back(text);
        }
    }
    return options;
}

void RuleEditModel::Evaluate(Entry& entry) const
{
    entry.issue = Issue::None;
    switch (entry.parameter.eKind)
    {
    case ParamKind::Text:
        break;
    case ParamKind::Choice:
        entry.issue = Contains(entry.parameter.choices, entry.text) ? Issue::None : Issue::NotOffered;
        break;
    case ParamKind::YesNo:
        // What is neither stays so until the box is clicked.
        entry.value = entry.text == entry.original ? entry.parameter.dValue : entry.text == YesText ? 1 : 0;
        break;
    default:
        EvaluateNumber(entry);
        break;
    }
}

void RuleEditModel::EvaluateNumber(Entry& entry) const
{
    ReadNumber(entry);
    if (entry.issue != Issue::None)
    {
        return;
    }
    // Limits count as they are shown too: a conversion of units leaves noise in them.
    const CQoxParamStorage& parameter = entry.parameter;
    const std::wstring shown = Shown(parameter, entry.value);
    if (parameter.eKind == ParamKind::Integer && entry.value != std::floor(entry.value))
    {
        entry.issue = Issue::NotWhole;
    }
    else if (entry.value < parameter.dMinimum && shown != Shown(parameter, parameter.dMinimum))
    {
        entry.issue = Issue::BelowMinimum;
    }
    else if (entry.value > parameter.dMaximum && shown != Shown(parameter, parameter.dMaximum))
    {
        entry.issue = Issue::AboveMaximum;
    }
}

void RuleEditModel::ReadNumber(Entry& entry) const
{
    const CQoxParamStorage& parameter = entry.parameter;
    if (entry.text == entry.original && std::isfinite(parameter.dValue))
    {
        entry.value = parameter.dValue;
        return;
    }
    TypedValue typed;
    switch (parameter.eKind)
    {
    case ParamKind::Length:
        typed = ParseLength(entry.text, m_units.linear, m_decimalSeparator);
        break;
    case ParamKind::Angle:
        typed = ParseAngle(entry.text, m_units.angular, m_decimalSeparator);
        break;
    default:
        typed = ParseNumber(entry.text, m_decimalSeparator);
        break;
    }
    constexpr std::array Issues = { Issue::None,         Issue::Empty,       Issue::NotUnderstood,
                                    Issue::DecimalComma, Issue::UnknownUnit, Issue::PartTooLarge };
    entry.issue = Issues[static_cast<std::size_t>(typed.error)];
    entry.unknownUnit = typed.unknownUnit;
    if (entry.issue != Issue::None)
    {
        return;
    }
    // A number that is known comes back exactly, though it is shown with fewer digits.
    entry.value = typed.value;
    const std::wstring shown = Shown(parameter, typed.value);
    for (const double known : { parameter.dValue, parameter.dDefault, parameter.dMinimum, parameter.dMaximum })
    {
        if (std::isfinite(known) && Shown(parameter, known) == shown)
        {
            entry.value = known;
            return;
        }
    }
}

std::wstring RuleEditModel::Message(std::size_t index) const
{
    const Entry& entry = m_entries[index];
    const bool isLength = entry.parameter.eKind == ParamKind::Length;
    const bool isAngle = entry.parameter.eKind == ParamKind::Angle;
    switch (entry.issue)
    {
    case Issue::None:
        return {};
    case Issue::Empty:
        return LoadText(TextId::EditorEmpty);
    case Issue::DecimalComma:
        return LoadText(TextId::EditorDecimalComma);
    case Issue::UnknownUnit:
        if (isLength || isAngle)
        {
            return FormatText(isLength ? TextId::EditorNoUnitOfLength : TextId::EditorNoUnitOfAngle,
                              { entry.unknownUnit });
        }
        return LoadText(TextId::EditorNotANumber);
    case Issue::NotUnderstood:
        return LoadText(isLength  ? TextId::EditorNotALength
                        : isAngle ? TextId::EditorNotAnAngle
                                  : TextId::EditorNotANumber);
    case Issue::PartTooLarge:
        return LoadText(isLength ? TextId::EditorInchesTooLarge : TextId::EditorMinutesTooLarge);
    case Issue::NotWhole:
        return LoadText(TextId::EditorNotWhole);
    case Issue::BelowMinimum:
        return FormatText(TextId::EditorBelowMinimum, { WithUnit(entry, LowerLimit(entry.parameter)) });
    case Issue::AboveMaximum:
        return FormatText(TextId::EditorAboveMaximum, { WithUnit(entry, UpperLimit(entry.parameter)) });
    case Issue::NotOffered:
        return FormatText(IsAcceptable(index) ? TextId::EditorKeptChoice : TextId::EditorNotOffered, { entry.text });
    }
    return {};
}

bool RuleEditModel::IsAcceptable(std::size_t index) const
{
    const Entry& entry = m_entries[index];
    if (entry.issue == Issue::NotOffered)
    {
        return entry.text == entry.original || entry.text == entry.parameter.strDefault.Get();
    }
    return entry.issue == Issue::None;
}

std::optional<std::size_t> RuleEditModel::FirstWrong() const
{
    for (std::size_t index = 0; index < m_entries.size(); ++index)
    {
        if (!IsAcceptable(index))
        {
            return index;
        }
    }
    return std::nullopt;
}

bool RuleEditModel::IsDefault(std::size_t index) const
{
    const Entry& entry = m_entries[index];
    const CQoxParamStorage& parameter = entry.parameter;
    if (!parameter.IsNumeric())
    {
        return entry.text == parameter.strDefault.Get();
    }
    const bool isNumber =
        entry.issue == Issue::None || entry.issue == Issue::BelowMinimum || entry.issue == Issue::AboveMaximum;
    return isNumber && Shown(parameter, entry.value) == Shown(parameter, parameter.dDefault);
}

void RuleEditModel::Reset(std::size_t index)
{
    SetText(index, ShownDefault(m_entries[index].parameter));
}

void RuleEditModel::ResetAll()
{
    for (std::size_t index = 0; index < m_entries.size(); ++index)
    {
        Reset(index);
    }
}

int RuleEditModel::Criticality() const
{
    const bool known = m_criticality >= LowestCriticality && m_criticality <= HighestCriticality;
    return known ? m_criticality : CriticalityOfOthers;
}

void RuleEditModel::SetCriticality(int criticality)
{
    if (criticality != Criticality())
    {
        m_criticality = criticality;
    }
}

bool RuleEditModel::Differs(const Entry& entry) const
{
    const bool sameNumber =
        entry.parameter.IsNumeric() && entry.issue == Issue::None && entry.value == entry.parameter.dValue;
    return entry.text != entry.original && !sameNumber;
}

bool RuleEditModel::IsChanged() const
{
    return m_criticality != m_originalCriticality ||
           std::any_of(m_entries.begin(), m_entries.end(), [this](const Entry& entry) { return Differs(entry); });
}

bool RuleEditModel::ApplyTo(CQoxRule& rule) const
{
    std::vector<CQoxParamStorage>& parameters = rule.Parameters();
    const bool same =
        std::equal(parameters.begin(), parameters.end(), m_entries.begin(), m_entries.end(),
                   [](const CQoxParamStorage& theirs, const Entry& ours)
                   { return theirs.nNumber == ours.parameter.nNumber && theirs.eKind == ours.parameter.eKind; });
    if (!same || FirstWrong())
    {
        return false;
    }
    for (std::size_t index = 0; index < m_entries.size(); ++index)
    {
        const Entry& entry = m_entries[index];
        if (entry.parameter.IsNumeric())
        {
            parameters[index].dValue = entry.value;
        }
        else
        {
            parameters[index].strValue = entry.text;
        }
    }
    rule.m_nCriticality = m_criticality;
    return true;
}
