#include "tests/Compound/TestArchive.h"

#include "Compound/Zipper.h"
#include "tests/Compound/MemoryArchiveFile.h"
#include "tests/Compound/TestStreams.h"

#include <stdexcept>
#include <zlib.h>

namespace
{

// By hand on purpose: the packing that is tested is seen by other eyes.

std::string Two(std::size_t value)
{
    return { static_cast<char>(value & 0xFF), static_cast<char>((value >> 8) & 0xFF) };
}

std::string Four(std::size_t value)
{
    return Two(value & 0xFFFF) + Two((value >> 16) & 0xFFFF);
}

} // namespace

std::string MakeTestArchive(const std::vector<TestEntry>& entries, const TestArchiveOptions& options)
{
    std::string bytes;
    std::string directory;
    for (const TestEntry& entry : entries)
    {
        const std::size_t compressedSize = entry.compressedSize.value_or(entry.data.size());
        const std::string common = Two(0) + Two(entry.method) + Four(0) + Four(0) + Four(compressedSize) +
                                   Four(entry.uncompressedSize) + Two(entry.name.size());
        directory += "PK\1\2" + Two(20) + Two(20) + common + Two(entry.centralExtra.size()) +
                     Two(entry.centralComment.size()) + Two(0) + Two(0) + Four(0) +
                     Four(entry.offset.value_or(bytes.size())) + entry.name + entry.centralExtra + entry.centralComment;
        bytes += "PK\3\4" + Two(20) + common + Two(0) + entry.name + entry.data;
    }
    const std::size_t offset = options.directoryOffset.value_or(bytes.size());
    const std::size_t count = options.entries.value_or(entries.size());
    return bytes + directory + "PK\5\6" + Four(0) + Two(count) + Two(count) + Four(directory.size()) + Four(offset) +
           Two(options.comment.size()) + options.comment;
}

TestEntry Deflated(std::string name, std::string_view contents)
{
    TestEntry entry;
    entry.name = std::move(name);
    entry.data = RawDeflate(contents);
    entry.uncompressedSize = static_cast<std::uint32_t>(contents.size());
    return entry;
}

TestEntry Stored(std::string name, std::string contents)
{
    TestEntry entry;
    entry.name = std::move(name);
    entry.method = 0;
    entry.uncompressedSize = static_cast<std::uint32_t>(contents.size());
    entry.data = std::move(contents);
    return entry;
}

std::string RawDeflate(std::string_view contents)
{
    z_stream stream = {};
    if (deflateInit2(&stream, 9, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
    {
        throw std::runtime_error("zlib doesn't start");
    }
    std::string result(deflateBound(&stream, contents.size()), '\0');
    std::string input(contents);
    stream.next_in = reinterpret_cast<unsigned char*>(input.data());
    stream.avail_in = static_cast<unsigned int>(input.size());
    stream.next_out = reinterpret_cast<unsigned char*>(result.data());
    stream.avail_out = static_cast<unsigned int>(result.size());
    deflate(&stream, Z_FINISH);
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

ArchiveTime FixedTime()
{
    return { 1'582'982'099, 2020, 2, 29, 13, 14, 59 };
}

std::string WriteArchive(const std::vector<std::pair<std::wstring, std::string>>& files)
{
    const auto bytes = std::make_shared<std::string>();
    {
        Zipper zipper(std::make_unique<MemoryArchiveFile>(bytes), FixedTime);
        for (const auto& [name, contents] : files)
        {
            TestSource source(contents);
            if (zipper.AddFile(name.c_str(), &source) != 0)
            {
                throw std::runtime_error("a file isn't taken");
            }
        }
    }
    return *bytes;
}

std::uint16_t Number16(std::string_view bytes, std::size_t offset)
{
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); };
    return static_cast<std::uint16_t>(byte(offset) + byte(offset + 1) * 256);
}

std::uint32_t Number32(std::string_view bytes, std::size_t offset)
{
    return Number16(bytes, offset) + (std::uint32_t(Number16(bytes, offset + 2)) << 16);
}
