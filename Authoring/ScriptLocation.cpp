#include "Authoring/ScriptLocation.h"

#include "Authoring/DirectoryCheck.h"
#include "Modules/ConfigFileValue.h"
#include "Modules/ScriptDirectory.h"
#include "Platform/Environment.h"
#include "Platform/Text.h"
#include "Utilities/EnvironmentFunctions.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

#include <tuple>
#include <utility>

namespace
{

std::wstring CurrentDatabaseFolder()
{
    return Platform::EnvironmentVariable(DatabaseFolderVariable).value_or(std::wstring());
}

void Show(IUserPrompt& prompt, BoxKind kind, const std::wstring& text)
{
    prompt.ShowBox(kind, text, LoadText(TextId::ApplicationTitle));
}

/// One that can't be written to may be chosen: it may be a library of scripts to be read only.
bool IsAcceptable(DirectoryState state)
{
    return state == DirectoryOk || state == DirectoryNotWritable;
}

} // namespace

ScriptLocation::ScriptLocation(std::wstring& scriptFolder, std::function<bool()> areDocumentsOpen, IUserPrompt& prompt)
    : m_scriptFolder(scriptFolder), m_databaseFolder(CurrentDatabaseFolder()),
      m_areDocumentsOpen(std::move(areDocumentsOpen)), m_prompt(prompt)
{
}

ScriptLocation::Refused ScriptLocation::Accept(const std::wstring& scriptBox, const std::wstring& databaseBox)
{
    if (!TakeScriptFolder(scriptBox))
    {
        return Refused::ScriptFolder;
    }
    if (!TakeDatabaseFolder(databaseBox))
    {
        return Refused::DatabaseFolder;
    }
    if (m_scriptFolderChanged && m_areDocumentsOpen())
    {
        Show(m_prompt, BoxKind::Warning, LoadText(TextId::ScriptFolderChanged));
    }
    return Refused::Nothing;
}

bool ScriptLocation::TakeScriptFolder(const std::wstring& folder)
{
    if (Platform::EqualsNoCase(folder, m_scriptFolder))
    {
        return true;
    }
    if (!CanStandInConfigFile(folder))
    {
        Show(m_prompt, BoxKind::Error, FormatText(TextId::PathNotStorable, { folder }));
        return false;
    }
    if (!IsAcceptable(ValidateDirectory(folder, m_prompt)))
    {
        return false;
    }
    m_scriptFolder = folder;
    m_scriptFolderChanged = true;
    return true;
}

bool ScriptLocation::TakeDatabaseFolder(const std::wstring& folder)
{
    if (Platform::EqualsNoCase(folder, m_databaseFolder))
    {
        return true;
    }
    if (!IsAcceptable(ValidateDirectory(folder, m_prompt)))
    {
        return false;
    }
    m_databaseFolder = folder;
    return true;
}

void ApplyDatabaseDirectory(const std::wstring& folder, IUserPrompt& prompt)
{
    if (Platform::EqualsNoCase(folder, CurrentDatabaseFolder()))
    {
        return;
    }
    if (CanWriteSoftwareKey() == 0)
    {
        Show(prompt, BoxKind::Error, LoadText(TextId::NoAdministratorRights));
        return;
    }
    // The running program goes on with the new folder in any case.
    std::ignore = SetEnvironmentValue(DatabaseFolderVariable, folder, MachineScope);
    Platform::SetProcessVariable(DatabaseFolderVariable, folder);
    BroadcastEnvironmentChange();
}

void ChangeScriptLocation(const std::wstring& configFile,
                          const std::function<bool(std::wstring& scriptFolder, std::wstring& databaseFolder)>& show,
                          IUserPrompt& prompt)
{
    std::wstring scriptFolder;
    // A folder that isn't usable is what the user has come to change.
    std::ignore = GetScriptDirectory(configFile, scriptFolder);
    const std::wstring before = scriptFolder;
    std::wstring databaseFolder;
    if (!show(scriptFolder, databaseFolder))
    {
        return;
    }
    ApplyDatabaseDirectory(databaseFolder, prompt);
    if (scriptFolder != before && !SetScriptDirectory(configFile, scriptFolder))
    {
        Show(prompt, BoxKind::Error, FormatText(TextId::ScriptFolderNotStored, { scriptFolder, configFile }));
    }
}
