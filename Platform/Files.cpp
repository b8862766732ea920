#include "Platform/Files.h"

#include "Platform/FolderEntries.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace Platform
{

std::wstring FileNamePart(std::wstring_view path)
{
    const std::size_t separator = path.rfind(PathSeparator);
    return std::wstring(separator == std::wstring_view::npos ? path : path.substr(separator + 1));
}

std::wstring FolderPart(std::wstring_view path)
{
    const std::size_t separator = path.rfind(PathSeparator);
    return std::wstring(separator == std::wstring_view::npos ? std::wstring_view() : path.substr(0, separator));
}

std::optional<std::vector<std::wstring>> NamesInFolder(const std::wstring& path)
{
    std::optional<std::vector<FolderEntry>> entries = FolderEntries(path);
    if (!entries)
    {
        return std::nullopt;
    }
    std::vector<std::wstring> names;
    std::transform(entries->begin(), entries->end(), std::back_inserter(names),
                   [](FolderEntry& entry) { return std::move(entry.name); });
    return names;
}

FileBytes::FileBytes(void* data, std::size_t size) : m_data(data), m_size(size) {}

FileBytes::~FileBytes()
{
    std::free(m_data);
}

FileBytes::FileBytes(FileBytes&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr)), m_size(std::exchange(other.m_size, 0))
{
}

FileBytes& FileBytes::operator=(FileBytes&& other) noexcept
{
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    return *this;
}

void* FileBytes::Detach()
{
    m_size = 0;
    return std::exchange(m_data, nullptr);
}

} // namespace Platform
