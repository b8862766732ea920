#pragma once

/// How full paths look. The rules of both styles are plain text work, so that each is held by
/// tests on every system.
namespace Platform
{

struct PathStyle
{
    wchar_t separator;
    wchar_t otherSeparator; ///< Means the same as `separator`; 0 if there is no such character.
    bool hasDrives;         ///< Full paths begin with a drive or a network share, not with a root.
};

inline constexpr PathStyle DrivePaths = { L'\\', L'/', true };
inline constexpr PathStyle RootPaths = { L'/', L'\0', false };

/// The style of this system.
extern const PathStyle SystemPaths;

} // namespace Platform
