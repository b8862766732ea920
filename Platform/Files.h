#pragma once

#include "Platform/FileCause.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Files and folders by wide path.
namespace Platform
{

/// The separator that paths are cut at: `\` on one system, `/` on the other.
extern const wchar_t PathSeparator;

/// What ends a line of a text file: a line feed, or a carriage return and a line feed.
extern const char* const TextLineEnd;

/// The path in the form that the standard library opens.
std::filesystem::path NativePath(const std::wstring& path);

/// What follows the last separator; the whole text if there is none.
std::wstring FileNamePart(std::wstring_view path);

/// What stands before the last separator; empty if there is none.
std::wstring FolderPart(std::wstring_view path);

/// The path made absolute against the current folder, without resolving links.
/// An empty path stays empty.
std::wstring AbsolutePath(const std::wstring& path);

/// The path under which the system has a file that is there: absolute, all links followed.
/// `AbsolutePath` of one that isn't there.
std::wstring ResolvedPath(const std::wstring& path);

/// True for a path that starts at a root (on Windows also a network path).
bool IsAbsolutePath(std::wstring_view path);

/// True if anything exists at the path, folders included.
bool PathExists(const std::wstring& path);

/// True if the path names a folder.
bool FolderExists(const std::wstring& path);

/// True if both paths lead to the same file, by another way or by the same. Two paths to
/// nothing are the same if they are equal.
bool IsSameFile(const std::wstring& path, const std::wstring& other);

/// True if the path names something that can be opened as a file (folders can't).
bool FileExists(const std::wstring& path);

/// True if the file may be written: an existing one allows it, or its folder allows making
/// it. Changes nothing.
bool CanWriteFile(const std::wstring& path);

/// Makes one folder. True if it exists afterwards as a folder.
bool MakeFolder(const std::wstring& path);

/// Makes the folder and those above it. True if it exists afterwards as a folder.
bool MakeFolderTree(const std::wstring& path);

/// Makes the folder and those above it. What is made is for this user alone. True if the
/// folder exists afterwards.
bool MakePrivateFolderTree(const std::wstring& path);

/// The names of what a folder holds, in no order. Nothing if it can't be listed.
std::optional<std::vector<std::wstring>> NamesInFolder(const std::wstring& path);

/// Deletes a file. True if it is gone afterwards.
bool DeleteFileAt(const std::wstring& path);

/// The bytes of a file with storage that can be handed on without copying.
/// `data` came from `malloc` and is freed by the destructor unless `Detach` was called.
class FileBytes
{
public:
    FileBytes() = default;
    FileBytes(void* data, std::size_t size);
    ~FileBytes();
    FileBytes(FileBytes&& other) noexcept;
    FileBytes& operator=(FileBytes&& other) noexcept;
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    const char* Data() const { return static_cast<const char*>(m_data); }
    std::size_t Size() const { return m_size; }
    std::string_view View() const { return { Data(), m_size }; }

    /// Gives the storage to the caller, who frees it with `free`.
    void* Detach();

private:
    void* m_data = nullptr;
    std::size_t m_size = 0;
};

/// Reads a whole regular file. Nothing for a folder, a device, a file that can't be
/// opened or one that can't be read to its end. An empty file gives zero bytes.
std::optional<FileBytes> ReadWholeFile(const std::wstring& path);

/// Replaces the contents of a file so that at every moment either the old or the new
/// contents are there in full: the bytes go into a temporary file beside it, are
/// flushed, and take the file's place. Permissions are kept and links are followed.
/// Where no file can be made beside it but the file itself may be written, it is
/// written in place, as a plain writer would. A file that may not be written fails even
/// if it could be replaced. False leaves the old file as it was (in-place writing apart),
/// and no temporary file stays.
bool SaveFileWhole(const std::wstring& path, std::string_view bytes);

/// Same with the contents in pieces that follow one another.
bool SaveFileWhole(const std::wstring& path, std::span<const std::string_view> pieces);

/// Called once in a save that finds a regular file, at the last moment at which the path
/// still leads to the old contents and when nothing but taking their place is left to do:
/// there is room for the new ones, and they are on the disk unless the file is written in
/// place.
using BeforeReplacing = std::function<void()>;

/// Same, with what is to be done before the old contents go and, if it gives false, the reason.
bool SaveFileWhole(const std::wstring& path, std::span<const std::string_view> pieces, const BeforeReplacing& before,
                   FileCause& cause);

/// Copies the contents of a regular file into one for this user alone. The copy is on the
/// disk and whole when this gives true; when it gives false, `to` is as it was before. A link
/// at `to` is replaced.
bool CopyFileWhole(const std::wstring& from, const std::wstring& to);

/// True if both are regular files of the same bytes.
bool HaveSameContents(const std::wstring& one, const std::wstring& other);

/// The folder for temporary files, with a separator at its end. Empty if there is none.
std::wstring TemporaryFolder();

} // namespace Platform
