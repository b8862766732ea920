#pragma once

#include "Platform/Posix/CompoundFile/CachedChain.h"
#include "Platform/Posix/CompoundFile/EntryName.h"
#include "Platform/Posix/CompoundFile/Format.h"
#include "Platform/StructuredStorage.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace Platform::Posix::CompoundFile
{

/// Finds storages and streams in a compound file. Nothing that the file says about itself
/// is believed: every number is checked against the size of the file, every chain and
/// tree for loops, and an entry belongs to the storage that is looked into first.
class Reader
{
public:
    /// Looks at the header and the root.
    static StorageStatus Open(std::unique_ptr<ByteSource> source, std::shared_ptr<Reader>& reader);

    struct Child
    {
        std::uint32_t entry;
        StorageEntryKind kind;
        std::wstring name;
    };

    /// What a storage holds, in the order of the tree.
    struct Children
    {
        std::vector<Child> inOrder;
        std::vector<std::pair<EntryKey, std::size_t>> byKey; ///< sorted; no file can spoil that as it could a hash

        /// Null if there is no such child.
        const Child* Find(std::u16string_view name) const;
    };

    static constexpr std::uint32_t Root = 0;

    /// The children of a storage; null if its tree is damaged. The tree is walked once.
    const Children* ChildrenOf(std::uint32_t storage);

    /// Where the contents of a stream lie; nothing if they aren't there in full.
    std::optional<SectorChain> ContentsOf(std::uint32_t stream);

    ByteSource& Source() { return *m_source; }

private:
    struct Entry
    {
        std::uint8_t type = UnusedEntry;
        std::u16string name;
        std::uint32_t left = NoEntry;
        std::uint32_t right = NoEntry;
        std::uint32_t child = NoEntry;
        std::uint32_t start = EndOfChain;
        std::uint64_t size = 0;
    };

    explicit Reader(std::unique_ptr<ByteSource> source) : m_source(std::move(source)) {}

    bool ReadHeader();
    bool ReadFatPlaces(const unsigned char* header);
    void AppendSector(SectorChain& chain, std::uint32_t sector, std::uint64_t length) const;
    std::optional<std::uint32_t> NextSector(std::uint32_t sector);
    std::optional<SectorChain> WholeChain(std::uint32_t start);
    std::optional<SectorChain> ChainOfSize(std::uint32_t start, std::uint64_t size);
    std::optional<SectorChain> MiniChainOfSize(std::uint32_t start, std::uint64_t size);
    bool OpenMiniStream();
    bool ReadEntry(std::uint32_t number, Entry& entry);
    bool WalkTree(std::uint32_t top, Children& children);

    std::unique_ptr<ByteSource> m_source;
    std::size_t m_sectorShift = SmallSectorShift;
    std::uint64_t m_sectorCount = 0;
    std::uint32_t m_miniFatStart = EndOfChain;
    std::unique_ptr<CachedChain> m_fat;
    std::unique_ptr<CachedChain> m_directory;
    std::unique_ptr<CachedChain> m_miniFat;
    SectorChain m_miniStream;
    bool m_miniStreamTried = false;
    std::unordered_map<std::uint32_t, std::unique_ptr<Children>> m_children;
    std::unordered_set<std::uint32_t> m_claimed; ///< entries that a storage has as its children
};

} // namespace Platform::Posix::CompoundFile
