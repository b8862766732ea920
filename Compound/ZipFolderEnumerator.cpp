#include "Compound/ZipFolderEnumerator.h"

#include "Compound/CompoundPaths.h"
#include "Platform/Text.h"

#include <set>
#include <string>

namespace
{

/// What the names of the folder's entries begin with. It doesn't end in a separator, so
/// entries beside the folder whose names begin alike are listed too; clients open what they
/// are given by its whole name.
std::wstring EntryPrefix(ICompoundFolder& folder)
{
    std::wstring path = GetFullFolderPath(&folder);
    if (Platform::EqualsNoCase(path, ZipRootName) || path.size() <= ZipRootPrefixSize)
    {
        return {};
    }
    return ZipEntryPath(std::move(path));
}

} // namespace

ZipFolderEnumerator::ZipFolderEnumerator(ICompoundFolder& folder, const ZipArchive& archive)
{
    if (!archive.IsReadable())
    {
        return;
    }
    const std::wstring prefix = EntryPrefix(folder);
    std::set<std::wstring> listed; // in lower case
    for (const ZipEntry* const entry : archive.index->BeginningWith(prefix))
    {
        const std::wstring_view rest = std::wstring_view(entry->name).substr(prefix.size());
        const auto pieces = SplitCompoundPath(rest);
        if (pieces.empty())
        {
            continue;
        }
        const std::wstring name(pieces.front());
        const bool isNew = listed.insert(Platform::ToLower(name)).second;
        if (pieces.size() == 1)
        {
            Append(name.c_str(), CompoundEntryFile); // as often as it is there
        }
        else if (isNew) // also a file of that name keeps a folder off the list
        {
            Append(name.c_str(), CompoundEntryFolder);
        }
    }
}
