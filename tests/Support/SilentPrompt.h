#pragma once

#include "Utilities/UserPrompt.h"

/// A user who answers every question with No and gives nothing.
class SilentPrompt : public IUserPrompt
{
public:
    void ShowBox(BoxKind /*kind*/, const std::wstring& /*text*/, const std::wstring& /*caption*/) override {}
    bool AskYesNo(BoxKind /*kind*/, const std::wstring& /*text*/, const std::wstring& /*caption*/) override
    {
        return false;
    }
    SaveAnswer AskSaveChanges(const std::wstring& /*documentName*/) override { return SaveAnswer::Cancel; }
    std::optional<std::wstring> AskPassword(PasswordPurpose /*purpose*/) override { return std::nullopt; }
    std::optional<std::wstring> AskFile(const FileQuestion& /*question*/) override { return std::nullopt; }
    std::optional<std::wstring> AskFolder(const FolderQuestion& /*question*/) override { return std::nullopt; }
};
