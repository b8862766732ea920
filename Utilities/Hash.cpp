#include "Utilities/Hash.h"

#include "Platform/Files.h"
#include "Platform/Hash.h"

#include <array>
#include <filesystem>
#include <fstream>

int MD5OfFile(const std::wstring& path, std::wstring& digest)
{
    const std::filesystem::path native = Platform::NativePath(path);
    // Opening a pipe that nobody writes to would wait for ever.
    std::error_code error;
    if (!std::filesystem::is_regular_file(native, error))
    {
        return 0;
    }
    std::ifstream file(native, std::ios::binary);
    if (!file.is_open())
    {
        return 0;
    }
    Platform::Md5 hash;
    std::array<char, 4096> piece = {};
    do
    {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        hash.Add(piece.data(), static_cast<std::size_t>(file.gcount()));
    } while (file.good());
    if (file.bad())
    {
        return 0;
    }
    const std::optional<std::string> text = hash.Finish();
    if (!text)
    {
        return 0;
    }
    digest.assign(text->begin(), text->end());
    return 1;
}
