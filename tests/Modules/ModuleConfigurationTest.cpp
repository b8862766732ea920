#include "Modules/ModuleConfiguration.h"

#include "Platform/Files.h"
#include "Platform/Library.h"
#include "Platform/Process.h"
#include "tests/Modules/IniFileFixture.h"
#include "tests/Support/ScopedEnvironment.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

const std::wstring Separator(1, Platform::PathSeparator);

class ModuleConfigurationTest : public IniFileFixture
{
protected:
    ModuleConfiguration Configuration() const
    {
        return { m_path, m_programFolder,
                 [this](const std::wstring& name) -> std::optional<std::wstring>
                 {
                     const auto found = m_environment.find(name);
                     return found == m_environment.end() ? std::nullopt : std::optional(found->second);
                 } };
    }

    std::list<std::wstring> Configured(const std::string& section) const
    {
        std::list<std::wstring> modules = { L"left over" };
        Configuration().GetConfiguredModules(section, modules);
        return modules;
    }

    /// The list for a file whose `module1` has this value.
    std::list<std::wstring> ConfiguredAs(const std::string& value) const
    {
        Write("[RULE_CONFIGURATION_MODULES]\nmodule1=" + value + "\n");
        return Configured(RuleModuleSection);
    }

    std::string Default(const std::string& fileName) const
    {
        return Platform::ToCodePage(m_programFolder + Separator) + fileName;
    }

    std::string DefaultRuleModules() const
    {
        return " [RULE_CONFIGURATION_MODULES]\n"
               " module1=" +
               Default("QoxMillRulesu.dll") +
               "\n"
               " module2=" +
               Default("QoxTurnRulesu.dll") +
               "\n"
               " module3=" +
               Default("QoxSMRulesu.dll") +
               "\n"
               " module4=" +
               Default("QOXIMRulesu.dll") +
               "\n"
               " module5=" +
               Default("QOXAssemblyRulesu.dll") +
               "\n"
               " module6=" +
               Default("QoxGenericRulesu.dll") +
               "\n"
               " module7=" +
               Default("QOXCastingRulesu.dll") +
               "\n"
               " module8=" +
               Default("QOXDieCastRulesu.dll") +
               "\n"
               " module9=" +
               Default("QoxToleranceRulesu.dll") +
               "\n"
               " module12=" +
               Default("QOXTubingRulesu.dll") + "\n";
    }

    std::wstring m_programFolder = Separator + L"Opt" + Separator + L"Vantrel";
    std::wstring m_loweredFolder = Separator + L"opt" + Separator + L"vantrel" + Separator;
    std::map<std::wstring, std::wstring> m_environment;
};

} // namespace

TEST_F(ModuleConfigurationTest, AFreshStartWritesTwoSectionsAndElevenKeys)
{
    const std::list<std::wstring> ruleModules = Configured(RuleModuleSection);
    const std::list<std::wstring> databaseModules = Configured(DatabaseModuleSection);
    EXPECT_EQ(Saved(), DefaultRuleModules() +
                           " [RULE_DATABASE_MODULES]\n"
                           " module1=" +
                           Default("QoxSqliteDatabaseu.dll") + "\n");
    EXPECT_THAT(ruleModules,
                ElementsAre(m_loweredFolder + L"qoxmillrulesu.dll", m_loweredFolder + L"qoxturnrulesu.dll",
                            m_loweredFolder + L"qoxsmrulesu.dll", m_loweredFolder + L"qoximrulesu.dll",
                            m_loweredFolder + L"qoxassemblyrulesu.dll", m_loweredFolder + L"qoxgenericrulesu.dll",
                            m_loweredFolder + L"qoxcastingrulesu.dll", m_loweredFolder + L"qoxdiecastrulesu.dll",
                            m_loweredFolder + L"qoxtolerancerulesu.dll"));
    EXPECT_THAT(databaseModules, ElementsAre(m_loweredFolder + L"qoxsqlitedatabaseu.dll"));
}

