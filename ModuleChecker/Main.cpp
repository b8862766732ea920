// Checks rule modules and database modules outside the program. See HelpText.

#include "ModuleChecker/CheckRun.h"
#include "ModuleChecker/CommandLine.h"
#include "Platform/Process.h"
#include "Platform/Text.h"

#include <cstdio>

namespace
{

void Print(std::FILE* stream, const std::wstring& text)
{
    std::fputs(Platform::ToCodePage(text).c_str(), stream);
    std::fflush(stream);
}

int Run(const std::vector<std::wstring>& words)
{
    using namespace ModuleChecker;

    std::wstring problem;
    const std::optional<Request> request = ReadCommandLine(words, problem);
    if (!request)
    {
        Print(stderr, L"vantrel-check-module: " + problem + L"\n");
        return NothingToCheck;
    }
    switch (request->kind)
    {
    case Request::Kind::Help:
        Print(stdout, HelpText);
        return NoErrors;
    case Request::Kind::Version:
        Print(stdout, L"vantrel-check-module " VANTREL_VERSION L"\n");
        return NoErrors;
    case Request::Kind::Worker:
        return RunWorker(*request) ? NoErrors : NothingToCheck;
    case Request::Kind::Check:
        break;
    }
    return CheckModules(*request, Platform::ProgramPath(),
                        [](const std::wstring& line) { Print(stdout, line + L"\n"); });
}

} // namespace

int main(int count, char** arguments)
{
    Platform::UseUserLocale();
    std::vector<std::wstring> words;
    for (int index = 1; index < count; ++index)
    {
        words.push_back(Platform::FromCodePage(arguments[index]));
    }
    return Run(words);
}
