#pragma once

#include "Platform/Posix/CompoundFile/ByteChunks.h"
#include "Platform/Posix/CompoundFile/EntryName.h"
#include "Platform/Posix/CompoundFile/ImageLayout.h"
#include "Platform/StructuredStorage.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Platform::Posix::CompoundFile
{

/// The storages and streams of a document that is being made.
class StorageTree
{
public:
    struct Node
    {
        StorageEntryKind kind = StorageEntryKind::Storage;
        std::u16string name;
        std::map<EntryKey, std::uint32_t> children; ///< of a storage, in the order of a listing
        ByteChunks contents;                        ///< of a stream
    };

    static constexpr std::uint32_t Root = 0;

    StorageTree();

    const Node& At(std::uint32_t node) const { return *m_nodes[node]; }

    /// The number of a child; false if there is none of that name.
    bool Find(std::uint32_t storage, const EntryKey& key, std::uint32_t& child) const;

    /// Adds a child under a name that is free and returns its number.
    std::uint32_t Add(std::uint32_t storage, std::u16string name, StorageEntryKind kind);

    /// Removes a child with all that is below it.
    void Remove(std::uint32_t storage, const EntryKey& key);

    /// Adds to the contents of a stream.
    void Append(std::uint32_t stream, std::string_view bytes);

    const ImageContents& Contents() const { return m_contents; }

private:
    std::vector<std::unique_ptr<Node>> m_nodes; ///< null where one was removed
    ImageContents m_contents;
};

} // namespace Platform::Posix::CompoundFile
