#include "Authoring/ScriptLocation.h"

#include "Modules/ScriptDirectory.h"
#include "Platform/Environment.h"
#include "Platform/Files.h"
#include "Platform/Registry.h"
#include "Platform/Text.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/ScopedLocale.h"
#include "tests/Support/TestFiles.h"
#include "Utilities/Texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::HasSubstr;

constexpr const wchar_t* MachineKey = L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment";
const std::wstring NotWritable = L"/proc/self"; // as on a disk that can only be read
const std::wstring MissingDrive = L"Z:\\missing drive";

class ScriptLocationTest : public testing::Test
{
protected:
    // Whether rule files are open.
    static bool None() { return false; }
    static bool Some() { return true; }

    ScriptLocationTest()
    {
        for (const wchar_t* const name : { L"scripts", L"other", L"database" })
        {
            Platform::MakeFolder(folder.File(name));
        }
    }

    bool MayWriteMachine() const
    {
        return Platform::MayWriteRegistryKey(Platform::RegistryRoot::LocalMachine, L"SOFTWARE");
    }

    std::optional<std::wstring> StoredDatabaseFolder() const
    {
        return Platform::ReadRegistryText(Platform::RegistryRoot::LocalMachine, MachineKey, DatabaseFolderVariable);
    }

    /// Runs the command; the user ends the dialog with OK and these folders.
    void Change(const std::wstring& scripts, const std::wstring& database)
    {
        ChangeScriptLocation(
            config,
            [&](std::wstring& scriptFolder, std::wstring& databaseFolder)
            {
                shown = scriptFolder;
                scriptFolder = scripts;
                databaseFolder = database;
                return true;
            },
            prompt);
    }

    std::wstring Configured() const
    {
        std::wstring path;
        GetScriptDirectory(config, path);
        return path;
    }

    ScopedLocale locale{ "C.UTF-8" }; // as users have one, with all letters
    TemporaryFolder folder;
    ScopedEnvironment settings{ "XDG_CONFIG_HOME", folder.File(L"settings") };
    ScopedEnvironment variable{ "VANTREL_DATABASE_DIR", folder.File(L"database") };
    RecordingPrompt prompt;
    std::wstring config = folder.File(L"ConfigModule.ini");
    std::wstring script = folder.File(L"scripts");
    std::wstring shown;
};

} // namespace

TEST_F(ScriptLocationTest, TheBoxesShowTheScriptFolderAndTheVariable)
{
    const ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.ScriptFolder(), script);
    EXPECT_EQ(location.DatabaseFolder(), folder.File(L"database"));
}

TEST_F(ScriptLocationTest, WithoutTheVariableTheDatabaseBoxIsEmpty)
{
    Platform::SetProcessVariable(DatabaseFolderVariable, std::nullopt);
    EXPECT_EQ(ScriptLocation(script, None, prompt).DatabaseFolder(), L"");
}

TEST_F(ScriptLocationTest, UnchangedBoxesAreTakenWithoutATest)
{
    script = L"no path";
    ScriptLocation location(script, Some, prompt);
    EXPECT_EQ(location.Accept(L"no path", location.DatabaseFolder()), ScriptLocation::Refused::Nothing);
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(ScriptLocationTest, AChangeOfOnlyTheCaseDoesNothing)
{
    const std::wstring before = script;
    std::wstring upper = script;
    upper.replace(upper.size() - 7, 7, L"SCRIPTS");
    ScriptLocation location(script, Some, prompt);
    EXPECT_EQ(location.Accept(upper, location.DatabaseFolder()), ScriptLocation::Refused::Nothing);
    EXPECT_EQ(script, before);
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(ScriptLocationTest, ANewFolderIsMadeOnYesAndTakenAlsoWhileADocumentIsOpen)
{
    prompt.answer = true;
    ScriptLocation location(script, Some, prompt);
    const std::wstring wanted = folder.File(L"R\u00E8gles \u898F\u5247");
    EXPECT_EQ(location.Accept(wanted, location.DatabaseFolder()), ScriptLocation::Refused::Nothing);
    EXPECT_EQ(script, wanted);
    EXPECT_TRUE(Platform::FolderExists(wanted));
    ASSERT_EQ(prompt.texts.size(), 2u) << "the question, and the warning about the open document";
    EXPECT_EQ(prompt.kinds.back(), BoxKind::Warning);
}

TEST_F(ScriptLocationTest, WithoutAnOpenDocumentNothingIsWarnedOf)
{
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(folder.File(L"other"), location.DatabaseFolder()), ScriptLocation::Refused::Nothing);
    EXPECT_EQ(script, folder.File(L"other"));
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(ScriptLocationTest, ADocumentThatIsOpenedWhileTheUserThinksIsWarnedOfToo)
{
    bool open = false;
    ScriptLocation location(
        script, [&open] { return open; }, prompt);
    open = true;
    EXPECT_EQ(location.Accept(folder.File(L"other"), location.DatabaseFolder()), ScriptLocation::Refused::Nothing);
    EXPECT_EQ(prompt.kinds, std::vector{ BoxKind::Warning });
}

TEST_F(ScriptLocationTest, AFolderThatCanNotBeWrittenToIsTakenAfterAWarning)
{
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(NotWritable, NotWritable), ScriptLocation::Refused::Nothing);
    EXPECT_EQ(script, NotWritable);
    EXPECT_EQ(location.DatabaseFolder(), NotWritable);
    EXPECT_EQ(prompt.kinds, (std::vector{ BoxKind::Warning, BoxKind::Warning }));
}

TEST_F(ScriptLocationTest, ARefusedScriptFolderLeavesTheDatabaseBoxUntested)
{
    const std::wstring before = script;
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(folder.File(L"none"), L"no path"), ScriptLocation::Refused::ScriptFolder);
    EXPECT_EQ(script, before);
    EXPECT_EQ(prompt.texts.size(), 1u);
    EXPECT_EQ(location.Accept(L"no path", L"no path"), ScriptLocation::Refused::ScriptFolder);
    EXPECT_EQ(script, before);
}

