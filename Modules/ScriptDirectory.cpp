#include "Modules/ScriptDirectory.h"

#include "Modules/ConfigFileValue.h"
#include "Modules/IniFile.h"
#include "Modules/ModuleConfiguration.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"

namespace
{

constexpr const char* ScriptSection = "RULE_SCRIPT_LOCATION";
constexpr const char* DirectoryKey = "directory";
constexpr const wchar_t* DefaultFolder = L"ScriptDir";

/// False if the file can't be written. A folder that can't be read back is used without being
/// entered, since the file would be damaged for good.
bool AddDirectory(const std::wstring& path, const std::string& configFile)
{
    if (!CanStandInConfigFile(path))
    {
        return true;
    }
    const CIniFile file;
    if (!file.SectionExists(ScriptSection, configFile))
    {
        file.AddSection(ScriptSection, configFile);
    }
    return file.AddRecord(DirectoryKey, ToNarrow(path), ScriptSection, configFile);
}

} // namespace

bool GetScriptDirectory(std::wstring& path)
{
    return GetScriptDirectory(GetModuleConfigFile(), path);
}

bool GetScriptDirectory(const std::wstring& configFile, std::wstring& path)
{
    if (configFile.empty())
    {
        return false;
    }
    const std::string narrowFile = ToNarrow(configFile);
    const CIniFile file;
    if (!Platform::PathExists(configFile)) // one that can't be read must not be emptied
    {
        file.Create(narrowFile);
    }
    bool known = true;
    if (file.RecordExists(DirectoryKey, ScriptSection, narrowFile))
    {
        path = Platform::FromCodePage(file.GetValue(DirectoryKey, ScriptSection, narrowFile));
    }
    else
    {
        path = Platform::FolderPart(configFile) + Platform::PathSeparator + DefaultFolder;
        known = AddDirectory(path, narrowFile);
    }
    if (!Platform::PathExists(path))
    {
        known = Platform::MakeFolder(path);
    }
    return known;
}

bool SetScriptDirectory(const std::wstring& configFile, const std::wstring& path)
{
    const std::string narrowFile = ToNarrow(configFile);
    const CIniFile file;
    if (!Platform::PathExists(configFile)) // one that can't be read must not be emptied
    {
        file.Create(narrowFile);
    }
    return file.SetValue(DirectoryKey, ToNarrow(path), ScriptSection, narrowFile);
}
