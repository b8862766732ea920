#pragma once

#include "Compound/CompoundDocument.h"
#include "Platform/StructuredStorage.h"

#include <memory>
#include <utility>

/// Reads a file of a document in structured storage.
class MSCompoundInputStream : public IInputStream
{
public:
    explicit MSCompoundInputStream(std::shared_ptr<Platform::StorageStream> stream) : m_stream(std::move(stream)) {}
    virtual ~MSCompoundInputStream() = default;

    std::uint32_t Read(void* buffer, std::uint32_t count) override { return m_stream->Read(buffer, count); }

private:
    std::shared_ptr<Platform::StorageStream> m_stream;
};

/// Writes a file of a document in structured storage.
class MSCompoundOutputStream : public IOutputStream
{
public:
    explicit MSCompoundOutputStream(std::shared_ptr<Platform::StorageStream> stream) : m_stream(std::move(stream)) {}
    virtual ~MSCompoundOutputStream() = default;

    std::uint32_t Write(const void* buffer, std::uint32_t count) override { return m_stream->Write(buffer, count); }

private:
    std::shared_ptr<Platform::StorageStream> m_stream;
};
