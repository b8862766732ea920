#include "Platform/ResourceLibrary.h"

#include "Platform/Posix/TextLibrary.h"

namespace Platform
{

ResourceLibrary::~ResourceLibrary()
{
    Release();
}

bool ResourceLibrary::Load(const std::wstring& path)
{
    Release();
    m_library = OpenLibraryFile(path);
    m_text = FindLibrarySymbol(m_library, Posix::ResourceTextExport);
    if (m_text == nullptr)
    {
        Release();
    }
    return IsLoaded();
}

std::optional<std::wstring> ResourceLibrary::Text(std::uint32_t number) const
{
    if (m_text == nullptr)
    {
        return {};
    }
    const wchar_t* const text = reinterpret_cast<Posix::ResourceTextFunction>(m_text)(number);
    return text != nullptr ? std::optional<std::wstring>(text) : std::nullopt;
}

void ResourceLibrary::Release()
{
    m_text = nullptr;
    ReleaseLibrary(m_library);
    m_library = nullptr;
}

} // namespace Platform
