#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Base64 with the standard alphabet. The lines of encoded text have 76 characters; where
/// their ends stand is part of the format of rule files.

/// Leaves out the `=` behind a last group that isn't whole.
inline constexpr std::uint32_t Base64NoPadding = 1;

/// Leaves out the line ends.
inline constexpr std::uint32_t Base64NoLineEnds = 2;

/// Room that encoding so many bytes asks for, which may be a little more than it uses.
/// Throws `std::length_error` for a negative length or one whose fourfold leaves 32 bits.
std::int32_t Base64EncodeGetRequiredLength(std::int32_t sourceLength, std::uint32_t flags);

/// Encodes bytes. `destinationLength` brings the room and takes the length of the text,
/// which has no terminator. False, with nothing written, for a null pointer, a length that
/// can't be or less room than `Base64EncodeGetRequiredLength` tells.
bool Base64Encode(const std::uint8_t* source, std::int32_t sourceLength, char* destination,
                  std::int32_t* destinationLength, std::uint32_t flags);

/// Decodes text up to its length or to a zero byte at the start of a group of four; inside
/// a group that is skipped like any other character outside the alphabet.
/// `destinationLength` brings the room and takes the number of bytes that the text holds.
/// False if they don't all fit, with those written that do; also for a null `destination`,
/// with the number alone, and for any other null pointer or a negative length, with nothing.
bool Base64Decode(const char* source, std::int32_t sourceLength, std::uint8_t* destination,
                  std::int32_t* destinationLength);

/// The bytes of a wide text as 16-bit units, low byte first, for encoding.
class WideBase64Source
{
public:
    /// Keeps a copy.
    explicit WideBase64Source(std::wstring_view text);

    /// Encodes the units and a terminator. The length of the text; 0 if there is less room
    /// than `Base64EncodeGetRequiredLength` tells.
    std::int32_t Encode(std::span<char> destination) const;

private:
    std::u16string m_units;
};

/// A wide text whose 16-bit units, low byte first, are base64 text, for decoding.
class WideBase64Target
{
public:
    /// Keeps a copy.
    explicit WideBase64Target(std::wstring_view text);

    /// Decodes the units. The number of bytes that they hold, of which no more are written
    /// than there is room.
    std::int32_t Decode(std::span<std::uint8_t> destination) const;

private:
    std::u16string m_units;
};
