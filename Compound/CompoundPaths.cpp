#include "Compound/CompoundPaths.h"

#include "Compound/CompoundDocument.h"
#include "Compound/CompoundObject.h"
#include "Platform/Text.h"

#include <algorithm>

namespace
{

constexpr wchar_t Separator = L'/';
constexpr wchar_t NameJoint = L'-';

/// Opens the folders that the pieces name. Null as soon as one can't be opened.
ICompoundFolder* OpenPieces(ICompoundFolder* folder, const std::vector<std::wstring_view>& pieces, std::size_t count,
                            std::uint32_t mode)
{
    for (std::size_t index = 0; index < count && folder != nullptr; ++index)
    {
        folder = folder->OpenFolder(std::wstring(pieces[index]).c_str(), mode);
    }
    return folder;
}

} // namespace

std::vector<std::wstring_view> SplitCompoundPath(std::wstring_view path)
{
    std::vector<std::wstring_view> pieces;
    for (std::size_t start = 0; start < path.size();)
    {
        const std::size_t end = std::min(path.find(Separator, start), path.size());
        if (end > start)
        {
            pieces.push_back(path.substr(start, end - start));
        }
        start = end + 1;
    }
    return pieces;
}

std::wstring GetFullFolderPath(ICompoundFolder* folder)
{
    // No recursion: archives may nest folders as deep as a name has room for.
    std::vector<std::wstring_view> names;
    for (; folder != nullptr; folder = folder->GetParent())
    {
        names.emplace_back(folder->GetName());
    }
    std::wstring path;
    for (auto name = names.rbegin(); name != names.rend(); ++name)
    {
        if (name != names.rbegin())
        {
            path += Separator;
        }
        path += *name;
    }
    return path;
}

std::wstring GetFullFilePath(ICompoundFile* file)
{
    if (file == nullptr)
    {
        return {};
    }
    ICompoundFolder* const parent = file->GetParent();
    return parent != nullptr ? GetFullFolderPath(parent) + Separator + file->GetName() : file->GetName();
}

std::wstring GetRelativePath(ICompoundFolder* folder, std::wstring_view path)
{
    const std::wstring folderPath = GetFullFolderPath(folder);
    if (folderPath.size() > path.size() || !Platform::EqualsNoCase(path.substr(0, folderPath.size()), folderPath))
    {
        return std::wstring(path);
    }
    // The place behind the folder's path is the separator's, and isn't looked at.
    return std::wstring(path.substr(std::min(folderPath.size() + 1, path.size())));
}

ICompoundFolder* OpenFolderByPath(ICompoundFolder* folder, const wchar_t* path, std::uint32_t mode)
{
    if (folder == nullptr || path == nullptr)
    {
        return nullptr;
    }
    return NullWithoutMemory(
        [&]
        {
            const std::wstring relative = GetRelativePath(folder, path);
            const auto pieces = SplitCompoundPath(relative);
            return OpenPieces(folder, pieces, pieces.size(), mode);
        });
}

ICompoundFile* OpenFileByPath(ICompoundFolder* folder, const wchar_t* path, std::uint32_t mode)
{
    if (folder == nullptr || path == nullptr)
    {
        return nullptr;
    }
    return NullWithoutMemory(
        [&]() -> ICompoundFile*
        {
            const std::wstring relative = GetRelativePath(folder, path);
            const auto pieces = SplitCompoundPath(relative);
            if (pieces.empty())
            {
                return nullptr;
            }
            ICompoundFolder* const parent = OpenPieces(folder, pieces, pieces.size() - 1, mode);
            return parent != nullptr ? parent->OpenFile(std::wstring(pieces.back()).c_str(), mode) : nullptr;
        });
}

std::wstring JoinCompoundName(const wchar_t* prefix, const wchar_t* name)
{
    const std::wstring_view tail = name != nullptr ? name : L"";
    // A dash and no separator: the result is one name.
    return (prefix != nullptr ? std::wstring(prefix) + NameJoint : std::wstring()).append(tail);
}

bool CloseFileInParent(ICompoundFile* file)
{
    ICompoundFolder* const parent = file != nullptr ? file->GetParent() : nullptr;
    return parent != nullptr && parent->CloseFile(file);
}
