#include "Compound/ZlibStreams.h"

#include "Compound/ZlibPump.h"

#include <algorithm>
#include <tuple>

namespace
{

constexpr std::int32_t SinkTookLess = -1;
static_assert(SinkTookLess == Z_ERRNO);

std::uint32_t ReadBlock(IInputStream& source, StreamBlock& block, z_stream& stream)
{
    const std::uint32_t count = std::min(source.Read(block.data(), StreamBlockSize), StreamBlockSize);
    stream.next_in = block.data();
    stream.avail_in = count;
    return count;
}

auto SinkInto(IOutputStream& sink)
{
    return [&sink](const unsigned char* bytes, std::uint32_t count) { return sink.Write(bytes, count) == count; };
}

} // namespace

std::int32_t InflateStream(IInputStream& source, IOutputStream& sink)
{
    z_stream stream = {};
    if (const int code = inflateInit(&stream); code != Z_OK)
    {
        return code;
    }
    StreamBlock input;
    StreamBlock output;
    const auto step = [](z_stream& target) { return inflate(&target, Z_NO_FLUSH); };
    int code = Z_OK;
    while (code != Z_STREAM_END && ReadBlock(source, input, stream) > 0)
    {
        code = PumpBlocks(stream, output, step, SinkInto(sink));
        if (code == Z_MEM_ERROR || code == Z_DATA_ERROR || code == SinkTookLess)
        {
            inflateEnd(&stream);
            return code;
        }
    }
    inflateEnd(&stream);
    return code == Z_STREAM_END ? 0 : Z_DATA_ERROR;
}

std::int32_t DeflateStream(IInputStream& source, IOutputStream& sink, std::int32_t level)
{
    z_stream stream = {};
    if (const int code = deflateInit(&stream, level); code != Z_OK)
    {
        return code;
    }
    StreamBlock input;
    StreamBlock output;
    int flush = Z_NO_FLUSH;
    const auto step = [&flush](z_stream& target) { return deflate(&target, flush); };
    do
    {
        flush = ReadBlock(source, input, stream) < StreamBlockSize ? Z_FINISH : Z_NO_FLUSH;
        if (PumpBlocks(stream, output, step, SinkInto(sink)) == SinkTookLess)
        {
            deflateEnd(&stream);
            return SinkTookLess;
        }
    } while (flush != Z_FINISH);
    deflateEnd(&stream);
    return 0;
}

ZlibInputStream::ZlibInputStream(IInputStream* source)
{
    if (source != nullptr)
    {
        // What was inflated before a failure is delivered; there is no state to ask for.
        std::ignore = InflateStream(*source, m_memory);
    }
}

ZlibInputStream::~ZlibInputStream() = default;

std::uint32_t ZlibInputStream::Read(void* buffer, std::uint32_t count)
{
    return m_memory.Read(buffer, count);
}

ZlibOutputStream::ZlibOutputStream(IOutputStream* target) : m_target(target) {}

ZlibOutputStream::~ZlibOutputStream()
{
    if (m_target != nullptr)
    {
        // There is nobody left to tell of a failure.
        std::ignore = DeflateStream(m_memory, *m_target, Z_DEFAULT_COMPRESSION);
    }
}

std::uint32_t ZlibOutputStream::Write(const void* buffer, std::uint32_t count)
{
    return m_memory.Write(buffer, count);
}
