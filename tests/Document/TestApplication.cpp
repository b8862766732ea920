#include "tests/Document/TestApplication.h"

#include "Modules/FrameworkLibrary.h"
#include "Platform/Files.h"
#include "Platform/Process.h"
#include "Platform/Text.h"

void RecordingPrompt::ShowBox(BoxKind kind, const std::wstring& text, const std::wstring& /*caption*/)
{
    kinds.push_back(kind);
    texts.push_back(text);
}

bool RecordingPrompt::AskYesNo(BoxKind kind, const std::wstring& text, const std::wstring& /*caption*/)
{
    kinds.push_back(kind);
    texts.push_back(text);
    return answer;
}

SaveAnswer RecordingPrompt::AskSaveChanges(const std::wstring& documentName)
{
    texts.push_back(documentName);
    return saveAnswer;
}

std::optional<std::wstring> RecordingPrompt::AskPassword(PasswordPurpose purpose)
{
    passwordPurposes.push_back(purpose);
    return password;
}

std::optional<std::wstring> RecordingPrompt::AskFile(const FileQuestion& question)
{
    fileQuestions.push_back(question);
    return path;
}

std::optional<std::wstring> RecordingPrompt::AskFolder(const FolderQuestion& question)
{
    folderQuestions.push_back(question);
    return path;
}

TestApplication::TestApplication()
    : framework(LoadFrameworkLibrary()), m_dataFolder("vantrel_data_dir", m_folder.Path()),
      m_userData(Platform::UserDataVariable, m_folder.Path())
{
    g_pApp = this;
}

TestApplication::~TestApplication()
{
    g_pApp = nullptr;
}

void TestApplication::LoadRuleModules(const std::vector<std::wstring>& names)
{
    for (const std::wstring& name : names)
    {
        m_modules.ConfigModulePaths().push_back(Platform::ToLower(TestModulePath(name)));
    }
    ModuleSet::Handles toFree;
    m_modules.LoadConfigModules(toFree);
    ModuleSet::FreeModules(toFree);
    for (const std::wstring& name : names)
    {
        if (const auto reset = TestModuleFunction<TestModuleResetFunction>(name, "TestModuleReset"))
        {
            reset();
        }
    }
}

void TestApplication::LoadDatabaseModules(const std::vector<std::wstring>& names)
{
    for (const std::wstring& name : names)
    {
        m_modules.DBModulePaths().push_back(Platform::ToLower(TestModulePath(name)));
    }
    ModuleSet::Handles toFree;
    m_modules.LoadDBModules(toFree);
    ModuleSet::FreeModules(toFree);
}

std::wstring TestModulePath(const std::wstring& name)
{
    return Platform::Utf8ToWide(VANTREL_TEST_MODULES_DIR) + Platform::PathSeparator + name + L".dll";
}

std::string CallsOf(const std::wstring& name)
{
    const auto calls = TestModuleFunction<TestModuleCallsFunction>(name, "TestModuleCalls");
    return calls != nullptr ? calls() : "not loaded";
}

int LiveRulesOf(const std::wstring& name)
{
    const auto count = TestModuleFunction<TestModuleLiveRulesFunction>(name, "TestModuleLiveRules");
    return count != nullptr ? count() : -1;
}
