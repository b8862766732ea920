#pragma once

#include <string>
#include <vector>

/// What the command line asks of the program.
enum class ShellCommand
{
    New,
    Open,
    Unregister,
};

struct CommandLine
{
    ShellCommand shellCommand = ShellCommand::New;
    std::wstring fileName;     ///< As typed; empty if none was named.
    bool runEmbedded = false;  ///< Started as an automation server for a document in another.
    bool runAutomated = false; ///< Started as an automation server.

    bool IsServerStart() const { return runEmbedded || runAutomated; }
};

/// Reads the arguments behind the program's name. Switches begin with `-` or, as far as
/// they are known ones, with `/`; the first other argument is the file name.
CommandLine ParseCommandLine(const std::vector<std::wstring>& arguments);

/// True if what follows the last `.` of the name is the extension of script rule packages,
/// in any case. False for a name without a `.`.
bool IsScriptRulePackage(const std::wstring& fileName);
