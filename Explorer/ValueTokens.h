#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A piece of a typed value.
struct ValueToken
{
    enum class Kind : std::uint8_t
    {
        Number, ///< Never negative.
        Word,   ///< A unit: letters in lower case, or one of the marks `'`, `"` and the degree sign.
        Plus,
        Dash,
        Colon,
        Slash,
    };

    Kind kind = Kind::Number;
    bool blankBefore = false;
    bool whole = false; ///< A number without decimals and exponent.
    double number = 0;
    std::wstring word;
};

/// How a text falls into tokens.
enum class TokenError : std::uint8_t
{
    None,
    Malformed,    ///< A number that is none.
    ForeignComma, ///< A comma between digits, where the locale has none in numbers.
};

/// Cuts a typed value into tokens. What keyboards and other programs have for the same sign
/// counts as that sign: typographic quotes and primes, full-width characters, minus signs,
/// blanks of all widths, fractions in one character. Decimals follow a point or
/// `decimalSeparator`.
TokenError CutIntoTokens(std::wstring_view text, wchar_t decimalSeparator, std::vector<ValueToken>& tokens);
