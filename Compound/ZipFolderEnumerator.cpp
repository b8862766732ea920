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

/// Names that a listing has so far, in lower case.
struct ListedNames
{
    std::set<std::wstring> folders;
    std::set<std::wstring> filesInFolder;
    std::set<std::wstring> filesBeside; // whose names begin like the folder's
};

} // namespace

ZipFolderEnumerator::ZipFolderEnumerator(ICompoundFolder& folder, const ZipArchive& archive)
{
    if (!archive.IsReadable())
    {
        return;
    }
    const std::wstring prefix = EntryPrefix(folder);
    ListedNames listed;
    for (const ZipEntry* const entry : archive.index->BeginningWith(prefix))
    {
        const std::wstring_view rest = std::wstring_view(entry->name).substr(prefix.size());
        const auto pieces = SplitCompoundPath(rest);
        if (pieces.empty())
        {
            continue;
        }
        const std::wstring name(pieces.front());
        const std::wstring folded = Platform::ToLower(name);
        // A file keeps a folder of its name off the list, but not one that lies elsewhere.
        const bool isInFolder = prefix.empty() || rest.front() == L'/';
        std::set<std::wstring>& files = isInFolder ? listed.filesInFolder : listed.filesBeside;
        if (pieces.size() == 1)
        {
            files.insert(folded); // as often as it is there; folders once
            Append(name.c_str(), CompoundEntryFile);
        }
        else if (!files.contains(folded) && listed.folders.insert(folded).second)
        {
            Append(name.c_str(), CompoundEntryFolder);
        }
    }
}
