#include "bench/BenchFolder.h"

#include "Platform/Text.h"

#include <filesystem>
#include <random>
#include <stdexcept>

namespace
{

constexpr const char* MemoryFolder = "/dev/shm";

} // namespace

BenchFolder::BenchFolder()
{
    const std::filesystem::path parent = std::filesystem::is_directory(MemoryFolder)
                                           ? std::filesystem::path(MemoryFolder)
                                           : std::filesystem::temp_directory_path();
    const std::filesystem::path folder = parent / ("vantrel-bench-" + std::to_string(std::random_device()()));
    // Only a folder that wasn't there before may be removed at the end.
    if (!std::filesystem::create_directory(folder))
    {
        throw std::runtime_error("no folder can be made: " + folder.string());
    }
    m_folder = (folder / "").string();
}

BenchFolder::~BenchFolder()
{
    std::error_code error;
    std::filesystem::remove_all(m_folder, error);
}

std::wstring BenchFolder::File(const std::wstring& name) const
{
    return Platform::Utf8ToWide(m_folder) + name;
}
