#include "ModuleChecker/CheckRun.h"
#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Support/ScopedEnvironment.h"
#include "tests/Support/StockLibraries.h"
#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>

namespace
{

using namespace ModuleChecker;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

/// What the checker says about modules, without the folder that they lie in.
struct Checked
{
    ExitStatus status = NoErrors;
    std::vector<std::string> lines;
};

std::wstring InFolder(const char* folder, const std::string& name)
{
    return Platform::Utf8ToWide(folder) + Platform::PathSeparator + Platform::Utf8ToWide(name);
}

std::wstring Staged(const std::string& name)
{
    return InFolder(VANTREL_STAGE_DIR "/bin", name);
}

std::wstring Broken(const std::string& name)
{
    return InFolder(VANTREL_BROKEN_MODULES_DIR, name + ".so");
}

Checked Check(Request request)
{
    Checked checked;
    const std::wstring folder = Platform::FolderPart(request.modules.front()) + Platform::PathSeparator;
    checked.status =
        CheckModules(request, Staged("vantrel-check-module"),
                     [&](const std::wstring& line)
                     {
                         const bool inFolder = line.starts_with(folder);
                         checked.lines.push_back(Platform::WideToUtf8(inFolder ? line.substr(folder.size()) : line));
                     });
    return checked;
}

Checked Check(const std::wstring& module)
{
    Request request;
    request.modules = { module };
    return Check(request);
}

/// The database module and those of rules.
std::vector<std::string> CheckedLibraries()
{
    std::vector<std::string> libraries = StockLibraries(VANTREL_STOCK_LIBRARIES);
    libraries.insert(libraries.begin(), "QoxSqliteDatabaseu");
    return libraries;
}

class StockModuleCheckTest : public testing::TestWithParam<std::string>
{
};

TEST_P(StockModuleCheckTest, PassesWithoutAWarning)
{
    Request request;
    request.modules = { Staged(GetParam() + ".so") };
    request.strict = true;
    const Checked checked = Check(request);
    EXPECT_EQ(checked.status, NoErrors);
    EXPECT_THAT(checked.lines, ElementsAre(EndsWith(": 0 errors, 0 warnings")));
    EXPECT_THAT(checked.lines.front(), testing::ContainsRegex("1[0-9] rules with [0-9]+ parameters|database with"));
}

INSTANTIATE_TEST_SUITE_P(All, StockModuleCheckTest, testing::ValuesIn(CheckedLibraries()),
                         [](const testing::TestParamInfo<std::string>& test) { return test.param; });

/// A broken module and what has to be said about it.
struct BrokenCase
{
    const char* module;
    const char* line; ///< Behind the module's name.
};

void PrintTo(const BrokenCase& broken, std::ostream* stream)
{
    *stream << broken.module;
}

constexpr BrokenCase BrokenCases[] = {
    { "FaultNoGetRule", "error: GetRule isn't exported, which a rule module must have" },
    { "FaultUndefinedSymbol", "error: it can't be loaded: " },
    { "FaultCrashesAsItIsLoaded", "error: loading it crashed the process: Aborted" },
    { "FaultCrashesAtTheEnd", "error: releasing it crashed the process: Aborted" },
    { "FaultGetAllRulesThrows", "error: GetAllRules throws an exception: no rules today" },
    { "FaultGetAllRulesNeverReturns", "error: GetAllRules didn't come back within 3 s" },
    { "FaultGivesANullRule", "error: rule 3: GetAllRules gives a null pointer for it" },
    { "FaultGivesItsObjectsTwice",
      R"(error: rule "FirstRule": GetAllRules gives the same object again; each call makes new ones)" },
    { "FaultTwoRulesOfOneName",
      R"(error: rule "FIRSTRULE": another rule has the same name; case makes no difference)" },
    { "FaultNoRuleName", "error: rule 2 without a name: the rule has no name (m_strRuleName)" },
    { "FaultNoSecondSummary", R"(error: rule "FirstRule": the rule has no second summary)" },
    { "FaultCriticalityOutOfRange", R"(error: rule "SecondRule": its criticality 6 isn't 1 to 5)" },
    { "FaultNumberTwice",
      R"(error: rule "FirstRule", parameter 1 "Count": another parameter of the rule has the same number)" },
    { "FaultDefaultOutsideItsRange",
      R"(error: rule "SecondRule", parameter 1 "Length": the default 11 lies outside its range from 0.5 to 10)" },
    { "FaultRangeWithoutRoom",
      R"(error: rule "FirstRule", parameter 1 "Length": its range from 10 to 10 has no room)" },
    { "FaultHalfAWholeNumber", R"(error: rule "FirstRule", parameter 2 "Count": the default 2.5 is no whole number)" },
    { "FaultDefaultIsNoChoice",
      R"(error: rule "FirstRule", parameter 3 "Choice": the default "C" is none of the choices)" },
    { "FaultGetXMLGivesNothing", R"(error: rule "FirstRule": GetXML gives no element)" },
    { "FaultGetXMLCrashes", R"(error: rule "FirstRule": GetXML crashed the process: Segmentation fault)" },
    { "FaultComesBackChanged",
      R"(error: rule "SecondRule": a rule with changed values comes back from a file as another: )" },
    { "FaultDoesNotKnowItsOwnRule", R"(error: rule "SecondRule": GetRule doesn't know the rule's own element)" },
    { "FaultTakesForeignElements",
      R"(error: rule "FirstRule": GetRule takes an element with the RuleModule "A Module Of Somebody Else")" },
    { "FaultExitsInGetRule", R"(error: rule "FirstRule": GetRule ended the process with status 0)" },
    { "FaultDriftsInUnits", R"(error: rule "FirstRule", parameter 1 "Length": the value )" },
    { "FaultStaysInItsUnits", R"(error: rule "FirstRule", parameter 1 "Length": the value isn't converted to )" },
    { "FaultTakesNoValuesOver",
      R"(error: rule "FirstRule": UpdateRule doesn't take over the values of another rule of its kind)" },
    { "FaultCopiesBadly", R"(error: rule "FirstRule": a copy of the rule by its own operator= is another)" },
    { "FaultModuleNameIsEmpty", "error: GetModuleName gives no name" },
    { "FaultRulesNameAnotherModule",
      R"(error: rule "FirstRule": its module (m_strRuleModule) is "Other Rules", but GetModuleName gives "Broken Rules")" },
    { "FaultNameMarksUserDefinedRules", R"(error: GetModuleName gives "vsta rule", which marks rules that users)" },
    { "FaultDeleteRuleThrows", R"(error: rule "FirstRule": DeleteRule throws an exception that is no std::exception)" },
};

class BrokenModuleCheckTest : public testing::TestWithParam<BrokenCase>
{
};

TEST_P(BrokenModuleCheckTest, IsToldInAClearWord)
{
    Request request;
    request.modules = { Broken(GetParam().module) };
    request.timeLimit = std::chrono::seconds(GetParam().module == std::string("FaultGetAllRulesNeverReturns") ? 3 : 60);
    const Checked checked = Check(request);
    EXPECT_EQ(checked.status, Errors);
    const std::string start = std::string(GetParam().module) + ".so: " + GetParam().line;
    EXPECT_THAT(checked.lines, Contains(testing::StartsWith(start)));
    EXPECT_THAT(checked.lines.back(), HasSubstr(" error"));
}

INSTANTIATE_TEST_SUITE_P(All, BrokenModuleCheckTest, testing::ValuesIn(BrokenCases),
                         [](const testing::TestParamInfo<BrokenCase>& test) { return test.param.module; });

TEST(ModuleCheck, ModuleWithoutAFaultPasses)
{
    EXPECT_THAT(Check(Broken("FaultNone")).lines,
                ElementsAre("FaultNone.so: 2 rules with 6 parameters: 0 errors, 0 warnings"));
}

TEST(ModuleCheck, SampleForModuleMakersPassesWithoutAWarning)
{
    EXPECT_THAT(Check(Broken("SampleRuleModule")).lines,
                ElementsAre("SampleRuleModule.so: 1 rule with 3 parameters: 0 errors, 0 warnings"));
}

TEST(ModuleCheck, DriftNamesTheUnitsThatItComesUpWith)
{
    const Checked checked = Check(Broken("FaultDriftsInUnits"));
    EXPECT_THAT(checked.lines, Contains(testing::ContainsRegex(
                                   "the value 1.23456789 is 1.23456[0-9]* after a change of units to .*eters, "
                                   ".* and back|the value isn't converted to .*: .* in place of ")));
}

TEST(ModuleCheck, MissingOptionalExportIsAWarningWhichCountsIfSo)
{
    Request request;
    request.modules = { Broken("FaultNoDeleteRule") };
    Checked checked = Check(request);
    EXPECT_THAT(checked.lines, Contains("FaultNoDeleteRule.so: warning: DeleteRule isn't exported: rules that are no "
                                        "longer needed stay in memory"));
    request.strict = true;
    EXPECT_EQ(Check(request).status, Errors);
}

TEST(ModuleCheck, LibraryWithoutAnyExportIsNoModule)
{
    const Checked checked = Check(InFolder(VANTREL_TEST_MODULES_DIR, "TestModuleEmpty.so"));
    EXPECT_EQ(checked.status, Errors);
    EXPECT_THAT(checked.lines, Contains(HasSubstr("it has none of the exports of a rule module")));
}

TEST(ModuleCheck, DatabaseModulesWithoutADatabaseOrAnExportAreTold)
{
    const Checked noDatabase = Check(InFolder(VANTREL_TEST_MODULES_DIR, "TestDatabaseNull.so"));
    EXPECT_EQ(noDatabase.status, Errors);
    EXPECT_THAT(noDatabase.lines, Contains("TestDatabaseNull.so: error: GetDbInterface gives no database"));
    const Checked noDelete = Check(InFolder(VANTREL_TEST_MODULES_DIR, "TestDatabaseNoDelete.so"));
    EXPECT_EQ(noDelete.status, Errors);
    EXPECT_THAT(noDelete.lines, Contains("TestDatabaseNoDelete.so: error: DeleteDbInterface isn't exported, which a "
                                         "database module must have"));
}

TEST(ModuleCheck, WhatIsNoLibraryIsToldWithAStatusOfItsOwn)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File(L"text.so"), "This is a text.\n");
    const std::string library = ReadBytes(Broken("FaultNone"));
    WriteBytes(folder.File(L"half.so"), library.substr(0, 4096));
    ASSERT_TRUE(Platform::MakeFolder(folder.File(L"folder.so")));
    const auto lineOf = [&folder](const wchar_t* name)
    {
        const Checked checked = Check(folder.File(name));
        EXPECT_EQ(checked.status, NothingToCheck);
        EXPECT_EQ(checked.lines.size(), 1U);
        return checked.lines.empty() ? std::string() : checked.lines.front();
    };
    EXPECT_EQ(lineOf(L"text.so"), "text.so: error: it isn't a library of this system, or not whole");
    EXPECT_EQ(lineOf(L"half.so"), "half.so: error: it isn't a library of this system, or not whole");
    EXPECT_EQ(lineOf(L"folder.so"), "folder.so: error: it is a folder");
    EXPECT_EQ(lineOf(L"missing.so"), "missing.so: error: there is no such file");
}

