#include "ModuleChecker/RuleValueCheck.h"

#include "Utilities/EnumEngine.h"

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <array>
#include <memory>

namespace ModuleChecker
{
namespace
{

constexpr std::int32_t LinearUnits = 11;
constexpr std::int32_t AngularUnits = 4;
constexpr RuleUnitSystemStructure Metric = {};

/// The numbers of a parameter that are in a unit, and what they are called.
struct Number
{
    double CQoxParamStorage::*number;
    const wchar_t* name;
};

constexpr std::array Numbers = {
    Number{ &CQoxParamStorage::dValue, L"the value" },
    Number{ &CQoxParamStorage::dDefault, L"the default" },
    Number{ &CQoxParamStorage::dMinimum, L"the smallest allowed value" },
    Number{ &CQoxParamStorage::dMaximum, L"the largest allowed value" },
};

/// Equal as people see them.
bool LooksEqual(double one, double other)
{
    return one == other || FormatShownNumber(one) == FormatShownNumber(other);
}

std::wstring UnitName(ParamKind kind, const RuleUnitSystemStructure& units)
{
    std::wstring name;
    const bool isAngle = kind == ParamKind::Angle;
    CEnumEngine().GetTextFromEnum(isAngle ? CEnumEngine::AngularKind : CEnumEngine::LinearKind,
                                  static_cast<std::uint32_t>(isAngle ? units.angular : units.linear), name);
    return name;
}

double Converted(const CQoxParamStorage& parameter, double number, const RuleUnitSystemStructure& units)
{
    switch (parameter.eKind)
    {
    case ParamKind::Length:
        return ConvertLength(number, Metric.linear, units.linear);
    case ParamKind::Angle:
        return ConvertAngle(number, Metric.angular, units.angular);
    default:
        return number;
    }
}

/// Each pair of a length unit and an angle unit.
std::vector<RuleUnitSystemStructure> AllUnits()
{
    std::vector<RuleUnitSystemStructure> all;
    for (std::int32_t linear = 0; linear < LinearUnits; ++linear)
    {
        for (std::int32_t angular = 0; angular < AngularUnits; ++angular)
        {
            all.push_back({ linear, angular });
        }
    }
    return all;
}

} // namespace

void RuleValueCheck::Run(const OfferedRules& rules, const OfferedRules& others)
{
    for (const OfferedRule& offered : rules)
    {
        CheckUnits(offered);
    }
    for (std::size_t index = 0; index < std::min(rules.size(), others.size()); ++index)
    {
        CheckTakingOver(rules[index], *others[index].rule);
        CheckCopies(rules[index], *others[index].rule);
    }
}

void RuleValueCheck::CheckUnits(const OfferedRule& offered)
{
    CQoxRule& rule = *offered.rule;
    const Parameters before = rule.Parameters();
    const std::vector<RuleUnitSystemStructure> all = AllUnits();
    const auto isInOrder = [&](const RuleUnitSystemStructure& first)
    {
        rule.UpdateRule(&Metric, &first);
        const bool converts = ConvertsTo(offered, before, first);
        rule.UpdateRule(&first, &Metric);
        return converts && std::all_of(all.begin(), all.end(),
                                       [&](const RuleUnitSystemStructure& second)
                                       {
                                           rule.UpdateRule(&Metric, &first);
                                           rule.UpdateRule(&first, &second);
                                           rule.UpdateRule(&second, &Metric);
                                           return ComesBack(offered, before, first, second);
                                       });
    };
    // The first finding is enough: the others come of the same.
    Try(m_report, offered.place, L"UpdateRule, with units,", [&] { std::all_of(all.begin(), all.end(), isInOrder); });
    rule.Parameters() = before;
}

bool RuleValueCheck::ConvertsTo(const OfferedRule& offered, const Parameters& before,
                                const RuleUnitSystemStructure& units)
{
    const Parameters& after = offered.rule->Parameters();
    if (after.size() != before.size())
    {
        m_report.Error(offered.place, L"UpdateRule, with units, adds or removes parameters");
        return false;
    }
    for (std::size_t index = 0; index < before.size(); ++index)
    {
        for (const Number& number : Numbers)
        {
            const double expected = Converted(before[index], before[index].*number.number, units);
            const double found = after[index].*number.number;
            if (!LooksEqual(found, expected))
            {
                m_report.Error(PlaceOf(offered.place, before[index]),
                               number.name + std::wstring(L" isn't converted to ") +
                                   UnitName(before[index].eKind, units) + L": " + FormatShownNumber(found) +
                                   L" in place of " + FormatShownNumber(expected));
                return false;
            }
        }
    }
    return true;
}

bool RuleValueCheck::ComesBack(const OfferedRule& offered, const Parameters& before,
                               const RuleUnitSystemStructure& first, const RuleUnitSystemStructure& second)
{
    const Parameters& after = offered.rule->Parameters();
    for (std::size_t index = 0; index < std::min(before.size(), after.size()); ++index)
    {
        for (const Number& number : Numbers)
        {
            const double was = before[index].*number.number;
            const double is = after[index].*number.number;
            if (!LooksEqual(is, was))
            {
                const ParamKind kind = before[index].eKind;
                m_report.Error(PlaceOf(offered.place, before[index]),
                               number.name + std::wstring(L" ") + FormatShownNumber(was) + L" is " +
                                   FormatShownNumber(is) + L" after a change of units to " + UnitName(kind, first) +
                                   L", " + UnitName(kind, second) + L" and back");
                return false;
            }
        }
    }
    return true;
}

void RuleValueCheck::CheckTakingOver(const OfferedRule& offered, CQoxRule& other)
{
    const Parameters before = offered.rule->Parameters();
    const std::int32_t criticality = offered.rule->m_nCriticality;
    ChangeValues(*offered.rule);
    bool taken = false;
    if (Try(m_report, offered.place, L"UpdateRule, with a rule,", [&] { taken = other.UpdateRule(offered.rule); }))
    {
        const Parameters& theirs = offered.rule->Parameters();
        const Parameters& ours = other.Parameters();
        const bool equal = std::equal(theirs.begin(), theirs.end(), ours.begin(), ours.end(),
                                      [](const CQoxParamStorage& one, const CQoxParamStorage& another)
                                      { return one.dValue == another.dValue && one.strValue == another.strValue; });
        if (!taken || !equal)
        {
            m_report.Error(offered.place, L"UpdateRule doesn't take over the values of another rule of its kind");
        }
    }
    offered.rule->Parameters() = before;
    offered.rule->m_nCriticality = criticality;
}

void RuleValueCheck::CheckCopies(const OfferedRule& offered, CQoxRule& other)
{
    QoxXMLDocument document;
    const DocumentInUse inUse(m_exports, document, m_report);
    const std::wstring original = ElementOf(*offered.rule, offered.place);
    ConcreteQOXRule documentCopy;
    for (CQoxRule* const copy : { static_cast<CQoxRule*>(&documentCopy), &other })
    {
        if (Try(m_report, offered.place, L"operator=, with a rule,", [&] { *copy = offered.rule; }) &&
            ElementOf(*copy, offered.place) != original)
        {
            const wchar_t* const what = copy == &other ? L"a copy of the rule by its own operator= is another"
                                                       : L"a document's copy of the rule is another";
            m_report.Error(offered.place, what);
        }
    }
}

std::wstring RuleValueCheck::ElementOf(CQoxRule& rule, const std::wstring& place)
{
    std::unique_ptr<QoxXMLNode> element;
    Try(m_report, place, L"GetXML", [&] { element.reset(rule.GetXML()); });
    return element != nullptr ? element->GetXML() : std::wstring();
}

} // namespace ModuleChecker
