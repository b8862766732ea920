#include "Compound/MSMemoryFile.h"

#include <cstddef>
#include <utility>

namespace
{

constexpr std::size_t FirstSize = 16384;

} // namespace

MSMemoryFile::MSMemoryFile() : MSMemoryFile(Platform::MemoryBlock::Allocate(FirstSize)) {}

MSMemoryFile::MSMemoryFile(std::unique_ptr<Platform::MemoryBlock> block) : m_block(std::move(block)) {}

std::uint32_t MSMemoryFile::GetSize()
{
    return m_block != nullptr ? static_cast<std::uint32_t>(m_block->Size()) : 0;
}
