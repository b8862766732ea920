#include "Platform/Process.h"

#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Posix/ProgramFile.h"
#include "Platform/Posix/UserFolders.h"

#include <array>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

namespace Platform
{

const char* const UserDataVariable = "XDG_DATA_HOME";

namespace
{

std::wstring HomeFolder()
{
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/')
    {
        return Posix::PathText(home);
    }
    const passwd* user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_dir != nullptr ? Posix::PathText(user->pw_dir) : std::wstring(L"/tmp");
}

/// A folder that a variable names, else one in the home folder. Relative ones don't count.
std::wstring RootFolder(const char* variable, const wchar_t* belowHome)
{
    const char* configured = std::getenv(variable);
    std::wstring folder =
        configured != nullptr && *configured == '/' ? Posix::PathText(configured) : HomeFolder() + belowHome;
    while (folder.size() > 1 && folder.back() == PathSeparator)
    {
        folder.pop_back();
    }
    return folder;
}

} // namespace

namespace Posix
{

std::wstring ConfigurationRoot()
{
    return RootFolder("XDG_CONFIG_HOME", L"/.config");
}

std::wstring DataRoot()
{
    return RootFolder(UserDataVariable, L"/.local/share");
}

std::string ProgramFileOf(const std::string& process)
{
    std::array<char, PATH_MAX> target = {};
    const ssize_t length = ::readlink(("/proc/" + process + "/exe").c_str(), target.data(), target.size());
    if (length <= 0)
    {
        return {};
    }
    std::string path(target.data(), static_cast<std::size_t>(length));
    // The system marks the file of a running program that was replaced by an update.
    constexpr std::string_view Mark = " (deleted)";
    if (path.ends_with(Mark) && ::access(path.c_str(), F_OK) != 0)
    {
        path.resize(path.size() - Mark.size());
    }
    return path;
}

} // namespace Posix

std::wstring ProgramPath()
{
    return Posix::PathText(Posix::ProgramFileOf("self"));
}

std::wstring ProgramFolder()
{
    return FolderPart(ProgramPath());
}

std::wstring UserDataFolder()
{
    return Posix::DataRoot() + L"/vantrel/";
}

std::wstring UserConfigurationFolder()
{
    return Posix::ConfigurationRoot() + L"/vantrel";
}

std::wstring UserName()
{
    const passwd* user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_name != nullptr ? Posix::PathText(user->pw_name) : std::wstring();
}

void UseUserLocale()
{
    if (std::setlocale(LC_CTYPE, "") == nullptr)
    {
        // The user's locale isn't installed. Text beyond ASCII must not be lost for that.
        std::setlocale(LC_CTYPE, "C.UTF-8");
    }
    std::setlocale(LC_COLLATE, "");
    std::setlocale(LC_NUMERIC, "C");
}

} // namespace Platform
