#pragma once

#include <optional>
#include <string>

/// How a box looks and what it says it is about.
enum class BoxKind
{
    Information,
    Warning,
    Error,
};

/// What a password is asked for.
enum class PasswordPurpose
{
    Set,  ///< The file is to get it.
    Save, ///< The file has one and is to be saved.
};

/// What is to become of changes that aren't saved.
enum class SaveAnswer
{
    Save,
    Discard,
    Cancel, ///< What was about to happen doesn't.
};

/// What a file is chosen for.
enum class FilePurpose
{
    Open, ///< It exists.
    Save, ///< It may not exist yet; the user was asked whether one that does is to be replaced.
};

/// Which file the user is to choose.
struct FileQuestion
{
    std::wstring title;
    std::wstring filterName; ///< What the files are called.
    std::wstring pattern;    ///< Their names, with `*` for any letters.
    std::wstring folder;     ///< Where the choice begins; empty for wherever the user was last.
    FilePurpose purpose = FilePurpose::Open;
    std::wstring extension = {}; ///< Of names that are typed without one, with no dot; empty for none.
    std::wstring fileName = {};  ///< The name that is there at first.
};

/// Which folder the user is to choose.
struct FolderQuestion
{
    std::wstring title;
    std::wstring folder; ///< The one that is selected at first; empty for none.
};

/// The one way in which the program asks its user. Implemented once with windows; tests
/// give the answers. Code below the windows gets it handed in.
class IUserPrompt
{
public:
    virtual ~IUserPrompt() = default;

    /// Shows a text with an OK button and waits for it.
    virtual void ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& caption) = 0;

    /// Asks a question; true for Yes. Closing the box counts as No.
    virtual bool AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& caption) = 0;

    /// Asks whether the changes to a document are to be saved before it goes. Closing the
    /// box counts as Cancel.
    virtual SaveAnswer AskSaveChanges(const std::wstring& documentName) = 0;

    /// Has the user type a password, which fits into a rule file; nothing if the user
    /// gives none. An empty one is one too.
    virtual std::optional<std::wstring> AskPassword(PasswordPurpose purpose) = 0;

    /// Has the user choose a file: its full path, or nothing if the user gives up.
    virtual std::optional<std::wstring> AskFile(const FileQuestion& question) = 0;

    /// Has the user choose a folder: its full path, or nothing if the user gives up.
    virtual std::optional<std::wstring> AskFolder(const FolderQuestion& question) = 0;
};
