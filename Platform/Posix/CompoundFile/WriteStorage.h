#pragma once

#include "Platform/StructuredStorage.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace Platform::Posix::CompoundFile
{

/// Where the bytes of a compound file go.
class ImageSink
{
public:
    ImageSink() = default;
    virtual ~ImageSink() = default;
    ImageSink(const ImageSink&) = delete;
    ImageSink& operator=(const ImageSink&) = delete;

    /// Told while a document grows how large its file would be by now. False if it can't
    /// become so large.
    virtual bool Reserve(std::uint64_t size) = 0;

    /// Puts the whole file, given in pieces, in the place of what was there.
    virtual bool Save(std::span<const std::string_view> pieces) = 0;
};

/// When the document goes to its sink.
enum class SavePolicy
{
    AtCommit,      ///< only when the root is committed
    AtCommitOrEnd, ///< also when the root is destroyed, if something has changed since
};

/// The root of a new document.
StorageResult<Storage> CreateForWriting(std::unique_ptr<ImageSink> sink, SavePolicy policy);

} // namespace Platform::Posix::CompoundFile
