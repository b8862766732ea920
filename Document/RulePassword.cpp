#include "Document/RulePassword.h"

#include "Platform/Text.h"
#include "Utilities/Base64.h"
#include "Utilities/QOXUIUtils.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace
{

/// Units that the attribute has room for in every program that reads it, one of them for
/// the end.
constexpr std::size_t BufferUnits = 260;

/// Reads bytes, low byte first, as units up to the first zero unit.
std::u16string UnitsOf(std::string_view bytes)
{
    std::u16string units;
    for (std::size_t position = 0; position < bytes.size(); position += 2)
    {
        const auto low = static_cast<unsigned char>(bytes[position]);
        const auto high = position + 1 < bytes.size() ? static_cast<unsigned char>(bytes[position + 1]) : 0;
        const auto unit = static_cast<char16_t>(high << 8 | low);
        if (unit == 0)
        {
            break;
        }
        units += unit;
    }
    return units;
}

} // namespace

bool RulePassword::Fits(const std::wstring& password)
{
    return Pack(password).has_value();
}

std::optional<std::wstring> RulePassword::Pack(const std::wstring& password)
{
    // Through the code page and back: readers know the password in that form.
    const std::wstring kept = Platform::FromCodePage(ToNarrow(password));
    std::array<char, BufferUnits* 2> text = {};
    const std::int32_t length = WideBase64Source(kept).Encode(text);
    // A zero unit must follow the text.
    if (length == 0 || static_cast<std::size_t>(length) + 2 > text.size())
    {
        return std::nullopt;
    }
    // Two characters make one unit, which looks like writing of the far East.
    return Platform::Utf16ToWide(UnitsOf({ text.data(), static_cast<std::size_t>(length) }));
}

std::wstring RulePassword::Unpack(const std::wstring& packed)
{
    const std::wstring known = packed.substr(0, BufferUnits - 1);
    std::array<std::uint8_t, BufferUnits* 2> bytes = {};
    const std::int32_t length = WideBase64Target(known).Decode(bytes);
    const std::string text(bytes.begin(), bytes.begin() + std::min<std::int32_t>(length, bytes.size()));
    return Platform::Utf16ToWide(UnitsOf(text));
}
