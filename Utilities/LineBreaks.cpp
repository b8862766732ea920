#include "Utilities/LineBreaks.h"

#include <cstddef>

namespace
{

constexpr std::wstring_view Closing = L"!%),.:;?]}"
                                      L"\u2019\u201d\u2025\u2026"
                                      L"\u3001\u3002\u3005\u3009\u300b\u300d\u300f\u3011\u3015\u3017"
                                      // small kana, and signs that lengthen or repeat
                                      L"\u3041\u3043\u3045\u3047\u3049\u3063\u3083\u3085\u3087\u308e\u309d\u309e"
                                      L"\u30a1\u30a3\u30a5\u30a7\u30a9\u30c3\u30e3\u30e5\u30e7\u30ee\u30f5\u30f6"
                                      L"\u30fb\u30fc\u30fd\u30fe"
                                      L"\uff01\uff05\uff09\uff0c\uff0e\uff1a\uff1b\uff1f\uff3d\uff5d";

constexpr std::wstring_view Opening = L"([{"
                                      L"\u2018\u201c"
                                      L"\u3008\u300a\u300c\u300e\u3010\u3014\u3016"
                                      L"\uff08\uff3b\uff5b";

bool IsOneOf(wchar_t character, std::wstring_view set)
{
    return set.find(character) != std::wstring_view::npos;
}

/// Chinese and Japanese characters. Korean is written with blanks.
bool IsOfScriptWithoutBlanks(wchar_t character)
{
    const auto code = static_cast<char32_t>(character);
    return (code >= 0x2e80 && code <= 0x9fff) || (code >= 0xf900 && code <= 0xfaff) ||
           (code >= 0xff01 && code <= 0xff60) || (code >= 0x20000 && code <= 0x3ffff);
}

bool MayBreakBetween(wchar_t before, wchar_t after)
{
    if (before == L' ' || after == L' ')
    {
        return after != L' ';
    }
    return (IsOfScriptWithoutBlanks(before) || IsOfScriptWithoutBlanks(after)) && !IsOneOf(before, Opening) &&
           !IsOneOf(after, Closing);
}

std::wstring WithoutBlanksAtEnd(std::wstring_view line)
{
    return std::wstring(line.substr(0, line.find_last_not_of(L' ') + 1));
}

std::wstring BrokenParagraph(std::wstring_view text, int width, const std::function<int(const std::wstring&)>& widthOf)
{
    std::wstring lines;
    std::size_t start = 0;     // of the line
    std::size_t lastBreak = 0; // where the line may end; at its start if there is no such place yet
    for (std::size_t place = 1; place <= text.size(); ++place)
    {
        if (place < text.size() && !MayBreakBetween(text[place - 1], text[place]))
        {
            continue;
        }
        if (lastBreak > start && widthOf(WithoutBlanksAtEnd(text.substr(start, place - start))) > width)
        {
            lines += WithoutBlanksAtEnd(text.substr(start, lastBreak - start)) + L'\n';
            start = lastBreak;
        }
        lastBreak = place;
    }
    return lines + WithoutBlanksAtEnd(text.substr(start));
}

} // namespace

std::wstring BrokenIntoLines(std::wstring_view text, int width, const std::function<int(const std::wstring&)>& widthOf)
{
    std::wstring lines;
    for (std::size_t start = 0;;)
    {
        const std::size_t end = text.find(L'\n', start);
        lines += BrokenParagraph(text.substr(start, end - start), width, widthOf);
        if (end == std::wstring_view::npos)
        {
            return lines;
        }
        lines += L'\n';
        start = end + 1;
    }
}
