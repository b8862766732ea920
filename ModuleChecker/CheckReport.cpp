#include "ModuleChecker/CheckReport.h"

#include <Vantrel/QoxRule.h>

#include <algorithm>

namespace ModuleChecker
{

void CheckReport::Add(CheckNote::Kind kind, const std::wstring& place, const std::wstring& text)
{
    CheckNote note{ kind, place.empty() ? text : place + L": " + text };
    std::replace_if(
        note.text.begin(), note.text.end(), [](wchar_t c) { return c < L' ' || c == L'\x7f'; }, L' ');
    m_sink(note);
}

std::wstring Quoted(std::wstring_view text)
{
    return L'"' + std::wstring(text) + L'"';
}

std::wstring Counted(std::size_t count, const std::wstring& what)
{
    return std::to_wstring(count) + L" " + what + (count == 1 ? L"" : L"s");
}

std::wstring PlaceOf(const CQoxRule& rule, std::int32_t number)
{
    return rule.m_strRuleName.empty() ? L"rule " + std::to_wstring(number) + L" without a name"
                                      : L"rule " + Quoted(rule.m_strRuleName);
}

std::wstring PlaceOf(const std::wstring& rule, const CQoxParamStorage& parameter)
{
    const std::wstring name = parameter.strName.empty() ? std::wstring() : L" " + Quoted(parameter.strName.Get());
    return rule + L", parameter " + std::to_wstring(parameter.nNumber) + name;
}

} // namespace ModuleChecker
