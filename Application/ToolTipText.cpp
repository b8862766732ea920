#include "Application/ToolTipText.h"

#include "Platform/Text.h"

#include <cstddef>

namespace
{

constexpr std::size_t UnitLimit = 160;
constexpr std::size_t ByteLimit = 80;

bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

// The longest start of the text that converts into no more than the limit, whole characters only.
template <typename Convert>
auto CutText(const std::wstring& text, std::size_t limit, Convert convert)
{
    auto result = convert(std::wstring());
    for (std::size_t at = 0; at < text.size();)
    {
        // Where wide characters have 16 bits, two of them may be one character.
        const std::size_t length = IsHighSurrogate(static_cast<char32_t>(text[at])) && at + 1 < text.size() ? 2 : 1;
        const auto character = convert(text.substr(at, length));
        if (result.size() + character.size() > limit)
        {
            break;
        }
        result += character;
        at += length;
    }
    return result;
}

} // namespace

std::u16string ToolTipUnits(const std::wstring& text)
{
    return CutText(text, UnitLimit, [](const std::wstring& part) { return Platform::WideToUtf16(part); });
}

std::string ToolTipBytes(const std::wstring& text)
{
    return CutText(text, ByteLimit, [](const std::wstring& part) { return Platform::ToCodePage(part); });
}
