#include "Platform/Posix/CompoundFile/WriteStorage.h"

#include "Platform/Posix/CompoundFile/EntryName.h"
#include "Platform/Posix/CompoundFile/Image.h"
#include "Platform/Posix/CompoundFile/OpenScope.h"
#include "Platform/Posix/CompoundFile/StorageTree.h"
#include "Platform/Text.h"

#include <new>
#include <tuple>
#include <utility>

namespace Platform::Posix::CompoundFile
{
namespace
{

/// A document that is being made. All that is open in it works on the same tree, so what
/// is written counts within the document at once; committing inside of it has nothing to do.
class Session
{
public:
    explicit Session(std::unique_ptr<ImageSink> sink) : m_sink(std::move(sink)) {}

    const StorageTree& Tree() const { return m_tree; }
    bool HasChanged() const { return m_changed; }

    bool Add(std::uint32_t storage, std::u16string name, StorageEntryKind kind, std::uint32_t& child)
    {
        ImageContents contents = m_tree.Contents();
        ++contents.entries;
        if (!HasRoomFor(contents))
        {
            return false;
        }
        child = m_tree.Add(storage, std::move(name), kind);
        m_changed = true;
        return true;
    }

    void Remove(std::uint32_t storage, const EntryKey& key)
    {
        m_changed = true;
        m_tree.Remove(storage, key);
    }

    bool Append(std::uint32_t stream, std::string_view bytes)
    {
        const std::uint64_t size = m_tree.At(stream).contents.Size();
        ImageContents contents = m_tree.Contents();
        contents.ResizeStream(size, size + bytes.size());
        if (!HasRoomFor(contents))
        {
            return false;
        }
        m_tree.Append(stream, bytes);
        m_changed = true;
        return true;
    }

    bool Save()
    try
    {
        const Image image(m_tree);
        const bool saved = m_sink->Save(image.Pieces());
        m_changed = m_changed && !saved;
        return saved;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }

private:
    bool HasRoomFor(const ImageContents& contents)
    {
        const ImageLayout layout(contents);
        return layout.IsPossible() && m_sink->Reserve(layout.Size());
    }

    StorageTree m_tree;
    std::unique_ptr<ImageSink> m_sink;
    bool m_changed = true; // an empty document is one too
};

class WriteStream : public StorageStream
{
public:
    WriteStream(std::shared_ptr<Session> session, std::uint32_t node, std::unique_ptr<OpenMark> mark)
        : m_session(std::move(session)), m_node(node), m_mark(std::move(mark))
    {
    }

    std::uint32_t Read(void* /*buffer*/, std::uint32_t /*count*/) override { return 0; }
    std::uint32_t Write(const void* buffer, std::uint32_t count) override;
    std::optional<std::uint64_t> Size() override;
    bool Commit() override { return m_mark->IsAlive(); }

private:
    std::shared_ptr<Session> m_session;
    std::uint32_t m_node;
    std::unique_ptr<OpenMark> m_mark;
};

class WriteStorage : public Storage
{
public:
    WriteStorage(std::shared_ptr<Session> session, std::uint32_t node, std::unique_ptr<OpenMark> mark)
        : m_session(std::move(session)), m_node(node), m_mark(std::move(mark)),
          m_scope(std::make_shared<OpenScope>(m_mark != nullptr ? m_mark->Parent() : nullptr))
    {
    }
    ~WriteStorage() override { m_scope->Close(); }

    StorageResult<Storage> OpenStorage(const std::wstring& name, std::uint32_t mode) override;
    StorageResult<Storage> CreateStorage(const std::wstring& name, std::uint32_t mode) override;
    StorageResult<StorageStream> OpenStream(const std::wstring& name, std::uint32_t mode) override;
    StorageResult<StorageStream> CreateStream(const std::wstring& name, std::uint32_t mode) override;
    bool Commit() override { return m_scope->IsAlive(); }
    std::optional<std::vector<StorageEntry>> List() override;

protected:
    Session& Document() const { return *m_session; }

private:
    StorageStatus Find(const std::wstring& name, std::uint32_t mode, StorageEntryKind kind, std::uint32_t& node) const;
    StorageStatus Make(const std::wstring& name, std::uint32_t mode, StorageEntryKind kind, std::uint32_t& node);

    /// The object of a node, unless the status tells of a failure.
    template <typename Object>
    std::unique_ptr<Object> Opened(StorageStatus status, std::uint32_t node) const
    {
        return status == StorageStatus::Done
                 ? std::make_unique<Object>(m_session, node, std::make_unique<OpenMark>(m_scope, node))
                 : nullptr;
    }

    std::shared_ptr<Session> m_session;
    std::uint32_t m_node;
    std::unique_ptr<OpenMark> m_mark;
    std::shared_ptr<OpenScope> m_scope;
};

class WriteRoot : public WriteStorage
{
public:
    WriteRoot(std::shared_ptr<Session> session, SavePolicy policy)
        : WriteStorage(std::move(session), StorageTree::Root, nullptr), m_policy(policy)
    {
    }

