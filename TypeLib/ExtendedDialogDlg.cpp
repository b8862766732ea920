#include "TypeLib/ExtendedDialogDlg.h"

#include "Platform/FilePattern.h"
#include "Platform/Files.h"
#include "Utilities/Texts.h"

#include <wx/filename.h>
#include <wx/msgdlg.h>
#include <wx/weakref.h>

namespace
{

/// The toolkit has no style for folders: every dialog tells of one that doesn't exist, and stays.
/// Its style for files that must exist is left out, since it refuses a name that was typed without
/// its extension before anyone can complete it.
long ToolkitStyle(int opens, const FileDialogRules& rules)
{
    long style = opens != 0 ? wxFD_OPEN : wxFD_SAVE;
    if (rules.asksBeforeReplacing)
    {
        style |= wxFD_OVERWRITE_PROMPT;
    }
    return style;
}

/// The toolkit's form of the filters: the pairs without a closing. It has a text for all files.
wxString ToolkitFilter(const std::vector<FileFilter>& filters)
{
    wxString text;
    for (const FileFilter& filter : filters)
    {
        text += (text.empty() ? L"" : L"|") + filter.name + L"|" + Platform::FilePattern(filter.pattern);
    }
    return text;
}

/// Disables a window unless it is disabled already, and afterwards gives the keyboard back.
class DisabledOwner
{
public:
    explicit DisabledOwner(wxWindow* owner) : m_focus(wxWindow::FindFocus())
    {
        if (owner != nullptr && owner->IsThisEnabled())
        {
            owner->Disable();
            m_owner = owner;
        }
    }
    ~DisabledOwner()
    {
        if (m_owner)
        {
            m_owner->Enable();
        }
        if (m_focus)
        {
            m_focus->SetFocus();
        }
    }
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;

private:
    // Either may go while the dialog is shown.
    wxWeakRef<wxWindow> m_owner;
    wxWeakRef<wxWindow> m_focus;
};

} // namespace

CExtendedDialogDlg::CExtendedDialogDlg(int opens, const std::wstring& initialFolder, const std::wstring& caption,
                                       const wchar_t* defaultExtension, const wchar_t* fileName, std::uint32_t flags,
                                       const std::wstring& filter, wxWindow* parent)
    : wxFileDialog(parent, caption, initialFolder, fileName != nullptr ? fileName : L"",
                   ToolkitFilter(ParseFileFilters(filter)), ToolkitStyle(opens, FileDialogRulesFor(opens != 0, flags))),
      m_caption(caption), m_defaultExtension(defaultExtension != nullptr ? defaultExtension : L""),
      m_rules(FileDialogRulesFor(opens != 0, flags))
{
    // Ahead of the toolkit's own handler, which ends the dialog.
    Bind(wxEVT_BUTTON, &CExtendedDialogDlg::OnAccept, this, wxID_OK);
}

CExtendedDialogDlg::Result CExtendedDialogDlg::DoModal()
{
    SetTitle(m_caption);
    m_path.clear();
    const DisabledOwner owner(GetParent());
    while (ShowModal() == wxID_OK)
    {
        // Where the dialog is wholly the system's, nothing was heard of it until now.
        if (!m_path.empty() || Accept())
        {
            return Confirmed;
        }
    }
    return GivenUp;
}

void CExtendedDialogDlg::GetPathName(std::wstring& path) const
{
    if (!m_path.empty())
    {
        path = m_path;
    }
}

void CExtendedDialogDlg::OnAccept(wxCommandEvent& event)
{
    event.Skip(Accept());
}

bool CExtendedDialogDlg::Accept()
{
    const std::wstring path = CompletedPath();
    if (path.empty() || !MayOpen(path) || !MayReplace(path))
    {
        return false;
    }
    m_path = path;
    return true;
}

std::wstring CExtendedDialogDlg::CompletedPath() const
{
    const std::wstring chosen = GetPath().ToStdWstring();
    // A file that is there may well be without an extension.
    return HasFdFlag(wxFD_OPEN) && Platform::PathExists(chosen) ? chosen
                                                                : WithDefaultExtension(chosen, m_defaultExtension);
}

bool CExtendedDialogDlg::MayOpen(const std::wstring& path)
{
    if (!m_rules.fileMustExist || Platform::PathExists(path))
    {
        return true;
    }
    wxMessageDialog box(this, LoadText(TextId::ToolkitFileMustExist), m_caption, wxOK | wxICON_WARNING);
    box.SetOKLabel(wxString(LoadText(TextId::ButtonOk)));
    box.ShowModal();
    return false;
}

bool CExtendedDialogDlg::MayReplace(const std::wstring& path)
{
    // The dialog itself asks about the name that it knows of, which had no extension yet.
    if (!m_rules.asksBeforeReplacing || path == GetPath().ToStdWstring() || !Platform::PathExists(path))
    {
        return true;
    }
    wxMessageDialog question(this,
                             FormatText(TextId::ReplaceFileQuestion, { wxFileName(path).GetFullName().ToStdWstring() }),
                             m_caption, wxYES_NO | wxNO_DEFAULT | wxICON_WARNING);
    question.SetYesNoLabels(wxString(LoadText(TextId::ButtonYes)), wxString(LoadText(TextId::ButtonNo)));
    return question.ShowModal() == wxID_YES;
}
