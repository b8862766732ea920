#pragma once

#include "Platform/FileCause.h"

#include <memory>
#include <string>

/// Keeping a file open so that nobody else may write it meanwhile.
namespace Platform
{

/// A file that is open for reading and writing while others may only read it.
///
/// Where the system has no such mode, this program's users keep each other out and other
/// programs are not hindered.
class HeldFile
{
public:
    /// Null, and the reason in `cause`, if the file can't be had. Never makes a file.
    static std::unique_ptr<HeldFile> Open(const std::wstring& path, FileCause& cause);

    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    /// The path that was given to `Open`.
    const std::wstring& Path() const { return m_path; }

    struct State;

private:
    HeldFile(std::wstring path, std::unique_ptr<State> state);

    std::wstring m_path;
    std::unique_ptr<State> m_state;
};

/// The user who holds the file, as far as the system tells; else empty.
std::wstring UserHoldingFile(const std::wstring& path);

} // namespace Platform
