#pragma once

#include "Compound/CompoundDocument.h"

#include <span>

/// Bytes in memory. Writing appends, reading goes on from where it was; the two may be mixed.
class IOMemoryStream : public IInputStream, public IOutputStream
{
public:
    IOMemoryStream() = default;
    virtual ~IOMemoryStream();
    IOMemoryStream(const IOMemoryStream&) = delete;
    IOMemoryStream& operator=(const IOMemoryStream&) = delete;

    std::uint32_t Read(void* buffer, std::uint32_t count) override;

    /// All of the bytes or, if they can't be held, as many of them as fit below 4 GiB, or none.
    std::uint32_t Write(const void* buffer, std::uint32_t count) override;

    std::uint32_t Size() const { return m_size; }

    /// Room behind the contents, for so many bytes or more if it can be had, to be filled from
    /// its start and then added by `Commit`. Empty if there is none.
    std::span<unsigned char> Spare(std::uint32_t wanted);

    /// Makes bytes that were put into the room part of the contents.
    void Commit(std::uint32_t count);

    /// Forgets what was written behind so many bytes, which must not have been read.
    void CutBack(std::uint32_t size);

private:
    bool Reserve(std::uint32_t size);

    unsigned char* m_data = nullptr;
    std::uint32_t m_size = 0;
    std::uint32_t m_capacity = 0;
    std::uint32_t m_position = 0; // never beyond the size
};
