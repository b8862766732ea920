#include "Document/KeptVersions.h"

#include "Platform/Hash.h"
#include "Platform/Process.h"
#include "Platform/Text.h"
#include "Utilities/Hash.h"
#include "Utilities/QOXUIUtils.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <exception>
#include <string_view>
#include <tuple>
#include <utility>

/// A kept version by its name.
struct KeptVersions::Version
{
    std::uint64_t number = 0;
    std::wstring name;

    bool operator<(const Version& other) const { return std::tie(number, name) < std::tie(other.number, other.name); }
};

namespace
{

constexpr const wchar_t* Suffix = L".vrf";
constexpr int YearsOfTm = 1900;

std::wstring InFolder(const std::wstring& folder, const std::wstring& name)
{
    return folder + Platform::PathSeparator + name;
}

/// The start of a file's name that fits into the name of its folder with all that follows.
std::wstring StartOfName(std::wstring name)
{
    constexpr std::size_t MostUnits = 50;
    if (name.size() > MostUnits)
    {
        name.resize(MostUnits);
        if (name.back() >= 0xD800 && name.back() <= 0xDBFF)
        {
            name.pop_back(); // half of a character
        }
    }
    if (name.starts_with(L'.'))
    {
        name.front() = L'_'; // a file that is hidden has versions that are to be found
    }
    return name;
}

/// The number that a version's name starts with; nothing if the name isn't one of a version.
std::optional<std::uint64_t> NumberOf(std::wstring_view name)
{
    // So many digits are never reached by counting, and fit.
    constexpr std::size_t MostDigits = 15;
    const std::size_t digits = name.find_first_not_of(L"0123456789");
    if (!name.ends_with(Suffix) || digits == 0 || digits > MostDigits || name[digits] != L' ')
    {
        return std::nullopt;
    }
    std::uint64_t number = 0;
    for (const wchar_t digit : name.substr(0, digits))
    {
        number = number * 10 + static_cast<std::uint64_t>(digit - L'0');
    }
    return number;
}

/// Notes the path beside the versions of its file. Without the note they are worth as much,
/// and the next save tries again.
void WriteNote(const std::wstring& folder, const std::wstring& path)
{
    const std::wstring note = InFolder(folder, KeptVersions::NoteName);
    std::ignore = Platform::PathExists(note) || Platform::SaveFileWhole(note, Platform::WideToUtf8(path) + '\n');
}

} // namespace

KeptVersions::KeptVersions(std::wstring folder, LocalClock clock, FileCopier copier)
    : m_folder(std::move(folder)), m_clock(clock), m_copier(std::move(copier))
{
}

std::wstring KeptVersions::DefaultFolder()
{
    return Platform::UserDataFolder() + L"KeptVersions";
}

bool KeptVersions::Keep(const std::wstring& path) const noexcept
{
    try
    {
        if (!Platform::PathExists(path) || KeepVersion(path))
        {
            return true;
        }
        LogMessage(L"The version of %s that is being replaced could not be kept", path);
    }
    catch (const std::exception&)
    {
        // Out of memory, say: the save, which is what the user wants, goes on.
        LogMessage(L"The version of a file that is being replaced could not be kept");
    }
    return false;
}

bool KeptVersions::KeepVersion(const std::wstring& path) const
{
    const std::wstring folder = FolderOf(path);
    if (!Platform::MakePrivateFolderTree(folder))
    {
        return false;
    }
    WriteNote(folder, Platform::ResolvedPath(path));
    const std::optional<std::vector<Version>> versions = VersionsIn(folder);
    if (!versions)
    {
        return false;
    }
    if (!versions->empty() && Platform::HaveSameContents(path, InFolder(folder, versions->back().name)))
    {
        return true;
    }
    const std::wstring name = NameOfNext(path, *versions);
    if (name.empty() || !m_copier(path, InFolder(folder, name)))
    {
        return false;
    }
    RemoveOldest(folder);
    return true;
}

std::wstring KeptVersions::NameOfNext(const std::wstring& path, const std::vector<Version>& versions) const
{
    constexpr std::size_t DigestDigits = 8;
    std::wstring digest;
    if (MD5OfFile(path, digest) == 0)
    {
        return {};
    }
    const std::tm time = m_clock();
    std::array<wchar_t, 64> stamp = {};
    std::swprintf(stamp.data(), stamp.size(), L"%.4d-%.2d-%.2d %.2d-%.2d-%.2d", time.tm_year + YearsOfTm,
                  time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
    // The number tells the order: clocks are put back.
    const std::uint64_t number = versions.empty() ? 1 : versions.back().number + 1;
    return std::to_wstring(number) + L' ' + stamp.data() + L' ' + digest.substr(0, DigestDigits) + Suffix;
}

std::optional<std::vector<KeptVersions::Version>> KeptVersions::VersionsIn(const std::wstring& folder)
{
    const std::optional<std::vector<std::wstring>> names = Platform::NamesInFolder(folder);
    if (!names)
    {
        return std::nullopt;
    }
    std::vector<Version> versions;
    for (const std::wstring& name : *names)
    {
        if (const std::optional<std::uint64_t> number = NumberOf(name))
        {
            versions.push_back({ *number, name });
        }
    }
    std::sort(versions.begin(), versions.end());
    return versions;
}

void KeptVersions::RemoveOldest(const std::wstring& folder)
{
    // Listed again, with what others have kept meanwhile: what is among the newest ten of all
    // is among the newest ten that any of them sees, and who keeps last sees all.
    const std::vector<Version> versions = VersionsIn(folder).value_or(std::vector<Version>());
    for (std::size_t oldest = 0; oldest + MostVersions < versions.size(); ++oldest)
    {
        const std::wstring path = InFolder(folder, versions[oldest].name);
        if (!Platform::DeleteFileAt(path))
        {
            LogMessage(L"The kept version %s could not be removed", path);
        }
    }
}

std::wstring KeptVersions::FolderOf(const std::wstring& path) const
{
    constexpr std::size_t HashDigits = 16;
    const std::wstring file = Platform::ResolvedPath(path);
    const std::string bytes = Platform::WideToUtf8(file);
    Platform::Md5 hash;
    hash.Add(bytes.data(), bytes.size());
    const std::string digits = hash.Finish().value_or(std::string()).substr(0, HashDigits);
    return InFolder(m_folder,
                    StartOfName(Platform::FileNamePart(file)) + L'-' + std::wstring(digits.begin(), digits.end()));
}

std::vector<std::wstring> KeptVersions::VersionsOf(const std::wstring& path) const
{
    const std::wstring folder = FolderOf(path);
    std::vector<std::wstring> paths;
    for (const Version& version : VersionsIn(folder).value_or(std::vector<Version>()))
    {
        paths.push_back(InFolder(folder, version.name));
    }
    return paths;
}
