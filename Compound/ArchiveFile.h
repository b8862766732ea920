#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

/// The file under an archive, closed when it is destroyed. Replaced where an archive lies in
/// memory, or where a fault is wanted on purpose.
class ArchiveFile
{
public:
    enum class Origin
    {
        Start,
        Current,
        End,
    };

    ArchiveFile() = default;
    virtual ~ArchiveFile() = default;
    ArchiveFile(const ArchiveFile&) = delete;
    ArchiveFile& operator=(const ArchiveFile&) = delete;

    /// The number of bytes read; less than asked for at the end, or on a failure.
    virtual std::size_t Read(void* buffer, std::size_t count) = 0;

    /// The number of bytes written; less than given on a failure.
    virtual std::size_t Write(const void* buffer, std::size_t count) = 0;

    /// False if the position didn't change.
    virtual bool Seek(std::int64_t offset, Origin origin) = 0;

    /// The position, or -1.
    virtual std::int64_t Position() = 0;
};

/// Opens an existing file for reading. Null if it can't be opened.
std::unique_ptr<ArchiveFile> OpenArchiveFile(const std::wstring& path);

/// Makes an empty file, also in the place of one that is there. Null if it can't be made.
std::unique_ptr<ArchiveFile> ReplaceArchiveFile(const std::wstring& path);
