#pragma once

#include "Document/LocalClock.h"
#include "Platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The versions of rule files that saves have replaced: the last ten of each file, whole, in
/// a folder of the user's own. A save leaves out the rules of modules that aren't loaded, and
/// this is where they are still to be had.
///
/// Each rule file has a folder with its name and a number made from its path, so that files
/// of one name don't meet. In it are a note with the path and the versions, named by their
/// number and the time of the save that replaced them, like
/// `12 2026-11-21 13-45-51 0a1b2c3d.vrf`. The last part is made from the contents: two
/// programs that keep a version under the same number at the same time don't meet either.
class KeptVersions
{
public:
    /// Copies a file whole, as `Platform::CopyFileWhole` does.
    using FileCopier = std::function<bool(const std::wstring& from, const std::wstring& to)>;

    /// So many versions of each file are kept.
    static constexpr std::size_t MostVersions = 10;

    /// The note in the folder of each rule file.
    static constexpr const wchar_t* NoteName = L"path.txt";

    /// `folder` takes the folders of the rule files and is made with the first version.
    explicit KeptVersions(std::wstring folder = DefaultFolder(), LocalClock clock = CurrentLocalTime,
                          FileCopier copier = Platform::CopyFileWhole);

    /// Where versions of this user's files are kept, without a separator at the end.
    static std::wstring DefaultFolder();

    /// Keeps the contents that a rule file has now, unless they are those of the newest
    /// version; the oldest versions above the tenth go. A file that isn't there leaves nothing
    /// to keep. False, with a line in the log, if the contents could not be kept. Never throws.
    bool Keep(const std::wstring& path) const noexcept;

    /// The folder for the versions of a rule file, be it there or not.
    std::wstring FolderOf(const std::wstring& path) const;

    /// Paths of the versions of a rule file, the oldest first.
    std::vector<std::wstring> VersionsOf(const std::wstring& path) const;

private:
    struct Version;

    bool KeepVersion(const std::wstring& path) const;
    std::wstring NameOfNext(const std::wstring& path, const std::vector<Version>& versions) const;
    static std::optional<std::vector<Version>> VersionsIn(const std::wstring& folder);
    static void RemoveOldest(const std::wstring& folder);

    std::wstring m_folder;
    LocalClock m_clock;
    FileCopier m_copier;
};
