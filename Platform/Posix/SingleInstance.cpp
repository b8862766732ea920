#include "Platform/SingleInstance.h"

#include "Platform/Posix/InstanceMarkState.h"
#include "Platform/Posix/InstanceRecord.h"

#include <cerrno>
#include <chrono>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace Platform
{
namespace
{

using Clock = std::chrono::steady_clock;

bool SendAll(int socket, std::string_view bytes, Clock::time_point until)
{
    while (!bytes.empty())
    {
        const ssize_t count = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count > 0)
        {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        else if (errno != EINTR && (errno != EAGAIN || !Posix::WaitFor(socket, POLLOUT, until)))
        {
            return false;
        }
    }
    return true;
}

/// True if the other end answered that it took what was sent.
bool IsAccepted(int socket, Clock::time_point until)
{
    while (Posix::WaitFor(socket, POLLIN, until))
    {
        char answer = Posix::AnswerRefused;
        const ssize_t count = ::recv(socket, &answer, 1, MSG_DONTWAIT);
        if (count >= 0 || (errno != EINTR && errno != EAGAIN))
        {
            return count == 1 && answer == Posix::AnswerAccepted;
        }
    }
    return false;
}

} // namespace

InstanceMark::InstanceMark(const char* name) noexcept
{
    // A mark that can't be made must not keep the program from starting.
    try
    {
        m_state = std::make_unique<State>();
        m_state->owner = ::getpid();
        m_state->paths = Posix::PathsOfInstance(name);
        if (m_state->paths.lock.empty())
        {
            return;
        }
        m_state->lock = std::make_unique<Posix::FileLock>(m_state->paths.lock);
        if (m_state->lock->TryTake())
        {
            // At once, so that what others send from now on waits for the inbox.
            m_state->listener = Posix::ListenAt(m_state->paths.socket);
        }
        else if (m_state->lock->IsOpen() && errno == EWOULDBLOCK)
        {
            m_creationError = AlreadyExists;
        }
    }
    catch (...)
    {
        m_state.reset();
    }
}

InstanceMark::~InstanceMark()
{
    if (m_state && m_state->listener && m_state->owner == ::getpid())
    {
        // Before the lock is given back: afterwards it may be the next instance's.
        ::unlink(m_state->paths.socket.c_str());
    }
}

ForwardResult ForwardToInstance(InstanceMark& mark, const std::wstring& path)
{
    const InstanceMark::State* state = mark.GetState();
    if (state == nullptr || mark.CreationError() != InstanceMark::AlreadyExists)
    {
        return ForwardResult::NoInstance;
    }
    constexpr auto MostWait = std::chrono::seconds(10);
    const Clock::time_point until = Clock::now() + MostWait;
    bool nobody = false;
    const Posix::Descriptor connection = Posix::ConnectTo(state->paths.socket, until, nobody);
    if (!connection)
    {
        return nobody ? ForwardResult::NoInstance : ForwardResult::Refused;
    }
    if (!Posix::IsPeerOfThisUser(connection.Get()))
    {
        return ForwardResult::NoInstance;
    }
    const auto record = Posix::MakeInstanceRecord(path);
    // A path that is too long can't be a file's; the window comes to the front all the same.
    const auto sent = record ? record : Posix::MakeInstanceRecord({});
    if (!SendAll(connection.Get(), *sent, until) || !IsAccepted(connection.Get(), until) || !record)
    {
        return ForwardResult::Refused;
    }
    return path.empty() ? ForwardResult::Activated : ForwardResult::Accepted;
}

} // namespace Platform
