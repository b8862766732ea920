#include "Platform/Environment.h"

#include "Platform/Posix/PathBytes.h"

#include <cstdlib>

namespace Platform
{

bool SetProcessVariable(const std::wstring& name, const std::optional<std::wstring>& value)
{
    const std::string nameBytes = Posix::PathBytes(name);
    // The system refuses an empty name and one with an equals sign.
    return value ? ::setenv(nameBytes.c_str(), Posix::PathBytes(*value).c_str(), 1) == 0
                 : ::unsetenv(nameBytes.c_str()) == 0;
}

void AnnounceEnvironmentChange()
{
    // Programs have the variables of the process that started them; none listens to changes.
}

} // namespace Platform
