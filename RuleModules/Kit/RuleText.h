#pragma once

#include <cstdint>
#include <string_view>

/// A text that people see: its number in the program's resource texts, and how it reads in
/// English, for programs that have no such texts. The headers `RuleModules/Texts/*.h` with
/// all of them are made from `Lang/english/rules-*.texts`.
struct RuleText
{
    std::uint32_t number = 0;
    std::wstring_view english;
};

/// The texts of a rule.
struct RuleTextSet
{
    RuleText name;
    RuleText summary; ///< What the rule finds, in a sentence.
    RuleText detail;  ///< Why it matters.
};

/// The texts of a parameter.
struct ParamTextSet
{
    RuleText label;
    RuleText help; ///< What the value means, in a sentence or two.
};
