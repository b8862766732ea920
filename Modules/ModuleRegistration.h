#pragma once

#include "Modules/ModuleKind.h"
#include "Modules/ModuleSet.h"

#include <optional>
#include <string>
#include <vector>

class IUserPrompt;

/// The configured modules of a kind while the user changes them. Nothing in the program or in
/// the configuration file changes before `Save`, though modules that are looked at get loaded.
class ModuleRegistration
{
public:
    struct Places
    {
        std::wstring configFile;
        std::wstring programFolder; ///< Where the default modules lie, without a separator at its end.
    };

    /// `loaded` are the application's modules of the kind and `paths` its list of their paths,
    /// which `Save` fills. All but the places must outlive the object.
    ModuleRegistration(const ModuleKind& kind, const ModuleSet::Handles& loaded, ModuleSet::Paths& paths, Places places,
                       IUserPrompt& prompt);

    /// Releases what was added and never saved.
    ~ModuleRegistration();
    ModuleRegistration(const ModuleRegistration&) = delete;
    ModuleRegistration& operator=(const ModuleRegistration&) = delete;

    const ModuleKind& Kind() const { return m_kind; }
    const std::wstring& ProgramFolder() const { return m_places.programFolder; }

    /// The modules as they are to be, in their order.
    const ModuleSet::Handles& Modules() const { return m_modules; }

    /// Name of a module in the list. Nothing if it has no `GetModuleName`; such a module has no row.
    static std::optional<std::wstring> NameOf(Platform::LibraryHandle module);

    /// Path and wrapped summary of a module, as they are shown.
    static std::wstring PathOf(Platform::LibraryHandle module);
    static std::wstring SummaryOf(Platform::LibraryHandle module);

    /// Names of the default modules that load and have one. They stay loaded to the end of the
    /// process.
    std::vector<std::wstring> DefaultNames();

    /// Adds the module at the path that the user typed, or without one the default module of
    /// that name. The user is told what is wrong with it, by the path in lower case. Null if
    /// none was added; otherwise it is the last of `Modules`.
    Platform::LibraryHandle Add(const std::wstring& typedPath, const std::optional<std::wstring>& defaultName);

    /// Takes a module out. It stays loaded.
    void Remove(Platform::LibraryHandle module);

    /// Goes back to the application's modules and releases what was added.
    void Discard();

    /// Rewrites the section of the configuration file, in one step so that the file is whole at
    /// every moment, and the application's list of paths. False if the file can't be read or
    /// written: it is as it was then, and the list is new all the same.
    bool Save();

private:
    Platform::LibraryHandle AddModule(const std::wstring& typedPath);
    Platform::LibraryHandle Refuse(TextId text, const std::wstring& path);
    bool IsConfigured(const std::wstring& path) const;
    bool SaveSection() const;

    /// Path of the default module of that name; empty if there is none. Nothing if one of them
    /// has no name.
    std::optional<std::wstring> FindDefault(const std::wstring& name) const;

    const ModuleKind& m_kind;
    const ModuleSet::Handles& m_loaded;
    ModuleSet::Paths& m_paths;
    Places m_places;
    IUserPrompt& m_prompt;
    ModuleSet::Handles m_modules;
    ModuleSet::Handles m_added; // each was loaded here once, and released unless it is saved
};

/// Breaks a text into lines of at most `width` characters, each with a carriage return and a
/// line feed at its end. A blank that a line is broken at stays at its end; a line without a
/// blank is broken where it is full.
std::wstring WrapModuleSummary(std::wstring text, std::size_t width);
