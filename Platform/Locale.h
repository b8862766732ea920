#pragma once

#include <cstdint>
#include <string>

/// Language and country as the system and its user have them.
namespace Platform
{

/// Identifier of the language in which the user works, by the numbering of language
/// identifiers that the registry and the resources use (1033 is English in the United
/// States, also where none is set).
std::uint32_t UserLanguageId();

/// ISO 639 name of the language of the system's default locale, such as "zh".
std::wstring SystemLanguageName();

/// ISO 3166 name of the country of the system's default locale, such as "CN".
std::wstring SystemCountryName();

/// What the user's locale has between a number and its decimals, whatever locale the
/// program runs in. A point if the system doesn't tell.
wchar_t UserDecimalSeparator();

} // namespace Platform
