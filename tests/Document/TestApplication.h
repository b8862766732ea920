#pragma once

#include "Modules/ApplicationGlobals.h"
#include "Modules/ModuleSet.h"
#include "tests/RuleModules/Fixtures/TestModule.h"
#include "tests/Support/OwnSettings.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/TemporaryFolder.h"
#include "Utilities/UserPrompt.h"

#include <optional>
#include <string>
#include <vector>

/// Notes what the user would have been shown, and gives the answers.
class RecordingPrompt : public IUserPrompt
{
public:
    void ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& caption) override;
    bool AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& caption) override;
    SaveAnswer AskSaveChanges(const std::wstring& documentName) override;
    std::optional<std::wstring> AskPassword(PasswordPurpose purpose) override;
    std::optional<std::wstring> AskFile(const FileQuestion& question) override;
    std::optional<std::wstring> AskFolder(const FolderQuestion& question) override;

    std::vector<std::wstring> texts;
    std::vector<BoxKind> kinds; // of the boxes and questions
    bool answer = false;
    SaveAnswer saveAnswer = SaveAnswer::Cancel;
    std::optional<std::wstring> password;
    std::vector<PasswordPurpose> passwordPurposes;
    std::optional<std::wstring> path; // the file or folder that is chosen
    std::vector<FileQuestion> fileQuestions;
    std::vector<FolderQuestion> folderQuestions;
};

/// An application object for a test, in `g_pApp` for as long as it lives, with its settings
/// in a folder of its own.
class TestApplication : public IRuleApplication
{
public:
    TestApplication();
    ~TestApplication() override;

    ModuleSet& Modules() override { return m_modules; }
    Platform::LibraryHandle Framework() override { return framework; }
    IUserPrompt& Prompt() override { return prompt; }
    void ShowHelp(HelpTopic topic) override { helpTopics.push_back(topic); }
    void SetDocOpenState(int state) override { docOpenState = state; }

    /// Loads rule modules of the test folder by file name without suffix, and forgets the
    /// calls that they noted before.
    void LoadRuleModules(const std::vector<std::wstring>& names);

    /// Same for database modules.
    void LoadDatabaseModules(const std::vector<std::wstring>& names);

    RecordingPrompt prompt;
    OwnSettings settings;
    Platform::LibraryHandle framework; // the real one unless a test puts another in its place
    std::vector<HelpTopic> helpTopics; // that were asked for
    int docOpenState = 0;

private:
    TemporaryFolder m_folder;
    ScopedEnvironment m_dataFolder;
    ScopedEnvironment m_userData; // for what saves keep
    ModuleSet m_modules;
};

/// Full path of a module of the test folder.
std::wstring TestModulePath(const std::wstring& name);

/// A function that a module for tests exports beside the contract.
template <typename Function>
Function TestModuleFunction(const std::wstring& name, const char* function)
{
    const Platform::LibraryHandle library = Platform::FindLoadedLibrary(TestModulePath(name));
    return library == nullptr ? nullptr : reinterpret_cast<Function>(Platform::FindLibrarySymbol(library, function));
}

/// The exports of a module that were called, in order, separated by blanks.
std::string CallsOf(const std::wstring& name);

/// Rules that the module made and that still exist.
int LiveRulesOf(const std::wstring& name);
