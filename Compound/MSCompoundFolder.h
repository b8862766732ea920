#pragma once

#include "Compound/CompoundFolder.h"
#include "Compound/MSCompoundObject.h"
#include "Platform/StructuredStorage.h"

#include <memory>

/// A folder of a document in structured storage.
class MSCompoundFolder : public CompoundFolderOf<MSCompoundObject>
{
public:
    MSCompoundFolder(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name,
                     std::unique_ptr<Platform::Storage> storage);

    /// A folder that is open already is given again. One that is written to is made if it
    /// isn't there.
    ICompoundFolder* OpenFolder(const wchar_t* name, std::uint32_t mode) override;

    /// A file that is written to has to be new.
    ICompoundFile* OpenFile(const wchar_t* name, std::uint32_t mode) override;

    /// What is stored by now, also of a document that is being written.
    IFolderEnumerator* GetEnumerator() override;

    /// Closes the children, then makes permanent what was written.
    bool Close() override;

private:
    std::unique_ptr<Platform::Storage> m_storage;
};
