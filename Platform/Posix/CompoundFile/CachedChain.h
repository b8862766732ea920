#pragma once

#include "Platform/Posix/CompoundFile/SectorChain.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Platform::Posix::CompoundFile
{

/// A chain that is read in small pieces, like a table. Only some of it is in memory at a
/// time: a file of holes can claim tables of any size.
class CachedChain
{
public:
    CachedChain(ByteSource& source, SectorChain chain) : m_source(source), m_chain(std::move(chain)) {}

    std::uint64_t Size() const { return m_chain.Size(); }

    /// The bytes of one record of the table, valid until the next call; null if they aren't
    /// there. The size of records divides that of blocks.
    const unsigned char* Record(std::uint64_t index, std::size_t size);

private:
    static constexpr std::size_t BlockSize = 4096;
    static constexpr std::size_t BlockCount = 256;

    struct Block
    {
        std::uint64_t number = UINT64_MAX;
        std::unique_ptr<unsigned char[]> bytes;
    };

    ByteSource& m_source;
    SectorChain m_chain;
    std::array<Block, BlockCount> m_blocks;
};

} // namespace Platform::Posix::CompoundFile
