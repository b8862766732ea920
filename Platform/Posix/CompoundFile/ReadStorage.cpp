#include "Platform/Posix/CompoundFile/ReadStorage.h"

#include "Platform/Posix/CompoundFile/OpenScope.h"
#include "Platform/Posix/CompoundFile/Reader.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace Platform::Posix::CompoundFile
{
namespace
{

class ReadStream : public StorageStream
{
public:
    ReadStream(std::shared_ptr<Reader> reader, SectorChain contents, std::unique_ptr<OpenMark> mark)
        : m_reader(std::move(reader)), m_contents(std::move(contents)), m_mark(std::move(mark))
    {
    }

    std::uint32_t Read(void* buffer, std::uint32_t count) override;
    std::uint32_t Write(const void* /*buffer*/, std::uint32_t /*count*/) override { return 0; }
    std::optional<std::uint64_t> Size() override;
    bool Commit() override { return m_mark->IsAlive(); }

private:
    static constexpr std::size_t BufferSize = 4096;

    bool FillBuffer();

    std::shared_ptr<Reader> m_reader;
    SectorChain m_contents;
    std::unique_ptr<OpenMark> m_mark;
    std::uint64_t m_position = 0;
    std::unique_ptr<unsigned char[]> m_buffer;
    std::uint64_t m_bufferStart = 0;
    std::size_t m_bufferSize = 0;
};

class ReadStorage : public Storage
{
public:
    ReadStorage(std::shared_ptr<Reader> reader, const Reader::Children& children, std::unique_ptr<OpenMark> mark)
        : m_reader(std::move(reader)), m_children(children), m_mark(std::move(mark)),
          m_scope(std::make_shared<OpenScope>(m_mark != nullptr ? m_mark->Parent() : nullptr))
    {
    }
    ~ReadStorage() override { m_scope->Close(); }

    StorageResult<Storage> OpenStorage(const std::wstring& name, std::uint32_t mode) override;
    StorageResult<Storage> CreateStorage(const std::wstring& /*name*/, std::uint32_t /*mode*/) override
    {
        return { nullptr, StorageStatus::AccessDenied };
    }
    StorageResult<StorageStream> OpenStream(const std::wstring& name, std::uint32_t mode) override;
    StorageResult<StorageStream> CreateStream(const std::wstring& /*name*/, std::uint32_t /*mode*/) override
    {
        return { nullptr, StorageStatus::AccessDenied };
    }
    bool Commit() override { return m_scope->IsAlive(); }
    std::optional<std::vector<StorageEntry>> List() override;

private:
    StorageStatus Find(const std::wstring& name, std::uint32_t mode, StorageEntryKind kind, std::uint32_t& entry) const;

    std::shared_ptr<Reader> m_reader;
    const Reader::Children& m_children; // the reader's, which keeps them
    std::unique_ptr<OpenMark> m_mark;
    std::shared_ptr<OpenScope> m_scope;
};

std::uint32_t ReadStream::Read(void* buffer, std::uint32_t count)
{
    if (!m_mark->IsAlive())
    {
        return 0;
    }
    const std::uint64_t left = m_contents.Size() - m_position;
    const auto wanted = static_cast<std::uint32_t>(std::min<std::uint64_t>(count, left));
    auto* to = static_cast<unsigned char*>(buffer);
    std::uint32_t done = 0;
    while (done < wanted)
    {
        const std::uint32_t step = wanted - done;
        const bool inBuffer = m_position >= m_bufferStart && m_position < m_bufferStart + m_bufferSize;
        std::uint32_t got = 0;
        if (inBuffer)
        {
            const auto at = static_cast<std::size_t>(m_position - m_bufferStart);
            got = static_cast<std::uint32_t>(std::min<std::size_t>(step, m_bufferSize - at));
            std::memcpy(to + done, m_buffer.get() + at, got);
        }
        else if (step < BufferSize)
        {
            // A caller who takes a stream in small bites would pay for a system call each time.
            if (!FillBuffer())
            {
                break;
            }
        }
        else
        {
            const std::uint64_t run = std::min<std::uint64_t>(m_contents.At(m_position).length, step);
            got = static_cast<std::uint32_t>(run);
            if (!m_contents.Read(m_reader->Source(), m_position, to + done, got))
            {
                break;
            }
        }
        done += got;
        m_position += got;
    }
    return done;
}

bool ReadStream::FillBuffer()
{
    if (m_buffer == nullptr)
    {
        m_buffer.reset(new (std::nothrow) unsigned char[BufferSize]);
    }
    const std::uint64_t left = m_contents.Size() - m_position;
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(BufferSize, left));
    m_bufferStart = m_position;
    m_bufferSize = 0;
    if (m_buffer == nullptr || !m_contents.Read(m_reader->Source(), m_position, m_buffer.get(), count))
    {
        return false;
    }
    m_bufferSize = count;
    return true;
}

std::optional<std::uint64_t> ReadStream::Size()
{
    return m_mark->IsAlive() ? std::optional(m_contents.Size()) : std::nullopt;
}

StorageStatus ReadStorage::Find(const std::wstring& name, std::uint32_t mode, StorageEntryKind kind,
                                std::uint32_t& entry) const
{
    std::u16string units;
    if (const StorageStatus status = CheckChild(*m_scope, name, mode, StorageMode::Read, units);
        status != StorageStatus::Done)
    {
        return status;
    }
    const Reader::Child* child = m_children.Find(units);
    if (child == nullptr || child->kind != kind)
    {
        return StorageStatus::NotFound;
    }
    entry = child->entry;
    return m_scope->IsOpen(entry) ? StorageStatus::AccessDenied : StorageStatus::Done;
}

StorageResult<Storage> ReadStorage::OpenStorage(const std::wstring& name, std::uint32_t mode)
try
{
    std::uint32_t entry = NoEntry;
    if (const StorageStatus status = Find(name, mode, StorageEntryKind::Storage, entry); status != StorageStatus::Done)
    {
        return { nullptr, status };
    }
    const Reader::Children* children = m_reader->ChildrenOf(entry);
    if (children == nullptr)
    {
        return { nullptr, StorageStatus::Damaged };
    }
    return { std::make_unique<ReadStorage>(m_reader, *children, std::make_unique<OpenMark>(m_scope, entry)),
             StorageStatus::Done };
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<StorageStream> ReadStorage::OpenStream(const std::wstring& name, std::uint32_t mode)
try
{
    std::uint32_t entry = NoEntry;
    if (const StorageStatus status = Find(name, mode, StorageEntryKind::Stream, entry); status != StorageStatus::Done)
    {
        return { nullptr, status };
    }
    std::optional<SectorChain> contents = m_reader->ContentsOf(entry);
    if (!contents)
    {
        return { nullptr, StorageStatus::Damaged };
    }
    return { std::make_unique<ReadStream>(m_reader, std::move(*contents), std::make_unique<OpenMark>(m_scope, entry)),
             StorageStatus::Done };
}
catch (const std::bad_alloc&)
{
    return {};
}

std::optional<std::vector<StorageEntry>> ReadStorage::List()
try
{
    if (!m_scope->IsAlive())
    {
        return std::nullopt;
    }
    std::vector<StorageEntry> entries;
    entries.reserve(m_children.inOrder.size());
    for (const Reader::Child& child : m_children.inOrder)
    {
        entries.push_back({ child.name, child.kind });
    }
    return entries;
}
catch (const std::bad_alloc&)
{
    return std::nullopt;
}

} // namespace

StorageResult<Storage> OpenForReading(std::unique_ptr<ByteSource> source)
try
{
    std::shared_ptr<Reader> reader;
    if (const StorageStatus status = Reader::Open(std::move(source), reader); status != StorageStatus::Done)
    {
        return { nullptr, status };
    }
    const Reader::Children* children = reader->ChildrenOf(Reader::Root);
    if (children == nullptr)
    {
        return { nullptr, StorageStatus::Damaged };
    }
    return { std::make_unique<ReadStorage>(reader, *children, nullptr), StorageStatus::Done };
}
catch (const std::bad_alloc&)
{
    return {};
}

} // namespace Platform::Posix::CompoundFile
