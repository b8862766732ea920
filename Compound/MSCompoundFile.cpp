#include "Compound/MSCompoundFile.h"

#include <optional>
#include <tuple>
#include <utility>

MSCompoundFile::MSCompoundFile(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name,
                               std::shared_ptr<Platform::StorageStream> stream)
    : CompoundFileOf(mode, parent, name), m_stream(std::move(stream))
{
}

MSCompoundFile::~MSCompoundFile()
{
    DeleteStreams();
}

std::int32_t MSCompoundFile::GetSize(std::uint32_t* size)
{
    const std::optional<std::uint64_t> known = m_stream != nullptr ? m_stream->Size() : std::nullopt;
    if (!known || size == nullptr)
    {
        return -1;
    }
    *size = static_cast<std::uint32_t>(*known); // callers have room for no more
    return 0;
}

bool MSCompoundFile::Close()
{
    DeleteStreams();
    if (m_stream != nullptr)
    {
        // Whether the contents are kept is up to the root, which is committed later.
        std::ignore = m_stream->Commit();
        m_stream.reset();
    }
    return true;
}

std::unique_ptr<MSCompoundInputStream> MSCompoundFile::MakeInputStream()
{
    return std::make_unique<MSCompoundInputStream>(m_stream);
}

std::unique_ptr<MSCompoundOutputStream> MSCompoundFile::MakeOutputStream()
{
    return std::make_unique<MSCompoundOutputStream>(m_stream);
}
