#pragma once

#include "Compound/CompoundFolder.h"
#include "Compound/ZipCompoundObject.h"

/// A folder of a zip document. Archives hold none: a folder is what entry names begin with.
class ZipCompoundFolder : public CompoundFolderOf<ZipCompoundObject>
{
public:
    /// The archive is the document's and outlives the folder.
    ZipCompoundFolder(std::uint32_t mode, ICompoundFolder* parent, const wchar_t* name, ZipArchive& archive);

    ICompoundFolder* OpenFolder(const wchar_t* name, std::uint32_t mode) override;
    ICompoundFile* OpenFile(const wchar_t* name, std::uint32_t mode) override;
    IFolderEnumerator* GetEnumerator() override;

private:
    ICompoundFolder* OpenKnownFolder(const wchar_t* name, std::uint32_t mode);
    bool HasFolder(const wchar_t* name);
    bool HasFile(const wchar_t* name);
    std::wstring EntryPathOf(const wchar_t* name);

    ZipArchive& m_archive;
};
