#pragma once

#include "Compound/ArchiveFile.h"
#include "Compound/CompoundDocument.h"
#include "Compound/IOMemoryStream.h"

#include <cstdint>

/// What a pass over a source has counted.
struct ZipTotals
{
    std::uint32_t readSize = 0;
    std::uint32_t writeSize = 0;
    std::uint32_t crc = 0;
};

/// Result of storing when the file took less than it was given.
inline constexpr std::int32_t ZipStoreFailed = 393216;

/// Deflates all of the source into the file. 0, or zlib's code if it couldn't begin. Short
/// writes go unnoticed.
std::int32_t DeflateIntoArchive(IInputStream& source, ArchiveFile& file, ZipTotals& totals);

/// Stores what is left of the source behind its full blocks into the file: full blocks go into
/// the checksum only. 0, or `ZipStoreFailed`, which leaves the totals as they were.
std::int32_t StoreIntoArchive(IInputStream& source, ArchiveFile& file, ZipTotals& totals);

/// Inflates so many bytes of the file at most, or what there is of them. True if the deflated
/// stream came to its end. What came before a failure is in the sink.
bool InflateFromArchive(ArchiveFile& file, std::uint32_t compressedSize, IOutputStream& sink);

/// The most bytes that a deflated one can grow to.
inline constexpr std::uint64_t LargestZipGrowth = 1032;

/// Inflates as `InflateFromArchive` does, but without going through blocks. False, with nothing
/// added, if the deflated stream doesn't come to its end. The expected size, which may be wrong,
/// saves growing.
bool InflateWholeFromArchive(ArchiveFile& file, std::uint32_t compressedSize, std::uint32_t expectedSize,
                             IOMemoryStream& memory);

/// Copies so many bytes of the file, or what there is of them.
void CopyFromArchive(ArchiveFile& file, std::uint32_t size, IOutputStream& sink);