TEST_F(ModuleConfigurationTest, ASecondStartReadsTheSameListsAndLeavesTheFile)
{
    const std::list<std::wstring> ruleModules = Configured(RuleModuleSection);
    const std::list<std::wstring> databaseModules = Configured(DatabaseModuleSection);
    const std::string before = Bytes();
    EXPECT_EQ(Configured(RuleModuleSection), ruleModules);
    EXPECT_EQ(Configured(DatabaseModuleSection), databaseModules);
    EXPECT_EQ(Bytes(), before);
}

TEST_F(ModuleConfigurationTest, TheFirstMissingNumberEndsTheList)
{
    Configured(RuleModuleSection);
    ASSERT_TRUE(m_file.DeleteRecord("module5", RuleModuleSection, m_name));
    EXPECT_THAT(Configured(RuleModuleSection), SizeIs(4));
    EXPECT_TRUE(m_file.RecordExists("module6", RuleModuleSection, m_name));
}

TEST_F(ModuleConfigurationTest, NumberingStartsAtOneInAnyOrderAndWithoutLeadingZeros)
{
    Write("[RULE_CONFIGURATION_MODULES]\nmodule3=c\nmodule0=z\nmodule01=y\nmodule1=a\nmodule2=b\nModule4=d\n");
    EXPECT_THAT(Configured(RuleModuleSection), ElementsAre(L"a", L"b", L"c"));
}

TEST_F(ModuleConfigurationTest, AModuleThatIsThereTwiceOrCommentedOutCountsAsTheFileGivesIt)
{
    Write("[RULE_CONFIGURATION_MODULES]\nmodule1=first\nmodule1=second\n;module2=out\n");
    EXPECT_THAT(Configured(RuleModuleSection), ElementsAre(L"first", L"out"));
}

TEST_F(ModuleConfigurationTest, AnEmptyValueCountsAsAnEntry)
{
    Write("[RULE_CONFIGURATION_MODULES]\nmodule1=\nmodule2=b\n");
    EXPECT_THAT(Configured(RuleModuleSection), ElementsAre(L"", L"b"));
}

TEST_F(ModuleConfigurationTest, ASectionWithoutModulesGetsItsDefaultsBehindASecondHeader)
{
    Write("[RULE_CONFIGURATION_MODULES]\nother=kept\n[RULE_DATABASE_MODULES]\n[HELP_EDITOR]\n");
    EXPECT_THAT(Configured(RuleModuleSection), SizeIs(9));
    EXPECT_THAT(Configured(DatabaseModuleSection), SizeIs(1));
    EXPECT_EQ(Saved(), " [RULE_CONFIGURATION_MODULES]\n other=kept\n" + DefaultRuleModules() +
                           " [RULE_DATABASE_MODULES]\n [RULE_DATABASE_MODULES]\n"
                           " module1=" +
                           Default("QoxSqliteDatabaseu.dll") + "\n [HELP_EDITOR]\n");
    EXPECT_THAT(Configured(RuleModuleSection), SizeIs(9));
}

TEST_F(ModuleConfigurationTest, DefaultsGoBehindAModuleThatTheGapHides)
{
    Write("[RULE_CONFIGURATION_MODULES]\nmodule2=mine\n");
    const std::list<std::wstring> modules = Configured(RuleModuleSection);
    ASSERT_THAT(modules, SizeIs(9));
    EXPECT_EQ(*std::next(modules.begin()), L"mine") << "the first line of a number counts";
}

TEST_F(ModuleConfigurationTest, AnyOtherSectionIsReadWithoutDefaults)
{
    Write("[OTHER]\nmodule1=A.dll\n");
    const std::string before = Bytes();
    EXPECT_THAT(Configured("OTHER"), ElementsAre(L"a.dll"));
    EXPECT_THAT(Configured("MISSING"), IsEmpty());
    EXPECT_THAT(Configured("rule_configuration_modules"), IsEmpty());
    EXPECT_EQ(Bytes(), before);
}

