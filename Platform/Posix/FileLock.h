#pragma once

#include "Platform/Posix/Descriptor.h"

#include <string>

namespace Platform::Posix
{

/// A lock between processes on a file that is there for nothing else. The system gives it
/// back when the process ends, however it ends. The file stays: whoever removed it could
/// take it from under one that has just opened it.
class FileLock
{
public:
    /// Opens the file and makes it if it is missing, without taking the lock.
    explicit FileLock(const std::string& path);

    /// False if the file could be neither opened nor made.
    bool IsOpen() const { return static_cast<bool>(m_file); }

    /// Takes the lock if no one else has it.
    bool TryTake();

    /// Takes the lock as soon as others give it back, within some seconds.
    bool Take();

private:
    Descriptor m_file;
};

} // namespace Platform::Posix
