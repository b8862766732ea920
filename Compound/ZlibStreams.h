#pragma once

#include "Compound/CompoundDocument.h"
#include "Compound/IOMemoryStream.h"

/// Inflates a stream in zlib's own format, to its end, into another. 0, or zlib's code; -1 if
/// the sink took less than it was given. What came before a failure is in the sink.
std::int32_t InflateStream(IInputStream& source, IOutputStream& sink);

/// Deflates all of a stream into zlib's own format. Results as those of `InflateStream`.
std::int32_t DeflateStream(IInputStream& source, IOutputStream& sink, std::int32_t level);

/// What a stream in zlib's format holds. Inflated as far as it goes at construction.
class ZlibInputStream : public IInputStream
{
public:
    explicit ZlibInputStream(IInputStream* source);
    virtual ~ZlibInputStream();

    std::uint32_t Read(void* buffer, std::uint32_t count) override;

private:
    IOMemoryStream m_memory;
};

/// Gathers what is written, and deflates it into the target when it is destroyed.
class ZlibOutputStream : public IOutputStream
{
public:
    /// The target isn't owned and must outlive the stream.
    explicit ZlibOutputStream(IOutputStream* target);
    virtual ~ZlibOutputStream();
    ZlibOutputStream(const ZlibOutputStream&) = delete;
    ZlibOutputStream& operator=(const ZlibOutputStream&) = delete;

    std::uint32_t Write(const void* buffer, std::uint32_t count) override;

private:
    IOMemoryStream m_memory;
    IOutputStream* m_target;
};
