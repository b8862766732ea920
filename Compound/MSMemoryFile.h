#pragma once

#include "Compound/CompoundDocument.h"
#include "Platform/StructuredStorage.h"

#include <memory>

/// The image of a document in structured storage, in memory that grows while it is written.
class MSMemoryFile : public IMemoryFile
{
public:
    /// A block of its first size. Without memory for it, the file has no block and no size.
    MSMemoryFile();

    /// A block with an image in it. Null makes a file without memory.
    explicit MSMemoryFile(std::unique_ptr<Platform::MemoryBlock> block);

    std::uint32_t GetSize() override;

    /// Null for a file without memory.
    Platform::MemoryBlock* Block() { return m_block.get(); }

private:
    std::unique_ptr<Platform::MemoryBlock> m_block;
};
