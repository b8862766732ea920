#include "Explorer/FoldedText.h"

#include "Platform/Text.h"

#include <cstddef>

namespace
{

// The letters U+00E0 to U+017F without their accents. What is none, or two letters in one, stands
// for itself; capitals are small by then.
constexpr char32_t FirstAccented = 0xe0;
constexpr std::wstring_view BaseLetters = L"aaaaaa\u00e6c" // e0
                                          L"eeeeiiii"
                                          L"\u00f0nooooo\u00f7" // f0
                                          L"ouuuuy\u00fey"
                                          L"aaaaaacc" // 100
                                          L"ccccccdd"
                                          L"ddeeeeee" // 110
                                          L"eeeegggg"
                                          L"gggghhhh" // 120
                                          L"iiiiiiii"
                                          L"ii\u0133\u0133jjkk" // 130
                                          L"\u0138lllllll"
                                          L"lllnnnnn" // 140
                                          L"n\u0149\u014b\u014boooo"
                                          L"oo\u0153\u0153rrrr" // 150
                                          L"rrssssss"
                                          L"sstttttt" // 160
                                          L"uuuuuuuu"
                                          L"uuuuwwyy" // 170
                                          L"yzzzzzz\u017f";
static_assert(BaseLetters.size() == 0x180 - FirstAccented);

constexpr bool IsIn(char32_t code, char32_t first, char32_t last)
{
    return code >= first && code <= last;
}

wchar_t Folded(char32_t code)
{
    constexpr char32_t IdeographicSpace = 0x3000;
    constexpr char32_t FromFullWidth = 0xff01 - U'!';
    constexpr char32_t FromHiraganaToKatakana = 0x60;
    if (IsIn(code, FirstAccented, 0x17f))
    {
        return BaseLetters[code - FirstAccented];
    }
    if (code == IdeographicSpace)
    {
        return L' ';
    }
    if (IsIn(code, 0xff01, 0xff5e))
    {
        code -= FromFullWidth;
    }
    else if (IsIn(code, 0x3041, 0x3096))
    {
        code += FromHiraganaToKatakana;
    }
    return static_cast<wchar_t>(code);
}

} // namespace

std::wstring FoldedText(std::wstring_view text)
{
    std::wstring folded = Platform::ToLower(text);
    std::size_t length = 0;
    for (const wchar_t character : folded)
    {
        const auto code = static_cast<char32_t>(character);
        if (!IsIn(code, 0x300, 0x36f)) // accents that stand for themselves
        {
            folded[length++] = Folded(code);
        }
    }
    folded.resize(length);
    return folded;
}
