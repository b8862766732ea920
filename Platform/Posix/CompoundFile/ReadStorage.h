#pragma once

#include "Platform/Posix/CompoundFile/ByteSource.h"
#include "Platform/StructuredStorage.h"

#include <memory>

namespace Platform::Posix::CompoundFile
{

/// The root of a document that is read.
StorageResult<Storage> OpenForReading(std::unique_ptr<ByteSource> source);

} // namespace Platform::Posix::CompoundFile