TEST_F(ModuleConfigurationTest, AMissingFileIsMadeForAnySection)
{
    EXPECT_THAT(Configured("OTHER"), IsEmpty());
    EXPECT_EQ(Bytes(), "");
}

TEST_F(ModuleConfigurationTest, PathsKeepTheirCaseInTheFileAndHaveNoneInTheList)
{
    Write(" [RULE_CONFIGURATION_MODULES]\n module1=/Opt/MyRules.DLL\n");
    const std::string before = Bytes();
    EXPECT_THAT(Configured(RuleModuleSection), ElementsAre(L"/opt/myrules.dll"));
    EXPECT_EQ(Bytes(), before);
}

TEST_F(ModuleConfigurationTest, TheSystemsOwnLibrarySuffixBecomesTheConfiguredOne)
{
    const std::wstring path = Platform::ToLower(Platform::ConfiguredLibraryName(L"/opt/rules.so"));
    EXPECT_THAT(ConfiguredAs("/opt/Rules.so"), ElementsAre(path));
}

TEST_F(ModuleConfigurationTest, CharactersOutsideAsciiComeThroughTheCodePage)
{
    EXPECT_THAT(ConfiguredAs(Platform::ToCodePage(L"/opt/\u00DCbung.dll")),
                ElementsAre(Platform::ToLower(Platform::FromCodePage(Platform::ToCodePage(L"/opt/\u00DCbung.dll")))));
}

TEST_F(ModuleConfigurationTest, AVariableIsReplacedByItsText)
{
    m_environment[L"HOME_DIR"] = L"C:\\A";
    EXPECT_THAT(ConfiguredAs("%HOME_DIR%\\x.dll"), ElementsAre(L"c:\\a\\x.dll"));
    EXPECT_THAT(ConfiguredAs("x%HOME_DIR%y%HOME_DIR%z"), ElementsAre(L"xc:\\ayc:\\az"));
}

TEST_F(ModuleConfigurationTest, AnUnsetVariableTakesWhatStandsBeforeItAlong)
{
    m_environment[L"A"] = L"a";
    EXPECT_THAT(ConfiguredAs("C:\\%UNSET%\\x.dll"), ElementsAre(L"unset%\\x.dll"));
    EXPECT_THAT(ConfiguredAs("C:\\%UNSET%\\%A%.dll"), ElementsAre(L"unset%\\%a%.dll"));
    EXPECT_THAT(ConfiguredAs("%A%%UNSET%x"), ElementsAre(L"unset%x"));
    EXPECT_THAT(ConfiguredAs("a%%b"), ElementsAre(L"%b"));
    EXPECT_THAT(ConfiguredAs("50%"), ElementsAre(L""));
}

TEST_F(ModuleConfigurationTest, AVariablesTextIsExpandedInTurn)
{
    m_environment = { { L"A", L"%B%/a" }, { L"B", L"b" } };
    EXPECT_THAT(ConfiguredAs("%A%/x"), ElementsAre(L"b/a/x"));
}

TEST_F(ModuleConfigurationTest, AVariableThatIsSetToNothingIsReplacedByNothing)
{
    m_environment[L"A"] = L"";
    EXPECT_THAT(ConfiguredAs("x%A%y"), ElementsAre(L"xy"));
}

TEST_F(ModuleConfigurationTest, ASinglePercentSignMakesTheRestBothNameAndSuffix)
{
    m_environment[L"rest"] = L"text";
    EXPECT_THAT(ConfiguredAs("pre%rest"), ElementsAre(L"pretextrest"));
    EXPECT_THAT(ConfiguredAs("pre%other"), ElementsAre(L"other"));
}

