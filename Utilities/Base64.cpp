#include "Utilities/Base64.h"

#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <stdexcept>
#include <vector>

namespace
{

constexpr std::string_view Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view LineEnd = "\r\n";
constexpr char Padding = '=';

constexpr std::int32_t GroupBytes = 3;
constexpr std::int32_t GroupCharacters = 4;
constexpr std::int32_t LineCharacters = 76;
constexpr std::int32_t LineGroups = LineCharacters / GroupCharacters;

/// A length whose fourfold fits into 32 bits.
bool IsPossibleLength(std::int32_t length)
{
    return length >= 0 && length <= std::numeric_limits<std::int32_t>::max() / GroupCharacters;
}

constexpr std::int8_t NoSextet = -1;

constexpr std::array<std::int8_t, 256> MakeSextets()
{
    std::array<std::int8_t, 256> sextets = {};
    sextets.fill(NoSextet);
    for (std::size_t value = 0; value < Alphabet.size(); ++value)
    {
        sextets[static_cast<unsigned char>(Alphabet[value])] = static_cast<std::int8_t>(value);
    }
    return sextets;
}

constexpr std::array<std::int8_t, 256> Sextets = MakeSextets();

/// Writes `bytes`, three or fewer, as a group; returns the end of what was written.
char* EncodeGroup(std::span<const std::uint8_t> bytes, char* out, bool padded)
{
    std::uint32_t bits = 0;
    for (std::size_t index = 0; index < GroupBytes; ++index)
    {
        bits = bits << 8 | (index < bytes.size() ? bytes[index] : 0U);
    }
    for (std::size_t index = 0; index < GroupCharacters; ++index, bits <<= 6)
    {
        if (index <= bytes.size())
        {
            *out++ = Alphabet[bits >> 18 & 0x3F];
        }
        else if (padded)
        {
            *out++ = Padding;
        }
    }
    return out;
}

/// Takes bytes as long as there is room and counts all of them.
class ByteCounter
{
public:
    ByteCounter(std::uint8_t* destination, std::int32_t room) : m_destination(destination), m_room(room) {}

    void Put(std::uint8_t byte)
    {
        if (Fits())
        {
            m_destination[m_count] = byte;
        }
        ++m_count;
    }

    std::int32_t Count() const { return m_count; }
    bool AllWritten() const { return m_destination != nullptr && m_count <= m_room; }

private:
    bool Fits() const { return m_destination != nullptr && m_count < m_room; }

    std::uint8_t* m_destination;
    std::int32_t m_room;
    std::int32_t m_count = 0;
};

/// The characters of one group, found from `position` on, which moves behind them.
struct Group
{
    std::uint32_t bits = 0;
    int characters = 0;
};

Group ReadGroup(std::string_view text, std::size_t& position)
{
    Group group;
    while (group.characters < GroupCharacters && position < text.size())
    {
        const std::int8_t sextet = Sextets[static_cast<unsigned char>(text[position++])];
        if (sextet != NoSextet)
        {
            group.bits = group.bits << 6 | static_cast<std::uint32_t>(sextet);
            ++group.characters;
        }
    }
    return group;
}

std::u16string Units(std::wstring_view text)
{
    return Platform::WideToUtf16(text);
}

template <typename Byte>
std::vector<Byte> BytesOf(std::u16string_view units)
{
    std::vector<Byte> bytes;
    bytes.reserve(units.size() * 2);
    for (const char16_t unit : units)
    {
        bytes.push_back(static_cast<Byte>(unit & 0xFF));
        bytes.push_back(static_cast<Byte>(unit >> 8));
    }
    return bytes;
}

/// A size that a 32-bit length can tell; what is beyond that is not looked at.
std::int32_t ToLength(std::size_t size)
{
    return static_cast<std::int32_t>(std::min<std::size_t>(size, std::numeric_limits<std::int32_t>::max()));
}

} // namespace

