#pragma once

#include "Platform/StructuredStorage.h"

#include <cstdint>

namespace Platform::Posix::CompoundFile
{

/// The bits that say what may be done with an object.
constexpr std::uint32_t AccessBits = 0x3;

/// The bits that say what others may do with it at the same time.
constexpr std::uint32_t ShareBits = 0x70;

/// Whether something inside a document may be opened with a mode. All of it is exclusive,
/// has the access of the document, and works directly within the document's transaction.
inline StorageStatus CheckChildMode(std::uint32_t mode, std::uint32_t access)
{
    if ((mode & ~(AccessBits | ShareBits | StorageMode::Create)) != 0 ||
        (mode & ShareBits) != StorageMode::ShareExclusive || (mode & AccessBits) > StorageMode::Write)
    {
        return StorageStatus::InvalidMode;
    }
    return (mode & AccessBits) == access ? StorageStatus::Done : StorageStatus::AccessDenied;
}

} // namespace Platform::Posix::CompoundFile
