#include "Platform/Posix/FileError.h"

#include <cerrno>

namespace Platform::Posix
{

FileCause CauseOf(int error)
{
    switch (error)
    {
    case 0:
        return FileCause::None;
    case ENOENT:
        return FileCause::FileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return FileCause::BadPath;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
        return FileCause::AccessDenied;
    case EWOULDBLOCK:
        return FileCause::SharingViolation;
    case ENOSPC:
    case EDQUOT:
        return FileCause::DiskFull;
    default:
        return FileCause::Generic;
    }
}

} // namespace Platform::Posix
