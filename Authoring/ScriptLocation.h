#pragma once

#include <functional>
#include <string>

class IUserPrompt;

/// The environment variable with the folder of the rule database.
inline constexpr const wchar_t* DatabaseFolderVariable = L"VANTREL_DATABASE_DIR";

/// The folders that the user is changing: what stands behind the dialog's boxes.
class ScriptLocation
{
public:
    /// `scriptFolder` belongs to the caller and takes a new folder as soon as it is found good.
    /// `areDocumentsOpen` tells whether rule files are open: another start may hand one over
    /// while the user thinks.
    ScriptLocation(std::wstring& scriptFolder, std::function<bool()> areDocumentsOpen, IUserPrompt& prompt);

    const std::wstring& ScriptFolder() const { return m_scriptFolder; }
    const std::wstring& DatabaseFolder() const { return m_databaseFolder; }

    /// Takes a folder that was chosen in the folder browser; it isn't tested any more.
    void TakeBrowsedDatabaseFolder(const std::wstring& folder) { m_databaseFolder = folder; }

    enum class Refused
    {
        Nothing, ///< Both are taken.
        ScriptFolder,
        DatabaseFolder,
    };

    /// Takes what stands in the boxes. A folder that differs in more than case is tested, and
    /// the user is told of trouble with it. At the first that is refused the rest is left alone.
    Refused Accept(const std::wstring& scriptBox, const std::wstring& databaseBox);

private:
    bool TakeScriptFolder(const std::wstring& folder);
    bool TakeDatabaseFolder(const std::wstring& folder);

    std::wstring& m_scriptFolder;
    std::wstring m_databaseFolder;
    bool m_scriptFolderChanged = false;
    std::function<bool()> m_areDocumentsOpen;
    IUserPrompt& m_prompt;
};

/// Stores the database folder for the machine and sets it for the running program, unless it
/// is what it was, case aside. Without an administrator's rights the user is told, and nothing
/// is changed.
void ApplyDatabaseDirectory(const std::wstring& folder, IUserPrompt& prompt);

/// Has the user change both folders and stores what was changed. `show` shows the dialog on a
/// script folder, which it may change, and returns the database folder, or false if the user
/// gave up.
void ChangeScriptLocation(const std::wstring& configFile,
                          const std::function<bool(std::wstring& scriptFolder, std::wstring& databaseFolder)>& show,
                          IUserPrompt& prompt);
