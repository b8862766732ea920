#pragma once

#include "Compound/ArchiveFile.h"

#include <cstdint>
#include <memory>
#include <string>

/// Which operations of a file fail. They count from 1; 0 is none.
struct ArchiveFaults
{
    int write = 0;
    int seek = 0;
    int read = 0;
    int position = 0;
    bool writesInPart = false; ///< the write that fails takes half of its bytes
    bool fromThenOn = false;   ///< all later operations of the kind fail too
};

/// A file in memory, with faults on demand. The bytes outlive it.
class MemoryArchiveFile : public ArchiveFile
{
public:
    explicit MemoryArchiveFile(std::shared_ptr<std::string> bytes, const ArchiveFaults& faults = {});

    std::size_t Read(void* buffer, std::size_t count) override;
    std::size_t Write(const void* buffer, std::size_t count) override;
    bool Seek(std::int64_t offset, Origin origin) override;
    std::int64_t Position() override;

private:
    bool Fails(int fault, int& done) const;

    std::shared_ptr<std::string> m_bytes;
    ArchiveFaults m_faults;
    std::size_t m_position = 0;
    int m_reads = 0;
    int m_writes = 0;
    int m_seeks = 0;
    int m_positions = 0;
};
