#pragma once

#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>

/// Sets a variable of the environment, or takes it away, and restores it at the end.
class ScopedVariable
{
public:
    ScopedVariable(const char* name, const std::optional<std::wstring>& value);
    ~ScopedVariable();
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string m_name;
    std::optional<std::string> m_before;
};

/// Starts another process that runs `body` and exits with its result.
pid_t StartChild(const std::function<int()>& body);

/// Waits for a process to end. Its exit status, or -1 if it was killed.
int WaitForChild(pid_t child);

/// The user as which `RunWithoutPrivileges` runs what the administrator starts.
constexpr uid_t UserWithoutPrivileges = 65534;

/// Runs `body` without the rights of the administrator. If the test has them, in another
/// process that has given them up. The result of `body`.
bool RunWithoutPrivileges(const std::function<bool()>& body);
