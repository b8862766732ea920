#pragma once

#include <string>

/// A folder of the test's own, removed with everything in it at the end.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The folder's path, without a separator at its end.
    std::wstring Path() const { return m_path; }

    /// Path of a file or folder in it, which isn't made.
    std::wstring File(const std::wstring& name) const;

private:
    std::wstring m_path;
};
