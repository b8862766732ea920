#include "Platform/Posix/InstanceRecord.h"

#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <sys/socket.h>

namespace Platform::Posix
{
namespace
{

constexpr std::size_t SizeBytes = 4;

} // namespace

std::optional<std::string> MakeInstanceRecord(const std::wstring& path)
{
    std::u16string units;
    if (!path.empty())
    {
        units = WideToUtf16(path) + u'\0';
    }
    const std::size_t size = units.size() * sizeof(char16_t);
    if (size > MostRecordBytes)
    {
        return std::nullopt;
    }
    std::string record;
    record.reserve(SizeBytes + size);
    for (std::size_t index = 0; index < SizeBytes; ++index)
    {
        record += static_cast<char>((size >> (8 * index)) & 0xFF);
    }
    for (const char16_t unit : units)
    {
        record += static_cast<char>(unit & 0xFF);
        record += static_cast<char>(unit >> 8);
    }
    return record;
}

InstanceRecordReader::Progress InstanceRecordReader::Read(int socket)
{
    std::array<char, 4096> piece = {};
    for (;;)
    {
        const bool sizeKnown = m_size.size() == SizeBytes;
        std::vector<char>& into = sizeKnown ? m_bytes : m_size;
        const std::size_t missing = (sizeKnown ? m_expected : SizeBytes) - into.size();
        if (sizeKnown && missing == 0)
        {
            return Progress::Complete;
        }
        // No more than belongs to this part, so that no byte goes to the wrong one.
        const ssize_t count = ::recv(socket, piece.data(), std::min(missing, piece.size()), MSG_DONTWAIT);
        if (count < 0 && errno == EINTR)
        {
            continue;
        }
        if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK))
        {
            return Progress::Waiting;
        }
        if (count <= 0)
        {
            return Progress::Broken;
        }
        into.insert(into.end(), piece.data(), piece.data() + count);
        if (!sizeKnown && m_size.size() == SizeBytes && !TakeSize())
        {
            return Progress::Broken;
        }
    }
}

bool InstanceRecordReader::TakeSize()
{
    std::uint32_t size = 0;
    for (std::size_t index = 0; index < SizeBytes; ++index)
    {
        size |= static_cast<std::uint32_t>(static_cast<unsigned char>(m_size[index])) << (8 * index);
    }
    m_expected = size;
    return size <= MostRecordBytes;
}

} // namespace Platform::Posix
