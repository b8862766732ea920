#pragma once

#include <string>

/// A folder for the files of a benchmark, removed with everything in it at the end. In memory
/// where the system has a place for that, so that the disk doesn't count.
class BenchFolder
{
public:
    BenchFolder();
    ~BenchFolder();
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    /// Path of a file of that name.
    std::string File(const std::string& name) const { return m_folder + name; }
    std::wstring File(const std::wstring& name) const;

private:
    std::string m_folder; // with a separator at its end
};
