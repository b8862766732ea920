#pragma once

#include "Platform/Posix/CompoundFile/ByteSource.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Platform::Posix::CompoundFile
{

/// Where the bytes of a chain lie in the file. Sectors that follow one another there are
/// kept as one run, so a chain costs memory only where it jumps.
class SectorChain
{
public:
    /// Adds bytes at the end of the chain.
    void Append(std::uint64_t offset, std::uint64_t length);

    std::uint64_t Size() const { return m_size; }

    struct Part
    {
        std::uint64_t offset; ///< in the file
        std::uint64_t length; ///< up to where the chain jumps or ends
    };

    /// What lies at a position below the size.
    Part At(std::uint64_t position) const;

    /// Reads all of the bytes from a position on. False if they aren't all there.
    bool Read(ByteSource& source, std::uint64_t position, void* buffer, std::size_t count) const;

private:
    struct Run
    {
        std::uint64_t position;
        std::uint64_t offset;
    };

    std::vector<Run> m_runs;
    std::uint64_t m_size = 0;
    mutable std::size_t m_last = 0; ///< the run that was asked for last; most reads go on from there
};

} // namespace Platform::Posix::CompoundFile
