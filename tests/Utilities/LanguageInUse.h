#pragma once

#include "Platform/ResourceLibrary.h"
#include "Utilities/Texts.h"

#include <string>

/// Texts of a language for as long as it lives.
class LanguageInUse
{
public:
    explicit LanguageInUse(const std::wstring& path)
    {
        m_library.Load(path);
        UseTextLibrary(&m_library);
    }
    ~LanguageInUse() { UseTextLibrary(nullptr); }
    LanguageInUse(const LanguageInUse&) = delete;
    LanguageInUse& operator=(const LanguageInUse&) = delete;

    const Platform::ResourceLibrary& Library() const { return m_library; }

private:
    Platform::ResourceLibrary m_library;
};
