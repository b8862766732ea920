#include "Compound/ZipPasses.h"

#include "Compound/ZlibPump.h"

#include <algorithm>
#include <array>
#include <span>
#include <tuple>

namespace
{

// Raw deflate: the archive has a frame and a checksum of its own.
constexpr int RawWindowBits = -15;
constexpr int Level = 8;
constexpr int MemoryLevel = 9;

std::uint32_t ReadBlock(IInputStream& source, StreamBlock& block)
{
    return std::min(source.Read(block.data(), StreamBlockSize), StreamBlockSize);
}

std::uint32_t ReadBlock(ArchiveFile& file, StreamBlock& block, std::uint32_t remaining)
{
    return static_cast<std::uint32_t>(file.Read(block.data(), std::min(remaining, StreamBlockSize)));
}

std::uint32_t Checksum(std::uint32_t crc, const StreamBlock& block, std::uint32_t count)
{
    return static_cast<std::uint32_t>(crc32(crc, block.data(), count));
}

/// How much room is made at once for what so many bytes give, behind those that were inflated
/// before. The size that the archive claims is believed only as far as bytes that are there could
/// make it true, and of the first ones only as far as text goes: claims cost nothing.
std::uint32_t RoomFor(std::uint32_t bytes, std::uint32_t expectedSize, std::uint32_t inflated)
{
    constexpr std::uint64_t GrowthOfText = 4;
    constexpr std::uint64_t GrowthOfDenseText = 16;
    const std::uint64_t growth = inflated > 0 ? LargestZipGrowth : GrowthOfDenseText;
    const std::uint64_t wanted = expectedSize > inflated
                                   ? std::min<std::uint64_t>(expectedSize - inflated, bytes * growth)
                                   : bytes * GrowthOfText;
    // What needs more gets it by and by.
    return static_cast<std::uint32_t>(std::max<std::uint64_t>(wanted, 1));
}

} // namespace

std::int32_t DeflateIntoArchive(IInputStream& source, ArchiveFile& file, ZipTotals& totals)
{
    z_stream stream = {};
    if (const int code = deflateInit2(&stream, Level, Z_DEFLATED, RawWindowBits, MemoryLevel, Z_DEFAULT_STRATEGY);
        code != Z_OK)
    {
        return code;
    }
    StreamBlock input;
    StreamBlock output;
    int flush = Z_NO_FLUSH;
    const auto step = [&flush](z_stream& target) { return deflate(&target, flush); };
    const auto sink = [&](const unsigned char* bytes, std::uint32_t count)
    {
        // A disk that is full is noticed where the header is written again.
        std::ignore = file.Write(bytes, count);
        totals.writeSize += count;
        return true;
    };
    do
    {
        const std::uint32_t count = ReadBlock(source, input);
        totals.readSize += count;
        totals.crc = Checksum(totals.crc, input, count);
        stream.next_in = input.data();
        stream.avail_in = count;
        flush = count < StreamBlockSize ? Z_FINISH : Z_NO_FLUSH;
        PumpBlocks(stream, output, step, sink);
    } while (flush != Z_FINISH);
    deflateEnd(&stream);
    return 0;
}

std::int32_t StoreIntoArchive(IInputStream& source, ArchiveFile& file, ZipTotals& totals)
{
    StreamBlock block;
    std::uint32_t crc = 0;
    std::uint32_t written = 0;
    while (const std::uint32_t count = ReadBlock(source, block))
    {
        crc = Checksum(crc, block, count);
        // Full blocks are left out: archives in the field are written so, and whoever puts
        // such files into one counts on their sizes.
        if (count == StreamBlockSize)
        {
            continue;
        }
        if (file.Write(block.data(), count) != count)
        {
            return ZipStoreFailed;
        }
        written += count;
    }
    totals = { written, written, crc };
    return 0;
}

bool InflateFromArchive(ArchiveFile& file, std::uint32_t compressedSize, IOutputStream& sink)
{
    z_stream stream = {};
    if (inflateInit2(&stream, RawWindowBits) != Z_OK)
    {
        return false;
    }
    StreamBlock input;
    StreamBlock output;
    int flush = Z_NO_FLUSH;
    const auto step = [&flush](z_stream& target) { return inflate(&target, flush); };
    const auto intoSink = [&sink](const unsigned char* bytes, std::uint32_t count)
    { return sink.Write(bytes, count) == count; };
    std::uint32_t remaining = compressedSize;
    int code = Z_OK;
    // Bytes behind the end of the deflated stream give nothing, so they aren't read.
    while (code != Z_STREAM_END)
    {
        const std::uint32_t count = ReadBlock(file, input, remaining);
        if (count == 0)
        {
            break;
        }
        remaining -= count;
        stream.next_in = input.data();
        stream.avail_in = count;
        flush = remaining > 0 ? Z_NO_FLUSH : Z_FINISH;
        code = PumpBlocks(stream, output, step, intoSink);
        if (code == Z_MEM_ERROR || code == Z_DATA_ERROR || code == Z_ERRNO)
        {
            break;
        }
    }
    inflateEnd(&stream);
    return code == Z_STREAM_END;
}

bool InflateWholeFromArchive(ArchiveFile& file, std::uint32_t compressedSize, std::uint32_t expectedSize,
                             IOMemoryStream& memory)
{
    z_stream stream = {};
    if (inflateInit2(&stream, RawWindowBits) != Z_OK)
    {
        return false;
    }
    std::array<unsigned char, 4 * StreamBlockSize> input;
    const std::uint32_t before = memory.Size();
    std::uint32_t remaining = compressedSize;
    int code = Z_OK;
    while (code == Z_OK || code == Z_BUF_ERROR)
    {
        if (stream.avail_in == 0)
        {
            const std::size_t wanted = std::min<std::size_t>(remaining, input.size());
            const auto count = static_cast<std::uint32_t>(file.Read(input.data(), wanted));
            remaining -= count;
            stream.next_in = input.data();
            stream.avail_in = count;
        }
        const std::span<unsigned char> room =
            memory.Spare(RoomFor(stream.avail_in, expectedSize, memory.Size() - before));
        if (room.empty())
        {
            break;
        }
        const std::uint32_t given = stream.avail_in;
        stream.next_out = room.data();
        stream.avail_out = static_cast<unsigned int>(room.size());
        code = inflate(&stream, remaining > 0 ? Z_NO_FLUSH : Z_FINISH);
        memory.Commit(static_cast<std::uint32_t>(room.size()) - stream.avail_out);
        if (given == 0 && stream.avail_out > 0)
        {
            break; // there are no more bytes, and none are on their way
        }
    }
    inflateEnd(&stream);
    if (code != Z_STREAM_END)
    {
        memory.CutBack(before);
    }
    return code == Z_STREAM_END;
}

void CopyFromArchive(ArchiveFile& file, std::uint32_t size, IOutputStream& sink)
{
    StreamBlock block;
    std::uint32_t remaining = size;
    while (remaining > 0)
    {
        const std::uint32_t count = ReadBlock(file, block, remaining);
        if (count == 0 || sink.Write(block.data(), count) != count)
        {
            return;
        }
        remaining -= count;
    }
}
