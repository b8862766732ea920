#include "Utilities/UIUtilities.h"

#include <gtest/gtest.h>

#include <utility>

TEST(UIUtilitiesTest, ZerosAtTheEndOfDecimalsAreTrimmedAndThenThePoint)
{
    for (const auto& [text, trimmed] : { std::pair<const wchar_t*, const wchar_t*>{ L"1.500", L"1.5" },
                                         { L"2.000", L"2" },
                                         { L"2.", L"2" },
                                         { L"-0.50", L"-0.5" },
                                         { L"1.2.00", L"1.2" },
                                         { L"10.05", L"10.05" } })
    {
        std::wstring value = text;
        CUIUtilities::TrimTrailingZeros(value);
        EXPECT_EQ(value, trimmed) << text;
    }
}

TEST(UIUtilitiesTest, ATextWithoutAPointOrWithOneAtItsStartStays)
{
    for (const wchar_t* const text : { L"100", L"", L"0", L".500", L".", L"inf" })
    {
        std::wstring value = text;
        CUIUtilities::TrimTrailingZeros(value);
        EXPECT_EQ(value, text);
    }
}
