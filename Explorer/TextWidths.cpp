#include "Explorer/TextWidths.h"

#include <algorithm>
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

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

/// Each digit beside each other one.
std::wstring AllPairsOfDigits()
{
    std::wstring pairs;
    for (wchar_t first = L'0'; first <= L'9'; ++first)
    {
        for (wchar_t second = L'0'; second <= L'9'; ++second)
        {
            pairs += { first, second };
        }
    }
    return pairs;
}

} // namespace

int TextWidths::WidthIfAbove(const std::wstring& text, double room)
{
    if (AtMost(text) <= room)
    {
        return 0;
    }
    // Names that differ in their numbers alone are many and all as wide.
    std::wstring sameWidth = text;
    if (std::any_of(text.begin(), text.end(), IsDigit) && AreDigitsEqual())
    {
        std::replace_if(sameWidth.begin(), sameWidth.end(), IsDigit, L'0');
    }
    const auto [known, isNew] = m_texts.try_emplace(sameWidth, 0);
    if (isNew)
    {
        known->second = m_measure(sameWidth);
    }
    return known->second > room ? known->second : 0;
}

void TextWidths::Forget()
{
    m_letters.clear();
    m_texts.clear();
    m_digitsEqual.reset();
}

bool TextWidths::AreDigitsEqual()
{
    if (!m_digitsEqual)
    {
        const std::wstring pairs = AllPairsOfDigits();
        const auto isAsWide = [&, width = m_measure(std::wstring(pairs.size(), L'0'))](const std::wstring& text)
        { return m_measure(text) == width; };
        m_digitsEqual = isAsWide(pairs);
        for (wchar_t digit = L'1'; digit <= L'9' && *m_digitsEqual; ++digit)
        {
            m_digitsEqual = isAsWide(std::wstring(pairs.size(), digit));
        }
    }
    return *m_digitsEqual;
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
