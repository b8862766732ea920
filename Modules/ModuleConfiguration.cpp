#include "Modules/ModuleConfiguration.h"

#include "Modules/ConfigFileValue.h"
#include "Modules/FrameworkLibrary.h"
#include "Modules/IniFile.h"
#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Library.h"
#include "Platform/Process.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"

#include <Vantrel/FrameworkFunctions.h>

#include <array>
#include <unordered_map>
#include <utility>
#include <vector>

namespace
{

constexpr const wchar_t* ConfigFileName = L"ConfigModule.ini";
constexpr const wchar_t* DefaultDatabaseModule = L"QoxSqliteDatabaseu.dll";

struct DefaultModule
{
    int number;
    const wchar_t* fileName;
};

// The gap before 12 is on purpose. Reading stops at it, so that tubing is offered in the
// file for whoever closes the gap, but isn't loaded by default.
constexpr std::array DefaultModules = {
    DefaultModule{ 1, L"QoxMillRulesu.dll" },      DefaultModule{ 2, L"QoxTurnRulesu.dll" },
    DefaultModule{ 3, L"QoxSMRulesu.dll" },        DefaultModule{ 4, L"QOXIMRulesu.dll" },
    DefaultModule{ 5, L"QOXAssemblyRulesu.dll" },  DefaultModule{ 6, L"QoxGenericRulesu.dll" },
    DefaultModule{ 7, L"QOXCastingRulesu.dll" },   DefaultModule{ 8, L"QOXDieCastRulesu.dll" },
    DefaultModule{ 9, L"QoxToleranceRulesu.dll" }, DefaultModule{ 12, L"QOXTubingRulesu.dll" },
};

constexpr int LastModuleBeforeGap = 9;

// A variable may name itself in its text. Expansion then has no end of its own; these
// bounds are far above what any path needs.
constexpr int MostReplacements = 1000;
constexpr std::size_t LongestValue = 32768;

// What is asked for first, and where a length that is told is no longer believed.
constexpr std::size_t UsualPathLength = 260;
constexpr std::size_t LongestFolder = 32768;

std::string KeyOf(int number)
{
    return "module" + std::to_string(number);
}

std::wstring ListEntry(const std::string& value)
{
    return Platform::ConfiguredLibraryName(Platform::ToLower(Platform::FromCodePage(value)));
}

ModuleConfiguration RealConfiguration()
{
    return { GetModuleConfigFile(), Platform::ProgramFolder(), &Platform::EnvironmentVariable };
}

} // namespace

ModuleConfiguration::ModuleConfiguration(std::wstring configFile, std::wstring programFolder,
                                         EnvironmentLookup environment)
    : m_configFile(ToNarrow(configFile)), m_programFolder(std::move(programFolder)),
      m_environment(std::move(environment))
{
}

void ModuleConfiguration::GetConfiguredModules(const std::string& section, std::list<std::wstring>& modules) const
{
    modules.clear();
    const CIniFile file;
    if (!Platform::PathExists(Platform::FromCodePage(m_configFile)))
    {
        file.Create(m_configFile); // one that can't be read must not be emptied
    }
    modules = ReadModules(section, true);
    if (!modules.empty())
    {
        return;
    }
    if (section == RuleModuleSection)
    {
        WriteConfigDefaults(modules);
    }
    else if (section == DatabaseModuleSection)
    {
        WriteDatabaseDefaults(modules);
    }
}

std::list<std::wstring> ModuleConfiguration::ReadModules(const std::string& section, bool expand) const
{
    // One load for all numbers: with one for each, a long list would take minutes.
    std::unordered_map<std::string, std::string> values;
    for (CIniFile::Record& record : CIniFile().GetSectionRecords(section, m_configFile))
    {
        values.try_emplace(std::move(record.Key), std::move(record.Value)); // the first of a name counts
    }
    std::list<std::wstring> modules;
    for (int number = 1;; ++number)
    {
        const auto found = values.find(KeyOf(number));
        if (found == values.end())
        {
            return modules;
        }
        modules.push_back(ListEntry(expand ? Expand(found->second) : found->second));
    }
}

