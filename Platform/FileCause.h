#pragma once

namespace Platform
{

/// Why something with a file failed. The numbers are those of the system's file errors.
enum class FileCause : int
{
    None = 0,
    Generic = 1,
    FileNotFound = 2,
    BadPath = 3,
    AccessDenied = 5,
    SharingViolation = 11, ///< Someone else holds it.
    DiskFull = 13,
};

} // namespace Platform
