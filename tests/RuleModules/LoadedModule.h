#pragma once

#include "Platform/Library.h"

#include <Vantrel/ModuleInterface.h>

#include <string>

/// Path of a library in the stage, as configurations write it.
std::wstring StagedLibrary(const std::wstring& name);

/// A library that is loaded for a test, with its exports by name.
class LoadedModule
{
public:
    explicit LoadedModule(const std::wstring& path) : m_library(Platform::OpenLibraryFile(path)) {}
    ~LoadedModule() { Platform::ReleaseLibrary(m_library); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    bool IsLoaded() const { return m_library != nullptr; }

    /// The export, or null.
    template <typename Function>
    Function Export(const char* name) const
    {
        return reinterpret_cast<Function>(Platform::FindLibrarySymbol(m_library, name));
    }

    bool Has(const char* name) const { return Platform::FindLibrarySymbol(m_library, name) != nullptr; }

private:
    Platform::LibraryHandle m_library;
};

/// Rules that a module made; given back to it at the end.
class OfferedRules
{
public:
    explicit OfferedRules(const LoadedModule& module);
    ~OfferedRules();
    OfferedRules(const OfferedRules&) = delete;
    OfferedRules& operator=(const OfferedRules&) = delete;

    PointerArray rules;

private:
    const LoadedModule& m_module;
};
