#pragma once

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <chrono>
#include <memory>

// What tests of windows share.

/// Handles events until the condition holds or a limit has passed. Whether it holds.
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

/// Has the toolkit once for all tests of a program, since it doesn't start twice in a process.
class WindowTest : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static std::unique_ptr<wxInitializer> toolkit;
        if (toolkit == nullptr)
        {
            wxApp::SetInstance(new wxApp); // owned by the toolkit
            toolkit = std::make_unique<wxInitializer>();
        }
    }
};
