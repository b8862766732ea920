#pragma once

#include "Platform/Posix/CompoundFile/Format.h"
#include "Platform/Posix/CompoundFile/StorageTree.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Platform::Posix::CompoundFile
{

/// The bytes of the file that a tree makes. The contents of large streams aren't copied,
/// so the tree has to stay as it is while the pieces are used. The same tree always makes
/// the same bytes.
class Image
{
public:
    explicit Image(const StorageTree& tree);

    /// The file in pieces that follow one another.
    std::span<const std::string_view> Pieces() const { return m_pieces; }

private:
    /// Where an entry of the directory stands, and what it says.
    struct Entry
    {
        std::uint32_t node = 0;
        EntryColour colour = Black;
        std::uint32_t left = NoEntry;
        std::uint32_t right = NoEntry;
        std::uint32_t child = NoEntry;
        std::uint32_t start = EndOfChain;
        std::uint64_t size = 0;
    };

    void OrderEntries();
    void PlaceStreams();
    void PutHeader();
    void PutFat();
    void PutDirectory();
    void AddPieces();
    unsigned char* SectorAt(std::uint64_t sector);
    std::uint32_t LinkTree(std::uint32_t first, std::uint32_t count);

    const StorageTree& m_tree;
    ImageLayout m_layout;
    std::vector<Entry> m_entries;
    std::string m_front; ///< all that stands before the large streams
    std::vector<std::string_view> m_pieces;
};

} // namespace Platform::Posix::CompoundFile
