#pragma once

#include <Vantrel/FrameworkFunctions.h>

#include <functional>
#include <list>
#include <optional>
#include <string>

/// The module lists of `ConfigModule.ini`.
class ModuleConfiguration
{
public:
    using EnvironmentLookup = std::function<std::optional<std::wstring>(const std::wstring& name)>;

    /// `configFile` is the path of the ini file, `programFolder` the folder of the default
    /// modules, without a separator at its end.
    ModuleConfiguration(std::wstring configFile, std::wstring programFolder, EnvironmentLookup environment);

    /// Empties the list and fills it with the paths of the section in lower case. The file
    /// is made if it doesn't exist, and the defaults of the two module sections are written
    /// if they name no module. A file that can't be made or read gives an empty list.
    void GetConfiguredModules(const std::string& section, std::list<std::wstring>& modules) const;

    /// A value with its `%NAME%` replaced by environment variables, over and over. At a
    /// name that isn't set the result is what is left from that name on.
    std::string Expand(std::string value) const;

private:
    std::list<std::wstring> ReadModules(const std::string& section, bool expand) const;
    /// False where the file could not be read any more with the paths of the defaults in it.
    bool CanStoreDefaults() const;
    void WriteConfigDefaults(std::list<std::wstring>& modules) const;
    void WriteDatabaseDefaults(std::list<std::wstring>& modules) const;
    std::string DefaultPath(const wchar_t* fileName) const;

    std::string m_configFile; // in the system code page
    std::wstring m_programFolder;
    EnvironmentLookup m_environment;
};

inline constexpr const char* RuleModuleSection = "RULE_CONFIGURATION_MODULES";
inline constexpr const char* DatabaseModuleSection = "RULE_DATABASE_MODULES";

/// The data settings folder with a separator at its end, as the framework library tells it;
/// empty if it can't.
std::wstring GetDataSettingsFolder();

/// Same, as the given function tells it. Null is allowed.
std::wstring DataSettingsFolder(GetDataSettingsFolderPathFunction getFolder);

/// Path of `ConfigModule.ini` in the data settings folder; empty if the framework library
/// can't tell that folder.
std::wstring GetModuleConfigFile();

/// The configured rule modules.
void ReadConfigModules(std::list<std::wstring>& modules);

/// The configured database modules.
void ReadDBModules(std::list<std::wstring>& modules);
