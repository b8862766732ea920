#include "Platform/Registry.h"

#include "Platform/Files.h"
#include "Platform/Posix/FileLock.h"
#include "Platform/Posix/RegistryStore.h"
#include "Platform/Process.h"

#include <algorithm>
#include <functional>
#include <unistd.h>

namespace Platform
{
namespace
{

std::wstring StorePath()
{
    return UserConfigurationFolder() + L"/registry.reg";
}

/// A key with its root, without separators at its ends or doubled ones within.
std::wstring FullKey(RegistryRoot root, std::wstring_view key)
{
    std::wstring full;
    switch (root)
    {
    case RegistryRoot::ClassesRoot:
        full = L"HKEY_CURRENT_USER\\Software\\Classes";
        break;
    case RegistryRoot::CurrentUser:
        full = L"HKEY_CURRENT_USER";
        break;
    case RegistryRoot::LocalMachine:
        full = L"HKEY_LOCAL_MACHINE";
        break;
    }
    for (std::size_t start = 0; start < key.size();)
    {
        const std::size_t end = std::min(key.find(L'\\', start), key.size());
        if (end > start)
        {
            full += L'\\';
            full += key.substr(start, end - start);
        }
        start = end + 1;
    }
    return full;
}

/// Nothing if there is a store that can't be read.
std::optional<Posix::RegistryStore> ReadStore()
{
    const std::wstring path = StorePath();
    if (const auto bytes = ReadWholeFile(path))
    {
        return Posix::RegistryStore(bytes->View());
    }
    return PathExists(path) ? std::nullopt : std::optional<Posix::RegistryStore>(std::in_place, "");
}

/// Reads, changes and writes the store with no other process in between. `change` returns
/// false if nothing is to be written, and then the result is false too.
bool ChangeStore(const std::function<bool(Posix::RegistryStore&)>& change)
{
    const std::wstring folder = UserConfigurationFolder();
    if (!MakeFolderTree(folder))
    {
        return false;
    }
    Posix::FileLock lock(NativePath(folder + L"/registry.lock").native());
    if (!lock.Take())
    {
        return false;
    }
    auto store = ReadStore();
    // A store that can't be read is left alone: writing would wipe out what it holds.
    if (!store)
    {
        return false;
    }
    const std::string before = store->Bytes();
    if (!change(*store))
    {
        return false;
    }
    // Each start of the program registers the same again; the disk needn't wait for that.
    const std::string after = store->Bytes();
    return after == before || SaveFileWhole(StorePath(), after);
}

} // namespace

std::optional<std::wstring> ReadRegistryText(RegistryRoot root, std::wstring_view key, std::wstring_view name)
{
    const auto store = ReadStore();
    return store ? store->Text(FullKey(root, key), name) : std::nullopt;
}

std::optional<std::uint32_t> ReadRegistryNumber(RegistryRoot root, std::wstring_view key, std::wstring_view name)
{
    const auto store = ReadStore();
    return store ? store->Number(FullKey(root, key), name) : std::nullopt;
}

bool WriteRegistryText(RegistryRoot root, std::wstring_view key, std::wstring_view name, std::wstring_view text)
{
    return MayWriteRegistryKey(root, key) &&
           ChangeStore([&](Posix::RegistryStore& store) { return store.SetText(FullKey(root, key), name, text); });
}

bool WriteRegistryNumber(RegistryRoot root, std::wstring_view key, std::wstring_view name, std::uint32_t number)
{
    return MayWriteRegistryKey(root, key) &&
           ChangeStore([&](Posix::RegistryStore& store) { return store.SetNumber(FullKey(root, key), name, number); });
}

bool RegistryKeyExists(RegistryRoot root, std::wstring_view key)
{
    const auto store = ReadStore();
    return store && store->HasKey(FullKey(root, key));
}

bool MayWriteRegistryKey(RegistryRoot root, std::wstring_view)
{
    // Machine-wide settings are the administrator's.
    return root != RegistryRoot::LocalMachine || ::geteuid() == 0;
}

std::vector<std::wstring> RegistrySubkeys(RegistryRoot root, std::wstring_view key)
{
    const auto store = ReadStore();
    return store ? store->Subkeys(FullKey(root, key)) : std::vector<std::wstring>();
}

std::vector<std::wstring> RegistryValueNames(RegistryRoot root, std::wstring_view key)
{
    const auto store = ReadStore();
    return store ? store->ValueNames(FullKey(root, key)) : std::vector<std::wstring>();
}

bool DeleteRegistryKey(RegistryRoot root, std::wstring_view key)
{
    const std::wstring full = FullKey(root, key);
    if (full == FullKey(root, {}))
    {
        return false; // a root can't be removed
    }
    const auto store = ReadStore();
    if (store && !store->HasKey(full))
    {
        return true;
    }
    return MayWriteRegistryKey(root, key) && ChangeStore(
                                                 [&full](Posix::RegistryStore& changed)
                                                 {
                                                     changed.DeleteKey(full);
                                                     return true;
                                                 });
}

} // namespace Platform
