#pragma once

#include "Platform/HeldFile.h"

#include <memory>
#include <string>

class IUserPrompt;

/// Keeps a document's rule file from being written by others for as long as the document is
/// open, and tells the user where that can't be had.
///
/// The states are: held; read-only, as someone else holds the file or it may not be
/// written; and free, for documents without a file.
class RuleFileAccess
{
public:
    /// `prompt` is not owned and may be null: then nobody is asked, and the answer is No.
    explicit RuleFileAccess(IUserPrompt* prompt) : m_prompt(prompt) {}

    /// Lets go of the file.
    ~RuleFileAccess();
    RuleFileAccess(const RuleFileAccess&) = delete;
    RuleFileAccess& operator=(const RuleFileAccess&) = delete;

    /// Before a file is read: takes it, or asks whether to open it read-only. False if it is
    /// not to be opened. `openPath` is the file that the document has so far; one that is
    /// opened over itself is read in any case.
    bool TakeForOpening(const std::wstring& path, const std::wstring& openPath);

    /// Before a file is written: lets go of it, since writing puts another one in its place.
    /// False, after telling the user, if it can't be written. `openPath` is the file last
    /// opened or saved; a read-only document that is saved elsewhere becomes an ordinary one.
    bool ReleaseForSaving(const std::wstring& path, const std::wstring& openPath);

    /// Right before the write: true unless someone else has taken the file meanwhile. Writing
    /// would succeed where the system has no file modes, and put what they do out of reach.
    bool IsFreeToWrite(const std::wstring& path) const;

    /// After a file was written: takes it again. Where that fails the document goes on
    /// without.
    void TakeAfterSaving(const std::wstring& path);

    bool IsHeld() const { return m_pHeldFile != nullptr; }
    bool IsReadOnly() const { return m_bReadOnly; }
    void SetReadOnly(bool readOnly) { m_bReadOnly = readOnly; }

private:
    bool OpenReadOnly(const std::wstring& path);
    bool TakeFromOtherUsers(const std::wstring& path);
    bool ReportSaveFailure(Platform::FileCause cause, const std::wstring& path, const std::wstring& openPath) const;
    void Warn(const std::wstring& text) const;

    IUserPrompt* m_prompt;
    std::unique_ptr<Platform::HeldFile> m_pHeldFile;
    bool m_bReadOnly = false;
};
