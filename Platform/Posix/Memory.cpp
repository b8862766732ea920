#include "Platform/Memory.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <sys/mman.h>
#include <tuple>

namespace Platform
{
namespace
{

constexpr std::size_t LargePageSize = std::size_t(2) << 20;

/// Below that the rest of the last page, which is cleared for nothing, would be too much beside
/// the block.
constexpr std::size_t SmallestLargeBlock = 8 * LargePageSize;

bool IsLarge(std::size_t size)
{
    return size >= SmallestLargeBlock;
}

std::size_t WholePages(std::size_t size)
{
    return (size + LargePageSize - 1) / LargePageSize * LargePageSize;
}

/// Makes a large block, or moves one, without copying it, to where there are addresses for more.
/// The system begins it at a large page because its size is one of whole large pages.
RawBlock MapBlock(const RawBlock& old, std::size_t size)
{
    if (size > std::numeric_limits<std::size_t>::max() / 2)
    {
        return {};
    }
    const std::size_t pages = WholePages(size);
    void* const start = IsLarge(old.size)
                          ? ::mremap(old.start, WholePages(old.size), pages, MREMAP_MAYMOVE)
                          : ::mmap(nullptr, pages, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (start == MAP_FAILED)
    {
        return {};
    }
    // Where large pages aren't given, the block has small ones.
    std::ignore = ::madvise(start, pages, MADV_HUGEPAGE);
    return { start, pages };
}

} // namespace

RawBlock GrowBlock(const RawBlock& block, std::size_t used, std::size_t size)
{
    if (!IsLarge(size))
    {
        void* const start = std::realloc(block.start, size);
        return { start, start != nullptr ? size : 0 };
    }
    const RawBlock grown = MapBlock(block, size);
    if (grown.start != nullptr && !IsLarge(block.size))
    {
        if (used > 0)
        {
            std::memcpy(grown.start, block.start, used);
        }
        std::free(block.start);
    }
    return grown;
}

void FreeBlock(const RawBlock& block)
{
    if (IsLarge(block.size))
    {
        std::ignore = ::munmap(block.start, WholePages(block.size));
    }
    else
    {
        std::free(block.start);
    }
}

} // namespace Platform
