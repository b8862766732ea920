#pragma once

#include "Compound/ZipCompoundFolder.h"
#include "Compound/ZipCompoundObject.h"

#include <memory>

/// A document in a zip archive. It either writes or reads: written archives only grow at
/// their end, and what was written can't be read back before the document is closed.
class ZipCompoundDocument : public ZipCompoundObject, public ICompoundDocument
{
public:
    /// Mode 10 writes, any other value reads. A file that can't be written shows as a null
    /// root, one that can't be read as an empty document.
    ZipCompoundDocument(const wchar_t* path, std::uint32_t mode);

    /// Files that are still open don't get into the archive; `Close` is what completes it.
    ~ZipCompoundDocument() override;

    ICompoundFolder* GetRootFolder() override;

    /// Closes what is open, in which files go into the archive, and then completes it.
    bool Close() override;

private:
    ZipArchive m_archive; // outlives the folders
    std::unique_ptr<ZipCompoundFolder> m_rootFolder;
};
