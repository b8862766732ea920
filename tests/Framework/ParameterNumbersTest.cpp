// Numbers of parameters on their way out of a file and into one. Plain decimals and whole
// numbers take a short way there; they must come out as on the long one.

#include <Vantrel/ConcreteQOXRule.h>
#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/QoxXml.h>

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <string>

namespace
{

class ParameterNumbersTest : public testing::Test
{
protected:
    ParameterNumbersTest()
    {
        SetXMLDoc(&m_document);
        CQoxParamStorage& parameter = m_rule.Parameters().emplace_back();
        parameter.nNumber = 1;
        parameter.eKind = ParamKind::Number;
    }
    ~ParameterNumbersTest() override { SetXMLDoc(nullptr); }

    CQoxParamStorage& Parameter() { return m_rule.Parameters().front(); }

    /// The value that a file's text gives; `Unread` if it isn't taken.
    double ValueOf(const std::string& text)
    {
        const std::unique_ptr<QoxXMLNode> rule(m_document.CreateNode(L"Rule"));
        const std::unique_ptr<QoxXMLNode> parameter(rule->AppendNode(L"Parameter", &m_document));
        parameter->AddAttribute1("Number", "1");
        parameter->AddAttribute1("Kind", "number");
        parameter->AddAttribute1("Value", text.c_str());
        Parameter().dValue = Unread;
        m_rule.PopulateParametersFromXML(rule.get());
        return Parameter().dValue;
    }

    /// The text of a value in a file; `none` without the attribute.
    std::wstring TextOf(double value)
    {
        Parameter().dValue = value;
        const std::unique_ptr<QoxXMLNode> rule(m_rule.GetXML());
        const std::unique_ptr<QoxXMLNode> parameter(rule->SelectSingleNode(L"Parameter"));
        std::wstring text = L"none";
        parameter->GetAttributeValue(L"Value", text);
        return text;
    }

    static constexpr double Unread = -12345.5;

private:
    QoxXMLDocument m_document;
    ConcreteQOXRule m_rule;
};

double Parsed(const std::string& text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

} // namespace

TEST_F(ParameterNumbersTest, DecimalsOfAnyLengthAreReadAsTheNearestNumber)
{
    std::mt19937 random(42);
    for (int round = 0; round < 20'000; ++round)
    {
        std::string text(round % 3 == 0 ? "-" : "");
        const std::size_t digits = 1 + random() % 20;
        const std::size_t point = random() % (digits + 4);
        for (std::size_t digit = 0; digit < digits; ++digit)
        {
            text += static_cast<char>('0' + random() % 10);
            if (digit == point && digit + 1 < digits)
            {
                text += '.';
            }
        }
        ASSERT_EQ(ValueOf(text), Parsed(text)) << text;
    }
}

TEST_F(ParameterNumbersTest, EveryFormOfANumberIsRead)
{
    EXPECT_EQ(ValueOf("0"), 0);
    EXPECT_EQ(ValueOf("007.50"), 7.5);
    EXPECT_EQ(ValueOf(".5"), 0.5);
    EXPECT_EQ(ValueOf("5."), 5);
    EXPECT_EQ(ValueOf("1e3"), 1000);
    EXPECT_EQ(ValueOf("-2.5E-3"), -0.0025);
    EXPECT_EQ(ValueOf("123456789012345"), 123456789012345);
    EXPECT_EQ(ValueOf("1234567890123456789012"), 1234567890123456789012.0);
    EXPECT_EQ(ValueOf("0.000000000000001"), 1e-15);
    EXPECT_EQ(ValueOf("0.30000000000000004"), 0.30000000000000004);
    EXPECT_TRUE(std::signbit(ValueOf("-0")));
}

TEST_F(ParameterNumbersTest, WhatIsNoNumberLeavesTheValue)
{
    for (const char* const text : { "", "-", ".", "-.", "+1", "1,5", "1.2.3", "1 ", " 1", "x", "1x", "--1", "1-", "nan",
                                    "inf", "-inf", "1e999", "0x10", "12345678901234567x" })
    {
        EXPECT_EQ(ValueOf(text), Unread) << text;
    }
}

TEST_F(ParameterNumbersTest, WholeNumbersAreWrittenAsShortAsOthers)
{
    EXPECT_EQ(TextOf(0), L"0");
    EXPECT_EQ(TextOf(-0.0), L"0");
    EXPECT_EQ(TextOf(7), L"7");
    EXPECT_EQ(TextOf(-12), L"-12");
    EXPECT_EQ(TextOf(99999), L"99999");
    EXPECT_EQ(TextOf(100000), L"1e+05");
    EXPECT_EQ(TextOf(-100001), L"-100001");
    EXPECT_EQ(TextOf(0.15), L"0.15");
    EXPECT_EQ(TextOf(1e300), L"1e+300");
}

TEST_F(ParameterNumbersTest, NumbersThatAreWrittenComeBackTheSame)
{
    std::mt19937 random(43);
    std::uniform_real_distribution<double> anyNumber(-1e6, 1e6);
    for (int round = 0; round < 5'000; ++round)
    {
        const double rounded = std::round(anyNumber(random) * std::pow(10, round % 6)) / std::pow(10, round % 6);
        const std::wstring text = TextOf(rounded);
        ASSERT_EQ(ValueOf(std::string(text.begin(), text.end())), rounded);
    }
}

TEST_F(ParameterNumbersTest, ANumberThatIsNotFiniteHasNoAttribute)
{
    EXPECT_EQ(TextOf(std::numeric_limits<double>::infinity()), L"none");
    EXPECT_EQ(TextOf(std::numeric_limits<double>::quiet_NaN()), L"none");
    EXPECT_EQ(TextOf(1), L"1") << "the next rule has it again";
}
