#pragma once

#include "Platform/Files.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace Platform::Posix
{

/// The system calls that reading and saving a file is made of. Each does and returns what
/// the call of its name does, `errno` included. Replaced where a fault is wanted on purpose.
class FileOperations
{
public:
    FileOperations() = default;
    virtual ~FileOperations() = default;
    FileOperations(const FileOperations&) = delete;
    FileOperations& operator=(const FileOperations&) = delete;

    virtual int Open(const std::string& path, int flags, mode_t mode);
    virtual ssize_t Read(int file, void* data, std::size_t size);
    virtual ssize_t Write(int file, const void* data, std::size_t size);
    virtual int ChangeOwner(int file, uid_t user, gid_t group);
    virtual int Reserve(int file, off_t size);
    virtual int Truncate(int file, off_t size);
    virtual int Sync(int file);
    virtual int Close(int file);
    virtual int Rename(const std::string& from, const std::string& to);
};

/// `Platform::ReadWholeFile` over these operations.
std::optional<FileBytes> ReadWholeFileWith(FileOperations& operations, const std::string& path);

/// `Platform::SaveFileWhole` over these operations.
bool ReplaceFileWith(FileOperations& operations, const std::string& path, std::span<const std::string_view> pieces,
                     const BeforeReplacing& before, FileCause& cause);
bool ReplaceFileWith(FileOperations& operations, const std::string& path, std::string_view bytes);

/// `Platform::CopyFileWhole` over these operations.
bool CopyFileWith(FileOperations& operations, const std::string& from, const std::string& to);

} // namespace Platform::Posix
