#include "Compound/IOMemoryStream.h"

#include "Platform/Memory.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace
{

constexpr std::uint32_t Largest = std::numeric_limits<std::uint32_t>::max();

} // namespace

IOMemoryStream::~IOMemoryStream()
{
    Platform::FreeBlock({ m_data, m_capacity });
}

std::uint32_t IOMemoryStream::Read(void* buffer, std::uint32_t count)
{
    const std::uint32_t taken = std::min(count, m_size - m_position);
    if (taken > 0)
    {
        std::memcpy(buffer, m_data + m_position, taken);
        m_position += taken;
    }
    return taken;
}

std::uint32_t IOMemoryStream::Write(const void* buffer, std::uint32_t count)
{
    const std::uint32_t taken = std::min(count, Largest - m_size);
    if (taken == 0 || !Reserve(m_size + taken))
    {
        return 0;
    }
    std::memcpy(m_data + m_size, buffer, taken);
    m_size += taken;
    return taken;
}

std::span<unsigned char> IOMemoryStream::Spare(std::uint32_t wanted)
{
    const std::uint32_t most = std::min(wanted, Largest - m_size);
    if (most == 0 || !Reserve(m_size + most))
    {
        return {};
    }
    return { m_data + m_size, m_capacity - m_size };
}

void IOMemoryStream::Commit(std::uint32_t count)
{
    m_size += std::min(count, m_capacity - m_size);
}

void IOMemoryStream::CutBack(std::uint32_t size)
{
    m_size = std::clamp(size, m_position, m_size);
}

bool IOMemoryStream::Reserve(std::uint32_t size)
{
    if (size <= m_capacity)
    {
        return true;
    }
    const std::uint32_t doubled = m_capacity > Largest / 2 ? Largest : m_capacity * 2;
    for (const std::uint32_t capacity : { std::max(size, doubled), size })
    {
        const Platform::RawBlock grown = Platform::GrowBlock({ m_data, m_capacity }, m_size, capacity);
        if (grown.start != nullptr)
        {
            m_data = static_cast<unsigned char*>(grown.start);
            m_capacity = static_cast<std::uint32_t>(std::min<std::size_t>(grown.size, Largest));
            return true;
        }
    }
    return false;
}