TEST_F(ScriptLocationTest, AnInvalidDatabaseFolderIsRefusedAndTheOldOneStays)
{
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(script, L""), ScriptLocation::Refused::DatabaseFolder);
    EXPECT_EQ(location.Accept(script, L"Z:\\missing drive"), ScriptLocation::Refused::DatabaseFolder);
    EXPECT_EQ(location.DatabaseFolder(), folder.File(L"database"));
    EXPECT_EQ(prompt.kinds, (std::vector{ BoxKind::Error, BoxKind::Error }));
}

TEST_F(ScriptLocationTest, AScriptFolderThatWasTakenStaysTakenWhenTheDatabaseFolderIsRefused)
{
    ScriptLocation location(script, Some, prompt);
    EXPECT_EQ(location.Accept(folder.File(L"other"), L"no path"), ScriptLocation::Refused::DatabaseFolder);
    EXPECT_EQ(script, folder.File(L"other"));
    prompt.texts.clear();
    EXPECT_EQ(location.Accept(folder.File(L"other"), folder.File(L"database")), ScriptLocation::Refused::Nothing);
    EXPECT_EQ(prompt.texts.size(), 1u) << "the change is warned of once all is taken";
}

TEST_F(ScriptLocationTest, ABrowsedDatabaseFolderIsNotTestedAgain)
{
    ScriptLocation location(script, None, prompt);
    location.TakeBrowsedDatabaseFolder(L"somewhere");
    EXPECT_EQ(location.Accept(script, L"somewhere"), ScriptLocation::Refused::Nothing);
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(ScriptLocationTest, APathThatWouldDamageTheConfigurationFileIsRefused)
{
    prompt.answer = true;
    ScriptLocation location(script, None, prompt);
    for (const wchar_t* const name : { L"[open", L"a[b]c", L"blank at end ", L"line\nend" })
    {
        EXPECT_EQ(location.Accept(folder.File(name), location.DatabaseFolder()), ScriptLocation::Refused::ScriptFolder);
        EXPECT_FALSE(Platform::PathExists(folder.File(name)));
    }
    EXPECT_EQ(prompt.texts.size(), 4u);
}

TEST_F(ScriptLocationTest, ALetterThatTheCodePageLacksIsRefused)
{
    const ScopedLocale narrow("C");
    prompt.answer = true;
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(folder.File(L"\u898F\u5247"), location.DatabaseFolder()),
              ScriptLocation::Refused::ScriptFolder);
    EXPECT_EQ(prompt.kinds, std::vector{ BoxKind::Error }) << "it is not even asked about";
}

TEST_F(ScriptLocationTest, AScriptFolderOnAMissingDriveIsNoFullPathHereAndRefused)
{
    const std::wstring before = script;
    prompt.answer = true;
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(MissingDrive, location.DatabaseFolder()), ScriptLocation::Refused::ScriptFolder);
    EXPECT_EQ(script, before);
    ASSERT_EQ(prompt.texts.size(), 1u);
    EXPECT_EQ(prompt.kinds.front(), BoxKind::Error);
    EXPECT_EQ(prompt.texts.front(), FormatText(TextId::FolderPathInvalid, { MissingDrive }));
}

