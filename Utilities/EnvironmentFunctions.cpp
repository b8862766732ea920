#include "Utilities/EnvironmentFunctions.h"

#include "Platform/Environment.h"
#include "Platform/Registry.h"

int CanWriteSoftwareKey()
{
    return Platform::MayWriteRegistryKey(Platform::RegistryRoot::LocalMachine, L"SOFTWARE") ? 1 : 0;
}

int SetEnvironmentValue(const std::wstring& name, const std::wstring& value, std::uint32_t scope)
{
    const bool forMachine = scope == MachineScope;
    const auto root = forMachine ? Platform::RegistryRoot::LocalMachine : Platform::RegistryRoot::CurrentUser;
    const EnvironmentKeys keys;
    const std::wstring& key = forMachine ? keys.machine : keys.user;
    if (!Platform::MayWriteRegistryKey(root, key))
    {
        return 0;
    }
    return Platform::WriteRegistryText(root, key, name, value) ? 0 : 1;
}

void BroadcastEnvironmentChange()
{
    Platform::AnnounceEnvironmentChange();
}
