#include "ModuleChecker/OfferedRule.h"

#include "ModuleChecker/ModuleExports.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxRule.h>

#include <cmath>

namespace ModuleChecker
{
namespace
{

double AnotherNumber(const CQoxParamStorage& parameter)
{
    for (const double end : { parameter.dMaximum, parameter.dMinimum })
    {
        if (std::isfinite(end) && end != parameter.dValue)
        {
            return parameter.eKind == ParamKind::Integer ? std::round(end) : end;
        }
    }
    return parameter.dValue + 1;
}

void ChangeValue(CQoxParamStorage& parameter)
{
    switch (parameter.eKind)
    {
    case ParamKind::YesNo:
        parameter.dValue = parameter.dValue == 0 ? 1 : 0;
        break;
    case ParamKind::Text:
        parameter.strValue = L"A text with <signs> & \"quotes\"";
        break;
    case ParamKind::Choice:
        if (!parameter.choices.empty())
        {
            const bool isLast = parameter.strValue == parameter.choices.back();
            parameter.strValue = isLast ? parameter.choices.front() : parameter.choices.back();
        }
        break;
    default:
        parameter.dValue = AnotherNumber(parameter);
        break;
    }
}

} // namespace

void ChangeValues(CQoxRule& rule)
{
    rule.m_nCriticality = rule.m_nCriticality % HighestCriticality + 1;
    for (CQoxParamStorage& parameter : rule.Parameters())
    {
        ChangeValue(parameter);
    }
}

DocumentInUse::DocumentInUse(const RuleModuleExports& exports, QoxXMLDocument& document, CheckReport& report)
{
    ::SetXMLDoc(&document);
    if (exports.setXMLDoc != nullptr)
    {
        Try(report, {}, L"SetXMLDoc", [&] { exports.setXMLDoc(&document); });
    }
}

DocumentInUse::~DocumentInUse()
{
    ::SetXMLDoc(nullptr);
}

} // namespace ModuleChecker
