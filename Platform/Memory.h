#pragma once

#include <cstddef>

/// Memory in blocks that grow and are filled from their start on. Systems fill large ones faster
/// if they are told so.
namespace Platform
{

struct RawBlock
{
    void* start = nullptr; ///< null for no block
    std::size_t size = 0;
};

/// A block of so many bytes or, where that fills its memory, some more in the place of this one,
/// of which the first `used` bytes are kept. A null start if there is no memory for it; the block
/// stays as it is then. A block never shrinks. Memory that isn't filled costs nothing but addresses. The caller ends
/// the block with `FreeBlock`.
RawBlock GrowBlock(const RawBlock& block, std::size_t used, std::size_t size);

/// Ends a block, or does nothing for none.
void FreeBlock(const RawBlock& block);

} // namespace Platform