TEST_F(ScriptLocationTest, WhateverFolderIsNamedTheConfigurationFileStaysWhole)
{
    // The section that comes first is some other part's, and stays as it is.
    const std::string modules = " [RULE_CONFIGURATION_MODULES]\n module1=/a.dll\n";
    const auto file = [&modules](const std::wstring& path)
    { return modules + " [RULE_SCRIPT_LOCATION]\n directory=" + Platform::WideToUtf8(path) + "\n"; };
    WriteBytes(config, file(script));
    prompt.answer = true;
    const auto choose = [this](const std::wstring& wanted)
    {
        ChangeScriptLocation(
            config,
            [&](std::wstring& scriptFolder, std::wstring& databaseFolder)
            {
                ScriptLocation location(scriptFolder, None, prompt);
                databaseFolder = location.DatabaseFolder();
                return location.Accept(wanted, databaseFolder) == ScriptLocation::Refused::Nothing;
            },
            prompt);
    };
    for (const std::wstring& refused :
         { MissingDrive, folder.File(std::wstring(400, L'x')), std::wstring(), folder.File(L"a[b") })
    {
        choose(refused);
        EXPECT_EQ(ReadBytes(config), file(script));
    }
    const std::wstring letters = folder.File(L"R\u00E8gles \u898F\u5247");
    for (const std::wstring& taken : { letters, NotWritable })
    {
        choose(taken);
        EXPECT_EQ(ReadBytes(config), file(taken));
    }
    EXPECT_EQ(prompt.texts.back(), FormatText(TextId::FolderNotWritable, { NotWritable }));
}

TEST_F(ScriptLocationTest, APathOf400CharactersIsAskedAboutAndCanNotBeMade)
{
    prompt.answer = true;
    ScriptLocation location(script, None, prompt);
    EXPECT_EQ(location.Accept(folder.File(std::wstring(400, L'x')), location.DatabaseFolder()),
              ScriptLocation::Refused::ScriptFolder);
    EXPECT_EQ(prompt.kinds, (std::vector{ BoxKind::Warning, BoxKind::Error }));
}

TEST_F(ScriptLocationTest, TheDatabaseFolderIsStoredForTheMachineAndSetForTheProgramByAnAdministrator)
{
    const std::wstring wanted = folder.File(L"other");
    ApplyDatabaseDirectory(wanted, prompt);
    if (MayWriteMachine())
    {
        EXPECT_EQ(StoredDatabaseFolder(), wanted);
        EXPECT_EQ(Platform::EnvironmentVariable(DatabaseFolderVariable), wanted);
        EXPECT_TRUE(prompt.texts.empty());
    }
    else
    {
        EXPECT_EQ(StoredDatabaseFolder(), std::nullopt);
        EXPECT_EQ(Platform::EnvironmentVariable(DatabaseFolderVariable), folder.File(L"database"));
        EXPECT_EQ(prompt.kinds, std::vector{ BoxKind::Error });
    }
}

TEST_F(ScriptLocationTest, ADatabaseFolderThatDiffersOnlyInCaseIsLeftAlone)
{
    std::wstring upper = folder.File(L"database");
    upper.replace(upper.size() - 8, 8, L"DATABASE");
    ApplyDatabaseDirectory(upper, prompt);
    EXPECT_EQ(StoredDatabaseFolder(), std::nullopt);
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(ScriptLocationTest, TheCommandStartsFromTheConfiguredFolderAndStoresTheNewOne)
{
    Change(folder.File(L"other"), folder.File(L"database"));
    EXPECT_EQ(shown, folder.File(L"ScriptDir")) << "the default";
    EXPECT_EQ(Configured(), folder.File(L"other"));
    Change(folder.File(L"OTHER"), folder.File(L"database"));
    EXPECT_EQ(Configured(), folder.File(L"OTHER")) << "what is stored is compared with its case";
    EXPECT_TRUE(prompt.texts.empty());
}

TEST_F(ScriptLocationTest, TheCommandStoresTheDatabaseFolderTooAndTheScriptFolderWhateverBecomesOfIt)
{
    Change(folder.File(L"other"), folder.File(L"scripts"));
    const bool mayWrite = MayWriteMachine();
    EXPECT_EQ(StoredDatabaseFolder(), mayWrite ? std::optional(folder.File(L"scripts")) : std::nullopt);
    EXPECT_EQ(prompt.kinds, mayWrite ? std::vector<BoxKind>() : std::vector{ BoxKind::Error });
    EXPECT_EQ(Configured(), folder.File(L"other"));
}

TEST_F(ScriptLocationTest, OnCancelNothingIsStored)
{
    WriteBytes(config, " [RULE_SCRIPT_LOCATION]\n directory=" + Platform::ToCodePage(script) + "\n");
    const std::string before = ReadBytes(config);
    ChangeScriptLocation(
        config,
        [](std::wstring& scriptFolder, std::wstring& databaseFolder)
        {
            scriptFolder = L"/changed";
            databaseFolder = L"/changed";
            return false;
        },
        prompt);
    EXPECT_EQ(ReadBytes(config), before);
    EXPECT_EQ(Platform::EnvironmentVariable(DatabaseFolderVariable), folder.File(L"database"));
}

TEST_F(ScriptLocationTest, AConfigurationFileThatCanNotBeReadStaysAsItIsAndTheUserIsTold)
{
    WriteBytes(config, "[open\n");
    Change(folder.File(L"other"), folder.File(L"database"));
    EXPECT_EQ(ReadBytes(config), "[open\n");
    ASSERT_EQ(prompt.texts.size(), 1u);
    EXPECT_THAT(prompt.texts.front(), HasSubstr(folder.File(L"other")));
}
