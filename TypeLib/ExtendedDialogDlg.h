#pragma once

#include "TypeLib/FileDialogOptions.h"

#include <wx/filedlg.h>

#include <string>

/// The one dialog in which files are chosen, for opening and for saving.
class CExtendedDialogDlg : public wxFileDialog
{
public:
    enum Result : int
    {
        Confirmed = 1,
        GivenUp = 2,
    };

    /// `opens` is 1 to open a file and 0 to save one. `flags` are of `FileDialogFlags`, and
    /// `filter` is what `ParseFileFilters` reads; its first pair is chosen at first. The default
    /// extension (without a dot) and the file name may be null, as may the parent, which is the
    /// dialog's owner. All texts are copied.
    CExtendedDialogDlg(int opens, const std::wstring& initialFolder, const std::wstring& caption,
                       const wchar_t* defaultExtension, const wchar_t* fileName, std::uint32_t flags,
                       const std::wstring& filter, wxWindow* parent);

    /// Shows the dialog. Its owner is disabled meanwhile, and what had the keyboard before gets
    /// it back if it still exists.
    Result DoModal();

    /// The full path of the chosen file, with the default extension if none was typed. As it was
    /// before unless the dialog was confirmed.
    void GetPathName(std::wstring& path) const;

private:
    void OnAccept(wxCommandEvent& event);
    bool Accept();
    std::wstring CompletedPath() const;
    bool MayOpen(const std::wstring& path);
    bool MayReplace(const std::wstring& path);

    std::wstring m_caption;
    std::wstring m_defaultExtension;
    FileDialogRules m_rules;
    std::wstring m_path; // that was accepted
};
