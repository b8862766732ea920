#pragma once

#include "Platform/Library.h"

#include <Vantrel/PointerArray.h>

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <vector>

class QoxXMLDocument;

/// The rule modules and database modules that are configured and loaded.
///
/// The libraries stay loaded until the process ends: rules that a document holds may
/// point into them to the last.
class ModuleSet
{
public:
    using Handles = std::vector<Platform::LibraryHandle>;
    using Paths = std::list<std::wstring>;

    ModuleSet() = default;
    ModuleSet(const ModuleSet&) = delete;
    ModuleSet& operator=(const ModuleSet&) = delete;

    /// The configured paths, in lower case.
    Paths& ConfigModulePaths() { return m_configModulePaths; }
    Paths& DBModulePaths() { return m_dbModulePaths; }
    const Paths& ConfigModulePaths() const { return m_configModulePaths; }
    const Paths& DBModulePaths() const { return m_dbModulePaths; }

    /// The loaded libraries, in load order.
    const Handles& ConfigModules() const { return m_configModules; }
    const Handles& DBModules() const { return m_dbModules; }

    /// Brings the loaded rule modules in line with the configured paths. What has left the
    /// configuration goes into `toFree`, still loaded.
    void LoadConfigModules(Handles& toFree);

    /// Same for the database modules.
    void LoadDBModules(Handles& toFree);

    /// Releases the libraries, last to first, and empties the array.
    static void FreeModules(Handles& toFree);

    /// Gives every rule module the list of database modules.
    void UpdateDBModuleList() const;

    /// Gives every rule module the document that is read or written.
    void SetXMLDoc(QoxXMLDocument* document) const;

    /// True if the path, in any case, is one of the configured rule modules.
    bool IsConfigured(const std::wstring& modulePath) const;

private:
    static void LoadModules(Handles& modules, Handles& toFree, const Paths& paths);

    Paths m_configModulePaths;
    Paths m_dbModulePaths;
    Handles m_configModules;
    Handles m_dbModules;
};

/// Appends the rules of the loaded rule modules to `rules`, the last module's first.
///
/// `askedModules` holds the full paths of the modules that were asked before: they are
/// left out, and those asked now are added. Paths that are no longer configured are taken
/// out of it first. If a rule module but no database module is loaded, calls
/// `onNoDatabaseModule` and stops. The rules stay their modules'.
void GatherRules(const ModuleSet& modules, std::list<std::wstring>& askedModules, PointerArray& rules,
                 const std::function<void()>& onNoDatabaseModule);
