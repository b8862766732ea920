#include "Explorer/TextWidths.h"

#include <limits>

namespace
{

/// True for characters that are as wide in a text as alone, or narrower. Others take another
/// shape or place beside their neighbours.
bool StandsAlone(wchar_t character)
{
    const auto code = static_cast<char32_t>(character);
    return (code >= 0x20 && code < 0x300) || (code >= 0x3000 && code < 0xa000) || (code >= 0xac00 && code < 0xd7a4) ||
           (code >= 0xff00 && code < 0xfff0);
}

} // namespace

int TextWidths::WidthIfAbove(const std::wstring& text, double room)
{
    if (AtMost(text) <= room)
    {
        return 0;
    }
    const auto [known, isNew] = m_texts.try_emplace(text, 0);
    if (isNew)
    {
        known->second = m_measure(text);
    }
    return known->second > room ? known->second : 0;
}

void TextWidths::Forget()
{
    m_letters.clear();
    m_texts.clear();
}

double TextWidths::AtMost(const std::wstring& text)
{
    // Many of a letter tell its width to a fraction of a pixel.
    constexpr int Many = 16;
    // What a pair of letters may be wider than the two.
    constexpr double Allowance = 1.02;
    double width = 1;
    for (const wchar_t character : text)
    {
        if (!StandsAlone(character))
        {
            return std::numeric_limits<double>::infinity();
        }
        const auto [known, isNew] = m_letters.try_emplace(character, 0.0);
        if (isNew)
        {
            known->second = (m_measure(std::wstring(Many, character)) + 1) * Allowance / Many;
        }
        width += known->second;
    }
    return width;
}
