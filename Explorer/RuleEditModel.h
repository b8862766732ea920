#pragma once

#include <Vantrel/ParamStorage.h>
#include <Vantrel/RuleUnits.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class CQoxRule;

/// A rule while it is being edited: what was typed for each of its parameters, and what
/// that means. The rule itself stays as it is until `ApplyTo`.
///
/// Parameters are given by their place. Lengths and angles are typed in the rule's units.
class RuleEditModel
{
public:
    /// Copies what is to be edited. Typed decimals follow a point or `decimalSeparator`.
    RuleEditModel(const CQoxRule& rule, wchar_t decimalSeparator);

    std::size_t Count() const { return m_entries.size(); }
    ParamKind Kind(std::size_t index) const { return m_entries[index].parameter.eKind; }

    /// Name for people; if a rule has none for a parameter, the one for programs.
    std::wstring Label(std::size_t index) const;
    const std::wstring& Help(std::size_t index) const { return m_entries[index].parameter.strHelp; }

    /// What follows the field, such as `mm`; empty for what has no unit.
    std::wstring UnitSymbol(std::size_t index) const;

    /// The allowed values in words; empty if all are.
    std::wstring RangeText(std::size_t index) const;

    /// The default as a field shows it, with its unit.
    std::wstring DefaultText(std::size_t index) const;

    /// What stands in the field. For YesNo `1` or `0`.
    const std::wstring& Text(std::size_t index) const { return m_entries[index].text; }
    void SetText(std::size_t index, const std::wstring& text);
    bool IsYes(std::size_t index) const { return m_entries[index].text == YesText; }
    void SetYes(std::size_t index, bool yes) { SetText(index, yes ? YesText : NoText); }

    /// What a Choice can be set to: its choices, and behind them what the rule has now and
    /// what is its default if they are not among these.
    std::vector<std::wstring> Options(std::size_t index) const;

    /// What is wrong with the text, as a sentence; empty if nothing is. A Choice may have
    /// one and be acceptable: a rule made elsewhere keeps what can't be chosen here.
    std::wstring Message(std::size_t index) const;
    bool IsAcceptable(std::size_t index) const;

    /// The first parameter whose text is not acceptable.
    std::optional<std::size_t> FirstWrong() const;

    /// True if the text gives the default, as shown.
    bool IsDefault(std::size_t index) const;
    void Reset(std::size_t index);
    void ResetAll();

    /// 1 to 5. A rule with any other is shown as 3, and keeps its own until it is set.
    int Criticality() const;
    void SetCriticality(int criticality);

    /// True if `ApplyTo` would change anything.
    bool IsChanged() const;

    /// Gives the rule all that was typed, or nothing of it: false if a parameter is not
    /// acceptable, or the rule's parameters are not those that were copied. A number
    /// whose text was not touched, or comes to the same text, stays exactly as it was.
    bool ApplyTo(CQoxRule& rule) const;

private:
    enum class Issue : std::uint8_t
    {
        None,
        Empty,
        NotUnderstood,
        DecimalComma,
        UnknownUnit,
        PartTooLarge,
        NotWhole,
        BelowMinimum,
        AboveMaximum,
        NotOffered,
    };

    struct Entry
    {
        CQoxParamStorage parameter; ///< As the rule has it.
        std::wstring original;      ///< Its value as the field first shows it.
        std::wstring text;
        double value = 0; ///< What the text means, without an issue that stands in its way.
        Issue issue = Issue::None;
        std::wstring unknownUnit;
    };

    static constexpr const wchar_t* YesText = L"1";
    static constexpr const wchar_t* NoText = L"0";

    std::wstring Shown(const CQoxParamStorage& parameter, double value) const;
    std::wstring ShownValue(const CQoxParamStorage& parameter) const;
    std::wstring ShownDefault(const CQoxParamStorage& parameter) const;
    std::wstring WithUnit(const Entry& entry, const std::wstring& shown) const;
    std::wstring LowerLimit(const CQoxParamStorage& parameter) const;
    std::wstring UpperLimit(const CQoxParamStorage& parameter) const;
    bool Differs(const Entry& entry) const;
    void Evaluate(Entry& entry) const;
    void EvaluateNumber(Entry& entry) const;
    void ReadNumber(Entry& entry) const;

    RuleUnitSystemStructure m_units;
    wchar_t m_decimalSeparator;
    std::int32_t m_originalCriticality;
    std::int32_t m_criticality;
    std::vector<Entry> m_entries;
};
