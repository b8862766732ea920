#include "Application/CommandLine.h"

#include "Platform/Text.h"

namespace
{

constexpr const wchar_t* PackageExtension = L"qoxrule";

/// Takes over a switch without its prefix. False if it isn't known.
bool TakeSwitch(const std::wstring& name, CommandLine& result)
{
    if (Platform::EqualsNoCase(name, L"unregister") || Platform::EqualsNoCase(name, L"unregserver"))
    {
        result.shellCommand = ShellCommand::Unregister;
    }
    else if (Platform::EqualsNoCase(name, L"embedding"))
    {
        result.runEmbedded = true;
    }
    else if (Platform::EqualsNoCase(name, L"automation"))
    {
        result.runAutomated = true;
    }
    else
    {
        return false;
    }
    return true;
}

} // namespace

CommandLine ParseCommandLine(const std::vector<std::wstring>& arguments)
{
    CommandLine result;
    for (const std::wstring& argument : arguments)
    {
        if (argument.size() > 1 && argument[0] == L'-')
        {
            // An unknown switch is passed over, never taken for a file.
            TakeSwitch(argument.substr(argument.find_first_not_of(L'-') == 2 ? 2 : 1), result);
            continue;
        }
        // A slash also begins full paths, so only known words count as switches.
        if (argument.size() > 1 && argument[0] == L'/' && TakeSwitch(argument.substr(1), result))
        {
            continue;
        }
        if (result.fileName.empty())
        {
            result.fileName = argument;
        }
    }
    if (!result.fileName.empty() && result.shellCommand == ShellCommand::New)
    {
        result.shellCommand = ShellCommand::Open;
    }
    return result;
}

bool IsScriptRulePackage(const std::wstring& fileName)
{
    const std::size_t dot = fileName.rfind(L'.');
    return dot != std::wstring::npos && Platform::EqualsNoCase(fileName.substr(dot + 1), PackageExtension);
}
