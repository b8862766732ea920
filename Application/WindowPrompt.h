#pragma once

#include "Utilities/UserPrompt.h"

#include <functional>
#include <utility>

/// Asks the user with boxes over the active window.
class WindowPrompt : public IUserPrompt
{
public:
    /// A box is open, so some work is halfway.
    bool IsAsking() const { return m_boxes > 0; }

    /// `answered` is called each time that the last open box has gone. The work that asked
    /// goes on after it.
    void OnAnswered(std::function<void()> answered) { m_answered = std::move(answered); }

    void ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& caption) override;
    bool AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& caption) override;
    SaveAnswer AskSaveChanges(const std::wstring& documentName) override;
    std::optional<std::wstring> AskPassword(PasswordPurpose purpose) override;
    std::optional<std::wstring> AskFile(const FileQuestion& question) override;
    std::optional<std::wstring> AskFolder(const FolderQuestion& question) override;

private:
    class Question;

    int m_boxes = 0;
    std::function<void()> m_answered;
};