std::int32_t Base64EncodeGetRequiredLength(std::int32_t sourceLength, std::uint32_t flags)
{
    if (!IsPossibleLength(sourceLength))
    {
        throw std::length_error("too long for base64");
    }
    std::int32_t length = sourceLength * GroupCharacters / GroupBytes;
    if ((flags & Base64NoPadding) == 0)
    {
        length += sourceLength % GroupBytes;
    }
    const std::int32_t lines = length / LineCharacters + 1;
    if (const std::int32_t over = length % LineCharacters % GroupCharacters; over != 0)
    {
        length += GroupCharacters - over;
    }
    return (flags & Base64NoLineEnds) == 0 ? length + lines * ToLength(LineEnd.size()) : length;
}

bool Base64Encode(const std::uint8_t* source, std::int32_t sourceLength, char* destination,
                  std::int32_t* destinationLength, std::uint32_t flags)
{
    if (source == nullptr || destination == nullptr || destinationLength == nullptr ||
        !IsPossibleLength(sourceLength) || *destinationLength < Base64EncodeGetRequiredLength(sourceLength, flags))
    {
        return false;
    }
    std::span<const std::uint8_t> rest(source, static_cast<std::size_t>(sourceLength));
    char* out = destination;
    const std::int32_t groups = sourceLength / GroupBytes;
    for (std::int32_t group = 0; group < groups; ++group)
    {
        out = EncodeGroup(rest.first(GroupBytes), out, false);
        rest = rest.subspan(GroupBytes);
        // Also behind a full line that nothing follows: files have been written so, and
        // what they hold is compared.
        if ((group + 1) % LineGroups == 0 && (flags & Base64NoLineEnds) == 0)
        {
            out = std::copy(LineEnd.begin(), LineEnd.end(), out);
        }
    }
    if (!rest.empty())
    {
        out = EncodeGroup(rest, out, (flags & Base64NoPadding) == 0);
    }
    *destinationLength = static_cast<std::int32_t>(out - destination);
    return true;
}

bool Base64Decode(const char* source, std::int32_t sourceLength, std::uint8_t* destination,
                  std::int32_t* destinationLength)
{
    if (source == nullptr || destinationLength == nullptr || sourceLength < 0)
    {
        return false;
    }
    const std::string_view text(source, static_cast<std::size_t>(sourceLength));
    ByteCounter out(destination, *destinationLength);
    std::size_t position = 0;
    while (position < text.size() && text[position] != '\0')
    {
        const Group group = ReadGroup(text, position);
        const int bits = group.characters * 6;
        for (int taken = 8; taken <= bits; taken += 8)
        {
            out.Put(static_cast<std::uint8_t>(group.bits >> (bits - taken) & 0xFF));
        }
    }
    *destinationLength = out.Count();
    return out.AllWritten();
}

WideBase64Source::WideBase64Source(std::wstring_view text) : m_units(Units(text)) {}

std::int32_t WideBase64Source::Encode(std::span<char> destination) const
{
    std::vector<std::uint8_t> bytes = BytesOf<std::uint8_t>(m_units);
    bytes.resize(bytes.size() + 2); // the terminator
    if (!IsPossibleLength(ToLength(bytes.size())))
    {
        return 0;
    }
    std::int32_t length = ToLength(destination.size());
    const bool encoded = Base64Encode(bytes.data(), ToLength(bytes.size()), destination.data(), &length, 0);
    return encoded ? length : 0;
}

WideBase64Target::WideBase64Target(std::wstring_view text) : m_units(Units(text)) {}

std::int32_t WideBase64Target::Decode(std::span<std::uint8_t> destination) const
{
    const std::vector<char> bytes = BytesOf<char>(m_units);
    std::int32_t length = ToLength(std::min(destination.size(), bytes.size()));
    // What doesn't fit is told by the length.
    [[maybe_unused]] const bool fits =
        !bytes.empty() && Base64Decode(bytes.data(), ToLength(bytes.size()), destination.data(), &length);
    return bytes.empty() ? 0 : length;
}
