#include "Application/CurrentRuleFile.h"

#include "tests/Support/TemporaryFolder.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/VantrelLog.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{

class CurrentRuleFileTest : public testing::Test
{
protected:
    CurrentRuleFileTest() { CVantrelLog::OpenLogFile(log); }
    ~CurrentRuleFileTest() override { CVantrelLog::CloseLogFile(); }

    /// The texts of the lines, one after the other.
    std::string Logged() const
    {
        std::istringstream lines(ReadBytes(log));
        std::string texts;
        for (std::string line; std::getline(lines, line);)
        {
            texts += line.substr(line.rfind('\t') + 1) + "|";
        }
        return texts;
    }

    TemporaryFolder folder;
    std::wstring log = folder.File(L"run.log");
    CurrentRuleFile current;
};

} // namespace

TEST_F(CurrentRuleFileTest, EachChangeOfTheActiveDocumentIsLogged)
{
    current.OnActivated(L"a.vrf");
    current.OnActivated(L"b.vrf");
    current.OnActivated(L"a.vrf");
    EXPECT_EQ(Logged(), "Current Rule File is a.vrf|Current Rule File is b.vrf|Current Rule File is a.vrf|");
}

TEST_F(CurrentRuleFileTest, AWindowThatComesBackWithTheSameTextIsNotLoggedAgain)
{
    current.OnActivated(L"a.vrf");
    current.OnActivated(L"a.vrf");
    EXPECT_EQ(Logged(), "Current Rule File is a.vrf|");
    current.OnActivated(L"a.vrf*");
    EXPECT_EQ(Logged(), "Current Rule File is a.vrf|Current Rule File is a.vrf*|");
}
