#pragma once

#include "Compound/ArchiveFile.h"
#include "Compound/CompoundDocument.h"

#include <memory>
#include <string>
#include <vector>

/// A file in an archive, as the directory tells it. None of the numbers is to be trusted.
class ZipEntry
{
public:
    ZipEntry() = default;
    virtual ~ZipEntry() = default;
    ZipEntry(const ZipEntry&) = default;
    ZipEntry(ZipEntry&&) = default;
    ZipEntry& operator=(const ZipEntry&) = default;
    ZipEntry& operator=(ZipEntry&&) = default;

    std::wstring name;
    std::uint32_t offset = 0; ///< of the local header
    std::uint32_t compressedSize = 0;
    std::uint32_t uncompressedSize = 0;
};

/// Reads an archive. One that can't be read has no entries. Any bytes may be given to it.
class Unzipper
{
public:
    static constexpr std::int32_t StatusRead = 0;
    static constexpr std::int32_t StatusNoArchive = 2;
    static constexpr std::int32_t StatusEmpty = 3;

    explicit Unzipper(const wchar_t* path);

    /// Reads from any file, which may be null.
    explicit Unzipper(std::unique_ptr<ArchiveFile> file);

    virtual ~Unzipper();
    Unzipper(const Unzipper&) = delete;
    Unzipper& operator=(const Unzipper&) = delete;

    /// In the order of the directory.
    const std::vector<ZipEntry>& GetEntries() const { return m_entries; }

    /// Writes the contents of an entry to the output, as far as they can be read. True only for
    /// a deflated entry that was read to the end of its stream; false for a stored one, even if
    /// all of it was copied.
    bool ExtractEntry(const ZipEntry& entry, IOutputStream* output);

    /// For looking at only: an archive that can't be used has no entries.
    std::int32_t Status() const { return m_status; }

    /// The size of the archive in bytes.
    std::uint64_t ArchiveSize() const { return m_archiveSize; }

private:
    bool Inflate(const ZipEntry& entry, IOutputStream& output);
    std::int32_t ReadDirectory();
    std::uint32_t FindEndOfCentralDirectory();
    bool ReadEntry(std::vector<char>& buffer);
    bool ReadExactly(void* buffer, std::size_t count);

    std::vector<ZipEntry> m_entries;
    std::unique_ptr<ArchiveFile> m_file;
    std::int32_t m_status = StatusNoArchive;
    std::uint64_t m_archiveSize = 0;
};
