#pragma once

#include <cstddef>
#include <cstdint>

/// The layout of a compound file: a header, then sectors of equal size. A table, the FAT,
/// holds for each sector which one follows it in its chain. Streams below the cutoff lie in
/// mini sectors of a stream of their own, with a table of theirs. The directory is a chain
/// of entries; those of one storage form a binary tree.
///
/// All numbers are little-endian. They are read byte by byte: the file isn't trusted to be
/// aligned or long enough.
namespace Platform::Posix::CompoundFile
{

/// Places in the header.
namespace HeaderAt
{
constexpr std::size_t Signature = 0;
constexpr std::size_t MinorVersion = 24;
constexpr std::size_t MajorVersion = 26;
constexpr std::size_t ByteOrder = 28;
constexpr std::size_t SectorShift = 30;
constexpr std::size_t MiniSectorShift = 32;
constexpr std::size_t FatSectorCount = 44;
constexpr std::size_t DirectoryStart = 48;
constexpr std::size_t MiniCutoff = 56;
constexpr std::size_t MiniFatStart = 60;
constexpr std::size_t MiniFatSectorCount = 64;
constexpr std::size_t DifatStart = 68;
constexpr std::size_t DifatSectorCount = 72;
constexpr std::size_t Difat = 76;
} // namespace HeaderAt

/// Places in a directory entry.
namespace EntryAt
{
constexpr std::size_t Name = 0;
constexpr std::size_t NameLength = 64; ///< in bytes, with the terminator
constexpr std::size_t Type = 66;
constexpr std::size_t Colour = 67;
constexpr std::size_t Left = 68;
constexpr std::size_t Right = 72;
constexpr std::size_t Child = 76;
constexpr std::size_t Start = 116;
constexpr std::size_t Size = 120;
} // namespace EntryAt

constexpr std::uint64_t Signature = 0xE11AB1A1E011CFD0;
constexpr std::uint16_t MinorVersion = 0x3E;
constexpr std::uint16_t ByteOrderMark = 0xFFFE;

constexpr std::size_t HeaderSize = 512;
constexpr std::size_t HeaderDifatCount = 109;
constexpr std::size_t EntrySize = 128;
constexpr std::size_t MostNameUnits = 31;
constexpr std::size_t SmallSectorShift = 9;
constexpr std::size_t LargeSectorShift = 12;
constexpr std::size_t SmallSectorSize = std::size_t(1) << SmallSectorShift;
constexpr std::size_t MiniSectorShift = 6;
constexpr std::size_t MiniSectorSize = std::size_t(1) << MiniSectorShift;
constexpr std::uint32_t MiniCutoff = 4096;

/// Values in the tables in the place of a next sector.
constexpr std::uint32_t LastSector = 0xFFFFFFFA; ///< the highest number that a sector can have
constexpr std::uint32_t DifatSector = 0xFFFFFFFC;
constexpr std::uint32_t FatSector = 0xFFFFFFFD;
constexpr std::uint32_t EndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t FreeSector = 0xFFFFFFFF;

/// In the place of an entry's number.
constexpr std::uint32_t NoEntry = 0xFFFFFFFF;

enum EntryType : std::uint8_t
{
    UnusedEntry = 0,
    StorageEntryType = 1,
    StreamEntryType = 2,
    RootEntryType = 5,
};

enum EntryColour : std::uint8_t
{
    Red = 0,
    Black = 1,
};

template <typename Number>
Number GetNumber(const unsigned char* from)
{
    Number number = 0;
    for (std::size_t index = sizeof(Number); index-- > 0;)
    {
        number = static_cast<Number>((std::uint64_t(number) << 8) | from[index]);
    }
    return number;
}

template <typename Number>
void PutNumber(unsigned char* to, Number number)
{
    for (std::size_t index = 0; index < sizeof(Number); ++index)
    {
        to[index] = static_cast<unsigned char>(std::uint64_t(number) >> (8 * index));
    }
}

constexpr std::uint64_t DivideUp(std::uint64_t number, std::uint64_t by)
{
    return number / by + (number % by != 0 ? 1 : 0);
}

} // namespace Platform::Posix::CompoundFile
