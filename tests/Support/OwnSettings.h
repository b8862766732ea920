#pragma once

#include "Platform/Files.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"

#include <string>

/// A folder of the test's own for the settings of the user, who has none to begin with.
class OwnSettings
{
public:
    /// The folder that `appdata` names.
    std::wstring Folder() const { return m_folder.Path(); }

    /// The file with the user's units.
    std::wstring UnitsFile() const
    {
        const std::wstring separator(1, Platform::PathSeparator);
        return m_folder.File(L"OrvaneLtd" + separator + L"WQZ" + separator + L"settings.xml");
    }

private:
    TemporaryFolder m_folder;
    ScopedEnvironment m_variable{ "appdata", m_folder.Path() };
};
