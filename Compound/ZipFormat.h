#pragma once

#include "Compound/ArchiveClock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The records of an archive, as this program writes them and as far as it reads them. Some
/// fields are not what the format's own notes ask for; archives in the field are written so,
/// and docs/formats.md lists them. Numbers stand with their lowest byte first.
namespace ZipFormat
{

inline constexpr std::uint32_t LocalSignature = 0x04034B50;
inline constexpr std::uint32_t CentralSignature = 0x02014B50;
inline constexpr std::uint32_t EndSignature = 0x06054B50;

inline constexpr std::size_t LocalHeaderSize = 30;
inline constexpr std::size_t CentralRecordSize = 46;
inline constexpr std::size_t EndRecordSize = 22;
inline constexpr std::size_t LocalExtraSize = 17;
inline constexpr std::size_t CentralExtraSize = 9;
inline constexpr std::size_t LongestName = 0xFFFF; // bytes

inline constexpr std::uint16_t MethodStored = 0;
inline constexpr std::uint16_t MethodDeflated = 8;

using LocalExtra = std::array<unsigned char, LocalExtraSize>;
using CentralExtra = std::array<unsigned char, CentralExtraSize>;

/// What the two records of a file have in common, in the order in which it stands there.
struct FileFields
{
    std::uint16_t method = MethodDeflated;
    std::uint32_t timeAndDate = 0;
    std::uint32_t crc = 0;
    std::uint32_t compressedSize = 0;
    std::uint32_t uncompressedSize = 0;
    std::uint16_t nameLength = 0;
    std::uint16_t extraLength = 0;
};

struct LocalHeader : FileFields
{
};

struct CentralRecord : FileFields
{
    std::uint16_t commentLength = 0;
    std::uint32_t headerOffset = 0;
};

struct EndRecord
{
    std::uint16_t entriesOnDisk = 0;
    std::uint16_t entries = 0;
    std::uint32_t directorySize = 0;
    std::uint32_t directoryOffset = 0;
};

std::array<unsigned char, LocalHeaderSize> Pack(const LocalHeader& header);
std::array<unsigned char, CentralRecordSize> Pack(const CentralRecord& record);
std::array<unsigned char, EndRecordSize> Pack(const EndRecord& record);

/// The 32-bit number at the start of the bytes, as every record's signature is.
std::uint32_t SignatureOf(std::span<const unsigned char> bytes);

/// The signature isn't looked at.
LocalHeader UnpackLocalHeader(std::span<const unsigned char, LocalHeaderSize> bytes);
CentralRecord UnpackCentralRecord(std::span<const unsigned char, CentralRecordSize> bytes);
EndRecord UnpackEndRecord(std::span<const unsigned char, EndRecordSize> bytes);

/// Date in the high half, time in the low one.
std::uint32_t PackTimeAndDate(const ArchiveTime& time);

/// The extended timestamp block of a local header.
LocalExtra MakeLocalExtra(const ArchiveTime& time);

/// The same as it stands in the central directory.
CentralExtra MakeCentralExtra(const LocalExtra& local);

/// Tells from the name alone whether a file is deflated, not stored.
bool IsCompressible(std::wstring_view name);

} // namespace ZipFormat
