#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Structured storage: a tree of named storages and streams in one compound file, on disk
/// or in memory.
///
/// All objects of a document belong to one thread. Nothing here throws. A storage or stream
/// whose parent is gone serves no more calls, but may still be destroyed.
namespace Platform
{

/// Bits of a mode. Their values are those of the system that structured storage comes from.
namespace StorageMode
{
constexpr std::uint32_t Read = 0;
constexpr std::uint32_t Write = 0x1;
constexpr std::uint32_t ShareExclusive = 0x10; ///< needed by all that is opened inside a document
constexpr std::uint32_t ShareDenyWrite = 0x20;
constexpr std::uint32_t Create = 0x1000;      ///< what is there under the name is replaced
constexpr std::uint32_t Transacted = 0x10000; ///< changes count only when the root commits them
constexpr std::uint32_t DirectSingleWriter = 0x400000;
} // namespace StorageMode

/// Why something could not be opened.
enum class StorageStatus
{
    Done,
    NotFound,
    AccessDenied, ///< open already, or the parent isn't open for that
    AlreadyExists,
    InvalidName, ///< empty, over 31 UTF-16 units, or with one of / \ : !
    InvalidMode, ///< a mode that isn't served
    Damaged,     ///< no compound file, or one that contradicts itself
    Failed,      ///< the file can't be read, or there is no memory
};

/// An object or the reason why there is none.
template <typename Object>
struct StorageResult
{
    std::unique_ptr<Object> object; ///< null unless the status is `Done`
    StorageStatus status = StorageStatus::Failed;
};

/// A stream, open for reading or for writing, from its beginning on.
class StorageStream
{
public:
    StorageStream() = default;
    virtual ~StorageStream() = default;
    StorageStream(const StorageStream&) = delete;
    StorageStream& operator=(const StorageStream&) = delete;

    /// The number of bytes put into the buffer; 0 at the end and on a failure.
    virtual std::uint32_t Read(void* buffer, std::uint32_t count) = 0;

    /// The number of bytes taken: all or none.
    virtual std::uint32_t Write(const void* buffer, std::uint32_t count) = 0;

    /// The size in bytes; nothing on a failure.
    virtual std::optional<std::uint64_t> Size() = 0;

    /// Passes what was written on to the parent.
    virtual bool Commit() = 0;
};

enum class StorageEntryKind
{
    Storage,
    Stream,
};

/// One record of a listing.
struct StorageEntry
{
    std::wstring name;
    StorageEntryKind kind = StorageEntryKind::Stream;
};

/// A storage. Names are compared without regard to case. What is open can't be opened
/// through the same storage again until it is closed by its destructor.
class Storage
{
public:
    Storage() = default;
    virtual ~Storage() = default;
    Storage(const Storage&) = delete;
    Storage& operator=(const Storage&) = delete;

    virtual StorageResult<Storage> OpenStorage(const std::wstring& name, std::uint32_t mode) = 0;

    /// With `Create` an entry of that name is removed first, with all that is in it.
    virtual StorageResult<Storage> CreateStorage(const std::wstring& name, std::uint32_t mode) = 0;

    /// Opens a stream for reading; one that exists isn't written to.
    virtual StorageResult<StorageStream> OpenStream(const std::wstring& name, std::uint32_t mode) = 0;

    /// As `CreateStorage`.
    virtual StorageResult<StorageStream> CreateStream(const std::wstring& name, std::uint32_t mode) = 0;

    /// At a root: makes permanent what the document holds by now. Inside: passes it on to the parent.
    virtual bool Commit() = 0;

    /// What the storage holds at this moment, in the order of the platform: by length of the
    /// names, then by their upper-case form. Nothing on a failure.
    virtual std::optional<std::vector<StorageEntry>> List() = 0;
};

/// A block of memory that a document can lie in. It grows when more is written.
class MemoryBlock
{
public:
    /// A block of zeros; null if there is no memory for it.
    static std::unique_ptr<MemoryBlock> Allocate(std::size_t size);

    ~MemoryBlock();
    MemoryBlock(const MemoryBlock&) = delete;
    MemoryBlock& operator=(const MemoryBlock&) = delete;

    std::size_t Size() const;

    /// Copies out of the block. False, with nothing copied, if that goes beyond its end.
    bool Read(std::size_t offset, void* buffer, std::size_t count) const;

    /// Copies into the block, which grows as far as needed. False if it can't grow.
    bool Write(std::size_t offset, std::string_view bytes);

    /// Makes the block at least that large, with zeros. False if it can't grow.
    bool Reserve(std::size_t size);

    /// What the system knows a block by.
    struct Handle;
    Handle& GetHandle() { return *m_handle; }

private:
    explicit MemoryBlock(std::unique_ptr<Handle> handle);

    std::unique_ptr<Handle> m_handle;
};

/// What the system needs set up in a thread as long as it has a document open.
class StorageThread
{
public:
    StorageThread();
    ~StorageThread();
    StorageThread(const StorageThread&) = delete;
    StorageThread& operator=(const StorageThread&) = delete;
};

/// Opens a document for reading.
StorageResult<Storage> OpenStorageFile(const std::wstring& path, std::uint32_t mode);

/// Makes a document. Its root has to be transacted: the file holds what the last commit
/// made permanent, and the old contents before the first one.
StorageResult<Storage> CreateStorageFile(const std::wstring& path, std::uint32_t mode);

/// Opens the document in a block, which stays the caller's and must outlive it, for reading.
StorageResult<Storage> OpenStorageOnMemory(MemoryBlock& block, std::uint32_t mode);

/// Makes a document in the place of what the block holds. The block grows with each write;
/// it holds the document when the root has been committed or destroyed.
StorageResult<Storage> CreateStorageOnMemory(MemoryBlock& block, std::uint32_t mode);

} // namespace Platform
