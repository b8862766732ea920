#include "Platform/Posix/CompoundFile/ByteChunks.h"

#include <algorithm>
#include <cstring>

namespace Platform::Posix::CompoundFile
{
namespace
{

// Most streams are small and written at once; a long one comes in many pieces.
constexpr std::size_t FewestBytes = 64;
constexpr std::size_t MostBytes = std::size_t(1) << 20;

} // namespace

void ByteChunks::Append(std::string_view bytes)
{
    std::size_t room = m_chunks.empty() ? 0 : m_chunks.back().capacity - m_chunks.back().size;
    if (bytes.size() > room)
    {
        // Before anything is taken: there may be no memory.
        const std::size_t grown = static_cast<std::size_t>(std::min<std::uint64_t>(m_size, MostBytes));
        const std::size_t capacity = std::max({ bytes.size() - room, grown, FewestBytes });
        m_chunks.push_back({ std::unique_ptr<char[]>(new char[capacity]), 0, capacity });
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
