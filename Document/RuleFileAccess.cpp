#include "Document/RuleFileAccess.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

using Platform::FileCause;
using Platform::HeldFile;

namespace
{

/// Who has the file, as a sentence that follows another; empty if the system doesn't tell.
std::wstring HolderSentence(const std::wstring& path)
{
    const std::wstring user = Platform::UserHoldingFile(path);
    return user.empty() ? std::wstring() : L" " + FormatText(TextId::FileHolder, { user });
}

} // namespace

RuleFileAccess::~RuleFileAccess()
{
    if (m_pHeldFile != nullptr)
    {
        LogMessage(L"%s has been closed", m_pHeldFile->Path());
    }
}

bool RuleFileAccess::TakeForOpening(const std::wstring& path, const std::wstring& openPath)
{
    m_bReadOnly = false;
    FileCause cause = FileCause::None;
    m_pHeldFile = HeldFile::Open(path, cause);
    if (m_pHeldFile != nullptr)
    {
        return true;
    }
    switch (cause)
    {
    case FileCause::Generic:
    case FileCause::FileNotFound:
    case FileCause::BadPath:
        if (!Platform::EqualsNoCase(path, openPath))
        {
            Warn(FormatText(TextId::FileNotFound, { path }));
            return false;
        }
        return true;
    case FileCause::AccessDenied:
    case FileCause::SharingViolation:
        return path == openPath || OpenReadOnly(path);
    default:
        return true;
    }
}

bool RuleFileAccess::OpenReadOnly(const std::wstring& path)
{
    const std::wstring strReadOnlyMsg = FormatText(TextId::OpenReadOnly, { path, HolderSentence(path) });
    if (m_prompt == nullptr ||
        !m_prompt->AskYesNo(BoxKind::Warning, strReadOnlyMsg, LoadText(TextId::ApplicationTitle)))
    {
        LogMessage(L"File is already open. User selected not to open in read-only mode");
        return false;
    }
    LogMessage(L"File opened in read only mode");
    m_bReadOnly = true;
    return true;
}

bool RuleFileAccess::ReleaseForSaving(const std::wstring& path, const std::wstring& openPath)
{
    if (m_bReadOnly && openPath != path)
    {
        m_bReadOnly = false;
    }
    bool mayWrite = true;
    FileCause cause = FileCause::None;
    if (HeldFile::Open(path, cause) == nullptr)
    {
        mayWrite = ReportSaveFailure(cause, path, openPath);
    }
    if (m_bReadOnly && !TakeFromOtherUsers(path))
    {
        return false;
    }
    if (mayWrite)
    {
        m_pHeldFile.reset();
    }
    return mayWrite;
}

bool RuleFileAccess::TakeFromOtherUsers(const std::wstring& path)
{
    FileCause cause = FileCause::None;
    std::unique_ptr<HeldFile> file = HeldFile::Open(path, cause);
    if (file == nullptr || m_pHeldFile != nullptr)
    {
        Warn(FormatText(TextId::ChangesNotSaved, { path, HolderSentence(path) }));
        LogMessage(L"The document was opened in read-only mode. Changes can not be saved");
        return false;
    }
    // The other user has gone. The user is told what saving may undo; the box only informs.
    Warn(FormatText(TextId::OthersMayHaveChanged, { path }));
    m_bReadOnly = false;
    m_pHeldFile = std::move(file);
    return true;
}

bool RuleFileAccess::ReportSaveFailure(FileCause cause, const std::wstring& path, const std::wstring& openPath) const
{
    switch (cause)
    {
    case FileCause::Generic:
        Warn(FormatText(TextId::FileNotWritten, { path }));
        return false;
    case FileCause::AccessDenied:
        Warn(FormatText(TextId::FileNotSaved, { path }));
        return false;
    case FileCause::SharingViolation:
        // The document's own lock is no hindrance.
        if (Platform::IsSameFile(path, openPath))
        {
            return true;
        }
        Warn(FormatText(TextId::FileInUse, { path, HolderSentence(path) }));
        return false;
    case FileCause::DiskFull:
        Warn(FormatText(TextId::DiskFull, { path }));
        return false;
    default:
        return true; // a file that isn't there yet, for one
    }
}

bool RuleFileAccess::IsFreeToWrite(const std::wstring& path) const
{
    FileCause cause = FileCause::None;
    return HeldFile::Open(path, cause) != nullptr || cause != FileCause::SharingViolation;
}

void RuleFileAccess::TakeAfterSaving(const std::wstring& path)
{
    if (m_pHeldFile == nullptr)
    {
        FileCause cause = FileCause::None;
        m_pHeldFile = HeldFile::Open(path, cause);
    }
}

void RuleFileAccess::Warn(const std::wstring& text) const
{
    if (m_prompt != nullptr)
    {
        m_prompt->ShowBox(BoxKind::Warning, text, LoadText(TextId::ApplicationTitle));
    }
}
