#include "Application/WindowPrompt.h"

#include "Document/PasswordDlg.h"
#include "TypeLib/ExtendedDialogDlg.h"
#include "Utilities/Texts.h"

#include <wx/dirdlg.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

namespace
{

long IconOf(BoxKind kind)
{
    switch (kind)
    {
    case BoxKind::Information:
        return wxICON_INFORMATION;
    case BoxKind::Warning:
        return wxICON_WARNING;
    case BoxKind::Error:
        return wxICON_ERROR;
    }
    return wxICON_NONE;
}

} // namespace

/// Counts one box, and shows the ordinary cursor while the user is asked in the midst of some work.
class WindowPrompt::Question
{
public:
    explicit Question(WindowPrompt& prompt) : m_prompt(prompt)
    {
        ++m_prompt.m_boxes;
        for (; wxIsBusy(); ++m_busyLevels)
        {
            wxEndBusyCursor();
        }
    }
    ~Question()
    {
        for (; m_busyLevels > 0; --m_busyLevels)
        {
            wxBeginBusyCursor();
        }
        if (--m_prompt.m_boxes == 0 && m_prompt.m_answered)
        {
            m_prompt.m_answered();
        }
    }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

private:
    WindowPrompt& m_prompt;
    int m_busyLevels = 0;
};

void WindowPrompt::ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& caption)
{
    const Question asking(*this);
    wxMessageDialog dialog(wxGetActiveWindow(), text, caption, wxOK | IconOf(kind));
    dialog.SetOKLabel(wxString(LoadText(TextId::ButtonOk)));
    dialog.ShowModal();
}

bool WindowPrompt::AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& caption)
{
    const Question asking(*this);
    wxMessageDialog dialog(wxGetActiveWindow(), text, caption, wxYES_NO | IconOf(kind));
    dialog.SetYesNoLabels(wxString(LoadText(TextId::ButtonYes)), wxString(LoadText(TextId::ButtonNo)));
    return dialog.ShowModal() == wxID_YES;
}

SaveAnswer WindowPrompt::AskSaveChanges(const std::wstring& documentName)
{
    const Question asking(*this);
    wxMessageDialog dialog(wxGetActiveWindow(), FormatText(TextId::SaveChangesQuestion, { documentName }),
                           LoadText(TextId::ApplicationTitle), wxYES_NO | wxCANCEL | wxICON_QUESTION);
    dialog.SetYesNoCancelLabels(wxString(LoadText(TextId::ButtonSave)), wxString(LoadText(TextId::ButtonDontSave)),
                                wxString(LoadText(TextId::ButtonCancel)));
    switch (dialog.ShowModal())
    {
    case wxID_YES:
        return SaveAnswer::Save;
    case wxID_NO:
        return SaveAnswer::Discard;
    default:
        return SaveAnswer::Cancel;
    }
}

std::optional<std::wstring> WindowPrompt::AskPassword(PasswordPurpose purpose)
{
    const Question asking(*this);
    CPasswordDlg dialog(wxGetActiveWindow(), purpose, *this);
    if (dialog.ShowModal() != wxID_OK)
    {
        return std::nullopt;
    }
    return dialog.strPassword.ToStdWstring();
}

std::optional<std::wstring> WindowPrompt::AskFile(const FileQuestion& question)
{
    const Question asking(*this);
    const bool opens = question.purpose == FilePurpose::Open;
    CExtendedDialogDlg dialog(opens ? 1 : 0, question.folder, question.title, question.extension.c_str(),
                              question.fileName.c_str(),
                              opens ? FileDialogFlags::ForOpening : FileDialogFlags::ForSaving,
                              FileFilterText({ question.filterName, question.pattern }), wxGetActiveWindow());
    if (dialog.DoModal() != CExtendedDialogDlg::Confirmed)
    {
        return std::nullopt;
    }
    std::wstring path;
    dialog.GetPathName(path);
    return path;
}

std::optional<std::wstring> WindowPrompt::AskFolder(const FolderQuestion& question)
{
    const Question asking(*this);
    wxDirDialog dialog(wxGetActiveWindow(), question.title, question.folder, wxDD_DEFAULT_STYLE | wxDD_NEW_DIR_BUTTON);
    if (dialog.ShowModal() != wxID_OK)
    {
        return std::nullopt;
    }
    return dialog.GetPath().ToStdWstring();
}
