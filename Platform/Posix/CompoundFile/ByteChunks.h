#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace Platform::Posix::CompoundFile
{

/// Bytes that come in one after the other. They are copied once: what is there already
/// stays where it is when more follows.
class ByteChunks
{
public:
    std::uint64_t Size() const { return m_size; }

    /// Takes all of the bytes. If there is no memory for them it throws and has taken none.
    void Append(std::string_view bytes);

    /// The bytes in pieces, valid until the object is gone or more is appended.
    void AppendPiecesTo(std::vector<std::string_view>& pieces) const;

    /// Copies all of the bytes.
    void CopyTo(char* to) const;

private:
    struct Freer
    {
        void operator()(char* bytes) const { std::free(bytes); }
    };

    struct Chunk
    {
        explicit Chunk(std::size_t least);

        std::unique_ptr<char[], Freer> bytes;
        std::size_t size = 0;
        std::size_t capacity;
    };

    std::vector<Chunk> m_chunks;
    std::uint64_t m_size = 0;
};

} // namespace Platform::Posix::CompoundFile
