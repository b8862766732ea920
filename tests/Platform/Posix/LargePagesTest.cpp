// That the system is asked for large pages shows in its own list of a process's memory.

#include "Platform/Memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{

/// The flags of the memory that the address lies in, as the system lists them.
std::string FlagsOf(const void* address)
{
    const auto wanted = reinterpret_cast<std::uintptr_t>(address);
    std::ifstream list("/proc/self/smaps");
    std::string line;
    bool inside = false;
    while (std::getline(list, line))
    {
        std::uintptr_t start = 0;
        std::uintptr_t end = 0;
        char dash = '\0';
        std::istringstream range(line);
        if (range >> std::hex >> start >> dash >> end && dash == '-')
        {
            inside = start <= wanted && wanted < end;
        }
        else if (inside && line.starts_with("VmFlags:"))
        {
            return line;
        }
    }
    return {};
}

} // namespace

TEST(LargePagesTest, OnlyLargeBlocksAskForThem)
{
    if (!std::filesystem::exists("/sys/kernel/mm/transparent_hugepage"))
    {
        GTEST_SKIP() << "this system has none to give";
    }
    constexpr std::size_t Megabyte = std::size_t(1) << 20;
    const Platform::RawBlock small = Platform::GrowBlock({}, 0, 8 * Megabyte);
    ASSERT_NE(FlagsOf(small.start), "");
    EXPECT_EQ(FlagsOf(small.start).find(" hg"), std::string::npos);
    const Platform::RawBlock large = Platform::GrowBlock(small, 0, 20 * Megabyte);
    EXPECT_NE(FlagsOf(large.start).find(" hg"), std::string::npos) << FlagsOf(large.start);
    const Platform::RawBlock larger = Platform::GrowBlock(large, 0, 60 * Megabyte);
    const auto* const last = static_cast<const unsigned char*>(larger.start) + larger.size - 1;
    EXPECT_NE(FlagsOf(last).find(" hg"), std::string::npos) << FlagsOf(last);
    EXPECT_EQ(FlagsOf(larger.start), FlagsOf(last));
    Platform::FreeBlock(larger);
}
