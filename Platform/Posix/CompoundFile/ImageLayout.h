#pragma once

#include <cstdint>

namespace Platform::Posix::CompoundFile
{

/// How much a document holds, as far as the size of its file depends on it.
struct ImageContents
{
    std::uint64_t entries = 0;     ///< of the directory
    std::uint64_t sectors = 0;     ///< of the streams that aren't small
    std::uint64_t miniSectors = 0; ///< of the small ones

    /// Counts a stream that had one size and now has another. One that isn't there has the size 0.
    void ResizeStream(std::uint64_t before, std::uint64_t now);
};

/// Where the parts of a file with small sectors lie, as numbers of sectors, in this order
/// from the header on. Tables come first, so that a reader has them in a few reads.
struct ImageLayout
{
    explicit ImageLayout(const ImageContents& contents);

    std::uint64_t fat = 0;
    std::uint64_t difat = 0;
    std::uint64_t directory = 0;
    std::uint64_t miniFat = 0;
    std::uint64_t miniStream = 0;
    std::uint64_t streams = 0;

    std::uint64_t Sectors() const { return fat + difat + directory + miniFat + miniStream + streams; }

    /// The size of the file in bytes.
    std::uint64_t Size() const;

    /// A file with small sectors ends below 2 GiB, and its last bytes are kept free for locks.
    bool IsPossible() const;
};

} // namespace Platform::Posix::CompoundFile