TEST_F(ModuleConfigurationTest, AVariableThatNamesItselfEndsExpandingInTheEnd)
{
    m_environment = { { L"SAME", L"%SAME%" },
                      { L"GROW", L"%GROW%x" },
                      { L"DOUBLE", L"%DOUBLE%%DOUBLE%" },
                      { L"LONG", L"%LONG%" + std::wstring(20'000, L'x') } };
    EXPECT_THAT(ConfiguredAs("a%SAME%b"), ElementsAre(L"a%same%b"));
    EXPECT_THAT(ConfiguredAs("%GROW%"), ElementsAre(testing::StartsWith(L"%grow%xxx")));
    for (const char* const value : { "%GROW%", "%DOUBLE%", "%LONG%" })
    {
        const std::list<std::wstring> modules = ConfiguredAs(value);
        ASSERT_THAT(modules, SizeIs(1));
        EXPECT_LT(modules.front().size(), 100'000U) << value;
    }
}

TEST_F(ModuleConfigurationTest, LongChainsOfVariablesAreExpandedToTheirEnd)
{
    for (int number = 0; number < 500; ++number)
    {
        m_environment[L"V" + std::to_wstring(number)] = L"%V" + std::to_wstring(number + 1) + L"%";
    }
    m_environment[L"V500"] = L"end";
    EXPECT_THAT(ConfiguredAs("%V0%"), ElementsAre(L"end"));
}

TEST_F(ModuleConfigurationTest, DefaultsAreNotExpandedWhenTheyAreWritten)
{
    m_programFolder = L"/opt/%A%";
    m_environment[L"A"] = L"a";
    EXPECT_EQ(Configured(RuleModuleSection).front(), L"/opt/%a%" + Platform::ToLower(Separator + L"QoxMillRulesu.dll"));
    EXPECT_EQ(Configured(RuleModuleSection).front(), L"/opt/a" + Platform::ToLower(Separator + L"QoxMillRulesu.dll"));
}

TEST_F(ModuleConfigurationTest, AFileThatCanNotBeMadeGivesEmptyLists)
{
    m_path = m_folder.File(L"missing") + Separator + L"ConfigModule.ini";
    EXPECT_THAT(Configured(RuleModuleSection), IsEmpty());
    EXPECT_THAT(Configured(DatabaseModuleSection), IsEmpty());
    EXPECT_FALSE(Platform::PathExists(m_folder.File(L"missing")));
}

TEST_F(ModuleConfigurationTest, WithoutAnyPathOfTheFileTheListsAreEmpty)
{
    m_path.clear();
    EXPECT_THAT(Configured(RuleModuleSection), IsEmpty());
    EXPECT_THAT(Configured(DatabaseModuleSection), IsEmpty());
}

TEST_F(ModuleConfigurationTest, AMalformedFileGivesEmptyListsAndStaysAsItIs)
{
    const std::string malformed = "[RULE_CONFIGURATION_MODULES]\nmodule1=a\n[open\n";
    Write(malformed);
    EXPECT_THAT(Configured(RuleModuleSection), IsEmpty());
    EXPECT_THAT(Configured(DatabaseModuleSection), IsEmpty());
    EXPECT_EQ(Bytes(), malformed);
}

TEST_F(ModuleConfigurationTest, AListOfThousandsIsReadWithoutReadingTheFileThousandsOfTimes)
{
    std::string text = "[RULE_CONFIGURATION_MODULES]\n";
    for (int number = 1; number <= 50'000; ++number)
    {
        text += "module" + std::to_string(number) + "=m" + std::to_string(number) + "\n";
    }
    Write(text);
    const std::list<std::wstring> modules = Configured(RuleModuleSection);
    ASSERT_THAT(modules, SizeIs(50'000));
    EXPECT_EQ(modules.back(), L"m50000");
}

TEST_F(ModuleConfigurationTest, TheFileLiesInTheDataSettingsFolderAndTheProgramReadsItThere)
{
    const ScopedEnvironment dataFolder("vantrel_data_dir", m_folder.Path());
    const std::wstring settings = m_folder.File(L"Settings") + Separator;
    EXPECT_EQ(GetDataSettingsFolder(), settings);
    m_path = settings + L"ConfigModule.ini";
    EXPECT_EQ(GetModuleConfigFile(), m_path);

    m_programFolder = Platform::ProgramFolder();
    std::list<std::wstring> modules;
    ReadDBModules(modules);
    EXPECT_THAT(modules, SizeIs(1));
    ReadConfigModules(modules);
    EXPECT_THAT(modules, SizeIs(9));
    EXPECT_EQ(Saved(),
              " [RULE_DATABASE_MODULES]\n module1=" + Default("QoxSqliteDatabaseu.dll") + "\n" + DefaultRuleModules());
}

TEST_F(ModuleConfigurationTest, TheProgramExpandsTheVariablesOfItsEnvironment)
{
    const ScopedEnvironment dataFolder("vantrel_data_dir", m_folder.Path());
    const ScopedEnvironment variable("VANTREL_TEST_MODULES", L"/Mine");
    m_path = GetModuleConfigFile();
    Write("[RULE_CONFIGURATION_MODULES]\nmodule1=%VANTREL_TEST_MODULES%/x.dll\n");
    std::list<std::wstring> modules;
    ReadConfigModules(modules);
    EXPECT_THAT(modules, ElementsAre(L"/mine/x.dll"));
}

TEST_F(ModuleConfigurationTest, ADataSettingsFolderLongerThanTheFirstBufferIsAskedForAgain)
{
    std::wstring folder = m_folder.Path();
    for (int level = 0; level < 3; ++level)
    {
        folder += Separator + std::wstring(120, L'd');
    }
    const ScopedEnvironment dataFolder("vantrel_data_dir", folder);
    EXPECT_EQ(GetModuleConfigFile(), folder + Separator + L"Settings" + Separator + L"ConfigModule.ini");
}

namespace
{

/// A folder of the length, as a framework library would give it.
template <std::size_t Length>
std::size_t FolderOfLength(wchar_t* buffer, std::size_t* size)
{
    std::fill_n(buffer, std::min(Length, *size), L'f');
    *size = Length;
    return Length;
}

/// A folder that is longer each time.
std::size_t GrowingFolder(wchar_t* buffer, std::size_t* size)
{
    std::fill_n(buffer, *size, L'f');
    return *size + 100;
}

} // namespace

TEST(DataSettingsFolderTest, FoldersOfAllLengthsComeWhole)
{
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<0>), L"");
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<259>), std::wstring(259, L'f'));
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<260>), std::wstring(260, L'f'));
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<261>), std::wstring(261, L'f'));
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<5000>), std::wstring(5000, L'f'));
}

