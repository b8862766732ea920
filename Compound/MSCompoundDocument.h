#pragma once

#include "Compound/MSCompoundFolder.h"
#include "Compound/MSCompoundObject.h"
#include "Platform/StructuredStorage.h"

#include <memory>

class MSMemoryFile;

/// A document in a structured storage file, or in an image of one in memory. It belongs to
/// the thread that has made it.
class MSCompoundDocument : public MSCompoundObject, public ICompoundDocument
{
public:
    /// A document on disk, which is named by its path. Nothing is opened before the root is asked for.
    MSCompoundDocument(const wchar_t* path, std::uint32_t mode);

    /// A document in memory that isn't owned. Null, or a file without memory, gives no root.
    MSCompoundDocument(MSMemoryFile* memory, std::uint32_t mode);

    /// The root; null if there is none. A failure isn't kept: each call tries again.
    ICompoundFolder* GetRootFolder() override;

    bool Close() override;

private:
    void MakeRoot(std::unique_ptr<Platform::Storage> storage);

    Platform::StorageThread m_thread; // outlives all that is open
    std::unique_ptr<MSCompoundFolder> m_rootFolder;
};