    ~WriteRoot() override
    {
        if (m_policy == SavePolicy::AtCommitOrEnd && Document().HasChanged())
        {
            std::ignore = Document().Save(); // whoever wants to know commits
        }
    }

    bool Commit() override { return Document().Save(); }

private:
    SavePolicy m_policy;
};

std::uint32_t WriteStream::Write(const void* buffer, std::uint32_t count)
try
{
    const std::string_view bytes(static_cast<const char*>(buffer), count);
    return m_mark->IsAlive() && m_session->Append(m_node, bytes) ? count : 0;
}
catch (const std::bad_alloc&)
{
    return 0;
}

std::optional<std::uint64_t> WriteStream::Size()
{
    return m_mark->IsAlive() ? std::optional(m_session->Tree().At(m_node).contents.Size()) : std::nullopt;
}

StorageStatus WriteStorage::Find(const std::wstring& name, std::uint32_t mode, StorageEntryKind kind,
                                 std::uint32_t& node) const
{
    std::u16string units;
    if (const StorageStatus status = CheckChild(*m_scope, name, mode, StorageMode::Write, units);
        status != StorageStatus::Done)
    {
        return status;
    }
    if (!m_session->Tree().Find(m_node, EntryKey(units), node) || m_session->Tree().At(node).kind != kind)
    {
        return StorageStatus::NotFound;
    }
    return m_scope->IsOpen(node) ? StorageStatus::AccessDenied : StorageStatus::Done;
}

StorageStatus WriteStorage::Make(const std::wstring& name, std::uint32_t mode, StorageEntryKind kind,
                                 std::uint32_t& node)
{
    std::u16string units;
    if (const StorageStatus status = CheckChild(*m_scope, name, mode, StorageMode::Write, units);
        status != StorageStatus::Done)
    {
        return status;
    }
    const EntryKey key(units);
    if (m_session->Tree().Find(m_node, key, node))
    {
        if (m_scope->IsOpen(node))
        {
            return StorageStatus::AccessDenied;
        }
        if ((mode & StorageMode::Create) == 0)
        {
            return StorageStatus::AlreadyExists;
        }
        m_session->Remove(m_node, key);
    }
    return m_session->Add(m_node, std::move(units), kind, node) ? StorageStatus::Done : StorageStatus::Failed;
}

StorageResult<Storage> WriteStorage::OpenStorage(const std::wstring& name, std::uint32_t mode)
try
{
    std::uint32_t node = 0;
    const StorageStatus status = Find(name, mode, StorageEntryKind::Storage, node);
    return { Opened<WriteStorage>(status, node), status };
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<Storage> WriteStorage::CreateStorage(const std::wstring& name, std::uint32_t mode)
try
{
    std::uint32_t node = 0;
    const StorageStatus status = Make(name, mode, StorageEntryKind::Storage, node);
    return { Opened<WriteStorage>(status, node), status };
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<StorageStream> WriteStorage::OpenStream(const std::wstring& name, std::uint32_t mode)
try
{
    std::uint32_t node = 0;
    const StorageStatus status = Find(name, mode, StorageEntryKind::Stream, node);
    // A document that is being made isn't read, and a stream that is complete isn't changed.
    return { nullptr, status == StorageStatus::Done ? StorageStatus::AccessDenied : status };
}
catch (const std::bad_alloc&)
{
    return {};
}

StorageResult<StorageStream> WriteStorage::CreateStream(const std::wstring& name, std::uint32_t mode)
try
{
    std::uint32_t node = 0;
    const StorageStatus status = Make(name, mode, StorageEntryKind::Stream, node);
    return { Opened<WriteStream>(status, node), status };
}
catch (const std::bad_alloc&)
{
    return {};
}

std::optional<std::vector<StorageEntry>> WriteStorage::List()
try
{
    if (!m_scope->IsAlive())
    {
        return std::nullopt;
    }
    std::vector<StorageEntry> entries;
    for (const auto& [key, child] : m_session->Tree().At(m_node).children)
    {
        const StorageTree::Node& node = m_session->Tree().At(child);
        entries.push_back({ Utf16ToWide(node.name), node.kind });
    }
    return entries;
}
catch (const std::bad_alloc&)
{
    return std::nullopt;
}

} // namespace

StorageResult<Storage> CreateForWriting(std::unique_ptr<ImageSink> sink, SavePolicy policy)
try
{
    return { std::make_unique<WriteRoot>(std::make_shared<Session>(std::move(sink)), policy), StorageStatus::Done };
}
catch (const std::bad_alloc&)
{
    return {};
}

} // namespace Platform::Posix::CompoundFile
