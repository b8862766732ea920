#include "Compound/ZipFormat.h"

#include "Platform/Text.h"

#include <algorithm>

namespace ZipFormat
{
namespace
{

constexpr std::uint16_t FormatVersion = 20;
constexpr std::uint32_t ExternalAttributes = 0x80000000;

/// Puts numbers into a record one after the other.
template <std::size_t Size>
class Packer
{
public:
    void Put8(unsigned char value) { m_bytes.at(m_position++) = value; }

    void Put16(std::uint16_t value)
    {
        Put8(static_cast<unsigned char>(value & 0xFF));
        Put8(static_cast<unsigned char>(value >> 8));
    }

    void Put32(std::uint32_t value)
    {
        Put16(static_cast<std::uint16_t>(value & 0xFFFF));
        Put16(static_cast<std::uint16_t>(value >> 16));
    }

    const std::array<unsigned char, Size>& Bytes() const { return m_bytes; }

private:
    std::array<unsigned char, Size> m_bytes = {};
    std::size_t m_position = 0;
};

template <std::size_t Size>
void PutFields(Packer<Size>& packer, const FileFields& fields)
{
    packer.Put16(fields.method);
    packer.Put32(fields.timeAndDate);
    packer.Put32(fields.crc);
    packer.Put32(fields.compressedSize);
    packer.Put32(fields.uncompressedSize);
    packer.Put16(fields.nameLength);
    packer.Put16(fields.extraLength);
}

std::uint16_t Get16(std::span<const unsigned char> bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

std::uint32_t Get32(std::span<const unsigned char> bytes, std::size_t offset)
{
    return Get16(bytes, offset) | (static_cast<std::uint32_t>(Get16(bytes, offset + 2)) << 16);
}

/// The fields from that offset on.
FileFields GetFields(std::span<const unsigned char> bytes, std::size_t offset)
{
    FileFields fields;
    fields.method = Get16(bytes, offset);
    fields.timeAndDate = Get32(bytes, offset + 2);
    fields.crc = Get32(bytes, offset + 6);
    fields.compressedSize = Get32(bytes, offset + 10);
    fields.uncompressedSize = Get32(bytes, offset + 14);
    fields.nameLength = Get16(bytes, offset + 18);
    fields.extraLength = Get16(bytes, offset + 20);
    return fields;
}

} // namespace

std::array<unsigned char, LocalHeaderSize> Pack(const LocalHeader& header)
{
    Packer<LocalHeaderSize> packer;
    packer.Put32(LocalSignature);
    packer.Put16(FormatVersion); // needed
    packer.Put16(0);             // flags: none says that the name is UTF-8, though it is
    PutFields(packer, header);
    return packer.Bytes();
}

std::array<unsigned char, CentralRecordSize> Pack(const CentralRecord& record)
{
    Packer<CentralRecordSize> packer;
    packer.Put32(CentralSignature);
    packer.Put16(FormatVersion); // made by
    packer.Put16(0);             // needed: archives in the field are written so
    packer.Put16(0);             // flags
    PutFields(packer, record);
    packer.Put16(record.commentLength);
    packer.Put16(0); // disk
    packer.Put16(0); // internal attributes
    packer.Put32(ExternalAttributes);
    packer.Put32(record.headerOffset);
    return packer.Bytes();
}

std::array<unsigned char, EndRecordSize> Pack(const EndRecord& record)
{
    Packer<EndRecordSize> packer;
    packer.Put32(EndSignature);
    packer.Put16(0); // this disk
    packer.Put16(0); // the disk with the directory
    packer.Put16(record.entriesOnDisk);
    packer.Put16(record.entries);
    packer.Put32(record.directorySize);
    packer.Put32(record.directoryOffset);
    packer.Put16(0); // comment length
    return packer.Bytes();
}

std::uint32_t SignatureOf(std::span<const unsigned char> bytes)
{
    return Get32(bytes, 0);
}

LocalHeader UnpackLocalHeader(std::span<const unsigned char, LocalHeaderSize> bytes)
{
    return { GetFields(bytes, 8) };
}

CentralRecord UnpackCentralRecord(std::span<const unsigned char, CentralRecordSize> bytes)
{
    return { GetFields(bytes, 10), Get16(bytes, 32), Get32(bytes, 42) };
}

EndRecord UnpackEndRecord(std::span<const unsigned char, EndRecordSize> bytes)
{
    EndRecord record;
    record.entriesOnDisk = Get16(bytes, 8);
    record.entries = Get16(bytes, 10);
    record.directorySize = Get32(bytes, 12);
    record.directoryOffset = Get32(bytes, 16);
    return record;
}

std::uint32_t PackTimeAndDate(const ArchiveTime& time)
{
    const auto bits = [](int value, std::uint32_t mask) { return static_cast<std::uint32_t>(value) & mask; };
    const std::uint32_t date = (bits(time.year - 1980, 127) << 9) | (bits(time.month, 15) << 5) | bits(time.day, 31);
    // The seconds are doubled, not halved: archives in the field are written so.
    const std::uint32_t clock = (bits(time.hour, 31) << 11) | (bits(time.minute, 63) << 5) | bits(time.second * 2, 31);
    return (date << 16) | clock;
}

LocalExtra MakeLocalExtra(const ArchiveTime& time)
{
    constexpr std::uint16_t ContentsSize = 13;
    constexpr unsigned char AllThreeTimes = 7;
    const auto seconds = static_cast<std::uint32_t>(time.secondsSince1970);
    Packer<LocalExtraSize> packer;
    packer.Put8('U');
    packer.Put8('T');
    packer.Put16(ContentsSize);
    packer.Put8(AllThreeTimes);
    packer.Put32(seconds); // of modification
    packer.Put32(seconds); // of access
    packer.Put32(seconds); // of creation
    return packer.Bytes();
}

CentralExtra MakeCentralExtra(const LocalExtra& local)
{
    constexpr unsigned char ContentsSize = 5; // flags and the first time
    CentralExtra extra = {};
    std::copy_n(local.begin(), extra.size(), extra.begin());
    extra[2] = ContentsSize;
    return extra;
}

bool IsCompressible(std::wstring_view name)
{
    constexpr std::array<std::wstring_view, 11> StoredSuffixes = {
        L".Z", L".zip", L".zoo", L".arc", L".lzh", L".arj", L".gz", L".tgz", L".png", L".jpg", L".jpeg",
    };
    const std::size_t dot = name.rfind(L'.');
    if (dot == std::wstring_view::npos)
    {
        return true;
    }
    return std::none_of(StoredSuffixes.begin(), StoredSuffixes.end(),
                        [tail = name.substr(dot)](std::wstring_view suffix)
                        { return Platform::EqualsNoCase(tail, suffix); });
}

} // namespace ZipFormat
