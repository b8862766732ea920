#include "Application/CommandLine.h"

#include <gtest/gtest.h>

TEST(CommandLineTest, WithoutArgumentsANewDocumentIsMade)
{
    const CommandLine line = ParseCommandLine({});
    EXPECT_EQ(line.shellCommand, ShellCommand::New);
    EXPECT_TRUE(line.fileName.empty());
    EXPECT_FALSE(line.IsServerStart());
}

TEST(CommandLineTest, TheFirstArgumentThatIsNoSwitchIsTheFile)
{
    const CommandLine line = ParseCommandLine({ L"-anything", L"/home/a/rules.vrf", L"second.vrf" });
    EXPECT_EQ(line.shellCommand, ShellCommand::Open);
    EXPECT_EQ(line.fileName, L"/home/a/rules.vrf");
}

TEST(CommandLineTest, UnregisteringIsAskedForWithAnyPrefixAndInAnyCase)
{
    for (const wchar_t* const argument : { L"-unregister", L"--Unregister", L"/unregister", L"/UnregServer" })
    {
        EXPECT_EQ(ParseCommandLine({ argument }).shellCommand, ShellCommand::Unregister) << argument;
    }
    const CommandLine line = ParseCommandLine({ L"-unregister", L"a.vrf" });
    EXPECT_EQ(line.shellCommand, ShellCommand::Unregister);
    EXPECT_EQ(line.fileName, L"a.vrf");
}

TEST(CommandLineTest, ServerStartsAreTold)
{
    EXPECT_TRUE(ParseCommandLine({ L"-Embedding" }).runEmbedded);
    EXPECT_TRUE(ParseCommandLine({ L"/automation" }).runAutomated);
    EXPECT_TRUE(ParseCommandLine({ L"/automation" }).IsServerStart());
}

TEST(CommandLineTest, LoneDashesAndSlashesAreFileNames)
{
    EXPECT_EQ(ParseCommandLine({ L"-" }).fileName, L"-");
    EXPECT_EQ(ParseCommandLine({ L"/" }).fileName, L"/");
    EXPECT_TRUE(ParseCommandLine({ L"--" }).fileName.empty());
    EXPECT_TRUE(ParseCommandLine({ L"" }).fileName.empty());
}

TEST(CommandLineTest, APackageIsToldByItsExtensionInAnyCase)
{
    EXPECT_TRUE(IsScriptRulePackage(L"a.qoxrule"));
    EXPECT_TRUE(IsScriptRulePackage(L"/x/a.b.QoxRule"));
    EXPECT_FALSE(IsScriptRulePackage(L"a.qoxrules"));
    EXPECT_FALSE(IsScriptRulePackage(L"a.vrf"));
}

TEST(CommandLineTest, ANameWithoutADotIsAnOrdinaryDocument)
{
    EXPECT_FALSE(IsScriptRulePackage(L"qoxrule"));
    EXPECT_FALSE(IsScriptRulePackage(L""));
}
