#include "Compound/MSFolderEnumerator.h"

MSFolderEnumerator::MSFolderEnumerator(Platform::Storage* storage)
{
    const auto entries = storage != nullptr ? storage->List() : std::nullopt;
    if (!entries)
    {
        return;
    }
    for (const Platform::StorageEntry& entry : *entries)
    {
        const bool isFolder = entry.kind == Platform::StorageEntryKind::Storage;
        Append(entry.name.c_str(), isFolder ? CompoundEntryFolder : CompoundEntryFile);
    }
}
