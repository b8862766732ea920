#pragma once

#include <wx/app.h>
#include <wx/dialog.h>

#include <functional>
#include <vector>

// What tests of dialogs share.

/// Shows a dialog to the user's end of it: `act` runs once it is on the screen and has the
/// keyboard. The dialog's result.
inline int RunDialog(wxDialog& dialog, const std::function<void()>& act)
{
    dialog.Bind(wxEVT_IDLE,
                [&dialog, act, done = false](wxIdleEvent& event) mutable
                {
                    if (done || !dialog.IsActive() || wxWindow::FindFocus() == nullptr)
                    {
                        event.RequestMore(!done);
                        return;
                    }
                    done = true;
                    act();
                });
    return dialog.ShowModal();
}

/// The dialog's controls of a class, in the order in which Tab goes through them.
template <typename Control>
std::vector<Control*> ControlsOf(const wxWindow& dialog)
{
    std::vector<Control*> controls;
    for (wxWindow* const child : dialog.GetChildren())
    {
        if (auto* const control = dynamic_cast<Control*>(child))
        {
            controls.push_back(control);
        }
    }
    return controls;
}

inline void ClickOn(wxWindow& button)
{
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.GetEventHandler()->ProcessEvent(event);
}

inline void ClickOn(const wxWindow& dialog, int id)
{
    ClickOn(*dialog.FindWindow(id));
}
