#include "Platform/Posix/CompoundFile/CachedChain.h"

#include <algorithm>

namespace Platform::Posix::CompoundFile
{

const unsigned char* CachedChain::Record(std::uint64_t index, std::size_t size)
{
    if (index >= m_chain.Size() / size)
    {
        return nullptr;
    }
    const std::uint64_t position = index * size;
    const std::uint64_t number = position / BlockSize;
    Block& block = m_blocks[number % BlockCount];
    if (block.number != number)
    {
        if (block.bytes == nullptr)
        {
            block.bytes = std::make_unique<unsigned char[]>(BlockSize);
        }
        const std::uint64_t start = number * BlockSize;
        const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(BlockSize, m_chain.Size() - start));
        block.number = UINT64_MAX;
        if (!m_chain.Read(m_source, start, block.bytes.get(), count))
        {
            return nullptr;
        }
        block.number = number;
    }
    return block.bytes.get() + position % BlockSize;
}

} // namespace Platform::Posix::CompoundFile
