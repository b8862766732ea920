#include "ModuleChecker/CheckReport.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace
{

using namespace ModuleChecker;

class CheckReportTest : public testing::Test
{
protected:
    std::vector<CheckNote> notes;
    CheckReport report{ [this](const CheckNote& note) { notes.push_back(note); } };
};

TEST_F(CheckReportTest, NoteIsOneLineWhateverAModuleGives)
{
    report.Error(L"rule \"a\nb\"", L"text\twith\r\ncontrol \x7f characters");
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].kind, CheckNote::Kind::Error);
    EXPECT_EQ(notes[0].text, L"rule \"a b\": text with  control   characters");
}

TEST_F(CheckReportTest, WithoutAPlaceThereIsNoColon)
{
    report.Warning({}, L"text");
    EXPECT_EQ(notes.at(0).text, L"text");
}

TEST_F(CheckReportTest, CallIsToldBeforeItIsMadeAndWhatItThrowsAfterwards)
{
    EXPECT_TRUE(Try(report, L"place", L"First", [this] { EXPECT_EQ(notes.size(), 1U); }));
    EXPECT_FALSE(Try(report, L"place", L"Second", [] { throw std::runtime_error("why"); }));
    EXPECT_FALSE(Try(report, L"place", L"Third", [] { throw 1; }));
    ASSERT_EQ(notes.size(), 5U);
    EXPECT_EQ(notes[0].kind, CheckNote::Kind::Step);
    EXPECT_EQ(notes[0].text, L"place: First");
    EXPECT_EQ(notes[2].text, L"place: Second throws an exception: why");
    EXPECT_EQ(notes[4].text, L"place: Third throws an exception that is no std::exception");
}

TEST_F(CheckReportTest, PlacesNameRuleAndParameterAndCountWhatHasNoName)
{
    ConcreteQOXRule rule;
    EXPECT_EQ(PlaceOf(rule, 3), L"rule 3 without a name");
    rule.m_strRuleName = L"Holes";
    EXPECT_EQ(PlaceOf(rule, 3), L"rule \"Holes\"");
    CQoxParamStorage parameter;
    parameter.nNumber = 2;
    EXPECT_EQ(PlaceOf(L"rule 1", parameter), L"rule 1, parameter 2");
    parameter.strName = L"Depth";
    EXPECT_EQ(PlaceOf(L"rule 1", parameter), L"rule 1, parameter 2 \"Depth\"");
}

TEST_F(CheckReportTest, CountsAreSingularForOne)
{
    EXPECT_EQ(Counted(0, L"error"), L"0 errors");
    EXPECT_EQ(Counted(1, L"error"), L"1 error");
    EXPECT_EQ(Counted(2, L"error"), L"2 errors");
}

} // namespace
