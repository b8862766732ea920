#pragma once

#include "Compound/ArchiveClock.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// An entry of an archive that is put together byte by byte, right or wrong.
struct TestEntry
{
    std::string name;
    std::string data; ///< as it stands in the file
    std::uint16_t method = 8;
    std::uint32_t uncompressedSize = 0;
    std::optional<std::uint32_t> compressedSize; ///< claimed; else that of the data
    std::optional<std::uint32_t> offset;         ///< claimed; else that of the local header
    std::string centralExtra;
    std::string centralComment;
};

struct TestArchiveOptions
{
    std::optional<std::uint16_t> entries;         ///< claimed
    std::optional<std::uint32_t> directoryOffset; ///< claimed
    std::string comment;
};

/// Local headers with data, the directory and the end record.
std::string MakeTestArchive(const std::vector<TestEntry>& entries, const TestArchiveOptions& options = {});

/// A deflated entry.
TestEntry Deflated(std::string name, std::string_view contents);

/// A stored entry.
TestEntry Stored(std::string name, std::string contents);

/// Raw deflated data.
std::string RawDeflate(std::string_view contents);

/// 2020-02-29, 13:14:59 by the local clock.
ArchiveTime FixedTime();

/// Entry names and contents of an archive written with `Zipper`, as bytes.
std::string WriteArchive(const std::vector<std::pair<std::wstring, std::string>>& files);

/// Numbers of a record.
std::uint16_t Number16(std::string_view bytes, std::size_t offset);
std::uint32_t Number32(std::string_view bytes, std::size_t offset);
