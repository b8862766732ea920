#include "Utilities/ProcessFunctions.h"

#include "Platform/Files.h"
#include "Platform/Process.h"
#include "Platform/RunningProcesses.h"
#include "Platform/Text.h"

namespace
{

constexpr std::size_t LongestName = 259;

/// What a process goes by that doesn't let itself be looked at.
constexpr const wchar_t* UnknownName = L"Unknown";

std::uint32_t ResultOf(Platform::ProcessEnd end)
{
    switch (end)
    {
    case Platform::ProcessEnd::Ended:
        return ProcessEnded;
    case Platform::ProcessEnd::NotOpened:
        return ProcessNotOpened;
    case Platform::ProcessEnd::Failed:
        break;
    }
    return ProcessNotEnded;
}

} // namespace

std::uint32_t KillProcessByName(const std::string& fileName)
{
    if (fileName.empty() || fileName.size() > LongestName)
    {
        return ProcessNameInvalid;
    }
    const auto processes = Platform::RunningProcesses();
    if (!processes)
    {
        return ProcessListingFailed;
    }
    const std::wstring wanted = Platform::FromCodePage(fileName);
    for (const Platform::RunningProcess& process : *processes)
    {
        if (Platform::EqualsNoCase(process.fileName.value_or(UnknownName), wanted))
        {
            // One that can't be opened to be looked at can't be opened to be ended either.
            return process.fileName ? ResultOf(Platform::EndProcess(process.id)) : ProcessNotOpened;
        }
    }
    return ProcessNotFound;
}

std::wstring GetModuleName(Platform::LibraryHandle module)
{
    return module == nullptr ? std::wstring() : Platform::FileNamePart(GetModulePath(module));
}

std::wstring GetModuleFolder(Platform::LibraryHandle module)
{
    return Platform::FolderPart(GetModulePath(module));
}

std::wstring GetModulePath(Platform::LibraryHandle module)
{
    return module == nullptr ? Platform::ProgramPath() : Platform::LibraryPath(module);
}
