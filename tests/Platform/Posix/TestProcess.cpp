#include "tests/Platform/Posix/TestProcess.h"

#include "Platform/Text.h"

#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

ScopedVariable::ScopedVariable(const char* name, const std::optional<std::wstring>& value) : m_name(name)
{
    if (const char* before = std::getenv(name))
    {
        m_before = before;
    }
    if (value)
    {
        ::setenv(name, Platform::WideToUtf8(*value).c_str(), 1);
    }
    else
    {
        ::unsetenv(name);
    }
}

ScopedVariable::~ScopedVariable()
{
    if (m_before)
    {
        ::setenv(m_name.c_str(), m_before->c_str(), 1);
    }
    else
    {
        ::unsetenv(m_name.c_str());
    }
}

pid_t StartChild(const std::function<int()>& body)
{
    const pid_t child = ::fork();
    if (child == 0)
    {
        ::_exit(body());
    }
    return child;
}

int WaitForChild(pid_t child)
{
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool RunWithoutPrivileges(const std::function<bool()>& body)
{
    if (::geteuid() != 0)
    {
        return body();
    }
    return WaitForChild(StartChild(
               [&body]
               {
                   const bool given =
                       ::setresgid(UserWithoutPrivileges, UserWithoutPrivileges, UserWithoutPrivileges) == 0 &&
                       ::setresuid(UserWithoutPrivileges, UserWithoutPrivileges, UserWithoutPrivileges) == 0;
                   return given && body() ? 0 : 1;
               })) == 0;
}
