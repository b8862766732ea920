#pragma once

#include "Compound/ArchiveClock.h"
#include "Compound/ArchiveFile.h"
#include "Compound/CompoundDocument.h"
#include "Compound/ZipFormat.h"

#include <memory>
#include <string>
#include <vector>

/// Writes an archive, one file after the other. The archive is complete when the writer is
/// destroyed.
class Zipper
{
public:
    static constexpr std::int32_t StatusReady = 0;
    static constexpr std::int32_t StatusNotOpened = 1;

    static constexpr std::int32_t HeaderNotWritten = 1024;
    static constexpr std::int32_t SeekFailed = 33554432;

    /// Makes the file. The status tells whether that went well.
    explicit Zipper(const wchar_t* path);

    /// Writes to any file, which may be null, by any clock.
    Zipper(std::unique_ptr<ArchiveFile> file, ArchiveClock clock);

    /// Writes the directory.
    virtual ~Zipper();
    Zipper(const Zipper&) = delete;
    Zipper& operator=(const Zipper&) = delete;

    /// Adds all that the source delivers, in one pass, under the name. 0, `HeaderNotWritten`
    /// (also for a name that the format has no room for) or `SeekFailed`.
    std::int32_t AddFile(const wchar_t* name, IInputStream* source);

    std::int32_t Status() const { return m_status; }

private:
    struct Record
    {
        ZipFormat::CentralRecord fields;
        std::string name;
        ZipFormat::CentralExtra extra;
    };

    bool WriteHeader(const ZipFormat::LocalHeader& header);
    void WriteDirectory();

    std::unique_ptr<ArchiveFile> m_file;
    std::int32_t m_status = 2; // until the file is open or can't be opened
    std::vector<Record> m_records;
    ArchiveClock m_clock;
};
