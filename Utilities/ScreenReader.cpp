#include "Utilities/ScreenReader.h"

#include "Platform/ScreenReader.h"

#include <wx/control.h>
#include <wx/listctrl.h>

namespace
{

void NameWindows(const wxWindow& control, const std::wstring& name, Platform::ScreenReaderRole role)
{
    Platform::NameForScreenReaders(control.GetHandle(), name, role);
    for (const wxWindow* const part : control.GetChildren())
    {
        if (part->AcceptsFocus())
        {
            NameWindows(*part, name, role);
        }
    }
}

/// As it is said: without the mark of its key.
wxString Spoken(const wxString& name)
{
    return wxControl::RemoveMnemonics(name);
}

} // namespace

void NameForScreenReaders(wxWindow& control, const wxString& name)
{
    NameWindows(control, Spoken(name).ToStdWstring(), Platform::ScreenReaderRole::OfWindow);
}

void NameForScreenReaders(wxListCtrl& list, const wxString& name)
{
    const wxString spoken = Spoken(name);
    const auto tell = [&list, spoken](long row)
    {
        const wxString text = row < 0 ? wxString() : " " + list.GetItemText(row);
        NameWindows(list, (spoken + text).ToStdWstring(), Platform::ScreenReaderRole::List);
    };
    tell(-1);
    for (const auto& type : { wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_FOCUSED })
    {
        list.Bind(type,
                  [tell](wxListEvent& event)
                  {
                      tell(event.GetIndex());
                      event.Skip();
                  });
    }
}
