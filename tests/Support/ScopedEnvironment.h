#pragma once

#include "Platform/Environment.h"

#include <optional>
#include <string>

/// Sets an environment variable of the process for as long as it lives.
class ScopedEnvironment
{
public:
    ScopedEnvironment(const char* name, const std::wstring& value)
        : m_name(name, name + std::char_traits<char>::length(name)), m_before(Platform::EnvironmentVariable(m_name))
    {
        Platform::SetProcessVariable(m_name, value);
    }
    ~ScopedEnvironment() { Platform::SetProcessVariable(m_name, m_before); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    std::wstring m_name;
    std::optional<std::wstring> m_before;
};
