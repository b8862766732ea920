#include "Platform/Text.h"

#include "Platform/CharacterCase.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Platform
{
namespace
{

constexpr char32_t Replacement = 0xFFFD;
constexpr std::string_view ReplacementBytes = "\xEF\xBF\xBD";
constexpr char32_t LastCodePoint = 0x10FFFF;

constexpr bool IsSurrogate(char32_t code)
{
    return code >= 0xD800 && code <= 0xDFFF;
}

/// Takes the next character from 16-bit units that may hold pairs.
template <typename Unit>
char32_t TakeFromPairs(std::basic_string_view<Unit> text, std::size_t& index)
{
    const char32_t first = static_cast<char16_t>(text[index++]);
    if (!IsSurrogate(first))
    {
        return first;
    }
    if (first >= 0xDC00 || index == text.size())
    {
        return Replacement;
    }
    const char32_t second = static_cast<char16_t>(text[index]);
    if (second < 0xDC00 || second > 0xDFFF)
    {
        return Replacement;
    }
    ++index;
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

/// Takes the next character of wide text, whatever the width of its units.
char32_t TakeWide(std::wstring_view text, std::size_t& index)
{
    if constexpr (sizeof(wchar_t) == sizeof(char16_t))
    {
        return TakeFromPairs(text, index);
    }
    else
    {
        const auto code = static_cast<char32_t>(text[index++]);
        return code > LastCodePoint || IsSurrogate(code) ? Replacement : code;
    }
}

template <typename Unit>
void AppendAsPair(std::basic_string<Unit>& result, char32_t code)
{
    if (code < 0x10000)
    {
        result += static_cast<Unit>(code);
        return;
    }
    result += static_cast<Unit>(0xD800 + ((code - 0x10000) >> 10));
    result += static_cast<Unit>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

void AppendWide(std::wstring& result, char32_t code)
{
    if constexpr (sizeof(wchar_t) == sizeof(char16_t))
    {
        AppendAsPair(result, code);
    }
    else
    {
        result += static_cast<wchar_t>(code);
    }
}

void AppendUtf8(std::string& result, char32_t code)
{
    const auto tail = [&result](char32_t bits) { result += static_cast<char>(0x80 | (bits & 0x3F)); };
    if (code < 0x80)
    {
        result += static_cast<char>(code);
    }
    else if (code < 0x800)
    {
        result += static_cast<char>(0xC0 | (code >> 6));
        tail(code);
    }
    else if (code < 0x10000)
    {
        result += static_cast<char>(0xE0 | (code >> 12));
        tail(code >> 6);
        tail(code);
    }
    else
    {
        result += static_cast<char>(0xF0 | (code >> 18));
        tail(code >> 12);
        tail(code >> 6);
        tail(code);
    }
}

/// Takes one character that doesn't lie in ASCII. Of a broken sequence only what can
/// begin a character is taken, so that the text behind it isn't lost.
char32_t TakeUtf8(std::string_view text, std::size_t& index)
{
    const auto first = static_cast<unsigned char>(text[index++]);
    std::size_t count = 0;
    // The bounds of the second byte shut out overlong forms, surrogates and what lies
    // above the last code point.
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    char32_t code = 0;
    if (first >= 0xC2 && first <= 0xDF)
    {
        count = 1;
        code = first & 0x1F;
    }
    else if (first >= 0xE0 && first <= 0xEF)
    {
        count = 2;
        code = first & 0x0F;
        low = first == 0xE0 ? 0xA0 : low;
        high = first == 0xED ? 0x9F : high;
    }
    else if (first >= 0xF0 && first <= 0xF4)
    {
        count = 3;
        code = first & 0x07;
        low = first == 0xF0 ? 0x90 : low;
        high = first == 0xF4 ? 0x8F : high;
    }
    else
    {
        return Replacement;
    }
    for (; count > 0; --count)
    {
        if (index == text.size())
        {
            return Replacement;
        }
        const auto next = static_cast<unsigned char>(text[index]);
        if (next < low || next > high)
        {
            return Replacement;
        }
        code = (code << 6) | (next & 0x3F);
        low = 0x80;
        high = 0xBF;
        ++index;
    }
    return code;
}

/// Index of the first byte from `index` on that isn't ASCII.
std::size_t EndOfAscii(std::string_view text, std::size_t index)
{
    std::uint64_t eight = 0;
    while (text.size() - index >= sizeof(eight))
    {
        std::memcpy(&eight, text.data() + index, sizeof(eight));
        if ((eight & 0x8080808080808080u) != 0)
        {
            break;
        }
        index += sizeof(eight);
    }
    while (index < text.size() && static_cast<unsigned char>(text[index]) < 0x80)
    {
        ++index;
    }
    return index;
}

/// Index of the first unit from `index` on that isn't ASCII.
std::size_t EndOfAscii(std::wstring_view text, std::size_t index)
{
    while (index < text.size() && static_cast<char32_t>(text[index]) < 0x80)
    {
        ++index;
    }
    return index;
}

/// Appends `count` units that are known to be ASCII. Rule files are nearly all ASCII and
/// have megabytes, so this is what the speed of a load hangs on.
template <typename To, typename From>
void AppendAscii(std::basic_string<To>& result, const From* from, std::size_t count)
{
    const std::size_t start = result.size();
    result.resize(start + count);
    To* to = result.data() + start;
    for (std::size_t index = 0; index < count; ++index)
    {
        to[index] = static_cast<To>(from[index]);
    }
}

wchar_t Lower(wchar_t character)
{
    if (static_cast<char32_t>(character) < 0x80)
    {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
    }
    return LowerCharacter(character);
}

} // namespace

std::string WideToUtf8(std::wstring_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size();)
    {
        const std::size_t end = EndOfAscii(text, index);
        AppendAscii(result, text.data() + index, end - index);
        index = end;
        while (index < text.size() && static_cast<char32_t>(text[index]) >= 0x80)
        {
            AppendUtf8(result, TakeWide(text, index));
        }
    }
    return result;
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t index = EndOfAscii(text, 0); index < text.size(); index = EndOfAscii(text, index))
    {
        const std::size_t start = index;
        // The replacement character may stand there itself.
        if (TakeUtf8(text, index) == Replacement && text.substr(start, index - start) != ReplacementBytes)
        {
            return false;
        }
    }
    return true;
}

std::wstring Utf8ToWide(std::string_view text)
{
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size();)
    {
        const std::size_t end = EndOfAscii(text, index);
        AppendAscii(result, text.data() + index, end - index);
        index = end;
        while (index < text.size() && static_cast<unsigned char>(text[index]) >= 0x80)
        {
            AppendWide(result, TakeUtf8(text, index));
        }
    }
    return result;
}

std::u16string WideToUtf16(std::wstring_view text)
{
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size();)
    {
        AppendAsPair(result, TakeWide(text, index));
    }
    return result;
}

std::wstring Utf16ToWide(std::u16string_view text)
{
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t index = 0; index < text.size();)
    {
        AppendWide(result, TakeFromPairs(text, index));
    }
    return result;
}

std::wstring ToLower(std::wstring_view text)
{
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), Lower);
    return result;
}

bool EqualsNoCase(std::wstring_view first, std::wstring_view second)
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](wchar_t a, wchar_t b) { return a == b || Lower(a) == Lower(b); });
}

} // namespace Platform
