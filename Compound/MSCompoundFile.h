#pragma once

#include "Compound/CompoundFile.h"
#include "Compound/MSCompoundObject.h"
#include "Compound/MSCompoundStreams.h"
#include "Platform/StructuredStorage.h"

#include <memory>

/// A file of a document in structured storage.
class MSCompoundFile : public CompoundFileOf<MSCompoundObject, MSCompoundInputStream, MSCompoundOutputStream>
{
public:
    MSCompoundFile(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name,
                   std::shared_ptr<Platform::StorageStream> stream);
    ~MSCompoundFile() override;

    std::int32_t GetSize(std::uint32_t* size) override;
    bool Close() override;

private:
    std::unique_ptr<MSCompoundInputStream> MakeInputStream() override;
    std::unique_ptr<MSCompoundOutputStream> MakeOutputStream() override;

    std::shared_ptr<Platform::StorageStream> m_stream; // shared with the streams
};
