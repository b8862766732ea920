#include "Modules/ModuleRegistration.h"

#include "Modules/IniFile.h"
#include "Modules/ModuleConfiguration.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Modules/ModuleSetFixture.h"
#include "tests/Support/ScopedLocale.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/VantrelLog.h>

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

namespace
{

using Platform::ToLower;
using testing::HasSubstr;
using testing::Not;

constexpr const wchar_t* Complete = L"TestModuleComplete";
constexpr const wchar_t* Second = L"TestModuleSecond";
constexpr const wchar_t* Database = L"TestDatabaseComplete";
const std::wstring Separator(1, Platform::PathSeparator);

/// Makes a folder the current one, and the former one again at the end.
class CurrentFolder
{
public:
    explicit CurrentFolder(const std::wstring& folder) { std::filesystem::current_path(Platform::NativePath(folder)); }
    ~CurrentFolder() { std::filesystem::current_path(m_before); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::filesystem::path m_before = std::filesystem::current_path();
};

class ModuleRegistrationTest : public ModuleSetFixture
{
protected:
    ModuleRegistrationTest() { CVantrelLog::OpenLogFile(m_folder.File(L"log")); }
    ~ModuleRegistrationTest() override { CVantrelLog::CloseLogFile(); }

    ModuleRegistration Register(const ModuleKind& kind = RuleModules)
    {
        const bool rules = &kind == &RuleModules;
        return { kind,
                 rules ? m_modules.ConfigModules() : m_modules.DBModules(),
                 rules ? m_modules.ConfigModulePaths() : m_modules.DBModulePaths(),
                 { m_config, m_programFolder },
                 m_prompt };
    }

    /// Copies a module for tests to where a test wants it, with the system's suffix.
    static void CopyModule(const std::wstring& name, const std::wstring& to) { CopyLibrary(TestModulePath(name), to); }
    static void CopyLibrary(const std::wstring& from, const std::wstring& to)
    {
        std::filesystem::copy_file(Platform::NativePath(from.substr(0, from.size() - 4) + Platform::LibrarySuffix),
                                   Platform::NativePath(to));
    }

    static std::wstring BrokenModule(const std::wstring& name)
    {
        return Platform::Utf8ToWide(VANTREL_THROWING_MODULE_DIR) + Separator + name + L".dll";
    }

    std::string Log() const { return ReadBytes(m_folder.File(L"log")); }
    std::string ModuleLine(int number, const std::wstring& name) const
    {
        return " module" + std::to_string(number) + "=" + Platform::ToCodePage(TestModulePath(name)) + "\n";
    }

