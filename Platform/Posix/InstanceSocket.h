#pragma once

#include "Platform/Posix/Descriptor.h"

#include <chrono>
#include <string>

/// The socket that instances of one user find each other by.
namespace Platform::Posix
{

/// Paths of the lock and the socket of a mark for the running program. Both are empty if
/// there is no folder that only this user can write to.
struct InstancePaths
{
    std::string lock;
    std::string socket;
};

InstancePaths PathsOfInstance(const char* markName);

/// A socket that takes connections at the path. A dead one that lies there is replaced, so
/// the caller must hold the lock.
Descriptor ListenAt(const std::string& path);

/// A connection to the socket at the path. None if nobody listens there for some time, as
/// between the taking of the lock and the making of the socket, or at the end of `until`.
/// `nobody` tells the two apart.
Descriptor ConnectTo(const std::string& path, std::chrono::steady_clock::time_point until, bool& nobody);

/// True if the process at the other end belongs to the user of this one.
bool IsPeerOfThisUser(int socket);

/// Waits until the socket is ready for `events` of `poll`. False at the end of `until`.
bool WaitFor(int socket, short events, std::chrono::steady_clock::time_point until);

} // namespace Platform::Posix
