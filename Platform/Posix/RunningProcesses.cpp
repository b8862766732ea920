#include "Platform/RunningProcesses.h"

#include "Platform/Posix/FolderHandle.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Posix/ProgramFile.h"

#include <charconv>
#include <csignal>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <system_error>

namespace Platform
{
namespace
{

std::optional<std::wstring> FileNameOf(std::uint32_t id)
{
    const std::string program = Posix::ProgramFileOf(std::to_string(id));
    return program.empty() ? std::nullopt : std::optional(Posix::PathText(program.substr(program.rfind('/') + 1)));
}

} // namespace

std::optional<std::vector<RunningProcess>> RunningProcesses()
{
    const Posix::FolderHandle folder(::opendir("/proc"));
    if (folder == nullptr)
    {
        return std::nullopt;
    }
    std::vector<RunningProcess> processes;
    while (const dirent* const entry = ::readdir(folder.get()))
    {
        const std::string_view name = entry->d_name;
        std::uint32_t id = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
        if (error == std::errc() && end == name.data() + name.size())
        {
            processes.push_back({ id, FileNameOf(id) });
        }
    }
    return processes;
}

ProcessEnd EndProcess(std::uint32_t id)
{
    const auto process = static_cast<pid_t>(id);
    // Numbers that aren't positive mean groups of processes.
    if (process <= 0 || ::kill(process, 0) != 0)
    {
        return ProcessEnd::NotOpened;
    }
    return ::kill(process, SIGKILL) == 0 ? ProcessEnd::Ended : ProcessEnd::Failed;
}

} // namespace Platform
