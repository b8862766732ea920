#pragma once

#include <array>
#include <cstdint>
#include <zlib.h>

/// All transfer through zlib goes in blocks of this many bytes. What an archive holds hangs
/// on it: a source that delivers less has come to its end.
inline constexpr std::uint32_t StreamBlockSize = 16384;

using StreamBlock = std::array<unsigned char, StreamBlockSize>;

/// Calls `step`, which is inflate or deflate, with an empty block until it leaves space in
/// it, and gives each block's contents to `sink(bytes, count)`, which tells whether it took
/// them. The result is zlib's last code; that of an error, whose block isn't given on; or
/// `Z_ERRNO` if the sink took less.
template <typename Step, typename Sink>
int PumpBlocks(z_stream& stream, StreamBlock& block, Step&& step, Sink&& sink)
{
    int code = Z_OK;
    do
    {
        stream.next_out = block.data();
        stream.avail_out = StreamBlockSize;
        code = step(stream);
        if (code == Z_NEED_DICT)
        {
            return Z_DATA_ERROR;
        }
        if (code == Z_MEM_ERROR || code == Z_DATA_ERROR)
        {
            return code;
        }
        const std::uint32_t count = StreamBlockSize - stream.avail_out;
        if (count > 0 && !sink(block.data(), count))
        {
            return Z_ERRNO;
        }
    } while (stream.avail_out == 0);
    return code;
}
