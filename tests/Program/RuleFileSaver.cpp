// Saves rule files as the program does, in a process of its own that may be ended at any
// moment.
//
//   RuleFileSaver make <rule file> <number of rules>
//       Makes a rule file with rules of all staged modules by turns.
//   RuleFileSaver save <rule file>
//       Opens the file, puts its rules into the reverse order, gives the values another unit
//       and, once it has been sent a line, saves it. Two such saves give the file of the start.
//
// What goes on is told line by line: "opened <rules>", then "saving" and "saved", or
// "failed <how>" instead of either of the others. A box for the user is a line "box <text>".

#include "Document/RuleDocument.h"
#include "Modules/ApplicationGlobals.h"
#include "Modules/FrameworkLibrary.h"
#include "Modules/ModuleSet.h"
#include "Platform/Files.h"
#include "Platform/Process.h"
#include "Platform/Text.h"
#include "tests/Support/SilentPrompt.h"

#include <Vantrel/PointerArray.h>
#include <Vantrel/VantrelLog.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <list>
#include <string>
#include <vector>

namespace
{

void Tell(const std::string& line)
{
    std::cout << line << std::endl; // at once: the process may not live to the next one
}

/// The application object with all rule modules of the stage.
class SaverApplication : public IRuleApplication, private SilentPrompt
{
public:
    SaverApplication()
    {
        g_pApp = this;
        m_modules.ConfigModulePaths() = { StagedLibrary(L"QoxMillRulesu.dll"), StagedLibrary(L"QoxSMRulesu.dll"),
                                          StagedLibrary(L"QOXIMRulesu.dll") };
        m_modules.DBModulePaths() = { StagedLibrary(L"QoxSqliteDatabaseu.dll") };
        ModuleSet::Handles toFree;
        m_modules.LoadConfigModules(toFree);
        m_modules.LoadDBModules(toFree);
        m_modules.UpdateDBModuleList();
    }
    ~SaverApplication() override { g_pApp = nullptr; }
    SaverApplication(const SaverApplication&) = delete;
    SaverApplication& operator=(const SaverApplication&) = delete;

    ModuleSet& Modules() override { return m_modules; }
    Platform::LibraryHandle Framework() override { return LoadFrameworkLibrary(); }
    IUserPrompt& Prompt() override { return *this; }
    void SetDocOpenState(int /*state*/) override {}
    void ShowHelp(HelpTopic /*topic*/) override {}

private:
    static std::wstring StagedLibrary(const std::wstring& name)
    {
        const std::wstring folder = Platform::Utf8ToWide(VANTREL_STAGE_DIR) + Platform::PathSeparator + L"bin";
        return Platform::ToLower(folder + Platform::PathSeparator + name);
    }

    void ShowBox(BoxKind /*kind*/, const std::wstring& text, const std::wstring& /*caption*/) override
    {
        Tell("box " + Platform::WideToUtf8(text));
    }
    bool AskYesNo(BoxKind /*kind*/, const std::wstring& text, const std::wstring& /*caption*/) override
    {
        Tell("box " + Platform::WideToUtf8(text));
        return false;
    }

    ModuleSet m_modules;
};

const char* NameOf(RuleDocument::SaveFailure failure)
{
    using Failure = RuleDocument::SaveFailure;
    switch (failure)
    {
    case Failure::None:
        return "None";
    case Failure::NotWritable:
        return "NotWritable";
    case Failure::Told:
        return "Told";
    case Failure::NotWritten:
        return "NotWritten";
    }
    return "unknown";
}

int Save(RuleDocument& document, const std::wstring& path)
{
    Tell("saving");
    const RuleDocument::SaveFailure failure = document.Save(path);
    if (failure != RuleDocument::SaveFailure::None)
    {
        Tell(std::string("failed ") + NameOf(failure));
        return 1;
    }
    Tell("saved");
    return 0;
}

int Make(SaverApplication& application, const std::wstring& path, int count)
{
    RuleDocument document(&application.Prompt());
    std::vector<CQoxRule*> made;
    while (static_cast<int>(made.size()) < count)
    {
        PointerArray round;
        std::list<std::wstring> asked;
        GatherRules(application.Modules(), asked, round, [] {});
        if (round.GetSize() == 0)
        {
            Tell("failed no rules");
            return 1;
        }
        made.insert(made.end(), round.begin(), round.end());
    }
    std::for_each(made.begin(), made.begin() + count, [&](CQoxRule* rule) { document.Rules().Append(rule); });
    const int status = Save(document, path);
    document.ReleaseRules(made);
    return status;
}

int OpenAndSave(SaverApplication& application, const std::wstring& path)
{
    constexpr int FirstUnit = 0;
    constexpr int OtherUnit = 3;
    RuleDocument document(&application.Prompt());
    if (document.Open(path) != RuleDocument::OpenFailure::None)
    {
        Tell("failed to open");
        return 1;
    }
    PointerArray rules;
    document.Header().GetRules(rules);
    for (int index = rules.GetSize() - 1; index >= 0; --index)
    {
        document.Rules().Append(rules[index]);
    }
    document.Header().newRuleUnits.linear = document.Header().newRuleUnits.linear == FirstUnit ? OtherUnit : FirstUnit;
    Tell("opened " + std::to_string(rules.GetSize()));
    std::string line;
    std::getline(std::cin, line);
    return Save(document, path);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    Platform::UseUserLocale();
    if (const char* const log = std::getenv("VANTREL_SAVER_LOG"))
    {
        CVantrelLog::OpenLogFile(Platform::FromCodePage(log));
    }
    SaverApplication application;
    if (arguments.size() == 3 && arguments[0] == "make")
    {
        return Make(application, Platform::FromCodePage(arguments[1]), std::atoi(arguments[2].c_str()));
    }
    if (arguments.size() == 2 && arguments[0] == "save")
    {
        return OpenAndSave(application, Platform::FromCodePage(arguments[1]));
    }
    std::cerr << "usage: RuleFileSaver make <rule file> <number of rules> | save <rule file>\n";
    return 2;
}
