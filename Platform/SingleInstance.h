#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

/// One running instance per user, and handing a file to it if it is of the same program file.
namespace Platform
{

/// Marks this process as the first instance, or tells that there is one already.
/// Made before anything else of the program and kept until its end.
class InstanceMark
{
public:
    /// `name` names the mark, which all program files that give it have in common.
    explicit InstanceMark(const char* name) noexcept;
    ~InstanceMark();
    InstanceMark(const InstanceMark&) = delete;
    InstanceMark& operator=(const InstanceMark&) = delete;

    /// Error that the making of the mark left: 0, or 183 if the mark was there already.
    int CreationError() const { return m_creationError; }

    /// The value of `CreationError` that stands for a mark that was there already.
    static constexpr int AlreadyExists = 183;

    struct State;
    State* GetState() const { return m_state.get(); }

private:
    std::unique_ptr<State> m_state;
    int m_creationError = 0;
};

/// What the first instance does with what others send.
struct InstanceRequests
{
    /// The program's window comes to the front and is restored if it is minimised.
    std::function<void()> onActivate;
    /// `data` holds `size` bytes: a path in 16-bit units with its terminator. The result
    /// goes back to the sender. Must not read beyond `size`, which isn't trusted.
    std::function<bool(const void* data, std::size_t size)> onData;
};

/// Receives what later instances send, on the thread of the window's message loop.
class InstanceInbox
{
public:
    /// `nativeWindow` is the system's handle of the main window where the system sends to
    /// windows, else ignored. Requests that came in since `mark` was made are delivered
    /// as soon as the loop runs.
    InstanceInbox(InstanceMark& mark, void* nativeWindow, InstanceRequests requests);
    ~InstanceInbox();
    InstanceInbox(const InstanceInbox&) = delete;
    InstanceInbox& operator=(const InstanceInbox&) = delete;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

enum class ForwardResult
{
    NoInstance, ///< No window of a running instance of this program file was found.
    Activated,  ///< It came to the front; there was no file to send.
    Accepted,   ///< It took the file.
    Refused,    ///< It answered that it can't take the file now, or didn't answer.
};

/// Finds the running instance of this program file, brings it to the front and, if `path`
/// isn't empty, sends it the path. Waits for the answer no longer than some seconds.
ForwardResult ForwardToInstance(InstanceMark& mark, const std::wstring& path);

} // namespace Platform
