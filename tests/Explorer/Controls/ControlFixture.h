#pragma once

#include "tests/Support/WindowTest.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

/// The toolkit, a window on the screen for controls, and a user at mouse and keyboard.
class ControlFixture : public WindowTest
{
protected:
    ControlFixture()
    {
        frame = new wxFrame(nullptr, wxID_ANY, "test", { 0, 0 }, { 600, 400 }); // destroyed with the test
        panel = new wxPanel(frame);                                             // owned by the frame
    }
    ~ControlFixture() override
    {
        frame->Destroy();
        wxTheApp->ProcessIdle(); // deletes what is to be destroyed
    }

    void Show()
    {
        frame->Show();
        frame->Raise();
        ASSERT_TRUE(WaitFor([this] { return frame->IsActive(); }));
    }

    /// Moves the mouse to a place of the window, which may be beside it.
    void MoveTo(const wxWindow& window, const wxPoint& place) { user.MouseMove(window.ClientToScreen(place)); }

    wxFrame* frame = nullptr;
    wxPanel* panel = nullptr;
    wxUIActionSimulator user;
};
