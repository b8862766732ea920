#include "tests/Support/FakeDesktop.h"

#include "Platform/Files.h"
#include "tests/Support/TestFiles.h"

#include <chrono>
#include <filesystem>
#include <thread>

FakeDesktop::FakeDesktop()
    : m_out(m_folder.File(L"target")), m_outVariable("VANTREL_TEST_OUT", m_out),
      m_path("PATH", m_folder.Path() + L":/usr/bin:/bin")
{
    // The note is moved to its place, so that it is whole once it is there.
    const std::wstring program = m_folder.File(L"xdg-open");
    WriteBytes(program, "#!/bin/sh\nprintf %s \"$1\" > \"$VANTREL_TEST_OUT.part\"\n"
                        "mv \"$VANTREL_TEST_OUT.part\" \"$VANTREL_TEST_OUT\"\n");
    std::filesystem::permissions(Platform::NativePath(program), std::filesystem::perms::owner_all);
}

std::string FakeDesktop::WaitForTarget() const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!Platform::FileExists(m_out) && std::chrono::steady_clock::now() < end)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return ReadBytes(m_out);
}

void FakeDesktop::Forget()
{
    Platform::DeleteFileAt(m_out);
}
