#include "Platform/Memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>

using Platform::FreeBlock;
using Platform::GrowBlock;
using Platform::RawBlock;

namespace
{

constexpr std::size_t Megabyte = std::size_t(1) << 20;

/// Fills the part behind what was kept and looks whether all of it is there.
void FillAndCheck(const RawBlock& block, std::size_t kept, std::size_t used)
{
    auto* const bytes = static_cast<unsigned char*>(block.start);
    for (std::size_t index = 0; index < kept; index += 4093)
    {
        ASSERT_EQ(bytes[index], static_cast<unsigned char>(index % 251)) << index << " of " << block.size;
    }
    for (std::size_t index = kept; index < used; ++index)
    {
        bytes[index] = static_cast<unsigned char>(index % 251);
    }
}

} // namespace

TEST(MemoryTest, AGrowingBlockKeepsWhatIsInItWhateverItsSize)
{
    RawBlock block;
    std::size_t used = 0;
    for (const std::size_t size : { std::size_t(1), std::size_t(4096), Megabyte, 15 * Megabyte, 16 * Megabyte,
                                    16 * Megabyte + 1, 40 * Megabyte, 41 * Megabyte })
    {
        const RawBlock grown = GrowBlock(block, used, size);
        ASSERT_NE(grown.start, nullptr);
        ASSERT_GE(grown.size, size);
        ASSERT_LT(grown.size, size + 3 * Megabyte);
        FillAndCheck(grown, used, size);
        block = grown;
        used = size;
    }
    FillAndCheck(block, used, used);
    FreeBlock(block);
}

TEST(MemoryTest, ALargeBlockMayBeTheFirst)
{
    const RawBlock block = GrowBlock({}, 0, 20 * Megabyte);
    ASSERT_NE(block.start, nullptr);
    std::memset(block.start, 1, block.size);
    FreeBlock(block);
}

TEST(MemoryTest, WithoutMemoryTheBlockStaysAsItIs)
{
    RawBlock block = GrowBlock({}, 0, 100);
    for (const std::size_t size : { std::size_t(100), 17 * Megabyte })
    {
        block = GrowBlock(block, 0, size);
        std::memcpy(block.start, "kept", 4);
        // More than any machine has addresses for.
        const RawBlock grown = GrowBlock(block, 4, SIZE_MAX / 4);
        EXPECT_EQ(grown.start, nullptr);
        EXPECT_EQ(grown.size, 0u);
        EXPECT_EQ(std::memcmp(block.start, "kept", 4), 0);
    }
    FreeBlock(block);
}
