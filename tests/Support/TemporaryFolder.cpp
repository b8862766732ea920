#include "tests/Support/TemporaryFolder.h"

#include "Platform/Files.h"

#include <filesystem>
#include <random>
#include <stdexcept>

namespace
{

constexpr const wchar_t* NamePrefix = L"vantrel-test-";

} // namespace

TemporaryFolder::TemporaryFolder()
{
    std::random_device random;
    for (int tries = 0; tries < 100; ++tries)
    {
        const std::wstring path =
            Platform::TemporaryFolder() + NamePrefix + std::to_wstring(random()) + std::to_wstring(random());
        std::error_code error;
        if (std::filesystem::create_directory(Platform::NativePath(path), error))
        {
            m_path = path;
            return;
        }
    }
    throw std::runtime_error("no temporary folder can be made");
}

TemporaryFolder::~TemporaryFolder()
{
    // Tests may run with every right there is: nothing but what the constructor made may go.
    const bool isOurs = Platform::FileNamePart(m_path).starts_with(NamePrefix) &&
                        Platform::FolderPart(m_path) + Platform::PathSeparator == Platform::TemporaryFolder();
    if (!isOurs)
    {
        return;
    }
    // What can't be removed is left to whoever cleans the temporary folder up.
    std::error_code error;
    std::filesystem::remove_all(Platform::NativePath(m_path), error);
}

std::wstring TemporaryFolder::File(const std::wstring& name) const
{
    return m_path + Platform::PathSeparator + name;
}
