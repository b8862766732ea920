#include "Platform/CharacterCase.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Posix/UpperCharacter.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cwchar>
#include <cwctype>
#include <langinfo.h>

namespace Platform
{
namespace
{

constexpr wchar_t Replacement = 0xFFFD;

bool IsSurrogateOrBeyond(wchar_t character)
{
    const auto code = static_cast<char32_t>(character);
    return code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
}

std::string_view CodePageName()
{
    return nl_langinfo(CODESET);
}

bool CodePageIsUtf8()
{
    return CodePageName() == "UTF-8";
}

/// True in the locale "C" and its alias "POSIX".
bool CodePageIsAscii()
{
    return CodePageName() == "ANSI_X3.4-1968";
}

/// Converts by the locale's own table. `lost` tells whether a character was replaced.
std::string Narrow(std::wstring_view text, bool& lost)
{
    std::string result;
    result.reserve(text.size());
    std::array<char, MB_LEN_MAX> bytes = {};
    std::mbstate_t state = {};
    for (const wchar_t character : text)
    {
        const auto code = static_cast<char32_t>(character);
        if (code < 0x80)
        {
            result += static_cast<char>(character);
            continue;
        }
        const std::size_t count = CodePageIsAscii() || IsSurrogateOrBeyond(character)
                                    ? static_cast<std::size_t>(-1)
                                    : std::wcrtomb(bytes.data(), character, &state);
        if (count == static_cast<std::size_t>(-1))
        {
            lost = true;
            state = {};
            result += '?';
        }
        else
        {
            result.append(bytes.data(), count);
        }
    }
    return result;
}

locale_t CaseLocale()
{
    // Made once and kept: the loops over paths ask for it with every character.
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

} // namespace

wchar_t LowerCharacter(wchar_t character)
{
    const locale_t locale = CaseLocale();
    const auto code = static_cast<std::wint_t>(static_cast<char32_t>(character));
    return static_cast<wchar_t>(locale != nullptr ? towlower_l(code, locale) : std::towlower(code));
}

wchar_t Posix::UpperCharacter(wchar_t character)
{
    const locale_t locale = CaseLocale();
    const auto code = static_cast<std::wint_t>(static_cast<char32_t>(character));
    return static_cast<wchar_t>(locale != nullptr ? towupper_l(code, locale) : std::towupper(code));
}

std::string ToCodePage(std::wstring_view text)
{
    bool lost = false;
    return CodePageIsUtf8() ? WideToUtf8(text) : Narrow(text, lost);
}

std::wstring FromCodePage(std::string_view text)
{
    if (CodePageIsUtf8())
    {
        return Utf8ToWide(text);
    }
    const bool ascii = CodePageIsAscii();
    std::wstring result;
    result.reserve(text.size());
    std::mbstate_t state = {};
    for (std::size_t index = 0; index < text.size();)
    {
        if (static_cast<unsigned char>(text[index]) < 0x80)
        {
            result += static_cast<wchar_t>(text[index++]);
            continue;
        }
        wchar_t character = 0;
        const std::size_t count = ascii ? static_cast<std::size_t>(-1)
                                        : std::mbrtowc(&character, text.data() + index, text.size() - index, &state);
        // The two largest values mean a wrong byte and a character that is cut off.
        if (count == 0 || count > text.size() - index || IsSurrogateOrBeyond(character))
        {
            state = {};
            result += Replacement;
            ++index;
            continue;
        }
        result += character;
        index += count;
    }
    return result;
}

namespace Posix
{

std::string PathBytes(std::wstring_view path)
{
    if (path.find(L'\0') != std::wstring_view::npos || std::any_of(path.begin(), path.end(), IsSurrogateOrBeyond))
    {
        return {};
    }
    if (CodePageIsUtf8() || CodePageIsAscii())
    {
        return WideToUtf8(path);
    }
    bool lost = false;
    std::string bytes = Narrow(path, lost);
    return lost ? std::string() : bytes;
}

std::wstring PathText(std::string_view bytes)
{
    return CodePageIsAscii() ? Utf8ToWide(bytes) : FromCodePage(bytes);
}

} // namespace Posix
} // namespace Platform
