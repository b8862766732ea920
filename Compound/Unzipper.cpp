#include "Compound/Unzipper.h"

#include "Compound/ZipFormat.h"
#include "Compound/ZipPasses.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace
{

using Origin = ArchiveFile::Origin;

constexpr std::uint32_t NotFound = 0xFFFFFFFF;

/// How far from the end of the file the end record is looked for. It is not to be widened:
/// what counts as an archive must be the same everywhere.
constexpr std::int64_t SearchWindow = 1028;
constexpr std::int64_t SignatureSize = 4;

} // namespace

Unzipper::Unzipper(const wchar_t* path) : Unzipper(path != nullptr ? OpenArchiveFile(path) : nullptr) {}

Unzipper::Unzipper(std::unique_ptr<ArchiveFile> file) : m_file(std::move(file))
{
    if (m_file != nullptr)
    {
        m_status = ReadDirectory();
    }
}

Unzipper::~Unzipper() = default;

bool Unzipper::ExtractEntry(const ZipEntry& entry, IOutputStream* output)
{
    std::array<unsigned char, ZipFormat::LocalHeaderSize> bytes = {};
    if (m_file == nullptr || output == nullptr || !m_file->Seek(entry.offset, Origin::Start) ||
        !ReadExactly(bytes.data(), bytes.size()))
    {
        return false;
    }
    const ZipFormat::LocalHeader header = ZipFormat::UnpackLocalHeader(bytes);
    // Beyond the end of the file there is nothing to be read, which shows below.
    if (!m_file->Seek(static_cast<std::int64_t>(header.nameLength) + header.extraLength, Origin::Current))
    {
        return false;
    }
    if (header.method != ZipFormat::MethodStored)
    {
        return Inflate(entry, *output);
    }
    if (entry.compressedSize == entry.uncompressedSize)
    {
        CopyFromArchive(*m_file, entry.compressedSize, *output);
    }
    return false;
}

bool Unzipper::Inflate(const ZipEntry& entry, IOutputStream& output)
{
    // Data that is whole goes straight into memory. How much of damaged data is delivered
    // hangs on the blocks that it goes through, so it is read again in these.
    if (auto* const memory = dynamic_cast<IOMemoryStream*>(&output); memory != nullptr)
    {
        const std::int64_t start = m_file->Position();
        if (InflateWholeFromArchive(*m_file, entry.compressedSize, entry.uncompressedSize, *memory))
        {
            return true;
        }
        if (start < 0 || !m_file->Seek(start, Origin::Start))
        {
            return false;
        }
    }
    return InflateFromArchive(*m_file, entry.compressedSize, output);
}

std::int32_t Unzipper::ReadDirectory()
{
    const std::uint32_t endPosition = FindEndOfCentralDirectory();
    if (endPosition == NotFound)
    {
        return StatusNoArchive;
    }
    if (endPosition == 0)
    {
        return StatusEmpty;
    }
    std::array<unsigned char, ZipFormat::EndRecordSize> bytes = {};
    if (!m_file->Seek(endPosition, Origin::Start) || !ReadExactly(bytes.data(), bytes.size()) ||
        ZipFormat::SignatureOf(bytes) != ZipFormat::EndSignature)
    {
        return StatusNoArchive;
    }
    const ZipFormat::EndRecord end = ZipFormat::UnpackEndRecord(bytes);
    try
    {
        // No room is made for entries that are only claimed.
        std::vector<char> buffer;
        bool good = m_file->Seek(end.directoryOffset, Origin::Start);
        for (std::uint32_t index = 0; good && index < end.entriesOnDisk; ++index)
        {
            good = ReadEntry(buffer);
        }
    }
    catch (const std::bad_alloc&)
    {
        // What was read up to here is all that can be held.
    }
    return StatusRead;
}

std::uint32_t Unzipper::FindEndOfCentralDirectory()
{
    const std::int64_t before = m_file->Position();
    const std::int64_t size = m_file->Seek(0, Origin::End) ? m_file->Position() : -1;
    if (size < 0)
    {
        return NotFound;
    }
    m_archiveSize = static_cast<std::uint64_t>(size);
    std::uint32_t found = NotFound;
    const std::int64_t blockSize = std::min(SearchWindow, size);
    std::array<unsigned char, SearchWindow> block = {};
    // A file of four bytes and less isn't searched.
    if (size > SignatureSize && m_file->Seek(size - blockSize, Origin::Start) &&
        ReadExactly(block.data(), static_cast<std::size_t>(blockSize)))
    {
        for (std::int64_t index = blockSize - SignatureSize; index >= 0 && found == NotFound; --index)
        {
            const auto tail = std::span(block).subspan(static_cast<std::size_t>(index));
            if (ZipFormat::SignatureOf(tail) == ZipFormat::EndSignature)
            {
                found = static_cast<std::uint32_t>(size - blockSize + index);
            }
        }
    }
    m_file->Seek(before, Origin::Start);
    return found;
}

bool Unzipper::ReadEntry(std::vector<char>& buffer)
{
    std::array<unsigned char, ZipFormat::CentralRecordSize> bytes = {};
    if (!ReadExactly(bytes.data(), bytes.size()) || ZipFormat::SignatureOf(bytes) != ZipFormat::CentralSignature)
    {
        return false;
    }
    const ZipFormat::CentralRecord record = ZipFormat::UnpackCentralRecord(bytes);
    buffer.resize(std::size_t(record.nameLength) + record.extraLength + record.commentLength);
    if (!ReadExactly(buffer.data(), buffer.size()))
    {
        return false;
    }
    // The name ends at a zero byte, should there be one.
    const std::string_view name(buffer.data(), record.nameLength);
    ZipEntry entry;
    entry.name = Platform::Utf8ToWide(name.substr(0, name.find('\0')));
    entry.offset = record.headerOffset;
    entry.compressedSize = record.compressedSize;
    entry.uncompressedSize = record.uncompressedSize;
    m_entries.push_back(std::move(entry));
    return true;
}

bool Unzipper::ReadExactly(void* buffer, std::size_t count)
{
    return count == 0 || m_file->Read(buffer, count) == count;
}