TEST(DataSettingsFolderTest, AFolderThatCanNotBeToldWholeIsNone)
{
    EXPECT_EQ(DataSettingsFolder(nullptr), L"") << "the library lacks the function";
    EXPECT_EQ(DataSettingsFolder(&GrowingFolder), L"");
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<static_cast<std::size_t>(-1)>), L"");
    EXPECT_EQ(DataSettingsFolder(&FolderOfLength<(static_cast<std::size_t>(-1) >> 4)>), L"") << "no such memory";
}

TEST_F(ModuleConfigurationTest, DefaultsThatCouldNotBeReadBackAreListedButNotEntered)
{
    for (const wchar_t* const name : { L"a[b", L"vantrel [beta]" })
    {
        m_programFolder = Separator + L"opt" + Separator + name;
        Write("[QOX_DEFAULT]\nDefaultHelpEditor=x\n");
        for (int time = 0; time < 2; ++time)
        {
            const std::list<std::wstring> modules = Configured(RuleModuleSection);
            ASSERT_THAT(modules, SizeIs(9));
            EXPECT_EQ(modules.front(), m_programFolder + Separator + L"qoxmillrulesu.dll");
            EXPECT_EQ(modules.back(), m_programFolder + Separator + L"qoxtolerancerulesu.dll");
            EXPECT_THAT(Configured(DatabaseModuleSection),
                        ElementsAre(m_programFolder + Separator + L"qoxsqlitedatabaseu.dll"));
        }
        EXPECT_EQ(Saved(), "[QOX_DEFAULT]\nDefaultHelpEditor=x\n");
    }
}
