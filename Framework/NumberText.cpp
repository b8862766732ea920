#include "Framework/NumberText.h"

#include <Vantrel/ParamStorage.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

namespace
{

constexpr int FileDigits = 15;
constexpr int ShownDigits = 12;

/// Powers of ten that a double holds exactly.
constexpr std::array PowersOfTen = { 1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15 };

/// Reads the plain decimals that files are full of, such as `-0.15`: at most 15 digits, with
/// one on each side of a point. Nothing for any other text. The digits and the power of ten
/// are exact, so the one division rounds as a full parser does.
std::optional<double> ParsePlainDecimal(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    const std::string_view digits = text.substr(negative ? 1 : 0);
    std::int64_t number = 0;
    std::size_t point = digits.size();
    for (std::size_t position = 0; position < digits.size(); ++position)
    {
        const char c = digits[position];
        if (c == '.' && point == digits.size() && position != 0 && position + 1 != digits.size())
        {
            point = position;
        }
        else if (c >= '0' && c <= '9')
        {
            number = number * 10 + (c - '0');
        }
        else
        {
            return std::nullopt;
        }
        if (position > FileDigits)
        {
            return std::nullopt;
        }
    }
    const std::size_t decimals = point == digits.size() ? 0 : digits.size() - point - 1;
    if (digits.empty() || digits.size() - (decimals != 0 ? 1 : 0) > FileDigits)
    {
        return std::nullopt;
    }
    const double value = static_cast<double>(number) / PowersOfTen[decimals];
    return negative ? -value : value;
}

} // namespace

void AppendNumberText(std::string& text, double value)
{
    if (value == 0)
    {
        text += '0'; // also for a negative zero
        return;
    }
    std::array<char, 32> buffer;
    char* const bufferEnd = buffer.data() + buffer.size();
    // Most numbers are whole and small; up to here their shortest text has no exponent.
    constexpr double LargestPlainWhole = 99999;
    if (std::abs(value) <= LargestPlainWhole && std::trunc(value) == value)
    {
        text.append(buffer.data(), std::to_chars(buffer.data(), bufferEnd, static_cast<std::int32_t>(value)).ptr);
        return;
    }
    char* end = std::to_chars(buffer.data(), bufferEnd, value).ptr;

    // Texts of up to 16 characters are at most 15 digits and a point: nothing to drop.
    if (end - buffer.data() > FileDigits + 1)
    {
        std::array<char, 32> tidy;
        char* const tidyEnd =
            std::to_chars(tidy.data(), tidy.data() + tidy.size(), value, std::chars_format::general, FileDigits).ptr;
        double tidyValue = 0;
        std::from_chars(tidy.data(), tidyEnd, tidyValue);
        constexpr double FewUnitsInTheLastPlace = 4 * std::numeric_limits<double>::epsilon();
        if (std::abs(tidyValue - value) <= FewUnitsInTheLastPlace * std::abs(value))
        {
            end = std::to_chars(buffer.data(), bufferEnd, tidyValue).ptr;
        }
    }
    text.append(buffer.data(), end);
}

std::optional<double> ParseNumberText(std::string_view text)
{
    if (const std::optional<double> plain = ParsePlainDecimal(text))
    {
        return plain;
    }
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [parsedEnd, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || parsedEnd != end || !std::isfinite(value))
    {
        return std::nullopt;
    }
    return value;
}

std::optional<std::int32_t> ParseInteger(std::string_view text)
{
    std::int32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto [parsedEnd, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || parsedEnd != end)
    {
        return std::nullopt;
    }
    return value;
}

std::wstring FormatShownNumber(double value)
{
    if (value == 0)
    {
        return L"0";
    }
    // Fixed notation up to where it stays readable; `general` alone would turn to
    // exponents for a length of a few angstroms in meters only, which is wanted.
    std::array<char, 64> buffer;
    char* const end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, ShownDigits).ptr;
    return std::wstring(buffer.data(), end);
}
