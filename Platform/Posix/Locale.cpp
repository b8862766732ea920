#include "Platform/Locale.h"

#include "Platform/Posix/PathBytes.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <initializer_list>
#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): locales beside that of the process
#include <string_view>

namespace Platform
{
namespace
{

struct LocaleName
{
    std::string language;
    std::string country;
};

/// The parts of a name like `zh_TW.UTF-8@variant`. What is no such name, as "C", is the
/// English of the United States.
LocaleName ParseLocaleName(std::string_view name)
{
    name = name.substr(0, name.find_first_of(".@"));
    const std::size_t separator = name.find('_');
    const std::string_view language = name.substr(0, separator);
    const std::string_view country =
        separator == std::string_view::npos ? std::string_view() : name.substr(separator + 1);
    const auto isLetter = [](unsigned char character) { return std::isalpha(character) != 0; };
    const bool isName = (language.size() == 2 || language.size() == 3) &&
                        std::all_of(language.begin(), language.end(), isLetter) &&
                        std::all_of(country.begin(), country.end(), isLetter);
    return isName ? LocaleName{ std::string(language), std::string(country) } : LocaleName{ "en", "US" };
}

/// Locale by the first of the variables that is set to anything.
LocaleName LocaleByVariables(std::initializer_list<const char*> variables)
{
    for (const char* const variable : variables)
    {
        const char* const value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
        {
            return ParseLocaleName(value);
        }
    }
    return ParseLocaleName({});
}

/// Where the user has set one category of the locale apart, that is a choice for these
/// programs; the system's own locale is the one for all categories.
LocaleName UserLocale()
{
    return LocaleByVariables({ "LC_ALL", "LC_MESSAGES", "LANG" });
}

LocaleName SystemLocale()
{
    return LocaleByVariables({ "LANG", "LC_ALL" });
}

struct LanguageId
{
    std::string_view language;
    std::string_view country; ///< Empty: any that has no row of its own.
    std::uint32_t id;
};

constexpr std::array LanguageIds = {
    LanguageId{ "zh", "TW", 1028 }, LanguageId{ "zh", "HK", 3076 }, LanguageId{ "zh", "SG", 4100 },
    LanguageId{ "zh", "MO", 5124 }, LanguageId{ "zh", "", 2052 },   LanguageId{ "cs", "", 1029 },
    LanguageId{ "de", "CH", 2055 }, LanguageId{ "de", "AT", 3079 }, LanguageId{ "de", "LU", 4103 },
    LanguageId{ "de", "LI", 5127 }, LanguageId{ "de", "", 1031 },   LanguageId{ "es", "MX", 2058 },
    LanguageId{ "es", "", 1034 },   LanguageId{ "fr", "BE", 2060 }, LanguageId{ "fr", "CA", 3084 },
    LanguageId{ "fr", "CH", 4108 }, LanguageId{ "fr", "LU", 5132 }, LanguageId{ "fr", "", 1036 },
    LanguageId{ "it", "CH", 2064 }, LanguageId{ "it", "", 1040 },   LanguageId{ "ja", "", 1041 },
    LanguageId{ "ko", "", 1042 },   LanguageId{ "pl", "", 1045 },   LanguageId{ "pt", "PT", 2070 },
    LanguageId{ "pt", "", 1046 },   LanguageId{ "ru", "", 1049 },   LanguageId{ "en", "", 1033 },
};

constexpr std::uint32_t UnlistedLanguage = 1033;

} // namespace

std::uint32_t UserLanguageId()
{
    const LocaleName locale = UserLocale();
    const auto* const found =
        std::find_if(LanguageIds.begin(), LanguageIds.end(),
                     [&locale](const LanguageId& candidate)
                     {
                         return candidate.language == locale.language &&
                                (candidate.country.empty() || candidate.country == locale.country);
                     });
    return found != LanguageIds.end() ? found->id : UnlistedLanguage;
}

std::wstring SystemLanguageName()
{
    return Posix::PathText(SystemLocale().language);
}

std::wstring SystemCountryName()
{
    return Posix::PathText(SystemLocale().country);
}

wchar_t UserDecimalSeparator()
{
    const locale_t locale = ::newlocale(LC_CTYPE_MASK | LC_NUMERIC_MASK, "", nullptr);
    if (locale == nullptr)
    {
        return L'.'; // the user's locale isn't installed
    }
    const locale_t before = ::uselocale(locale);
    wchar_t separator = L'.';
    std::mbstate_t state = {};
    const char* const bytes = ::nl_langinfo_l(RADIXCHAR, locale);
    const std::size_t length = std::mbrtowc(&separator, bytes, std::strlen(bytes), &state);
    ::uselocale(before);
    ::freelocale(locale);
    const bool told = length != 0 && length != static_cast<std::size_t>(-1) && length != static_cast<std::size_t>(-2);
    return told ? separator : L'.';
}

} // namespace Platform
