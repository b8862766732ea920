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
        const auto pieces = SplitCompoundPath(std::wstring_view(entry->name).substr(prefix.size()));
        if (pieces.empty())
        {
            continue;
        }
        // Files are listed as often as they are there, folders once.
        const bool isNew = listed.insert(Platform::ToLower(pieces.front())).second;
        const bool isFile = pieces.size() == 1;
        if (isFile || isNew)
        {
            Append(std::wstring(pieces.front()).c_str(), isFile ? CompoundEntryFile : CompoundEntryFolder);
        }
    }
}
