#include "ModuleChecker/RuleFileCheck.h"

#include "Document/RuleFileNames.h"
#include "Platform/Text.h"

#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <algorithm>
#include <memory>

namespace ModuleChecker
{
namespace
{

constexpr RuleUnitSystemStructure Metric = {};
constexpr RuleUnitSystemStructure InchesAndRadians = { static_cast<std::int32_t>(LinearUnit::Inches),
                                                       static_cast<std::int32_t>(AngularUnit::Radians) };

/// Where two texts part, with a little of what stands around it.
std::wstring Excerpt(const std::wstring& text, std::size_t place)
{
    constexpr std::size_t Before = 30;
    constexpr std::size_t Length = 60;
    return Quoted(text.substr(place < Before ? 0 : place - Before, Length));
}

} // namespace

RuleFileCheck::RuleFileCheck(const RuleModuleExports& exports, std::wstring file, CheckReport& report)
    : m_exports(exports), m_file(std::move(file)), m_report(report)
{
}

void RuleFileCheck::Run(const OfferedRules& rules)
{
    if (m_exports.getRule == nullptr)
    {
        return;
    }
    WriteReadAndCompare(rules, Metric, L"a rule with its defaults");

    std::vector<std::vector<CQoxParamStorage>> parameters;
    std::vector<std::int32_t> criticalities;
    for (const OfferedRule& offered : rules)
    {
        parameters.push_back(offered.rule->Parameters());
        criticalities.push_back(offered.rule->m_nCriticality);
        Try(m_report, offered.place, L"UpdateRule, with units,",
            [&] { offered.rule->UpdateRule(&Metric, &InchesAndRadians); });
    }
    WriteReadAndCompare(rules, InchesAndRadians, L"a rule in inches and radians");
    for (std::size_t index = 0; index < rules.size(); ++index)
    {
        Try(m_report, rules[index].place, L"UpdateRule, with units,",
            [&] { rules[index].rule->UpdateRule(&InchesAndRadians, &Metric); });
        rules[index].rule->Parameters() = parameters[index];
        ChangeValues(*rules[index].rule);
    }
    WriteReadAndCompare(rules, Metric, L"a rule with changed values");
    for (std::size_t index = 0; index < rules.size(); ++index)
    {
        rules[index].rule->Parameters() = parameters[index];
        rules[index].rule->m_nCriticality = criticalities[index];
    }
    CheckForeignElements(rules);
}

void RuleFileCheck::WriteReadAndCompare(const OfferedRules& rules, const RuleUnitSystemStructure& units,
                                        const std::wstring& state)
{
    const Elements written = Write(rules, units);
    const OfferedRules read = Read(rules, written);
    const Elements again = Write(read, units);
    for (std::size_t index = 0; index < read.size(); ++index)
    {
        const auto rule = std::find_if(rules.begin(), rules.end(),
                                       [&](const OfferedRule& offered) { return offered.place == read[index].place; });
        Compare(*rule, written[static_cast<std::size_t>(rule - rules.begin())], again[index], state);
    }
    GiveBack(read);
}

RuleFileCheck::Elements RuleFileCheck::Write(const OfferedRules& rules, const RuleUnitSystemStructure& units)
{
    QoxXMLDocument document;
    Elements elements;
    const DocumentInUse inUse(m_exports, document, m_report);
    const std::unique_ptr<QoxXMLNode> root(document.CreateNode1(RuleFileNames::Root));
    root->AddAttribute1(RuleFileNames::Unit, std::to_string(units.linear).c_str());
    root->AddAttribute1(RuleFileNames::AngularUnit, std::to_string(units.angular).c_str());
    document.AppendNode(root.get());
    for (const OfferedRule& offered : rules)
    {
        elements.push_back(ElementOf(offered, *root));
    }
    if (!document.Save(m_file))
    {
        m_report.Error({}, L"the rule file " + Quoted(m_file) + L" can't be written; nothing can be said about it");
    }
    return elements;
}

std::wstring RuleFileCheck::ElementOf(const OfferedRule& offered, QoxXMLNode& root)
{
    std::unique_ptr<QoxXMLNode> element;
    if (!Try(m_report, offered.place, L"GetXML", [&] { element.reset(offered.rule->GetXML()); }))
    {
        return {};
    }
    if (element == nullptr)
    {
        m_report.Error(offered.place, L"GetXML gives no element, so the rule is missing in every file");
        return {};
    }
    std::wstring text = element->GetXML();
    std::wstring moduleName;
    if (!text.starts_with(L"<Rule") || !element->GetAttributeValue(RuleFileNames::RuleModule, moduleName))
    {
        m_report.Error(offered.place, L"GetXML gives no Rule element with the attribute RuleModule");
        return {};
    }
    root.AppendNode(element.get());
    return text;
}

OfferedRules RuleFileCheck::Read(const OfferedRules& written, const Elements& elements)
{
    OfferedRules read;
    QoxXMLDocument document;
    const DocumentInUse inUse(m_exports, document, m_report);
    const std::unique_ptr<QoxXMLNode> root(document.LoadFromFile(m_file));
    if (root == nullptr)
    {
        m_report.Error({}, L"a rule file with the module's rules isn't XML");
        return read;
    }
    const std::unique_ptr<QoxXMLNodeList> list(root->GetNodeList1(RuleFileNames::Rule));
    const long count = list != nullptr ? list->GetSize() : 0;
    long position = 0;
    for (std::size_t index = 0; index < written.size() && position < count; ++index)
    {
        if (!elements[index].empty())
        {
            const std::unique_ptr<QoxXMLNode> element((*list)[position++]);
            ReadOne(element.get(), written[index], read);
        }
    }
    return read;
}

void RuleFileCheck::ReadOne(QoxXMLNode* element, const OfferedRule& written, OfferedRules& read)
{
    CQoxRule* rule = nullptr;
    if (!Try(m_report, written.place, L"GetRule", [&] { m_exports.getRule(element, rule); }))
    {
        return;
    }
    if (rule == nullptr)
    {
        m_report.Error(written.place, L"GetRule doesn't know the rule's own element: the rule is lost with each file");
        return;
    }
    if (rule == written.rule)
    {
        m_report.Error(written.place, L"GetRule gives an object that GetAllRules gave; it has to make a new one");
        return;
    }
    if (!Platform::EqualsNoCase(rule->m_strRuleName, written.rule->m_strRuleName))
    {
        m_report.Error(written.place, L"GetRule makes rule " + Quoted(rule->m_strRuleName) + L" of its element");
    }
    else if (!Platform::EqualsNoCase(rule->m_strSummary2, written.rule->m_strSummary2))
    {
        m_report.Error(written.place, L"the second summary isn't the same in a rule of a file, so that the rule isn't "
                                      L"found in the list");
    }
    read.push_back({ rule, written.place });
}

void RuleFileCheck::Compare(const OfferedRule& rule, const std::wstring& before, const std::wstring& after,
                            const std::wstring& state)
{
    if (before == after || after.empty()) // there is a finding for what gave no element
    {
        return;
    }
    const auto [one, other] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto place = static_cast<std::size_t>(one - before.begin());
    m_report.Error(rule.place, state + L" comes back from a file as another: " + Excerpt(before, place) + L" became " +
                                   Excerpt(after, place));
}

void RuleFileCheck::CheckForeignElements(const OfferedRules& rules)
{
    if (rules.empty())
    {
        return;
    }
    constexpr const wchar_t* AnotherModule = L"A Module Of Somebody Else";
    QoxXMLDocument document;
    const DocumentInUse inUse(m_exports, document, m_report);
    for (const wchar_t* const moduleName : { AnotherModule, L"" })
    {
        const std::unique_ptr<QoxXMLNode> element(document.CreateNode1(RuleFileNames::Rule));
        element->AddAttribute(RuleFileNames::RuleModule, moduleName);
        element->AddAttribute(L"RuleName", rules.front().rule->m_strRuleName);
        CQoxRule* rule = nullptr;
        Try(m_report, L"a rule of another module", L"GetRule", [&] { m_exports.getRule(element.get(), rule); });
        if (rule != nullptr)
        {
            m_report.Error(rules.front().place, L"GetRule takes an element with the RuleModule " + Quoted(moduleName) +
                                                    L", which isn't the module's");
            GiveBack({ { rule, rules.front().place } });
        }
    }
}

void RuleFileCheck::GiveBack(const OfferedRules& rules)
{
    if (m_exports.deleteRule == nullptr)
    {
        return;
    }
    for (const OfferedRule& offered : rules)
    {
        CQoxRule* rule = offered.rule;
        Try(m_report, offered.place, L"DeleteRule, for a rule of a file,", [&] { m_exports.deleteRule(&rule); });
    }
}

} // namespace ModuleChecker