std::string ModuleConfiguration::Expand(std::string value) const
{
    for (int count = 0; count < MostReplacements && value.size() < LongestValue; ++count)
    {
        const std::size_t start = value.find('%');
        if (start == std::string::npos)
        {
            break;
        }
        const std::string prefix = value.substr(0, start);
        value.erase(0, start + 1);
        // Without a second `%` the rest serves as the name and as what follows it.
        const std::size_t end = value.find('%');
        const std::string name = value.substr(0, end);
        const std::string suffix = end == std::string::npos ? value : value.substr(end + 1);
        const std::optional<std::wstring> text = m_environment(Platform::FromCodePage(name));
        if (!text)
        {
            break;
        }
        value = prefix + ToNarrow(*text) + suffix;
    }
    return value;
}

std::string ModuleConfiguration::DefaultPath(const wchar_t* fileName) const
{
    return ToNarrow(m_programFolder + Platform::PathSeparator + fileName);
}

bool ModuleConfiguration::CanStoreDefaults() const
{
    if (CanStandInConfigFile(m_programFolder))
    {
        return true;
    }
    LogMessage(L"The modules in %s can't be entered in ConfigModule.ini, for it could not be read any more",
               m_programFolder);
    return false;
}

void ModuleConfiguration::WriteConfigDefaults(std::list<std::wstring>& modules) const
{
    if (!CanStoreDefaults())
    {
        for (const DefaultModule& module : DefaultModules)
        {
            if (module.number <= LastModuleBeforeGap)
            {
                modules.push_back(ListEntry(DefaultPath(module.fileName)));
            }
        }
        return;
    }
    const CIniFile file;
    file.AddSection(RuleModuleSection, m_configFile);
    for (const DefaultModule& module : DefaultModules)
    {
        file.AddRecord(KeyOf(module.number), DefaultPath(module.fileName), RuleModuleSection, m_configFile);
    }
    modules = ReadModules(RuleModuleSection, false);
}

void ModuleConfiguration::WriteDatabaseDefaults(std::list<std::wstring>& modules) const
{
    const std::string path = DefaultPath(DefaultDatabaseModule);
    if (!CanStoreDefaults())
    {
        modules.push_back(ListEntry(path));
        return;
    }
    const CIniFile file;
    file.AddSection(DatabaseModuleSection, m_configFile);
    if (file.AddRecord(KeyOf(1), path, DatabaseModuleSection, m_configFile))
    {
        modules.push_back(ListEntry(path));
    }
}

std::wstring DataSettingsFolder(GetDataSettingsFolderPathFunction getFolder)
{
    if (getFolder == nullptr)
    {
        return {};
    }
    std::vector<wchar_t> buffer(UsualPathLength);
    std::size_t size = buffer.size();
    std::size_t length = getFolder(buffer.data(), &size);
    if (length > buffer.size() && length <= LongestFolder)
    {
        buffer.resize(length + 1);
        size = buffer.size();
        length = getFolder(buffer.data(), &size);
    }
    // Half a path would name another folder.
    return length <= buffer.size() ? std::wstring(buffer.data(), length) : std::wstring();
}

std::wstring GetDataSettingsFolder()
{
    return DataSettingsFolder(
        FindFrameworkFunction<GetDataSettingsFolderPathFunction>(LoadFrameworkLibrary(), "GetDataSettingsFolderPath"));
}

std::wstring GetModuleConfigFile()
{
    const std::wstring folder = GetDataSettingsFolder();
    return folder.empty() ? folder : folder + ConfigFileName;
}

void ReadConfigModules(std::list<std::wstring>& modules)
{
    RealConfiguration().GetConfiguredModules(RuleModuleSection, modules);
}

void ReadDBModules(std::list<std::wstring>& modules)
{
    RealConfiguration().GetConfiguredModules(DatabaseModuleSection, modules);
}
