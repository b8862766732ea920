#pragma once

#include "Platform/Posix/FileLock.h"
#include "Platform/Posix/InstanceSocket.h"
#include "Platform/SingleInstance.h"

#include <memory>
#include <sys/types.h>

namespace Platform
{

struct InstanceMark::State
{
    Posix::InstancePaths paths;
    std::unique_ptr<Posix::FileLock> lock;
    /// Only the first instance has one.
    Posix::Descriptor listener;
    /// The process that made the mark; one that it forks has a copy but no right to the files.
    pid_t owner = 0;
};

} // namespace Platform
