#pragma once

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/panel.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <chrono>
#include <memory>

/// The toolkit, a window on the screen for controls, and a user at mouse and keyboard.
class ControlFixture : public testing::Test
{
protected:
    // Once for all: the toolkit doesn't start twice in a process.
    static void SetUpTestSuite()
    {
        if (Toolkit() == nullptr)
        {
            wxApp::SetInstance(new wxApp); // owned by the toolkit
            Toolkit() = std::make_unique<wxInitializer>();
        }
    }

    static std::unique_ptr<wxInitializer>& Toolkit()
    {
        static std::unique_ptr<wxInitializer> toolkit;
        return toolkit;
    }

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

    /// Handles events until the condition holds or a limit has passed.
    template <typename Condition>
    bool WaitFor(Condition&& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition() && std::chrono::steady_clock::now() < end)
        {
            wxYield();
            wxTheApp->ProcessIdle();
        }
        return condition();
    }

    /// Moves the mouse to a place of the window, which may be beside it.
    void MoveTo(const wxWindow& window, const wxPoint& place) { user.MouseMove(window.ClientToScreen(place)); }

    wxFrame* frame = nullptr;
    wxPanel* panel = nullptr;
    wxUIActionSimulator user;
};
