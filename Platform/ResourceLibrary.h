#pragma once

#include "Platform/Library.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Platform
{

/// A library that holds the texts of one language by number.
class ResourceLibrary
{
public:
    ResourceLibrary() = default;
    ~ResourceLibrary();
    ResourceLibrary(const ResourceLibrary&) = delete;
    ResourceLibrary& operator=(const ResourceLibrary&) = delete;

    /// Takes the library with the path in place of the present one. False if it can't be
    /// loaded or holds no texts; then there is none.
    bool Load(const std::wstring& path);

    bool IsLoaded() const { return m_library != nullptr; }

    /// The text of a number; nothing if there is none.
    std::optional<std::wstring> Text(std::uint32_t number) const;

private:
    void Release();

    LibraryHandle m_library = nullptr;
    LibrarySymbol m_text = nullptr;
};

} // namespace Platform
