#pragma once

#include "Platform/Posix/Descriptor.h"
#include "Platform/Posix/FileOperations.h"

#include <string>
#include <string_view>

namespace Platform::Posix
{

/// What stands before the name in a path, with a separator at its end.
std::string FolderOf(const std::string& path);

/// Writes all of the bytes. False, with the reason in `errno`, if that fails.
bool WriteAll(FileOperations& operations, int file, std::string_view bytes);

/// Has the contents of an open file go to the disk. What can't be flushed at all, like a
/// device, is as safe as it gets.
bool Flush(FileOperations& operations, int file);

/// A new file that is to take the place of another one in its folder. Gone at the end unless
/// it did.
///
/// Until then it is locked, which tells it from one that a process left behind that was
/// ended: those are removed by the next one in the folder that takes its place.
class TemporaryFile
{
public:
    /// Makes the file. `File` is negative, with the reason in `errno`, if that fails.
    TemporaryFile(FileOperations& operations, const std::string& folder, mode_t mode);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int File() const { return m_file; }

    /// Closes what was written. False, with the reason in `errno`, if it isn't all on the disk.
    bool FlushAndClose();

    /// Takes the place of `target`, which lies in the same folder, be it there or not.
    /// False, with the reason in `errno`, if that fails.
    bool TakePlaceOf(const std::string& target);

private:
    bool TakeLock();
    void RemoveLeftOvers() const;

    FileOperations& m_operations;
    std::string m_folder;
    std::string m_path;
    int m_file = -1;
    Descriptor m_lock;
    bool m_exists = false;
};

} // namespace Platform::Posix
