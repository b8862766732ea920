#include "Utilities/ValueText.h"

#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <limits>

namespace
{

struct Operator
{
    std::int32_t code;
    const wchar_t* text;
};

constexpr std::array Operators = {
    Operator{ 1, L"RANGE" }, Operator{ 3, L"=" },  Operator{ 5, L"<" },
    Operator{ 6, L">" },     Operator{ 7, L">=" }, Operator{ 8, L"<=" },
};

} // namespace

std::wstring FormatDouble(double value)
{
    // The largest number, its sign, point and decimals.
    std::array<wchar_t, std::numeric_limits<double>::max_exponent10 + 16> buffer = {};
    const int length = std::swprintf(buffer.data(), buffer.size(), L"%lf", value);
    std::wstring text(buffer.data(), static_cast<std::size_t>(std::max(length, 0)));
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.ends_with(L'.'))
    {
        text += L'0';
    }
    return text;
}

double ParseDouble(std::wstring_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(L" \t\r\n\v\f"), text.size()));
    const std::wstring number(text.substr(0, text.find_first_not_of(L".0123456789")));
    return std::wcstod(number.c_str(), nullptr);
}

std::int32_t GetOperatorCode(std::wstring_view text)
{
    const auto* const found =
        std::find_if(Operators.begin(), Operators.end(),
                     [text](const Operator& entry) { return Platform::EqualsNoCase(entry.text, text); });
    return found != Operators.end() ? found->code : 0;
}

std::wstring GetOperatorText(std::int32_t code)
{
    const auto* const found =
        std::find_if(Operators.begin(), Operators.end(), [code](const Operator& entry) { return entry.code == code; });
    return found != Operators.end() ? found->text : L"";
}
