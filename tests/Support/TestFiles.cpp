#include "tests/Support/TestFiles.h"

#include "Platform/Files.h"
#include "Platform/Text.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

// By the standard library on purpose: what the services do is seen by other eyes.

void WriteBytes(const std::wstring& path, std::string_view bytes)
{
    std::ofstream file(Platform::NativePath(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
    {
        throw std::runtime_error("can't be written: " + Platform::WideToUtf8(path));
    }
}

std::string ReadBytes(const std::wstring& path)
{
    std::ifstream file(Platform::NativePath(path), std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file.is_open() || file.bad())
    {
        throw std::runtime_error("can't be read: " + Platform::WideToUtf8(path));
    }
    return bytes;
}
