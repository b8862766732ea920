#pragma once

#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"

#include <string>

/// Stands in, for as long as it lives, for the program with which the user's desktop opens
/// files and addresses, and notes what it is to open.
class FakeDesktop
{
public:
    FakeDesktop();

    /// What the desktop was asked to open; waits for it. Throws if nothing comes.
    std::string WaitForTarget() const;

    /// Forgets it, for the next time.
    void Forget();

private:
    TemporaryFolder m_folder;
    std::wstring m_out;
    ScopedEnvironment m_outVariable;
    ScopedEnvironment m_path;
};