TEST(ModuleCheck, HeaviestStatusOfAllModulesCounts)
{
    Request request;
    request.modules = { Broken("FaultNone"), Broken("FaultNoRuleName"), Broken("FaultNone") };
    EXPECT_EQ(Check(request).status, Errors);
    request.modules = { Broken("FaultNoRuleName"), L"/no such file", Broken("FaultNone") };
    EXPECT_EQ(Check(request).status, NothingToCheck);
}

TEST(ModuleCheck, CheckerThatCannotStartItsWorkerSaysSo)
{
    Request request;
    request.modules = { Broken("FaultNone") };
    std::vector<std::wstring> lines;
    EXPECT_EQ(CheckModules(request, L"/no/such/program", [&](const std::wstring& line) { lines.push_back(line); }),
              NothingToCheck);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_TRUE(lines.front().ends_with(L"the process in which it is to be checked can't be started"));
}

TEST(ModuleCheck, NothingIsLeftInTheTemporaryFolder)
{
    const TemporaryFolder folder;
    const ScopedEnvironment temporary("TMPDIR", folder.Path());
    const ScopedEnvironment other("TEMP", folder.Path());
    Check(Broken("FaultNone"));
    Check(Broken("FaultGetXMLCrashes"));
    EXPECT_THAT(Platform::NamesInFolder(folder.Path()), testing::Optional(testing::IsEmpty()));
}

} // namespace
