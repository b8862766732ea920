#pragma once

#include "Utilities/UserPrompt.h"

/// Asks the user with boxes over the active window.
class WindowPrompt : public IUserPrompt
{
public:
    void ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& caption) override;
    bool AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& caption) override;
    SaveAnswer AskSaveChanges(const std::wstring& documentName) override;
    std::optional<std::wstring> AskPassword(PasswordPurpose purpose) override;
    std::optional<std::wstring> AskFile(const FileQuestion& question) override;
    std::optional<std::wstring> AskFolder(const FolderQuestion& question) override;
};