    ScopedLocale m_locale{ "C.UTF-8" };
    std::wstring m_config = m_folder.File(L"ConfigModule.ini");
    std::wstring m_programFolder = m_folder.Path();
    RecordingPrompt m_prompt;
};

} // namespace

TEST_F(ModuleRegistrationTest, TheKindsHaveTheirDefaultsInAnOrderOfTheirOwn)
{
    EXPECT_THAT(RuleModules.defaultFiles,
                testing::ElementsAre(std::wstring(L"QoxMillRulesu.dll"), std::wstring(L"QoxTurnRulesu.dll"),
                                     std::wstring(L"QOXSMRulesu.dll"), std::wstring(L"QOXAssemblyRulesu.dll"),
                                     std::wstring(L"QOXCastingRulesu.dll"), std::wstring(L"QOXIMRulesu.dll"),
                                     std::wstring(L"QoxRPRulesu.dll"), std::wstring(L"QoxGenericRulesu.dll"),
                                     std::wstring(L"QOXDieCastRulesu.dll"), std::wstring(L"QOXTubingRulesu.dll"),
                                     std::wstring(L"QoxToleranceRulesu.dll")));
    EXPECT_THAT(DatabaseModules.defaultFiles, testing::ElementsAre(std::wstring(L"QoxSqliteDatabaseu.dll")));
    EXPECT_EQ(RuleModules.section, std::string("RULE_CONFIGURATION_MODULES"));
    EXPECT_EQ(DatabaseModules.section, std::string("RULE_DATABASE_MODULES"));
    EXPECT_EQ(static_cast<unsigned int>(RuleModules.helpTopic), 1020u);
    EXPECT_EQ(static_cast<unsigned int>(DatabaseModules.helpTopic), 1030u);
}

TEST_F(ModuleRegistrationTest, AModuleIsAddedByAPathInAnyCaseAndGoesInInLowerCase)
{
    Configure({ Complete });
    ModuleRegistration registration = Register();
    std::wstring typed = TestModulePath(Second);
    typed.replace(typed.size() - 4, 4, L".DLL");
    const Platform::LibraryHandle added = registration.Add(typed, std::nullopt);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(NamesOf(registration.Modules()), (Names{ Complete, Second }));
    EXPECT_EQ(registration.Modules().back(), added);
    EXPECT_EQ(Loaded(), Names{ Complete }) << "the program has it only after it is saved";
    EXPECT_THAT(Log(), HasSubstr("Configured new module :: " + Platform::ToCodePage(ToLower(typed))));
    EXPECT_TRUE(m_prompt.texts.empty());
    registration.Discard();
}

TEST_F(ModuleRegistrationTest, TheSystemsOwnLibrarySuffixWillDo)
{
    ModuleRegistration registration = Register();
    const std::wstring path = TestModulePath(Second);
    EXPECT_NE(registration.Add(path.substr(0, path.size() - 4) + Platform::LibrarySuffix, std::nullopt), nullptr);
    registration.Discard();
}

TEST_F(ModuleRegistrationTest, AddingAPathTwiceWithDifferentCaseTellsThatItIsConfigured)
{
    Configure({ Complete });
    ModuleRegistration registration = Register();
    std::wstring upper = TestModulePath(Complete);
    upper.replace(upper.size() - 22, 22, L"TESTMODULECOMPLETE.DLL");
    EXPECT_EQ(registration.Add(upper, std::nullopt), nullptr);
    EXPECT_EQ(registration.Modules().size(), 1u);
    ASSERT_EQ(m_prompt.texts.size(), 1u);
    EXPECT_EQ(m_prompt.kinds.front(), BoxKind::Error);
    const std::wstring lower = ToLower(upper);
    EXPECT_EQ(m_prompt.texts.front(), FormatText(TextId::ModuleConfiguredAlready, { lower }));
    EXPECT_THAT(Log(), HasSubstr("Tried to configure the module " + Platform::ToCodePage(lower) +
                                 ", which was already configured."));
}

TEST_F(ModuleRegistrationTest, TheSameFileByALinkIsConfiguredAlready)
{
    CopyModule(Complete, m_folder.File(L"real.so"));
    std::filesystem::create_symlink(Platform::NativePath(m_folder.File(L"real.so")),
                                    Platform::NativePath(m_folder.File(L"link.so")));
    ModuleRegistration registration = Register();
    EXPECT_NE(registration.Add(m_folder.File(L"real.dll"), std::nullopt), nullptr);
    EXPECT_EQ(registration.Add(m_folder.File(L"link.dll"), std::nullopt), nullptr);
    EXPECT_EQ(registration.Modules().size(), 1u);
    EXPECT_EQ(m_prompt.texts.size(), 1u);
    registration.Discard();
}

TEST_F(ModuleRegistrationTest, WhatIsNoLibraryFileIsAnInvalidFileWithoutALogLine)
{
    ASSERT_TRUE(Platform::MakeFolder(m_folder.File(L"folder.dll")));
    WriteBytes(m_folder.File(L"x.txt"), "text");
    ModuleRegistration registration = Register();
    const std::vector<std::wstring> paths = { m_folder.File(L"none.dll"),
                                              m_folder.File(L"folder.dll"),
                                              m_folder.File(L"x.txt"),
                                              m_folder.Path(),
                                              m_folder.File(std::wstring(400, L'x') + L".dll"),
                                              L" " };
    for (const std::wstring& path : paths)
    {
        EXPECT_EQ(registration.Add(path, std::nullopt), nullptr);
        EXPECT_EQ(m_prompt.texts.back(), FormatText(TextId::ModuleFileInvalid, { ToLower(path) }));
    }
    EXPECT_EQ(m_prompt.texts.size(), paths.size());
    EXPECT_THAT(Log(), Not(HasSubstr("Tried")));
    EXPECT_TRUE(registration.Modules().empty());
}

TEST_F(ModuleRegistrationTest, ATextFileNamedLikeALibraryIsAnInvalidModule)
{
    for (const wchar_t* const name : { L"text.dll", L"text.so" })
    {
        WriteBytes(m_folder.File(name), "this is no library");
        ModuleRegistration registration = Register();
        const std::wstring path = m_folder.File(L"text.dll");
        EXPECT_EQ(registration.Add(path, std::nullopt), nullptr);
        EXPECT_EQ(m_prompt.texts.back(), FormatText(TextId::ModuleInvalid, { ToLower(path) }));
        EXPECT_THAT(Log(), HasSubstr("Tried to configure invalid module " + Platform::ToCodePage(ToLower(path))));
    }
}

TEST_F(ModuleRegistrationTest, MessagesAndLogNameAPathWithTheSystemsOwnSuffixAsItWasTyped)
{
    const auto path = [this](const std::wstring& name) { return m_folder.File(name + Platform::LibrarySuffix); };
    const auto configuredPath = [this](const std::wstring& name) { return m_folder.File(name + L".dll"); };
    WriteBytes(path(L"text"), "this is no library");
    CopyModule(Complete, path(L"mine"));
    CopyModule(Second, path(L"a[b"));
    ModuleRegistration registration = Register();

    EXPECT_EQ(registration.Add(path(L"none"), std::nullopt), nullptr);
    EXPECT_EQ(registration.Add(path(L"text"), std::nullopt), nullptr);
    EXPECT_EQ(registration.Add(path(L"a[b"), std::nullopt), nullptr);
    const Platform::LibraryHandle added = registration.Add(path(L"mine"), std::nullopt);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(registration.Add(path(L"mine"), std::nullopt), nullptr);
    std::filesystem::create_symlink(Platform::NativePath(path(L"mine")), Platform::NativePath(path(L"link")));
    EXPECT_EQ(registration.Add(path(L"link"), std::nullopt), nullptr);
    EXPECT_EQ(m_prompt.texts, (std::vector{ FormatText(TextId::ModuleFileInvalid, { ToLower(path(L"none")) }),
                                            FormatText(TextId::ModuleInvalid, { ToLower(path(L"text")) }),
                                            FormatText(TextId::PathNotStorable, { ToLower(path(L"a[b")) }),
                                            FormatText(TextId::ModuleConfiguredAlready, { ToLower(path(L"mine")) }),
                                            FormatText(TextId::ModuleConfiguredAlready, { ToLower(path(L"link")) }) }));
    const std::string log = Log();
    const auto shown = [&](const std::wstring& name) { return Platform::ToCodePage(ToLower(path(name))); };
    EXPECT_THAT(log, HasSubstr("Tried to configure invalid module " + shown(L"text") + "\n"));
    EXPECT_THAT(log, HasSubstr("Configured new module :: " + shown(L"mine") + "\n"));
    for (const wchar_t* const name : { L"mine", L"link" })
    {
        EXPECT_THAT(log, HasSubstr("Tried to configure the module " + shown(name) + ", which was already configured."));
    }

    EXPECT_EQ(ModuleRegistration::PathOf(added), configuredPath(L"mine")) << "what is stored";
    EXPECT_TRUE(registration.Save());
    EXPECT_THAT(ReadBytes(m_config), HasSubstr("=" + Platform::ToCodePage(configuredPath(L"mine")) + "\n"));
    Platform::ReleaseLibrary(added); // the load of the registration
}

TEST_F(ModuleRegistrationTest, ANameWithoutAFolderMeansTheFileInTheCurrentFolder)
{
    CopyModule(Complete, m_folder.File(L"mine.so"));
    const CurrentFolder current(m_folder.Path());
    ModuleRegistration registration = Register();
    const Platform::LibraryHandle added = registration.Add(L"Mine.dll", std::nullopt);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(ModuleRegistration::PathOf(added), m_folder.File(L"mine.dll"));
    EXPECT_EQ(registration.Add(L"mine.dll", std::nullopt), nullptr);
    EXPECT_EQ(m_prompt.texts, std::vector{ FormatText(TextId::ModuleConfiguredAlready, { L"mine.dll" }) });
    registration.Discard();
}

TEST_F(ModuleRegistrationTest, ANameWithoutAFolderIsRefusedInAFolderThatTheConfigurationFileCanNotHold)
{
    const std::wstring folder = m_folder.File(L"plug [in]");
    ASSERT_TRUE(Platform::MakeFolder(folder));
    CopyModule(Complete, folder + Separator + L"mine.so");
    const CurrentFolder current(folder);
    ModuleRegistration registration = Register();
    EXPECT_EQ(registration.Add(L"mine.dll", std::nullopt), nullptr);
    EXPECT_EQ(m_prompt.texts, std::vector{ FormatText(TextId::PathNotStorable, { L"mine.dll" }) });
}

TEST_F(ModuleRegistrationTest, ANameWithTheSuffixInItsMiddleIsTreatedAsALibrary)
{
    CopyModule(Complete, m_folder.File(L"a.dll.txt"));
    WriteBytes(m_folder.File(L"b.dll.txt"), "text");
    ModuleRegistration registration = Register();
    EXPECT_NE(registration.Add(m_folder.File(L"a.dll.txt"), std::nullopt), nullptr);
    EXPECT_EQ(registration.Add(m_folder.File(L"b.dll.txt"), std::nullopt), nullptr);
    EXPECT_EQ(m_prompt.texts.back(), FormatText(TextId::ModuleInvalid, { ToLower(m_folder.File(L"b.dll.txt")) }));
    registration.Discard();
}

TEST_F(ModuleRegistrationTest, AModuleOfTheOtherKindOrWithoutARequiredExportIsInvalidAndLeavesNoTrace)
{
    ModuleRegistration rules = Register();
    for (const wchar_t* const name : { Database, L"TestModuleNoGetAllRules", L"TestModuleNoGetRule",
                                       L"TestModuleNoSetXMLDoc", L"TestModuleNoSetDBModuleList", L"TestModuleEmpty" })
    {
        EXPECT_EQ(rules.Add(TestModulePath(name), std::nullopt), nullptr);
        EXPECT_EQ(HandleOf(name), nullptr) << "released at once";
    }
    EXPECT_EQ(m_prompt.texts.size(), 6u);
    ModuleRegistration databases = Register(DatabaseModules);
    EXPECT_EQ(databases.Add(TestModulePath(Complete), std::nullopt), nullptr);
    EXPECT_EQ(databases.Add(TestModulePath(L"TestDatabaseNoDelete"), std::nullopt), nullptr);
    EXPECT_NE(databases.Add(TestModulePath(Database), std::nullopt), nullptr);
    EXPECT_EQ(m_prompt.texts.size(), 8u);
    databases.Discard();
}

TEST_F(ModuleRegistrationTest, ALibraryThatDoesHarmAsItIsLoadedIsAnInvalidModuleAndTheProgramGoesOn)
{
    ModuleRegistration registration = Register();
    for (const wchar_t* const name :
         { L"ModuleThatAborts", L"ModuleThatCrashes", L"ModuleThatExits", L"ModuleThatLeaves", L"ModuleThatThrows" })
    {
        // In another process: one that is ended with success would seem to have passed.
        constexpr int Refused = 42;
        const std::vector told = { FormatText(TextId::ModuleInvalid, { ToLower(BrokenModule(name)) }) };
        EXPECT_EXIT(
            {
                const auto* const added = registration.Add(BrokenModule(name), std::nullopt);
                std::_Exit(added == nullptr && m_prompt.texts == told ? Refused : 1);
            },
            testing::ExitedWithCode(Refused), "")
            << name;
    }
}

TEST_F(ModuleRegistrationTest, WhateverIsRefusedTheConfigurationFileStaysAsItIs)
{
    Configure({ Complete });
    const std::string before = " [RULE_CONFIGURATION_MODULES]\n" + ModuleLine(1, Complete);
    WriteBytes(m_config, before);
    WriteBytes(m_folder.File(L"text.dll"), "this is no library");
    ASSERT_TRUE(Platform::MakeFolder(m_folder.File(L"folder.dll")));
    const std::vector<std::pair<std::wstring, TextId>> paths = {
        { BrokenModule(L"ModuleThatCrashes"), TextId::ModuleInvalid },
        { m_folder.File(L"text.dll"), TextId::ModuleInvalid },
        { m_folder.File(std::wstring(400, L'x') + L".dll"), TextId::ModuleFileInvalid },
        { m_folder.File(L"folder.dll"), TextId::ModuleFileInvalid },
        { m_folder.Path(), TextId::ModuleFileInvalid },
        { TestModulePath(Database), TextId::ModuleInvalid },
    };
    {
        ModuleRegistration registration = Register();
        for (const auto& [path, message] : paths)
        {
            EXPECT_EQ(registration.Add(path, std::nullopt), nullptr);
            EXPECT_EQ(m_prompt.texts.back(), FormatText(message, { ToLower(path) }));
        }
        EXPECT_EQ(m_prompt.kinds, std::vector(paths.size(), BoxKind::Error));
        EXPECT_EQ(ReadBytes(m_config), before);
        EXPECT_TRUE(registration.Save()) << "with the modules that it had";
    }
    EXPECT_EQ(ReadBytes(m_config), before);
    EXPECT_EQ(Loaded(), Names{ Complete });
}

TEST_F(ModuleRegistrationTest, AModuleAtAPathOfMoreThan400CharactersIsAddedAndSavedWhole)
{
    std::wstring folder = m_folder.Path();
    while (folder.size() < 400)
    {
        folder += Separator + std::wstring(100, L'x');
        ASSERT_TRUE(Platform::MakeFolder(folder));
    }
    CopyModule(Complete, folder + Separator + L"far.so");
    ModuleRegistration registration = Register();
    ASSERT_NE(registration.Add(folder + Separator + L"far.dll", std::nullopt), nullptr);
    EXPECT_TRUE(m_prompt.texts.empty());
    EXPECT_TRUE(registration.Save());
    EXPECT_EQ(ReadBytes(m_config), " [RULE_CONFIGURATION_MODULES]\n module1=" +
                                       Platform::WideToUtf8(folder + Separator + L"far.dll") + "\n");
    Platform::ReleaseLibrary(registration.Modules().back()); // the load of the registration
}

TEST_F(ModuleRegistrationTest, APathThatTheConfigurationFileCanNotHoldIsRefused)
{
    ModuleRegistration registration = Register();
    for (const wchar_t* const name : { L"a[b.dll", L"a%b.dll" })
    {
        std::wstring file = name;
        file.replace(file.size() - 4, 4, Platform::LibrarySuffix);
        CopyModule(Complete, m_folder.File(file));
        EXPECT_EQ(registration.Add(m_folder.File(name), std::nullopt), nullptr);
        EXPECT_EQ(m_prompt.texts.back(), FormatText(TextId::PathNotStorable, { ToLower(m_folder.File(name)) }));
    }
    EXPECT_TRUE(registration.Modules().empty());
}

TEST_F(ModuleRegistrationTest, AModuleInAFolderWithAnyLettersIsAdded)
{
    const std::wstring folder = m_folder.File(L"R\u00E8gles \u898F\u5247 \u0416");
    ASSERT_TRUE(Platform::MakeFolder(folder));
    CopyModule(Complete, folder + Separator + L"M\u00F6del.so");
    ModuleRegistration registration = Register();
    ASSERT_NE(registration.Add(folder + Separator + L"M\u00D6DEL.DLL", std::nullopt), nullptr);
    EXPECT_TRUE(registration.Save());
    EXPECT_THAT(ReadBytes(m_config), HasSubstr(Platform::WideToUtf8(folder + Separator + L"M\u00F6del.dll")));
    m_modules.LoadConfigModules(m_toFree);
    EXPECT_EQ(Loaded(), Names{ L"M\u00F6del" });
    ModuleSet::FreeModules(m_toFree);
    Platform::ReleaseLibrary(registration.Modules().back()); // the load of the registration
}

TEST_F(ModuleRegistrationTest, DefaultModulesAreOfferedByNameIfTheyLoadAndHaveOne)
{
    CopyModule(Second, m_folder.File(L"QoxTurnRulesu.so"));
    CopyModule(Complete, m_folder.File(L"QoxMillRulesu.so"));
    CopyModule(L"TestModuleNoName", m_folder.File(L"QoxRPRulesu.so"));
    WriteBytes(m_folder.File(L"QOXIMRulesu.so"), "no library");
    CopyLibrary(BrokenModule(L"ModuleThatCrashes"), m_folder.File(L"QOXSMRulesu.so"));
    ModuleRegistration registration = Register();
    EXPECT_EQ(registration.DefaultNames(),
              (std::vector<std::wstring>{ L"Complete Test Module", L"Second Test Module" }));
    EXPECT_NE(Platform::FindLoadedLibrary(m_folder.File(L"QoxMillRulesu.dll")), nullptr) << "it stays loaded";
}

TEST_F(ModuleRegistrationTest, WithAnEmptyFieldTheChosenDefaultModuleIsAdded)
{
    CopyModule(Complete, m_folder.File(L"QoxMillRulesu.so"));
    CopyModule(Second, m_folder.File(L"QoxTurnRulesu.so"));
    ModuleRegistration registration = Register();
    const Platform::LibraryHandle added = registration.Add(L"", L"SECOND test module");
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(ModuleRegistration::PathOf(added), m_folder.File(L"QoxTurnRulesu.dll"));
    EXPECT_EQ(registration.Add(L"", std::nullopt), nullptr);
    EXPECT_TRUE(m_prompt.texts.empty());
    registration.Discard();
}

TEST_F(ModuleRegistrationTest, ADefaultNameThatNoModuleHasAnyMoreIsAnInvalidFile)
{
    CopyModule(Complete, m_folder.File(L"QoxMillRulesu.so"));
    ModuleRegistration registration = Register();
    EXPECT_EQ(registration.Add(L"", L"Third"), nullptr);
    EXPECT_EQ(m_prompt.texts, std::vector{ FormatText(TextId::ModuleFileInvalid, { L"" }) });
}

TEST_F(ModuleRegistrationTest, ADefaultModuleWithoutANameEndsTheSearch)
{
    CopyModule(L"TestModuleNoName", m_folder.File(L"QoxMillRulesu.so"));
    CopyModule(Second, m_folder.File(L"QoxTurnRulesu.so"));
    ModuleRegistration registration = Register();
    EXPECT_EQ(registration.Add(L"", L"Second Test Module"), nullptr);
    EXPECT_TRUE(m_prompt.texts.empty());
}

TEST_F(ModuleRegistrationTest, DiscardingReleasesWhatWasAddedAndBringsBackWhatWasRemoved)
{
    Configure({ Complete });
    ModuleRegistration registration = Register();
    registration.Add(TestModulePath(Second), std::nullopt);
    registration.Remove(HandleOf(Complete));
    EXPECT_EQ(NamesOf(registration.Modules()), Names{ Second });
    registration.Discard();
    EXPECT_EQ(NamesOf(registration.Modules()), Names{ Complete });
    EXPECT_EQ(HandleOf(Second), nullptr);
    EXPECT_NE(HandleOf(Complete), nullptr);
}

TEST_F(ModuleRegistrationTest, WhatWasAddedAndRemovedAgainIsReleasedToo)
{
    ModuleRegistration registration = Register();
    registration.Remove(registration.Add(TestModulePath(Second), std::nullopt));
    EXPECT_NE(HandleOf(Second), nullptr) << "removing doesn't release";
    registration.Discard();
    EXPECT_EQ(HandleOf(Second), nullptr);
}

TEST_F(ModuleRegistrationTest, AModuleOfTheProgramThatWasRemovedAndAddedStaysItsOwnAfterDiscarding)
{
    Configure({ Complete });
    ModuleRegistration registration = Register();
    registration.Remove(HandleOf(Complete));
    EXPECT_NE(registration.Add(TestModulePath(Complete), std::nullopt), nullptr);
    registration.Discard();
    EXPECT_NE(HandleOf(Complete), nullptr);
    Configure({});
    ModuleSet::FreeModules(m_toFree);
    EXPECT_EQ(HandleOf(Complete), nullptr) << "one load was the program's, and no other is left";
}

TEST_F(ModuleRegistrationTest, SavingRewritesTheSectionWithoutAGapAndTheListInLowerCase)
{
    WriteBytes(m_config, " [RULE_CONFIGURATION_MODULES]\n module1=/a.dll\n module12=/tube.dll\n"
                         " [RULE_DATABASE_MODULES]\n module1=/db.dll\n");
    Configure({ Complete });
    ModuleRegistration registration = Register();
    registration.Add(TestModulePath(Second), std::nullopt);
    EXPECT_TRUE(registration.Save());
    EXPECT_EQ(ReadBytes(m_config), " [RULE_DATABASE_MODULES]\n module1=/db.dll\n [RULE_CONFIGURATION_MODULES]\n" +
                                       ModuleLine(1, Complete) + ModuleLine(2, Second));
    EXPECT_EQ(m_modules.ConfigModulePaths(),
              (ModuleSet::Paths{ ToLower(TestModulePath(Complete)), ToLower(TestModulePath(Second)) }));

    m_modules.LoadConfigModules(m_toFree);
    EXPECT_EQ(Loaded(), (Names{ Complete, Second }));
    EXPECT_EQ(m_modules.ConfigModules().back(), registration.Modules().back()) << "no second copy";
    Platform::ReleaseLibrary(registration.Modules().back()); // the load of the registration
}

TEST_F(ModuleRegistrationTest, RemovingAllModulesWritesAnEmptySectionAndTheNextStartBringsTheDefaultsBack)
{
    Configure({ Complete });
    ModuleRegistration registration = Register();
    registration.Remove(HandleOf(Complete));
    EXPECT_TRUE(registration.Save());
    EXPECT_EQ(ReadBytes(m_config), " [RULE_CONFIGURATION_MODULES]\n");
    EXPECT_TRUE(m_modules.ConfigModulePaths().empty());

    std::list<std::wstring> next;
    ModuleConfiguration(m_config, L"/program", [](const std::wstring&) { return std::nullopt; })
        .GetConfiguredModules(RuleModuleSection, next);
    EXPECT_EQ(next.size(), 9u);
}

TEST_F(ModuleRegistrationTest, DatabaseModulesHaveTheirOwnSectionAndList)
{
    ModuleRegistration registration = Register(DatabaseModules);
    registration.Add(TestModulePath(Database), std::nullopt);
    EXPECT_TRUE(registration.Save());
    EXPECT_EQ(ReadBytes(m_config), " [RULE_DATABASE_MODULES]\n" + ModuleLine(1, Database));
    EXPECT_EQ(m_modules.DBModulePaths(), ModuleSet::Paths{ ToLower(TestModulePath(Database)) });
    EXPECT_TRUE(m_modules.ConfigModulePaths().empty());
    Platform::ReleaseLibrary(registration.Modules().back());
}

TEST_F(ModuleRegistrationTest, AConfigurationFileThatCanNotBeReadStaysAndTheProgramGoesOnWithTheNewList)
{
    WriteBytes(m_config, "[open\n");
    Configure({ Complete });
    ModuleRegistration registration = Register();
    registration.Remove(HandleOf(Complete));
    EXPECT_FALSE(registration.Save());
    EXPECT_EQ(ReadBytes(m_config), "[open\n");
    EXPECT_TRUE(m_modules.ConfigModulePaths().empty());
    EXPECT_TRUE(m_prompt.texts.empty());
    EXPECT_THAT(Log(), HasSubstr("could not be written"));
}

TEST_F(ModuleRegistrationTest, AModuleWhosePathCouldNotBeReadBackLeavesTheConfigurationFileAlone)
{
    const std::wstring folder = m_folder.File(L"plug [in]");
    ASSERT_TRUE(Platform::MakeFolder(folder));
    const std::wstring path = folder + Separator + L"mine.dll";
    CopyModule(Second, folder + Separator + L"mine.so");
    const std::string before = "[RULE_CONFIGURATION_MODULES]\nmodule1=%PLUG%/mine.dll\n";
    WriteBytes(m_config, before);
    m_modules.ConfigModulePaths() = { path };
    m_modules.LoadConfigModules(m_toFree);
    ModuleRegistration registration = Register();
    ASSERT_NE(registration.Add(TestModulePath(Complete), std::nullopt), nullptr);
    EXPECT_FALSE(registration.Save());
    EXPECT_EQ(ReadBytes(m_config), before);
    EXPECT_THAT(Log(), HasSubstr("could not be written"));
    ModuleSet::FreeModules(m_toFree);
    Platform::ReleaseLibrary(registration.Modules().back()); // the load of the registration
}

TEST_F(ModuleRegistrationTest, ALibraryThatIsConfiguredTwiceGoesOnce)
{
    Configure({ Complete, Complete });
    ModuleRegistration registration = Register();
    ASSERT_EQ(registration.Modules().size(), 2u);
    registration.Remove(HandleOf(Complete));
    EXPECT_EQ(registration.Modules().size(), 1u);
}

TEST_F(ModuleRegistrationTest, AModuleTellsItsNameAndItsWrappedSummary)
{
    Configure({ Complete, L"TestModuleNoName" });
    EXPECT_EQ(ModuleRegistration::NameOf(HandleOf(Complete)), L"Complete Test Module");
    EXPECT_EQ(ModuleRegistration::NameOf(HandleOf(L"TestModuleNoName")), std::nullopt);
    EXPECT_EQ(ModuleRegistration::SummaryOf(HandleOf(Complete)), L"Summary of TestModuleComplete\r\n");
    EXPECT_EQ(ModuleRegistration::PathOf(HandleOf(Complete)), TestModulePath(Complete));
    ConfigureDatabases({ Database });
    EXPECT_EQ(ModuleRegistration::SummaryOf(HandleOf(Database)), L"Module Summary\r\n") << "without an export";
}

TEST_F(ModuleRegistrationTest, TheEndIsLoggedAndReleasesWhatWasNeverSaved)
{
    {
        ModuleRegistration registration = Register();
        EXPECT_NE(registration.Add(TestModulePath(Second), std::nullopt), nullptr);
    }
    EXPECT_EQ(HandleOf(Second), nullptr);
    EXPECT_THAT(Log(), HasSubstr("Rule Register Dialog Uninitialized"));
}

TEST(WrapModuleSummaryTest, LinesAreBrokenAtTheirLastBlankWhichStaysAtTheEnd)
{
    EXPECT_EQ(WrapModuleSummary(L"one two three", 8), L"one two \r\nthree\r\n");
    EXPECT_EQ(WrapModuleSummary(L"one two", 7), L"one two\r\n");
    EXPECT_EQ(WrapModuleSummary(L"one two", 4), L"one \r\ntwo\r\n");
}

TEST(WrapModuleSummaryTest, ALineWithoutABlankIsBrokenWhereItIsFull)
{
    EXPECT_EQ(WrapModuleSummary(L"abcdefgh", 3), L"abc\r\ndef\r\ngh\r\n");
    EXPECT_EQ(WrapModuleSummary(L" abcdef", 3), L" \r\nabc\r\ndef\r\n");
}

TEST(WrapModuleSummaryTest, NothingGivesNothing)
{
    EXPECT_EQ(WrapModuleSummary(L"", 40), L"");
}
