#pragma once

#include "Compound/CompoundObject.h"
#include "Compound/Unzipper.h"
#include "Compound/ZipEntryIndex.h"
#include "Compound/Zipper.h"

#include <memory>

/// Base of documents, folders and files of the zip flavour.
class ZipCompoundObject : public CompoundObject
{
public:
    using CompoundObject::CompoundObject;
};

/// The archive of a document: its writer or its reader, or neither. The document owns it;
/// folders and files see in it when the writer is gone.
struct ZipArchive
{
    std::unique_ptr<Zipper> zipper;
    std::unique_ptr<Unzipper> unzipper;
    std::unique_ptr<ZipEntryIndex> index; // over the entries of the reader

    /// Without a reader there is nothing to be found.
    bool IsReadable() const { return unzipper != nullptr && index != nullptr; }
};

/// What stands before an entry's name in a full path.
inline constexpr std::wstring_view ZipRootName = L"root:";
inline constexpr std::size_t ZipRootPrefixSize = ZipRootName.size() + 1; // with the separator

/// The full path without what stands before the entry's name.
inline std::wstring ZipEntryPath(std::wstring fullPath)
{
    return fullPath.erase(0, ZipRootPrefixSize);
}
