#include "TypeLib/FileDialogOptions.h"

#include "Platform/Files.h"

namespace
{

constexpr wchar_t FilterSeparator = L'|';

// Callers and their notes give the flags as numbers.
static_assert(FileDialogFlags::ForOpening == 528388);
static_assert(FileDialogFlags::ForOpeningWithReadOnlyBox == 0x81000);
static_assert(FileDialogFlags::ForSaving == 2050);

/// Takes what stands before the next separator. False if there is no separator any more; then
/// `part` is the rest.
bool TakePart(std::wstring_view& text, std::wstring_view& part)
{
    const std::size_t end = text.find(FilterSeparator);
    part = text.substr(0, end);
    text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
    return end != std::wstring_view::npos;
}

} // namespace

FileDialogRules FileDialogRulesFor(bool opens, std::uint32_t flags)
{
    const auto has = [flags](std::uint32_t flag) { return (flags & flag) != 0; };
    FileDialogRules rules;
    rules.fileMustExist = opens && has(FileDialogFlags::FileMustExist);
    rules.folderMustExist = rules.fileMustExist || has(FileDialogFlags::PathMustExist);
    rules.asksBeforeReplacing = !opens && has(FileDialogFlags::OverwritePrompt);
    return rules;
}

std::vector<FileFilter> ParseFileFilters(std::wstring_view text)
{
    std::vector<FileFilter> filters;
    std::wstring_view name;
    std::wstring_view pattern;
    while (TakePart(text, name) && !name.empty())
    {
        TakePart(text, pattern);
        if (pattern.empty())
        {
            break;
        }
        filters.push_back({ std::wstring(name), std::wstring(pattern) });
    }
    return filters;
}

std::wstring FileFilterText(const FileFilter& filter)
{
    return filter.name + FilterSeparator + filter.pattern + FilterSeparator + FilterSeparator;
}

std::wstring WithDefaultExtension(std::wstring path, const std::wstring& extension)
{
    const std::size_t separator = path.find_last_of(Platform::PathSeparator);
    const std::size_t nameStart = separator == std::wstring::npos ? 0 : separator + 1;
    if (extension.empty() || nameStart == path.size())
    {
        return path;
    }
    // A name that starts with a dot is a hidden file's, and has no extension for that.
    const std::size_t dot = path.rfind(L'.');
    const bool hasDot = dot != std::wstring::npos && dot > nameStart;
    if (hasDot && dot + 1 < path.size())
    {
        return path;
    }
    return path + (hasDot ? L"" : L".") + extension;
}
