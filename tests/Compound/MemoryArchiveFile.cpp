#include "tests/Compound/MemoryArchiveFile.h"

#include <algorithm>
#include <utility>

MemoryArchiveFile::MemoryArchiveFile(std::shared_ptr<std::string> bytes, const ArchiveFaults& faults)
    : m_bytes(std::move(bytes)), m_faults(faults)
{
}

std::size_t MemoryArchiveFile::Read(void* buffer, std::size_t count)
{
    if (Fails(m_faults.read, m_reads) || m_position >= m_bytes->size())
    {
        return 0;
    }
    const std::size_t taken = std::min(count, m_bytes->size() - m_position);
    std::copy_n(m_bytes->data() + m_position, taken, static_cast<char*>(buffer));
    m_position += taken;
    return taken;
}

std::size_t MemoryArchiveFile::Write(const void* buffer, std::size_t count)
{
    if (Fails(m_faults.write, m_writes))
    {
        count = m_faults.writesInPart ? count / 2 : 0;
    }
    m_bytes->resize(std::max(m_bytes->size(), m_position + count));
    std::copy_n(static_cast<const char*>(buffer), count, m_bytes->data() + m_position);
    m_position += count;
    return count;
}

bool MemoryArchiveFile::Seek(std::int64_t offset, Origin origin)
{
    const std::size_t from = origin == Origin::Start ? 0 : origin == Origin::End ? m_bytes->size() : m_position;
    const std::int64_t target = static_cast<std::int64_t>(from) + offset;
    if (Fails(m_faults.seek, m_seeks) || target < 0)
    {
        return false;
    }
    m_position = static_cast<std::size_t>(target);
    return true;
}

std::int64_t MemoryArchiveFile::Position()
{
    return Fails(m_faults.position, m_positions) ? -1 : static_cast<std::int64_t>(m_position);
}

bool MemoryArchiveFile::Fails(int fault, int& done) const
{
    ++done;
    return fault > 0 && (done == fault || (m_faults.fromThenOn && done > fault));
}
