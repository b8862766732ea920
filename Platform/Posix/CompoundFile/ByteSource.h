#pragma once

#include "Platform/StructuredStorage.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace Platform::Posix::CompoundFile
{

/// Where the bytes of a compound file come from.
class ByteSource
{
public:
    ByteSource() = default;
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    virtual std::uint64_t Size() const = 0;

    /// Reads all of the bytes. False, with the buffer in any state, if they aren't all there.
    virtual bool ReadAt(std::uint64_t offset, void* buffer, std::size_t count) = 0;
};

/// An open file. It stays what it was when it was opened, even if another takes its path.
/// It is read piece by piece and not mapped: a file that someone cuts off meanwhile must
/// not end the process.
class FileSource : public ByteSource
{
public:
    /// Opens a regular file.
    static StorageStatus Open(const std::string& path, std::unique_ptr<ByteSource>& source);

    ~FileSource() override;

    std::uint64_t Size() const override { return m_size; }
    bool ReadAt(std::uint64_t offset, void* buffer, std::size_t count) override;

private:
    FileSource(int file, std::uint64_t size) : m_file(file), m_size(size) {}

    int m_file;
    std::uint64_t m_size;
};

/// A block of memory that someone else owns.
class MemorySource : public ByteSource
{
public:
    explicit MemorySource(const MemoryBlock& block) : m_block(block) {}

    std::uint64_t Size() const override { return m_block.Size(); }
    bool ReadAt(std::uint64_t offset, void* buffer, std::size_t count) override;

private:
    const MemoryBlock& m_block;
};

} // namespace Platform::Posix::CompoundFile
