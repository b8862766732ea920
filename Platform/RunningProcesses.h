#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The processes of the machine.
namespace Platform
{

struct RunningProcess
{
    std::uint32_t id = 0;
    std::optional<std::wstring> fileName; ///< Of its program, without folder. Nothing if it can't be told.
};

/// All processes, in the order in which the system lists them. Nothing if it can't list them.
std::optional<std::vector<RunningProcess>> RunningProcesses();

enum class ProcessEnd
{
    Ended,
    NotOpened, ///< It is gone, or this user may not end it.
    Failed,
};

/// Ends a process at once, without asking it.
ProcessEnd EndProcess(std::uint32_t id);

} // namespace Platform
