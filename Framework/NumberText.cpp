#include "Framework/NumberText.h"

#include <Vantrel/ParamStorage.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{

constexpr int FileDigits = 15;
constexpr int ShownDigits = 12;

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
