#include "Application/WindowPrompt.h"

#include <wx/msgdlg.h>

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

void WindowPrompt::ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& caption)
{
    wxMessageDialog(wxGetActiveWindow(), text, caption, wxOK | IconOf(kind)).ShowModal();
}

bool WindowPrompt::AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& caption)
{
    return wxMessageDialog(wxGetActiveWindow(), text, caption, wxYES_NO | IconOf(kind)).ShowModal() == wxID_YES;
}
