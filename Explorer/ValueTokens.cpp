#include "Explorer/ValueTokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace
{

constexpr std::wstring_view Blanks = L" \t\u00A0\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u202F\u3000";

struct Variant
{
    wchar_t typed;
    wchar_t meant;
};

constexpr std::array Variants = {
    Variant{ L'\u2018', L'\'' },     // quotes
    Variant{ L'\u2019', L'\'' },     //
    Variant{ L'\u00B4', L'\'' },     // acute accent
    Variant{ L'`', L'\'' },          //
    Variant{ L'\u2032', L'\'' },     // prime
    Variant{ L'\u201C', L'"' },      // quotes
    Variant{ L'\u201D', L'"' },      //
    Variant{ L'\u2033', L'"' },      // double prime
    Variant{ L'\u2212', L'-' },      // minus
    Variant{ L'\u2010', L'-' },      // hyphens and dashes
    Variant{ L'\u2011', L'-' },      //
    Variant{ L'\u2013', L'-' },      //
    Variant{ L'\u2014', L'-' },      //
    Variant{ L'\u2044', L'/' },      // fraction slash
    Variant{ L'\u2236', L':' },      // ratio
    Variant{ L'\u00BA', L'\u00B0' }, // ordinal mark, taken for the degree sign
    Variant{ L'\u02DA', L'\u00B0' }, // ring
    Variant{ L'\u03BC', L'\u00B5' }, // the letter mu for the sign micro
    Variant{ L'\u212B', L'\u00E5' }, // the sign angstrom for the letter
    Variant{ L'\u00C5', L'\u00E5' }, //
};

struct SingleFraction
{
    wchar_t character;
    int numerator;
    int denominator;
};

constexpr std::array SingleFractions = {
    SingleFraction{ L'\u00BD', 1, 2 }, SingleFraction{ L'\u00BC', 1, 4 }, SingleFraction{ L'\u00BE', 3, 4 },
    SingleFraction{ L'\u2153', 1, 3 }, SingleFraction{ L'\u2154', 2, 3 }, SingleFraction{ L'\u215B', 1, 8 },
    SingleFraction{ L'\u215C', 3, 8 }, SingleFraction{ L'\u215D', 5, 8 }, SingleFraction{ L'\u215E', 7, 8 },
};

constexpr std::wstring_view Marks = L"'\"\u00B0";
constexpr std::wstring_view Signs = L"+-:/.,";

wchar_t Meant(wchar_t typed)
{
    constexpr wchar_t FirstFullWidth = 0xFF01;
    constexpr wchar_t LastFullWidth = 0xFF5E;
    constexpr wchar_t FullWidthDistance = 0xFF01 - L'!';
    if (typed >= FirstFullWidth && typed <= LastFullWidth)
    {
        typed = static_cast<wchar_t>(typed - FullWidthDistance);
    }
    if (typed >= L'A' && typed <= L'Z')
    {
        return static_cast<wchar_t>(typed - L'A' + L'a');
    }
    const auto found =
        std::find_if(Variants.begin(), Variants.end(), [typed](const Variant& entry) { return entry.typed == typed; });
    return found != Variants.end() ? found->meant : typed;
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

const SingleFraction* FindFraction(wchar_t character)
{
    const auto found = std::find_if(SingleFractions.begin(), SingleFractions.end(),
                                    [character](const SingleFraction& entry) { return entry.character == character; });
    return found != SingleFractions.end() ? &*found : nullptr;
}

class Cutter
{
public:
    Cutter(std::wstring_view text, wchar_t decimalSeparator, std::vector<ValueToken>& tokens)
        : m_separator(decimalSeparator), m_tokens(tokens)
    {
        for (const wchar_t character : text)
        {
            m_text += Meant(character);
        }
    }

    TokenError Cut()
    {
        while (SkipBlanks())
        {
            const wchar_t next = m_text[m_position];
            if (next == L',' && !IsSeparator(next))
            {
                return TokenError::ForeignComma;
            }
            if (IsDigit(next) || (IsSeparator(next) && IsDigit(At(1))))
            {
                if (!CutNumber())
                {
                    return TokenError::Malformed;
                }
            }
            else if (const SingleFraction* const fraction = FindFraction(next))
            {
                CutFraction(*fraction);
            }
            else if (!CutSign() && !CutWord())
            {
                return TokenError::Malformed;
            }
        }
        return TokenError::None;
    }

private:
    wchar_t At(std::size_t distance) const
    {
        return m_position + distance < m_text.size() ? m_text[m_position + distance] : L'\0';
    }

    bool IsSeparator(wchar_t character) const
    {
        return character != L'\0' && (character == L'.' || character == m_separator);
    }

    /// False at the end of the text.
    bool SkipBlanks()
    {
        m_blankBefore = false;
        for (; m_position < m_text.size() && Blanks.find(m_text[m_position]) != std::wstring_view::npos; ++m_position)
        {
            m_blankBefore = true;
        }
        return m_position < m_text.size();
    }

    ValueToken& Add(ValueToken::Kind kind)
    {
        ValueToken& token = m_tokens.emplace_back();
        token.kind = kind;
        token.blankBefore = m_blankBefore;
        return token;
    }

    void TakeDigits(std::string& digits)
    {
        for (; IsDigit(At(0)); ++m_position)
        {
            digits += static_cast<char>(At(0));
        }
    }

    bool CutNumber()
    {
        std::string digits;
        bool whole = true;
        TakeDigits(digits);
        if (IsSeparator(At(0)))
        {
            whole = false;
            ++m_position;
            digits += '.';
            TakeDigits(digits);
        }
        const std::size_t signLength = At(1) == L'-' || At(1) == L'+' ? 1 : 0;
        if (At(0) == L'e' && IsDigit(At(1 + signLength)))
        {
            whole = false;
            digits += At(1) == L'-' ? "e-" : "e";
            m_position += 1 + signLength;
            TakeDigits(digits);
        }
        double number = 0;
        const char* const end = digits.data() + digits.size();
        const auto [parsedEnd, error] = std::from_chars(digits.data(), end, number);
        if (error != std::errc() || parsedEnd != end)
        {
            return false; // too large for a number, or too small
        }
        ValueToken& token = Add(ValueToken::Kind::Number);
        token.number = number;
        token.whole = whole;
        return true;
    }

    void AddWhole(int number)
    {
        ValueToken& token = Add(ValueToken::Kind::Number);
        token.number = number;
        token.whole = true;
    }

    void CutFraction(const SingleFraction& fraction)
    {
        ++m_position;
        m_blankBefore = true; // it stands off from the number before it by its looks
        AddWhole(fraction.numerator);
        m_blankBefore = false;
        Add(ValueToken::Kind::Slash);
        AddWhole(fraction.denominator);
    }

    bool CutSign()
    {
        switch (At(0))
        {
        case L'+':
            Add(ValueToken::Kind::Plus);
            break;
        case L'-':
            Add(ValueToken::Kind::Dash);
            break;
        case L':':
            Add(ValueToken::Kind::Colon);
            break;
        case L'/':
            Add(ValueToken::Kind::Slash);
            break;
        default:
            return false;
        }
        ++m_position;
        return true;
    }

    bool CutWord()
    {
        std::wstring word(1, At(0));
        if (Marks.find(word.front()) != std::wstring_view::npos)
        {
            const bool doubled = word.front() == L'\'' && At(1) == L'\'';
            m_position += doubled ? 2 : 1;
            Add(ValueToken::Kind::Word).word = doubled ? L"\"" : word;
            return true;
        }
        if (Signs.find(word.front()) != std::wstring_view::npos)
        {
            return false;
        }
        for (++m_position; IsLetter(At(0)); ++m_position)
        {
            word += At(0);
        }
        if (At(0) == L'.')
        {
            ++m_position; // of an abbreviation
        }
        Add(ValueToken::Kind::Word).word = word;
        return true;
    }

    /// What no other token begins with. Characters that no unit has end up in a word that
    /// isn't known.
    bool IsLetter(wchar_t character) const
    {
        return character != L'\0' && !IsDigit(character) && !IsSeparator(character) &&
               Blanks.find(character) == std::wstring_view::npos && Marks.find(character) == std::wstring_view::npos &&
               Signs.find(character) == std::wstring_view::npos && FindFraction(character) == nullptr;
    }

    std::wstring m_text;
    std::size_t m_position = 0;
    bool m_blankBefore = false;
    wchar_t m_separator;
    std::vector<ValueToken>& m_tokens;
};

} // namespace

TokenError CutIntoTokens(std::wstring_view text, wchar_t decimalSeparator, std::vector<ValueToken>& tokens)
{
    return Cutter(text, decimalSeparator, tokens).Cut();
}
