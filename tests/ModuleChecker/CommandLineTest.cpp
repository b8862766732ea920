#include "ModuleChecker/CommandLine.h"

#include <gtest/gtest.h>

namespace
{

using namespace ModuleChecker;

std::optional<Request> Read(const std::vector<std::wstring>& words)
{
    std::wstring problem;
    std::optional<Request> request = ReadCommandLine(words, problem);
    EXPECT_EQ(request.has_value(), problem.empty());
    return request;
}

std::wstring ProblemOf(const std::vector<std::wstring>& words)
{
    std::wstring problem;
    EXPECT_FALSE(ReadCommandLine(words, problem).has_value());
    return problem;
}

TEST(CommandLine, NamesModulesInTheirOrder)
{
    const auto request = Read({ L"one.so", L"two.so" });
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, Request::Kind::Check);
    EXPECT_EQ(request->modules, (std::vector<std::wstring>{ L"one.so", L"two.so" }));
    EXPECT_EQ(request->timeLimit, std::chrono::seconds(10));
    EXPECT_FALSE(request->strict);
    EXPECT_TRUE(request->useOwnDatabase);
}

TEST(CommandLine, TakesOptionsBeforeAndBehindModules)
{
    const auto request = Read({ L"--strict", L"one.so", L"--database", L"a.so", L"--database", L"b.so", L"--time-limit",
                                L"3", L"--no-database" });
    ASSERT_TRUE(request);
    EXPECT_TRUE(request->strict);
    EXPECT_FALSE(request->useOwnDatabase);
    EXPECT_EQ(request->databaseModules, (std::list<std::wstring>{ L"a.so", L"b.so" }));
    EXPECT_EQ(request->timeLimit, std::chrono::seconds(3));
    EXPECT_EQ(request->modules, std::vector<std::wstring>{ L"one.so" });
}

TEST(CommandLine, TwoDashesEndTheOptions)
{
    const auto request = Read({ L"--", L"--strict" });
    ASSERT_TRUE(request);
    EXPECT_FALSE(request->strict);
    EXPECT_EQ(request->modules, std::vector<std::wstring>{ L"--strict" });
}

TEST(CommandLine, HelpAndVersionNeedNoModule)
{
    EXPECT_EQ(Read({ L"--help" })->kind, Request::Kind::Help);
    EXPECT_EQ(Read({ L"-h" })->kind, Request::Kind::Help);
    EXPECT_EQ(Read({ L"--version" })->kind, Request::Kind::Version);
}

TEST(CommandLine, HelpNamesEveryOption)
{
    const std::wstring help = HelpText;
    for (const wchar_t* const option :
         { L"--database", L"--no-database", L"--time-limit", L"--strict", L"--help", L"--version" })
    {
        EXPECT_NE(help.find(option), std::wstring::npos) << testing::PrintToString(std::wstring(option));
    }
}

TEST(CommandLine, SaysWhatMakesNoSense)
{
    EXPECT_EQ(ProblemOf({}), L"name a module to check; --help tells more");
    EXPECT_EQ(ProblemOf({ L"--strict" }), L"name a module to check; --help tells more");
    EXPECT_EQ(ProblemOf({ L"--strikt", L"a" }), L"there is no option --strikt");
    EXPECT_EQ(ProblemOf({ L"a", L"--database" }), L"--database needs something behind it");
    for (const wchar_t* const limit : { L"0", L"-1", L"3601", L"99999999999999999999", L"1s", L"" })
    {
        EXPECT_EQ(ProblemOf({ L"--time-limit", limit, L"a" }),
                  L"the time limit is a number of seconds from 1 to 3600, not " + std::wstring(limit));
    }
}

} // namespace
