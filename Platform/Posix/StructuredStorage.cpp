#include "Platform/StructuredStorage.h"

#include "Platform/Files.h"
#include "Platform/Posix/CompoundFile/ByteSource.h"
#include "Platform/Posix/CompoundFile/Mode.h"
#include "Platform/Posix/CompoundFile/ReadStorage.h"
#include "Platform/Posix/CompoundFile/WriteStorage.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <span>
#include <utility>

namespace Platform
{

struct MemoryBlock::Handle
{
    std::vector<char> bytes;
};

namespace
{

using namespace Posix::CompoundFile;

/// A file that is replaced as a whole, so that a commit that fails, or that the machine
/// doesn't live to the end of, leaves what the one before has made permanent.
class FileSink : public ImageSink
{
public:
    explicit FileSink(std::wstring path) : m_path(std::move(path)) {}

    bool Reserve(std::uint64_t /*size*/) override { return true; }
    bool Save(std::span<const std::string_view> pieces) override { return SaveFileWhole(m_path, pieces); }

private:
    std::wstring m_path;
};

class MemorySink : public ImageSink
{
public:
    explicit MemorySink(MemoryBlock& block) : m_block(block) {}

    bool Reserve(std::uint64_t size) override
    {
        return size <= SIZE_MAX && m_block.Reserve(static_cast<std::size_t>(size));
    }

    bool Save(std::span<const std::string_view> pieces) override
    {
        std::size_t size = 0;
        for (const std::string_view piece : pieces)
        {
            size += piece.size();
        }
        // All that can fail comes first: a block is never left with half a document.
        if (!m_block.Reserve(size))
        {
            return false;
        }
        std::vector<char>& bytes = m_block.GetHandle().bytes;
        char* to = bytes.data();
        for (const std::string_view piece : pieces)
        {
            std::memcpy(to, piece.data(), piece.size());
            to += piece.size();
        }
        // Nothing of what the block held before stays behind the document.
        std::fill(to, bytes.data() + bytes.size(), '\0');
        return true;
    }

private:
    MemoryBlock& m_block;
};

} // namespace

MemoryBlock::MemoryBlock(std::unique_ptr<Handle> handle) : m_handle(std::move(handle)) {}

MemoryBlock::~MemoryBlock() = default;

std::unique_ptr<MemoryBlock> MemoryBlock::Allocate(std::size_t size)
try
{
    std::unique_ptr<MemoryBlock> block(new MemoryBlock(std::make_unique<Handle>()));
    return block->Reserve(size) ? std::move(block) : nullptr;
}
catch (const std::bad_alloc&)
{
    return nullptr;
}

std::size_t MemoryBlock::Size() const
{
    return m_handle->bytes.size();
}

bool MemoryBlock::Read(std::size_t offset, void* buffer, std::size_t count) const
{
    const std::vector<char>& bytes = m_handle->bytes;
    if (offset > bytes.size() || count > bytes.size() - offset)
    {
        return false;
    }
    if (count > 0)
    {
        std::memcpy(buffer, bytes.data() + offset, count);
    }
    return true;
}

bool MemoryBlock::Write(std::size_t offset, std::string_view bytes)
{
    if (bytes.size() > SIZE_MAX - offset || !Reserve(offset + bytes.size()))
    {
        return false;
    }
    if (!bytes.empty())
    {
        std::memcpy(m_handle->bytes.data() + offset, bytes.data(), bytes.size());
    }
    return true;
}

bool MemoryBlock::Reserve(std::size_t size)
try
{
    std::vector<char>& bytes = m_handle->bytes;
    if (size > bytes.max_size())
    {
        return false;
    }
    if (size > bytes.size())
    {
        bytes.resize(size);
    }
    return true;
}
catch (const std::bad_alloc&)
{
    return false;
}

StorageThread::StorageThread()
{
    // This system has nothing to set up.
}

StorageThread::~StorageThread()
{
    // Nor to take down.
}

StorageResult<Storage> OpenStorageFile(const std::wstring& path, std::uint32_t mode)
try
{
    if ((mode & AccessBits) != StorageMode::Read || (mode & StorageMode::Create) != 0)
    {
        return { nullptr, StorageStatus::InvalidMode };
    }
    std::unique_ptr<ByteSource> source;
    if (const StorageStatus status = FileSource::Open(NativePath(path).native(), source); status != StorageStatus::Done)
    {
        return { nullptr, status };
    }
    return OpenForReading(std::move(source));
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<Storage> CreateStorageFile(const std::wstring& path, std::uint32_t mode)
try
{
    if ((mode & AccessBits) != StorageMode::Write || (mode & StorageMode::Transacted) == 0)
    {
        return { nullptr, StorageStatus::InvalidMode };
    }
    if ((mode & StorageMode::Create) == 0 && PathExists(path))
    {
        return { nullptr, StorageStatus::AlreadyExists };
    }
    // Said now and not only by the commit, whose result may come too late to act on.
    if (!CanWriteFile(path))
    {
        return { nullptr, StorageStatus::AccessDenied };
    }
    return CreateForWriting(std::make_unique<FileSink>(path), SavePolicy::AtCommit);
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<Storage> OpenStorageOnMemory(MemoryBlock& block, std::uint32_t mode)
try
{
    if ((mode & AccessBits) != StorageMode::Read || (mode & StorageMode::Create) != 0)
    {
        return { nullptr, StorageStatus::InvalidMode };
    }
    return OpenForReading(std::make_unique<MemorySource>(block));
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<Storage> CreateStorageOnMemory(MemoryBlock& block, std::uint32_t mode)
try
{
    // A block always holds something, if only zeros, so there must be leave to replace it.
    if ((mode & AccessBits) != StorageMode::Write || (mode & StorageMode::Create) == 0)
    {
        return { nullptr, StorageStatus::InvalidMode };
    }
    const bool transacted = (mode & StorageMode::Transacted) != 0;
    return CreateForWriting(std::make_unique<MemorySink>(block),
                            transacted ? SavePolicy::AtCommit : SavePolicy::AtCommitOrEnd);
}
catch (const std::bad_alloc&)
{
    return {};
}

} // namespace Platform
