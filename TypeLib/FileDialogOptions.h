#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Flags of a file dialog, with the values of the system that knows them by these names.
namespace FileDialogFlags
{

inline constexpr std::uint32_t OverwritePrompt = 0x2;
inline constexpr std::uint32_t HideReadOnly = 0x4;
inline constexpr std::uint32_t PathMustExist = 0x800;
inline constexpr std::uint32_t FileMustExist = 0x1000;
inline constexpr std::uint32_t Explorer = 0x80000;

inline constexpr std::uint32_t ForOpening = Explorer | FileMustExist | HideReadOnly;
inline constexpr std::uint32_t ForOpeningWithReadOnlyBox = Explorer | FileMustExist;
inline constexpr std::uint32_t ForSaving = OverwritePrompt | PathMustExist;

} // namespace FileDialogFlags

/// What a dialog holds its user to.
struct FileDialogRules
{
    bool fileMustExist = false;
    bool folderMustExist = false; ///< The one that the chosen file is to lie in.
    bool asksBeforeReplacing = false;

    friend bool operator==(const FileDialogRules&, const FileDialogRules&) = default;
};

/// What the flags come to in a dialog of that kind. Those that are about how the dialog looks
/// come to nothing: the read-only box is one of them, whose state no caller has ever asked for.
FileDialogRules FileDialogRulesFor(bool opens, std::uint32_t flags);

/// A choice of files by their names.
struct FileFilter
{
    std::wstring name;
    std::wstring pattern; ///< Several are separated by `;`.

    friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

/// Reads pairs of a name and a pattern, each ended by `|`, with one more `|` at the end of all.
/// A text that is cut off gives the pairs that are whole: without its closing it ends with the
/// text, and a name without a pattern is left out. No pairs stand for all files.
std::vector<FileFilter> ParseFileFilters(std::wstring_view text);

/// The text that stands for one choice.
std::wstring FileFilterText(const FileFilter& filter);

/// The path with the extension (given without its dot) behind it if its name has none. A dot at
/// the end of the name is no extension.
std::wstring WithDefaultExtension(std::wstring path, const std::wstring& extension);
