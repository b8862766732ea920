#include "Platform/Posix/CompoundFile/ByteChunks.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <tuple>

namespace Platform::Posix::CompoundFile
{
namespace
{

// Most streams are small and written at once; a long one comes in many pieces.
constexpr std::size_t FewestBytes = 64;
constexpr std::size_t MostBytes = std::size_t(1) << 22;

/// What a large page of memory has, where the system has such.
constexpr std::size_t LargePage = std::size_t(1) << 21;

} // namespace

ByteChunks::Chunk::Chunk(std::size_t least)
    : capacity(least < LargePage ? least : (least + LargePage - 1) / LargePage * LargePage)
{
    if (least < LargePage)
    {
        bytes.reset(static_cast<char*>(std::malloc(capacity)));
    }
    else if (capacity >= least)
    {
        bytes.reset(static_cast<char*>(std::aligned_alloc(LargePage, capacity)));
    }
    if (bytes == nullptr)
    {
        throw std::bad_alloc();
    }
    if (least >= LargePage)
    {
        // Taking a long stream costs more by the number of pages than by that of bytes. Only
        // advice: what comes of it doesn't matter.
        std::ignore = ::madvise(bytes.get(), capacity, MADV_HUGEPAGE);
    }
}

void ByteChunks::Append(std::string_view bytes)
{
    std::size_t room = m_chunks.empty() ? 0 : m_chunks.back().capacity - m_chunks.back().size;
    if (bytes.size() > room)
    {
        // Before anything is taken: there may be no memory.
        const std::size_t grown = static_cast<std::size_t>(std::min<std::uint64_t>(m_size, MostBytes));
        const std::size_t capacity = std::max({ bytes.size() - room, grown, FewestBytes });
        m_chunks.emplace_back(capacity);
    }
    else
    {
        room = bytes.size();
    }
    if (room > 0)
    {
        Chunk& first = bytes.size() > room ? m_chunks[m_chunks.size() - 2] : m_chunks.back();
        std::memcpy(first.bytes.get() + first.size, bytes.data(), room);
        first.size += room;
    }
    if (bytes.size() > room)
    {
        Chunk& last = m_chunks.back();
        std::memcpy(last.bytes.get(), bytes.data() + room, bytes.size() - room);
        last.size = bytes.size() - room;
    }
    m_size += bytes.size();
}

void ByteChunks::AppendPiecesTo(std::vector<std::string_view>& pieces) const
{
    for (const Chunk& chunk : m_chunks)
    {
        pieces.emplace_back(chunk.bytes.get(), chunk.size);
    }
}

void ByteChunks::CopyTo(char* to) const
{
    for (const Chunk& chunk : m_chunks)
    {
        std::memcpy(to, chunk.bytes.get(), chunk.size);
        to += chunk.size;
    }
}

} // namespace Platform::Posix::CompoundFile
