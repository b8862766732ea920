#include "Platform/Posix/CompoundFile/SectorChain.h"

#include <algorithm>

namespace Platform::Posix::CompoundFile
{

void SectorChain::Append(std::uint64_t offset, std::uint64_t length)
{
    const bool goesOn = !m_runs.empty() && m_runs.back().offset + (m_size - m_runs.back().position) == offset;
    if (!goesOn)
    {
        m_runs.push_back({ m_size, offset });
    }
    m_size += length;
}

SectorChain::Part SectorChain::At(std::uint64_t position) const
{
    const auto endOf = [this](std::size_t run) { return run + 1 < m_runs.size() ? m_runs[run + 1].position : m_size; };
    if (m_last >= m_runs.size() || position < m_runs[m_last].position || position >= endOf(m_last))
    {
        const bool isNext =
            m_last + 1 < m_runs.size() && position >= m_runs[m_last + 1].position && position < endOf(m_last + 1);
        const auto behind = [](std::uint64_t wanted, const Run& run) { return wanted < run.position; };
        m_last = isNext ? m_last + 1
                        : static_cast<std::size_t>(std::upper_bound(m_runs.begin(), m_runs.end(), position, behind) -
                                                   m_runs.begin() - 1);
    }
    const Run& run = m_runs[m_last];
    return { run.offset + (position - run.position), endOf(m_last) - position };
}

bool SectorChain::Read(ByteSource& source, std::uint64_t position, void* buffer, std::size_t count) const
{
    if (position > m_size || count > m_size - position)
    {
        return false;
    }
    auto* to = static_cast<unsigned char*>(buffer);
    while (count > 0)
    {
        const Part part = At(position);
        const auto step = static_cast<std::size_t>(std::min<std::uint64_t>(part.length, count));
        if (!source.ReadAt(part.offset, to, step))
        {
            return false;
        }
        to += step;
        position += step;
        count -= step;
    }
    return true;
}

} // namespace Platform::Posix::CompoundFile
