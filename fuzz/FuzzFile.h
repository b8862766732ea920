#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

/// What must hold ends the fuzzer if it doesn't.
inline void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

/// The one file that all inputs are written to. In memory where the system has a folder for
/// that; gone when the process ends.
class FuzzFile
{
public:
    explicit FuzzFile(const std::string& extension)
    {
        const std::filesystem::path memory = "/dev/shm";
        const std::filesystem::path parent =
            std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
        m_path = parent / ("vantrel-fuzz-" + std::to_string(std::random_device()()) + extension);
    }

    ~FuzzFile()
    {
        std::error_code error;
        std::filesystem::remove(m_path, error);
    }

    FuzzFile(const FuzzFile&) = delete;
    FuzzFile& operator=(const FuzzFile&) = delete;

    std::string Path() const { return m_path.string(); }
    std::wstring WidePath() const { return m_path.wstring(); }

    void Write(std::string_view bytes) const
    {
        std::ofstream(m_path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

    std::string Read() const
    {
        std::ifstream file(m_path, std::ios::binary);
        return { std::istreambuf_iterator<char>(file), {} };
    }

private:
    std::filesystem::path m_path;
};
