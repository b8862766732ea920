#include "Platform/Environment.h"

#include "Platform/Files.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Posix/UserFolders.h"
#include "Platform/Registry.h"
#include "Platform/Text.h"

#include <cstdlib>
#include <string_view>
#include <unistd.h>

namespace Platform
{
namespace
{

/// Value of a variable of the process. The name as it is written goes before others.
std::optional<std::wstring> ProcessVariable(const std::wstring& name)
{
    const std::string exact = Posix::PathBytes(name);
    if (const char* value = exact.empty() ? nullptr : std::getenv(exact.c_str()))
    {
        return Posix::PathText(value);
    }
    for (char** variable = environ; variable != nullptr && *variable != nullptr; ++variable)
    {
        const std::string_view entry = *variable;
        const std::size_t equals = entry.find('=');
        if (equals != std::string_view::npos && EqualsNoCase(Posix::PathText(entry.substr(0, equals)), name))
        {
            return Posix::PathText(entry.substr(equals + 1));
        }
    }
    return std::nullopt;
}

std::wstring TemporaryFolderWithoutSeparator()
{
    std::wstring folder = TemporaryFolder();
    while (folder.size() > 1 && folder.back() == PathSeparator)
    {
        folder.pop_back();
    }
    return folder;
}

struct StoredVariables
{
    RegistryRoot root;
    const wchar_t* key;
};

constexpr StoredVariables Stores[] = {
    { RegistryRoot::CurrentUser, L"Environment" },
    { RegistryRoot::LocalMachine, L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment" },
};

} // namespace

std::optional<std::wstring> EnvironmentVariable(const std::wstring& name)
{
    if (name.empty() || name.find(L'=') != std::wstring::npos)
    {
        return std::nullopt;
    }
    if (auto value = ProcessVariable(name))
    {
        return value;
    }
    if (EqualsNoCase(name, L"appdata"))
    {
        return Posix::ConfigurationRoot();
    }
    if (EqualsNoCase(name, L"TEMP"))
    {
        return TemporaryFolderWithoutSeparator();
    }
    return std::nullopt;
}

void TakeOverStoredEnvironment()
{
    for (const StoredVariables& store : Stores)
    {
        for (const std::wstring& name : RegistryValueNames(store.root, store.key))
        {
            const auto value = ReadRegistryText(store.root, store.key, name);
            const std::string variable = Posix::PathBytes(name);
            if (value && !variable.empty() && variable.find('=') == std::string::npos && !ProcessVariable(name))
            {
                ::setenv(variable.c_str(), Posix::PathBytes(*value).c_str(), 0);
            }
        }
    }
}

} // namespace Platform
