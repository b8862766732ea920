#include "Application/LogFolder.h"

#include "Platform/Environment.h"
#include "Platform/Files.h"

std::wstring LogFolder()
{
    for (const wchar_t* const name : { L"VANTREL_TEMPFOLDER", L"TEMP" })
    {
        const std::optional<std::wstring> folder = Platform::EnvironmentVariable(name);
        if (folder && !folder->empty())
        {
            return *folder;
        }
    }
    return {};
}

std::wstring LogFilePath(const std::wstring& folder)
{
    return folder + Platform::PathSeparator + L"Vantrel_RuleBuilder.vantrellog";
}
